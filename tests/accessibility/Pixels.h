// What stands on the screen, measured: contrasts by the rule that the theme uses.
#pragma once

#include <QImage>
#include <QRect>
#include <QWidget>

namespace kestrava::accessibility {

/// A part of a window as it would stand on the screen.
QImage GrabPart(QWidget& window, const QRect& part);

/// The colour of most of a picture.
QRgb GroundOf(const QImage& picture);

/// How much the text in a picture stands out from its ground; a few stray pixels do not count.
double TextContrast(const QImage& picture);

/// The area, in logical pixels, whose tone differs between two pictures by at least `contrast` to 1.
double ChangedArea(const QImage& before, const QImage& after, double contrast);

/// How much the edge of a box stands out from what lies around it, at its weakest side.
/// @param box  in the window's pixels; sides without room around them are not measured
/// @param round  a disc, which touches its box in the middle of each side only
double EdgeContrast(QWidget& window, const QRect& box, bool round);

}  // namespace kestrava::accessibility
