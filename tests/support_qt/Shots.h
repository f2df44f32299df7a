// Pictures of widgets for a human eye: written where KESTRAVA_SHOTS names a folder, nowhere otherwise.
#pragma once

class QImage;
class QWidget;

namespace kestrava::testing {

/// The widget as it would stand on the screen.
QImage Grab(QWidget& widget);

void SaveShot(const QImage& picture, const char* name);
void SaveShot(QWidget& widget, const char* name);

}  // namespace kestrava::testing
