// Shows the horizon's picture, and over its left edge a faint scale of elevations.
#pragma once

#include "ViewCanvas.h"

namespace kestrava::views2d::ui {

class HorizonCanvas : public ViewCanvas {
 public:
  using ViewCanvas::ViewCanvas;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace kestrava::views2d::ui
