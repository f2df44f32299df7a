// The horizon window with its real controls, over the same station as the map's, with the shipped scenery.
#pragma once

#include "views2d/ui/HorizonView.h"

#include "TableFixture.h"

namespace kestrava::views2d::ui {

class HorizonFixture : public TableFixture {
 protected:
  HorizonFixture();

  /// Shows the horizon through the registry, activated; no tick has run yet.
  QWidget& OpenHorizon();
  /// Where a favourite of the latest paint stands on the picture.
  static QPoint SpotOf(QWidget& horizon, int favourite, bool centreNorth = false);
  /// The first favourite that is above the horizon.
  static int FirstUp();
  /// What the tooltip says at a place of the picture.
  static QString TipAt(QWidget& horizon, QPoint at);
};

}  // namespace kestrava::views2d::ui
