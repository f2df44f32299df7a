// The window registry: windows know each other by name through it and never include each other. It also knows which
// windows exist at all, so that a button whose window is not built stays disabled by itself.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kestrava::platform {

/// What the registry asks of a window. The window's own object is destroyed by the registry, once its events are over.
class Window {
 public:
  virtual ~Window() = default;
  /// Sets the window's tag (the map's mode, the tracker's satellite) before or while it is shown.
  virtual void SetTag(std::string_view) {}
  virtual void Show() = 0;
  virtual void Hide() = 0;
  virtual bool IsVisible() const = 0;
  /// The window's own work at its end: timers off, tables cleared. Called once by Unload, before the object goes.
  virtual void OnUnload() {}
};

class Windows {
 public:
  using Factory = std::function<std::unique_ptr<Window>()>;
  virtual ~Windows() = default;

  virtual void Register(std::string_view name, Factory factory) = 0;
  virtual bool Knows(std::string_view name) const = 0;
  /// Shows the single window of that name, made on first use. @throws Fault if no such window is registered
  virtual void Show(std::string_view name, std::string_view tag = {}) = 0;
  /// Shows a new window of that name beside those that are open.
  virtual void ShowNew(std::string_view name, std::string_view tag = {}) = 0;
  /// Is the single window of that name visible? A registered one is made, hidden, by the question; an unknown one is
  /// not.
  virtual bool IsVisible(std::string_view name) = 0;
  /// The single window if it is loaded, else null. For the small interfaces on lower floors.
  virtual Window* Find(std::string_view name) = 0;
  /// Ends one window: it leaves the registry and the screen at once, its object goes when its events are over.
  virtual void Unload(Window& window) = 0;
  /// All loaded windows in the order of loading, with their names.
  virtual std::vector<std::pair<std::string, Window*>> Loaded() const = 0;
  virtual int VisibleCount() const = 0;
};

/// The plain registry, all that there is to it. Used by the program and by tests alike. An unloaded window's object is
/// handed to the event loop (Later), so that it outlives the event in which it ended.
std::unique_ptr<Windows> MakeWindows();

}  // namespace kestrava::platform
