// The base of every window: it stands in the registry, knows when the user has come to it, keeps its place in twips,
// and holds its skin.
#pragma once

#include <QRect>
#include <QWidget>
#include <memory>
#include <string>
#include <string_view>

#include "platform/EventLoop.h"
#include "platform/Skin.h"
#include "platform/Windows.h"

namespace kestrava::platform::qt {

inline constexpr int kTwipsPerPixel = 15;  // 1/1440 inch at 96 dpi
inline constexpr int kUntoldActivationMs = 500;
/// A window that has nothing to show before its first tick has this property: false until then, true from there on.
inline constexpr const char* kFilledProperty = "filled";

constexpr int TwipsToPixels(long twips) {
  return static_cast<int>((twips >= 0 ? twips + kTwipsPerPixel / 2 : twips - kTwipsPerPixel / 2) / kTwipsPerPixel);
}
constexpr int PixelsToTwips(int pixels) {
  return pixels * kTwipsPerPixel;
}

/// The client rectangle of a window on the desktop, in twips.
struct TwipsPlace {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool operator==(const TwipsPlace&) const = default;
};

class QtSkin;

class StationWindow : public QWidget, public Window, public SkinnedWindow {
  Q_OBJECT

 public:
  /// @param name  the window's name in the registry; its object name too
  explicit StationWindow(std::string_view name, QWidget* parent = nullptr);
  ~StationWindow() override;

  // Of the registry.
  void SetTag(std::string_view tag) override { tag_ = tag; }
  /// Shows, raises, and asks for the focus. Shown but not told active within half a second counts as activated, once.
  void Show() override;
  void Hide() override;
  bool IsVisible() const override { return isVisible(); }
  /// Stops the window's own timer and takes it off the screen; an override calls it.
  void OnUnload() override;

  // Of the skin.
  void SetBackgroundColour(Colour colour) override;

  const std::string& Tag() const { return tag_; }
  bool IsMinimised() const { return isMinimized(); }
  /// The place as the user sees it: client rectangle, read and written in the same sense.
  TwipsPlace Place() const;
  /// Numbers may come from a file: sizes are brought into bounds, and a place off all screens is moved onto one.
  void SetPlace(const TwipsPlace& place);
  /// Ends the window through the registry.
  void Unload();

 protected:
  /// The user has come to the window: it was activated, or shown and not told so. Own message boxes and pop-up menus do
  /// not count as having been away. A Fault that leaves it is shown, and the window stays.
  virtual void OnActivated() {}
  /// The user asks to close. @return false to stay
  virtual bool MayClose() { return true; }
  /// Does the desktop's key for closing a window (Ctrl+W) close this one?
  virtual bool ClosesByKey() const { return true; }
  /// Gives the window its skin by the setting. Called in the load.
  void ApplySkin();

  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  /// Escape stops the voice and Ctrl+W closes, in every window that has no use of its own for them.
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void Activated();
  void NoteDeactivation();
  void KeepTitleOnScreen();

  std::string tag_;
  std::unique_ptr<QtSkin> skin_;
  std::unique_ptr<Timer> untoldTimer_;
  bool leftForOwnBox_ = false;
  bool unloading_ = false;
};

/// The rectangle moved onto a screen if it lies off all of them, with its size brought into bounds.
/// @param screens  available areas; the first one takes strays
QRect OntoAScreen(const QRect& client, const QList<QRect>& screens);

}  // namespace kestrava::platform::qt
