#pragma once
// The sceneries of the panoramic horizon view.
#include <QImage>

namespace kestrava::tools {

QImage VillageScenery();  ///< hills, a village, a station's mast
QImage MoonlitScenery();  ///< mountains and broken clouds in the light of a Moon outside the picture
QImage SeaScenery();      ///< a bay with a lighthouse

}  // namespace kestrava::tools
