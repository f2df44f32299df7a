#pragma once
// The small pictures that move on the map: six satellites, the Sun and the Moon. Each is a pair made for two blits
// without transparency: the mask (black where the sprite shows, white around it) is ANDed on the map, the image (black
// around the sprite) is ORed on it.
#include <QImage>
#include <QString>

class QPainter;

namespace kestrava::tools {

/// Writes all pairs at 100, 150 and 200 % into `folder`.
void SaveSprites(const QString& folder);

/// Draws a satellite of the given kind (0 to 5) without its edge, 32 units wide, for use in other pictures.
void DrawSatellite(QPainter& painter, int kind);

}  // namespace kestrava::tools
