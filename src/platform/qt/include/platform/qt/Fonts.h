// Faces by the names that the windows use. A name stands for a kind of face; each kind comes with the program, under a
// family name of its own, so that the station looks the same whatever is installed. What a face does not have (other
// scripts than Latin, Greek and Cyrillic) is taken from the machine's.
#pragma once

#include <QFont>
#include <string_view>

namespace kestrava::platform::qt {

/// The face for a name: "Small fonts" is a narrow face that stays legible when small, "Arial" a plain grotesque,
/// "Lucida Console" a fixed-pitch one. Unknown names give the interface's face.
/// @param pointSize  at 96 dpi, so 3 points are 4 logical pixels
QFont FontByName(std::string_view name, int pointSize, bool bold);

/// The same for a picture of which each logical pixel is `scale` device pixels; sized in device pixels.
QFont FontForScale(std::string_view name, int pointSize, bool bold, double scale);

/// The face of all controls.
QFont InterfaceFont();

}  // namespace kestrava::platform::qt
