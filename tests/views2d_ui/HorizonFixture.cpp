#include "HorizonFixture.h"

#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>

#include "views2d/HorizonPainter.h"

namespace kestrava::views2d::ui {

HorizonFixture::HorizonFixture() {
  windows->Register(kHorizonName, [] { return MakeHorizonView(); });
}

QWidget& HorizonFixture::OpenHorizon() {
  windows->Show(kHorizonName);
  HandleEvents();
  return dynamic_cast<QWidget&>(*windows->Find(kHorizonName));
}

QPoint HorizonFixture::SpotOf(QWidget& horizon, int favourite, bool centreNorth) {
  const QWidget& canvas = Child<QWidget>(horizon, "Final");
  const orbit::FaveRec& row = orbit::TheTables().FaveList[static_cast<std::size_t>(favourite)];
  return {qRound(AzToX(row.Az, canvas.width(), centreNorth)), qRound(ElToY(row.El, canvas.height()))};
}

int HorizonFixture::FirstUp() {
  const orbit::Tables& all = orbit::TheTables();
  for (int i = 1; i <= all.FaveCount; ++i)
    if (all.FaveList[static_cast<std::size_t>(i)].El > 0) return i;
  return 0;
}

QString HorizonFixture::TipAt(QWidget& horizon, QPoint at) {
  QWidget& canvas = Child<QWidget>(horizon, "Final");
  QToolTip::hideText();
  QHelpEvent event(QEvent::ToolTip, at, canvas.mapToGlobal(at));
  QApplication::sendEvent(&canvas, &event);
  return QToolTip::text();
}

}  // namespace kestrava::views2d::ui
