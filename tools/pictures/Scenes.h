#pragma once
// The larger drawings: splash, the launcher's picture, the frame of the skin, the program's icon.
#include <QImage>
#include <QString>

namespace kestrava::tools {

/// The splash, 480 x 300 at 100 %, from a world map; writes it at 100, 150 and 200 %.
void SaveSplash(const QImage& map, const QString& folder);

/// The picture of the launcher's link, 140 x 60: an evening sky with a satellite passing.
QImage EveningSky();

/// The frame of the skin, 371 x 241 at 100 %; only its corners of 142 x 90 hold drawing, the rest may be stretched.
void SaveSkinFrame(const QString& folder);

/// The icon as SVG and as PNG in the usual sizes; `land` is the Natural Earth land file.
void SaveIcon(const QString& land, const QString& folder);

}  // namespace kestrava::tools
