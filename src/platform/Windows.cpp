#include "platform/Windows.h"

#include <algorithm>
#include <map>

#include "platform/Doors.h"
#include "platform/Fault.h"

namespace kestrava::platform {

namespace {

struct LoadedWindow {
  std::string name;
  bool single = false;
  std::shared_ptr<Window> window;
};

/// Keeps an unloaded window until the event in which it ended is over.
class Farewell {
 public:
  explicit Farewell(std::shared_ptr<Window> window) : window_(std::move(window)) {}
  Farewell(const Farewell&) = delete;
  Farewell& operator=(const Farewell&) = delete;
  ~Farewell() {
    if (TheDoors().eventLoop) TheEventLoop().Later([window = std::move(window_)] {});
  }

 private:
  std::shared_ptr<Window> window_;
};

class WindowRegistry : public Windows {
 public:
  ~WindowRegistry() override {
    while (!loaded_.empty()) loaded_.pop_back();
  }

  void Register(std::string_view name, Factory factory) override {
    factories_.insert_or_assign(std::string(name), std::move(factory));
  }

  bool Knows(std::string_view name) const override { return factories_.find(name) != factories_.end(); }

  void Show(std::string_view name, std::string_view tag) override {
    if (IsBeingMade(name)) return;
    ShowTagged(Single(name), tag);
  }

  void ShowNew(std::string_view name, std::string_view tag) override { ShowTagged(Load(name, false), tag); }

  bool IsVisible(std::string_view name) override {
    if (!Knows(name) || IsBeingMade(name)) return false;
    return Single(name)->IsVisible();
  }

  Window* Find(std::string_view name) override {
    const auto entry = FindSingle(name);
    return entry == loaded_.end() ? nullptr : entry->window.get();
  }

  void Unload(Window& window) override {
    const auto entry = std::find_if(loaded_.begin(), loaded_.end(),
                                    [&](const LoadedWindow& loaded) { return loaded.window.get() == &window; });
    if (entry == loaded_.end()) return;  // it is ending already
    const Farewell farewell(entry->window);
    loaded_.erase(entry);
    window.Hide();
    window.OnUnload();
  }

  std::vector<std::pair<std::string, Window*>> Loaded() const override {
    std::vector<std::pair<std::string, Window*>> all;
    for (const LoadedWindow& entry : loaded_) all.emplace_back(entry.name, entry.window.get());
    return all;
  }

  int VisibleCount() const override {
    return static_cast<int>(std::count_if(loaded_.begin(), loaded_.end(),
                                          [](const LoadedWindow& entry) { return entry.window->IsVisible(); }));
  }

 private:
  std::vector<LoadedWindow>::iterator FindSingle(std::string_view name) {
    return std::find_if(loaded_.begin(), loaded_.end(),
                        [&](const LoadedWindow& entry) { return entry.single && entry.name == name; });
  }

  bool IsBeingMade(std::string_view name) const {
    return std::find(beingMade_.begin(), beingMade_.end(), name) != beingMade_.end();
  }

  std::shared_ptr<Window> Single(std::string_view name) {
    const auto entry = FindSingle(name);
    return entry != loaded_.end() ? entry->window : Load(name, true);
  }

  /// Makes a window. While a single one is being made, questions about it find none instead of making another.
  std::shared_ptr<Window> Load(std::string_view name, bool single) {
    const auto factory = factories_.find(name);
    if (factory == factories_.end()) throw Fault::ObjectNotSet();
    struct Making {
      std::vector<std::string>& names;
      ~Making() { names.pop_back(); }
    };
    beingMade_.push_back(single ? std::string(name) : std::string());
    const Making making{beingMade_};
    std::shared_ptr<Window> window = factory->second();
    if (!window) throw Fault::ObjectNotSet();
    loaded_.push_back({std::string(name), single, window});
    return window;
  }

  /// The window is held while it shows: it may end itself in its own first event.
  static void ShowTagged(const std::shared_ptr<Window>& window, std::string_view tag) {
    if (!tag.empty()) window->SetTag(tag);
    window->Show();
  }

  std::map<std::string, Factory, std::less<>> factories_;
  std::vector<LoadedWindow> loaded_;
  std::vector<std::string> beingMade_;
};

}  // namespace

std::unique_ptr<Windows> MakeWindows() {
  return std::make_unique<WindowRegistry>();
}

}  // namespace kestrava::platform
