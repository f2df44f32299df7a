#include "platform/Skin.h"

#include "platform/Settings.h"

namespace kestrava::platform {

void LoadSkin(SkinnedWindow& window, SkinObject& skin) {
  if (!ReadSwitch("Skin", "1")) return;
  skin.SetFirstFlag(true);
  skin.SetColour(0xDDDDDD);
  skin.SetColours(0x00CFD6, 0xFFFFFF, 0x808080);
  skin.SetSecondFlag(false);
  skin.SetFontsFromWindow();
  skin.Apply(SkinLayout{});
  window.SetBackgroundColour(skin.BackgroundColour());
}

}  // namespace kestrava::platform
