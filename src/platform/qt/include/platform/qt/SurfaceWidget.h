// Shows a picture surface in a window. Painting goes into a back surface; what the user sees changes only when a
// paint is whole. Until then, and while the window is being resized, the last picture stands there scaled.
#pragma once

#include <QImage>
#include <QWidget>

#include "platform/qt/ImageSurface.h"

namespace kestrava::platform::qt {

class SurfaceWidget : public QWidget {
  Q_OBJECT

 public:
  explicit SurfaceWidget(QWidget* parent = nullptr);

  /// The surface to paint on. It lives as long as the widget; its size changes in FitToWidget only.
  ImageSurface& Back() { return back_; }
  const ImageSurface& Back() const { return back_; }
  /// Gives the back surface the widget's present size and scale. Not in the midst of a paint.
  /// @return true if it differed; the surface is then black
  bool FitToWidget();
  /// Shows what has been painted.
  void Present();
  bool HasPresented() const { return presented_; }
  /// What stands there, scaled, until the first Present.
  void SetIdlePicture(const QImage& picture);
  /// A position on the widget as logical pixels of the back surface, which may be of an earlier size.
  QPointF ToSurface(QPointF onWidget) const;

 signals:
  /// A mouse button went down. @param onSurface  logical pixels of the back surface @param global  on the screen
  void Pressed(QPointF onSurface, Qt::MouseButton button, QPoint global);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  bool IsPixelForPixel() const;

  ImageSurface back_{1, 1};
  QImage front_;
  bool presented_ = false;
};

}  // namespace kestrava::platform::qt
