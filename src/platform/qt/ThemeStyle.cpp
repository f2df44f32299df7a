#include "ThemeStyle.h"

#include <QAbstractScrollArea>
#include <QPainter>
#include <QSlider>
#include <QStyleFactory>
#include <QStyleOption>
#include <algorithm>

#include "platform/qt/Theme.h"

namespace kestrava::platform::qt {
namespace {

constexpr int kSeparatorGapPx = 6;
constexpr double kCornerPx = 2.5;
constexpr double kDotEdgePx = 1.4;  // the edge of a disc is spread over neighbouring pixels

QColor EdgeFor(const QStyleOption& option) {
  if (option.state & QStyle::State_Selected) return option.palette.color(QPalette::HighlightedText);
  const QColor edge = EdgeColour(option.palette);
  if (option.state & QStyle::State_Enabled) return edge;
  const QColor ground = option.palette.color(QPalette::Window);  // half way: it is there, and cannot be worked
  return {(edge.red() + ground.red()) / 2, (edge.green() + ground.green()) / 2, (edge.blue() + ground.blue()) / 2};
}

/// A frame just within a place, on the middle of its pixels.
void DrawFrame(const QRect& place, const QColor& colour, double width, double corner, QPainter& painter) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(colour, width));
  painter.setBrush(Qt::NoBrush);
  const double in = width / 2;
  painter.drawRoundedRect(QRectF(place).adjusted(in, in, -in, -in), corner, corner);
  painter.restore();
}

void DrawFocusFrame(const QStyleOption& option, const QRect& place, QPainter& painter) {
  DrawFrame(place, FocusColour(option.palette), 2, kCornerPx, painter);
}

/// The edge of a field, or its focus.
void DrawFieldEdge(const QStyleOption& option, QPainter& painter) {
  const bool focus = option.state & QStyle::State_HasFocus;
  focus ? DrawFocusFrame(option, option.rect, painter) : DrawFrame(option.rect, EdgeFor(option), 1, kCornerPx, painter);
}

/// The frame of a list or a text is one pixel wide; its content lies over the rest.
void DrawAreaEdge(const QStyleOption& option, const QWidget& area, QPainter& painter) {
  const QColor colour = area.hasFocus() ? FocusColour(option.palette) : EdgeFor(option);
  DrawFrame(option.rect, colour, 1, 0, painter);
}

void DrawDotEdge(const QStyleOption& option, QPainter& painter) {
  const double across = std::min(option.rect.width(), option.rect.height());
  const QRectF disc(option.rect.left(), option.rect.top() + (option.rect.height() - across) / 2, across, across);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(EdgeFor(option), kDotEdgePx));
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(disc.adjusted(kDotEdgePx / 2, kDotEdgePx / 2, -kDotEdgePx / 2, -kDotEdgePx / 2));
  painter.restore();
}

void DrawGroove(const QStyleOptionSlider& slider, const QRect& knob, QPainter& painter) {
  QRect groove(slider.rect.left() + knob.width() / 2, knob.center().y() - 1, slider.rect.width() - knob.width(), 3);
  painter.fillRect(groove, Tones().edge);
  slider.upsideDown ? groove.setLeft(knob.right()) : groove.setRight(knob.left());
  if (slider.state & QStyle::State_Enabled) painter.fillRect(groove, Tones().accent.darker(140));
}

void DrawTicks(const QStyleOptionSlider& slider, const QRect& handle, QPainter& painter) {
  const int room = slider.rect.width() - handle.width();
  for (int value = slider.minimum; value <= slider.maximum; value += slider.tickInterval) {
    const int at = QStyle::sliderPositionFromValue(slider.minimum, slider.maximum, value, room, slider.upsideDown);
    painter.fillRect(QRect(slider.rect.left() + handle.width() / 2 + at, handle.bottom() + 2, 1, 3), Tones().faint);
  }
}

/// Filled strips, which meet the device's pixels at every scale.
void DrawMenuEdge(const QRect& place, QPainter& painter) {
  const QColor edge = Tones().edge;
  painter.fillRect(QRect(place.left(), place.top(), place.width(), 1), edge);
  painter.fillRect(QRect(place.left(), place.bottom(), place.width(), 1), edge);
  painter.fillRect(QRect(place.left(), place.top(), 1, place.height()), edge);
  painter.fillRect(QRect(place.right(), place.top(), 1, place.height()), edge);
}

}  // namespace

void SeenStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
  if (element == PE_FrameFocusRect) return DrawFocusFrame(*option, option->rect, *painter);
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
  switch (element) {
    case PE_PanelLineEdit:
      if (frame && frame->lineWidth > 0) DrawFieldEdge(*option, *painter);
      break;
    case PE_Frame:
      if (qobject_cast<const QAbstractScrollArea*>(widget)) DrawAreaEdge(*option, *widget, *painter);
      break;
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
      DrawFrame(option->rect, EdgeFor(*option), 1, 0, *painter);
      break;
    case PE_IndicatorRadioButton:
      DrawDotEdge(*option, *painter);
      break;
    default:
      break;
  }
}

void SeenStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
  QProxyStyle::drawControl(element, option, painter, widget);
  const bool focus = option->state & State_HasFocus;
  if (focus && element == CE_PushButton) DrawFocusFrame(*option, option->rect.adjusted(1, 1, -1, -1), *painter);
  if (focus && element == CE_TabBarTab) DrawFocusFrame(*option, option->rect.adjusted(3, 3, -3, -3), *painter);
}

void SeenStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                   const QWidget* widget) const {
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  if (control == CC_ComboBox || control == CC_SpinBox) DrawFieldEdge(*option, *painter);
  if (control == CC_Slider && (option->state & State_HasFocus)) DrawFocusFrame(*option, option->rect, *painter);
}

DarkStyle::DarkStyle() : SeenStyle(QStyleFactory::create("Fusion")) {}

void DarkStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
  if (element == PE_FrameMenu) return DrawMenuEdge(option->rect, *painter);
  SeenStyle::drawPrimitive(element, option, painter, widget);
}

void DarkStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
  const auto* item = element == CE_MenuItem ? qstyleoption_cast<const QStyleOptionMenuItem*>(option) : nullptr;
  if (item && item->menuItemType == QStyleOptionMenuItem::Separator && item->text.isEmpty()) {
    painter->fillRect(QRect(item->rect.left() + kSeparatorGapPx, item->rect.center().y(),
                            item->rect.width() - 2 * kSeparatorGapPx, 1),
                      Tones().raised);
  } else {
    SeenStyle::drawControl(element, option, painter, widget);
  }
}

void DarkStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                   const QWidget* widget) const {
  const auto* slider = control == CC_Slider ? qstyleoption_cast<const QStyleOptionSlider*>(option) : nullptr;
  if (!slider || slider->orientation != Qt::Horizontal)
    return SeenStyle::drawComplexControl(control, option, painter, widget);
  const QRect handle = proxy()->subControlRect(CC_Slider, slider, SC_SliderHandle, widget);
  const QRect knob = handle.adjusted(1, 1, -1, -1).intersected(slider->rect);
  DrawGroove(*slider, knob, *painter);
  if (slider->tickInterval > 0 && (slider->tickPosition & QSlider::TicksBelow)) DrawTicks(*slider, handle, *painter);
  painter->fillRect(knob, slider->state & State_Enabled ? Tones().edge : Tones().raised);
  DrawFrame(knob, slider->state & State_Enabled ? Tones().faint : Tones().edge, 1, 2, *painter);
  if (slider->state & State_HasFocus) DrawFocusFrame(*slider, slider->rect, *painter);
}

int DarkStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  return metric == PM_MenuPanelWidth ? 1 : SeenStyle::pixelMetric(metric, option, widget);
}

int DarkStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* returned) const {
  if (hint == SH_UnderlineShortcut) return 1;
  if (hint == SH_EtchDisabledText) return 0;  // its bright shadow makes a faint text look doubled here
  return SeenStyle::styleHint(hint, option, widget, returned);
}

}  // namespace kestrava::platform::qt
