#include "platform/qt/Theme.h"

#include <QApplication>
#include <QPointer>
#include <QStyle>
#include <QStyleFactory>
#include <QWidget>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

#include "platform/Settings.h"
#include "platform/qt/Fonts.h"

#include "ThemeStyle.h"

namespace kestrava::platform::qt {
namespace {

/// The desktop's own look, as it was before the theme first came over it.
struct PlainLook {
  QString style;
  QPalette palette;
};

constexpr double kLegibleContrast = 4.5;
constexpr float kHintStrength = 0.7F;
constexpr double kEdgeContrast = 3.25;
constexpr double kFocusOnEdgeContrast = 3.1;
constexpr int kSteps = 32;

struct RolePair {
  QPalette::ColorRole text;
  QPalette::ColorRole ground;
};
constexpr std::array kTextOnGround{
    RolePair{QPalette::WindowText, QPalette::Window}, RolePair{QPalette::Text, QPalette::Base},
    RolePair{QPalette::ButtonText, QPalette::Button}, RolePair{QPalette::HighlightedText, QPalette::Highlight},
    RolePair{QPalette::ToolTipText, QPalette::ToolTipBase}};

/// @param share  0: from, 1: to
QColor Towards(const QColor& from, const QColor& to, double share) {
  const auto mixed = [share](int a, int b) { return static_cast<int>(a + share * (b - a) + 0.5); };
  return {mixed(from.red(), to.red()), mixed(from.green(), to.green()), mixed(from.blue(), to.blue())};
}

/// The first colour on the way from one to the other that stands out from `ground` by so much.
QColor StandingOut(const QColor& from, const QColor& to, const QColor& ground, double contrast) {
  for (int step = 0; step < kSteps; ++step) {
    const QColor tried = Towards(from, to, static_cast<double>(step) / kSteps);
    if (ContrastRatio(tried, ground) >= contrast) return tried;
  }
  return to;
}

/// A desktop's palette with texts that would be hard to read in black or white instead, and with hints in fields that
/// are fainter than their texts but can be read.
QPalette MadeLegible(QPalette palette) {
  for (const RolePair& pair : kTextOnGround) {
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
      const QColor ground = palette.color(group, pair.ground);
      if (ContrastRatio(palette.color(group, pair.text), ground) >= kLegibleContrast) continue;
      palette.setColor(group, pair.text, ReadableOn(ground));
    }
  }
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
    QColor hint = palette.color(group, QPalette::Text);
    hint.setAlphaF(kHintStrength);
    palette.setColor(group, QPalette::PlaceholderText, hint);
  }
  return palette;
}

const PlainLook& Plain() {
  static const PlainLook look{QApplication::style()->name(), MadeLegible(QApplication::palette())};
  return look;
}

bool& SkinFlag() {
  static bool on = false;
  return on;
}

/// What the palette cannot say: scroll bars, tool tips, menus.
QString DarkSheet() {
  const ThemeTones& t = Tones();
  return QStringLiteral(
             "QToolTip{color:%1;background:%2;border:1px solid %3;padding:3px 5px}"
             "QMenuBar{background:%4;color:%1;border-bottom:1px solid %2}"
             "QMenuBar::item{padding:3px 9px;background:transparent}"
             "QMenuBar::item:selected,QMenuBar::item:pressed{background:%5;color:#ffffff;border-radius:3px}"
             "QScrollBar:vertical{background:%6;width:11px;margin:0}"
             "QScrollBar:horizontal{background:%6;height:11px;margin:0}"
             "QScrollBar::handle{background:%3;border-radius:4px;margin:1px}"
             "QScrollBar::handle:vertical{min-height:24px}QScrollBar::handle:horizontal{min-width:24px}"
             "QScrollBar::handle:hover{background:%7}"
             "QScrollBar::add-line,QScrollBar::sub-line{width:0;height:0}"
             "QScrollBar::add-page,QScrollBar::sub-page{background:none}")
      .arg(t.text.name(), t.raised.name(), t.edge.name(), t.window.name(), t.chosen.name(), t.base.name(),
           t.faint.name());
}

/// Under a style sheet a control that is open forgets the font that it has from its window. Remembers all fonts that
/// are not the program's own, and gives back those that got lost.
class FontsKept {
 public:
  FontsKept() {
    for (QWidget* widget : QApplication::allWidgets()) {
      if (widget->font() != QApplication::font()) fonts_.emplace_back(widget, widget->font());
    }
  }
  ~FontsKept() {
    for (const auto& [widget, font] : fonts_) {
      if (widget && widget->font() != font) widget->setFont(font);
    }
  }
  FontsKept(const FontsKept&) = delete;
  FontsKept& operator=(const FontsKept&) = delete;

 private:
  std::vector<std::pair<QPointer<QWidget>, QFont>> fonts_;
};

double Linear(double channel) {
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
  return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) + 0.0722 * Linear(colour.blueF());
}

}  // namespace

const ThemeTones& Tones() {
  static const ThemeTones tones;
  return tones;
}

QPalette DarkPalette() {
  const ThemeTones& t = Tones();
  QPalette palette(t.raised, t.window);
  palette.setColor(QPalette::WindowText, t.text);
  palette.setColor(QPalette::Base, t.base);
  palette.setColor(QPalette::AlternateBase, t.window);
  palette.setColor(QPalette::Text, t.text);
  palette.setColor(QPalette::Button, t.raised);
  palette.setColor(QPalette::ButtonText, t.text);
  palette.setColor(QPalette::BrightText, Qt::white);
  palette.setColor(QPalette::ToolTipBase, t.raised);
  palette.setColor(QPalette::ToolTipText, t.text);
  palette.setColor(QPalette::PlaceholderText, QColor(0xb0, 0xb8, 0xc1));
  palette.setColor(QPalette::Highlight, t.chosen);
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, t.accent);
  palette.setColor(QPalette::LinkVisited, QColor(0xb8, 0xb4, 0x5a));
  palette.setColor(QPalette::Light, t.edge);
  palette.setColor(QPalette::Midlight, t.raised.lighter(115));
  palette.setColor(QPalette::Mid, t.edge);
  palette.setColor(QPalette::Dark, t.base);
  palette.setColor(QPalette::Shadow, Qt::black);
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, t.faint);
  }
  return palette;
}

void ApplyTheme(bool skinOn) {
  const PlainLook& plain = Plain();
  const FontsKept fontsKept;
  SkinFlag() = skinOn;
  QApplication::setFont(InterfaceFont());
  qApp->setStyleSheet({});
  if (skinOn) {
    QApplication::setStyle(new DarkStyle);  // the application owns it
    QApplication::setPalette(DarkPalette());
    qApp->setStyleSheet(DarkSheet());
  } else {
    QApplication::setStyle(new SeenStyle(QStyleFactory::create(plain.style)));
    QApplication::setPalette(plain.palette);
  }
}

void ApplyThemeFromSettings() {
  ApplyTheme(ReadSwitch("Skin", "1"));
}

QColor EdgeColour(const QPalette& palette) {
  const QColor ground = palette.color(QPalette::Active, QPalette::Window);
  return StandingOut(ground, palette.color(QPalette::Active, QPalette::WindowText), ground, kEdgeContrast);
}

// It stands beside the ground, and where an edge stood before: away from both.
QColor FocusColour(const QPalette& palette) {
  const QColor ground = palette.color(QPalette::Active, QPalette::Window);
  const QColor hue = SkinIsOn() ? Tones().accent : palette.color(QPalette::Active, QPalette::Highlight);
  const QColor far = ContrastRatio(ground, Qt::black) > ContrastRatio(ground, Qt::white) ? Qt::black : Qt::white;
  return StandingOut(hue, far, EdgeColour(palette), kFocusOnEdgeContrast);
}

bool SkinIsOn() {
  return SkinFlag();
}

double ContrastRatio(const QColor& a, const QColor& b) {
  const auto [low, high] = std::minmax({Luminance(a), Luminance(b)});
  return (high + 0.05) / (low + 0.05);
}

QColor ReadableOn(const QColor& back) {
  return ContrastRatio(back, Qt::black) >= ContrastRatio(back, Qt::white) ? QColor(Qt::black) : QColor(Qt::white);
}

}  // namespace kestrava::platform::qt
