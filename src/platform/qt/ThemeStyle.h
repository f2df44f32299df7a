// The styles of both looks. What the toolkit draws too faintly to be seen by everybody, edges of fields and boxes and
// the mark of the focus, is drawn over it here.
#pragma once

#include <QProxyStyle>

namespace kestrava::platform::qt {

/// A style with edges and a focus that stand out by 3 to 1.
class SeenStyle : public QProxyStyle {
 public:
  /// @param base  owned from here on
  explicit SeenStyle(QStyle* base) : QProxyStyle(base) {}

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
};

/// Fusion with sliders, menu edges and menu separators that can be seen on dark ground.
class DarkStyle : public SeenStyle {
 public:
  DarkStyle();

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returned) const override;
};

}  // namespace kestrava::platform::qt
