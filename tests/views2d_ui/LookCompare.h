// Small pictures of windows are compared with those in tests/data/golden. Whole pictures for the eye are saved where
// KESTRAVA_SHOTS names a folder; KESTRAVA_GOLDEN=write makes the golden ones anew.
#pragma once

#include <string>

class QImage;
class QWidget;

namespace kestrava::views2d::ui {

inline constexpr double kMayDiffer = 0.01;  // of the pixels

/// The part of the pixels that differ by more than the hinting of a machine's faces does.
double ShareOfDiffering(const QImage& a, const QImage& b);

/// Saves the whole picture as "<prefix>-<name>-x<scale>".
void Shot(QWidget& window, const std::string& prefix, const std::string& name);

/// Compares with golden/<folder>/<name>.png, after a shot.
void ExpectLooksLike(QWidget& window, const std::string& folder, const std::string& prefix, const std::string& name);

}  // namespace kestrava::views2d::ui
