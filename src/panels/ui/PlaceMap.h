// A small map of the world beside the fields of a place: a click or the cursor keys choose a place, a mark shows the
// present one, and the pointer tells in words what lies under it.
#pragma once

#include <QImage>
#include <QWidget>
#include <optional>

#include "panels/PlacePicking.h"

namespace kestrava::panels::ui {

class PlaceMap : public QWidget {
  Q_OBJECT

 public:
  explicit PlaceMap(QWidget* parent = nullptr);

  /// Shows a place; nothing takes the mark away. That is no choice: nothing runs by it.
  void SetMark(const std::optional<GeoPoint>& place);
  const std::optional<GeoPoint>& Mark() const { return mark_; }
  /// What assistive programs read as the map's value: the marked place in words.
  QString ValueText() const;
  /// What stands beside the pointer; empty while it is off the map.
  const QString& PointerText() const { return pointerText_; }
  /// The map within the widget, in pixels of the screen.
  MapArea Area() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 signals:
  /// The user has chosen a place, by mouse or keys.
  void Picked(const kestrava::panels::GeoPoint& place);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  std::optional<GeoPoint> PlaceAt(QPointF onWidget) const;
  void Pick(const GeoPoint& place);
  void PaintWorld(QPainter& painter, const QRectF& world);
  void PaintGrid(QPainter& painter, const QRectF& world) const;
  void PaintMark(QPainter& painter, const QRectF& world) const;
  void PaintPointerText(QPainter& painter, const QRectF& world) const;

  std::optional<GeoPoint> mark_;
  QPointF pointer_;
  QString pointerText_;
  QImage scaled_;  ///< the picture at the size of the map, in pixels of the screen
};

}  // namespace kestrava::panels::ui
