// Helpers for tests with windows. Pictures of widgets are for a human eye: written where KESTRAVA_SHOTS names a folder,
// nowhere otherwise.
#pragma once

class QImage;
class QWidget;

namespace kestrava::testing {

/// Handles all events that are under way. On a real desktop its window manager is given a moment to answer.
void HandleEvents();

/// The widget as it would stand on the screen.
QImage Grab(QWidget& widget);

void SaveShot(const QImage& picture, const char* name);
void SaveShot(QWidget& widget, const char* name);

}  // namespace kestrava::testing
