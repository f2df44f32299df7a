#include "platform/qt/Theme.h"

#include <QApplication>
#include <QPainter>
#include <QPointer>
#include <QProxyStyle>
#include <QSlider>
#include <QStyleFactory>
#include <QStyleOption>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

#include "platform/Settings.h"
#include "platform/qt/Fonts.h"

namespace kestrava::platform::qt {
namespace {

/// The desktop's own look, as it was before the theme first came over it.
struct PlainLook {
  QString style;
  QPalette palette;
};

constexpr double kLegibleContrast = 4.5;
constexpr int kSeparatorGapPx = 6;
constexpr float kHintStrength = 0.7F;

struct RolePair {
  QPalette::ColorRole text;
  QPalette::ColorRole ground;
};
constexpr std::array kTextOnGround{
    RolePair{QPalette::WindowText, QPalette::Window}, RolePair{QPalette::Text, QPalette::Base},
    RolePair{QPalette::ButtonText, QPalette::Button}, RolePair{QPalette::HighlightedText, QPalette::Highlight},
    RolePair{QPalette::ToolTipText, QPalette::ToolTipBase}};

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

/// Fusion with focus frames, menu edges and separators, and edges of controls that can be seen on dark ground.
class DarkStyle : public QProxyStyle {
 public:
  DarkStyle() : QProxyStyle(QStyleFactory::create("Fusion")) {}

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    if (element == PE_FrameFocusRect) {
      DrawFocusFrame(option->rect, *painter);
    } else if (element == PE_FrameMenu) {
      DrawMenuEdge(option->rect, *painter);
    } else {
      QProxyStyle::drawPrimitive(element, option, painter, widget);
      if (element == PE_IndicatorCheckBox) DrawBoxEdge(*option, *painter);
      if (element == PE_IndicatorRadioButton) DrawRadioEdge(*option, *painter);
    }
  }

  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override {
    const auto* slider = control == CC_Slider ? qstyleoption_cast<const QStyleOptionSlider*>(option) : nullptr;
    if (slider != nullptr && slider->orientation == Qt::Horizontal) return DrawSlider(*slider, *painter, widget);
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    const auto* box = control == CC_ComboBox ? qstyleoption_cast<const QStyleOptionComboBox*>(option) : nullptr;
    if (box != nullptr && box->frame) DrawFieldEdge(*box, *painter);
  }

  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override {
    const auto* item = element == CE_MenuItem ? qstyleoption_cast<const QStyleOptionMenuItem*>(option) : nullptr;
    if (item && item->menuItemType == QStyleOptionMenuItem::Separator && item->text.isEmpty()) {
      painter->fillRect(QRect(item->rect.left() + kSeparatorGapPx, item->rect.center().y(),
                              item->rect.width() - 2 * kSeparatorGapPx, 1),
                        Tones().raised);
    } else {
      QProxyStyle::drawControl(element, option, painter, widget);
    }
  }

  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
    return metric == PM_MenuPanelWidth ? 1 : QProxyStyle::pixelMetric(metric, option, widget);
  }

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returned) const override {
    if (hint == SH_UnderlineShortcut) return 1;
    if (hint == SH_EtchDisabledText) return 0;  // its bright shadow makes a faint text look doubled here
    return QProxyStyle::styleHint(hint, option, widget, returned);
  }

 private:
  /// The style's own edge of a check box is darker than the ground: an empty box would not be seen.
  static void DrawBoxEdge(const QStyleOption& option, QPainter& painter) {
    painter.save();
    painter.setPen(option.state & State_Enabled ? Tones().faint : Tones().edge);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter.restore();
  }

  static QColor EdgeOf(const QStyleOption& option) {
    if ((option.state & State_Enabled) == 0) return Tones().edge;
    return (option.state & State_HasFocus) != 0 ? Tones().accent : Tones().faint;
  }

  static void DrawOutline(const QRectF& place, double corner, const QColor& colour, QPainter& painter) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(place.adjusted(0.5, 0.5, -0.5, -0.5), corner, corner);
    painter.restore();
  }

  static void DrawRadioEdge(const QStyleOption& option, QPainter& painter) {
    const double across = std::min(option.rect.width(), option.rect.height());
    const QRectF disc(option.rect.left(), option.rect.top() + (option.rect.height() - across) / 2, across, across);
    const bool enabled = (option.state & State_Enabled) != 0;
    DrawOutline(disc, across / 2, enabled ? Tones().faint : Tones().edge, painter);
  }

  static void DrawFieldEdge(const QStyleOptionComboBox& box, QPainter& painter) {
    const bool focused = (box.state & State_HasFocus) != 0;
    if (box.editable || focused) DrawOutline(box.rect, 2, focused ? Tones().accent : Tones().edge, painter);
  }

  /// The style's own groove, marks and handle hardly stand out from the ground.
  void DrawSlider(const QStyleOptionSlider& slider, QPainter& painter, const QWidget* widget) const {
    const QRect handle = proxy()->subControlRect(CC_Slider, &slider, SC_SliderHandle, widget);
    const QRect knob = handle.adjusted(1, 1, -1, -1).intersected(slider.rect);
    DrawGroove(slider, knob, painter);
    if (slider.tickInterval > 0 && (slider.tickPosition & QSlider::TicksBelow)) DrawTicks(slider, handle, painter);
    painter.fillRect(knob, (slider.state & State_Enabled) != 0 ? Tones().edge : Tones().raised);
    DrawOutline(knob, 2, EdgeOf(slider), painter);
  }

  static void DrawGroove(const QStyleOptionSlider& slider, const QRect& knob, QPainter& painter) {
    QRect groove(slider.rect.left() + knob.width() / 2, knob.center().y() - 1, slider.rect.width() - knob.width(), 3);
    painter.fillRect(groove, Tones().edge);
    slider.upsideDown ? groove.setLeft(knob.right()) : groove.setRight(knob.left());
    if ((slider.state & State_Enabled) != 0) painter.fillRect(groove, Tones().accent.darker(140));
  }

  static void DrawTicks(const QStyleOptionSlider& slider, const QRect& handle, QPainter& painter) {
    const int room = slider.rect.width() - handle.width();
    for (int value = slider.minimum; value <= slider.maximum; value += slider.tickInterval) {
      const int at = sliderPositionFromValue(slider.minimum, slider.maximum, value, room, slider.upsideDown);
      painter.fillRect(QRect(slider.rect.left() + handle.width() / 2 + at, handle.bottom() + 2, 1, 3), Tones().faint);
    }
  }

  static void DrawFocusFrame(const QRect& place, QPainter& painter) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Tones().accent, 1.4));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(place).adjusted(0.7, 0.7, -0.7, -0.7), 2.5, 2.5);
    painter.restore();
  }

  /// Filled strips, which meet the device's pixels at every scale.
  static void DrawMenuEdge(const QRect& place, QPainter& painter) {
    const QColor edge = Tones().edge;
    painter.fillRect(QRect(place.left(), place.top(), place.width(), 1), edge);
    painter.fillRect(QRect(place.left(), place.bottom(), place.width(), 1), edge);
    painter.fillRect(QRect(place.left(), place.top(), 1, place.height()), edge);
    painter.fillRect(QRect(place.right(), place.top(), 1, place.height()), edge);
  }
};

/// What the palette cannot say: scroll bars, tool tips, menus, the outline of a field that has the focus.
QString DarkSheet() {
  const ThemeTones& t = Tones();
  return QStringLiteral(
             "QToolTip{color:%1;background:%2;border:1px solid %3;padding:3px 5px}"
             "QMenuBar{background:%4;color:%1;border-bottom:1px solid %2}"
             "QMenuBar::item{padding:3px 9px;background:transparent}"
             "QMenuBar::item:selected,QMenuBar::item:pressed{background:%5;color:#ffffff;border-radius:3px}"
             "QLineEdit:focus,QPlainTextEdit:focus,QTextEdit:focus,QTreeView:focus,QListView:focus"
             "{border:1px solid %6}"
             "QLineEdit,QPlainTextEdit,QTextEdit,QTreeView,QListView{border:1px solid %3;border-radius:3px}"
             "QScrollBar:vertical{background:%7;width:11px;margin:0}"
             "QScrollBar:horizontal{background:%7;height:11px;margin:0}"
             "QScrollBar::handle{background:%3;border-radius:4px;margin:1px}"
             "QScrollBar::handle:vertical{min-height:24px}QScrollBar::handle:horizontal{min-width:24px}"
             "QScrollBar::handle:hover{background:%8}"
             "QScrollBar::add-line,QScrollBar::sub-line{width:0;height:0}"
             "QScrollBar::add-page,QScrollBar::sub-page{background:none}")
      .arg(t.text.name(), t.raised.name(), t.edge.name(), t.window.name(), t.chosen.name(), t.accent.name(),
           t.base.name(), t.faint.name());
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
    QApplication::setStyle(plain.style);
    QApplication::setPalette(plain.palette);
  }
}

void ApplyThemeFromSettings() {
  ApplyTheme(ReadSwitch("Skin", "1"));
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
