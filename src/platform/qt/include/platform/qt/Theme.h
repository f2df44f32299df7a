// The look of the whole program: an own theme, dark and calm, or the plain desktop look. Text stands out by at least
// 4.5 to 1 in both.
#pragma once

#include <QColor>
#include <QPalette>
#include <QString>

#include "platform/Surface.h"

namespace kestrava::platform::qt {

/// The tones of the dark theme. Text and accent are the skin's own numbers.
struct ThemeTones {
  QColor window{0x1b, 0x20, 0x27};
  QColor base{0x12, 0x16, 0x1b};
  QColor raised{0x2a, 0x31, 0x3a};
  QColor edge{0x46, 0x50, 0x5c};
  QColor text{0xdd, 0xdd, 0xdd};
  QColor faint{0x80, 0x80, 0x80};
  QColor accent{0xd6, 0xcf, 0x00};
  QColor chosen{0x4f, 0x4d, 0x12};
};
const ThemeTones& Tones();

/// Gives all windows, present and later ones, the dark theme or the plain look. May be called again at any time.
void ApplyTheme(bool skinOn);
/// Reads the setting Skin and applies it.
void ApplyThemeFromSettings();
bool SkinIsOn();

QPalette DarkPalette();

/// The edge of a field, a box or a list: stands out from the window by 3 to 1.
QColor EdgeColour(const QPalette& palette);
/// The mark of the focus: stands out by 3 to 1 from the window and from an edge in whose place it comes.
QColor FocusColour(const QPalette& palette);

/// Contrast of two colours by the rule of WCAG 2.1: 1 to 21.
double ContrastRatio(const QColor& a, const QColor& b);
/// Black or white, whichever reads better on a colour.
QColor ReadableOn(const QColor& back);

}  // namespace kestrava::platform::qt
