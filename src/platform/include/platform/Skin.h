// The skin of the windows: the accents that every skinned window is given, and the order in which it gets them.
#pragma once

#include <array>

#include "platform/Surface.h"

namespace kestrava::platform {

/// The corner and source sizes of the frame picture, in pixels: source width and height, then the pieces of its
/// corners.
struct SkinLayout {
  int sourceWidth = 371;
  int sourceHeight = 241;
  std::array<int, 4> pieces{142, 90, 23, 18};
};

/// What draws a window's skin. Each window holds one from its load to its end.
class SkinObject {
 public:
  virtual ~SkinObject() = default;
  virtual void SetFirstFlag(bool on) = 0;
  virtual void SetColour(Colour colour) = 0;
  virtual void SetColours(Colour first, Colour second, Colour third) = 0;
  virtual void SetSecondFlag(bool on) = 0;
  /// Both fonts are the window's own.
  virtual void SetFontsFromWindow() = 0;
  virtual void Apply(const SkinLayout& layout) = 0;
  virtual Colour BackgroundColour() const = 0;
};

/// What the skin needs of a window.
class SkinnedWindow {
 public:
  virtual ~SkinnedWindow() = default;
  virtual void SetBackgroundColour(Colour colour) = 0;
};

/// Gives a window its skin if the setting Skin is "1"; otherwise the window keeps its plain look.
void LoadSkin(SkinnedWindow& window, SkinObject& skin);

}  // namespace kestrava::platform
