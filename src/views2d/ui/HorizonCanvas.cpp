#include "HorizonCanvas.h"

#include <QPainter>

#include "platform/qt/Fonts.h"
#include "views2d/HorizonPainter.h"

namespace kestrava::views2d::ui {

namespace {

constexpr QColor kFaint{255, 255, 255, 120};
constexpr int kTickPx = 8;
constexpr int kGapPx = 3;

}  // namespace

void HorizonCanvas::paintEvent(QPaintEvent* event) {
  ViewCanvas::paintEvent(event);
  QPainter painter(this);
  painter.setPen(kFaint);
  painter.setFont(platform::qt::FontByName("Small fonts", 7, false));
  const int lineHeight = painter.fontMetrics().height();
  for (const int elDeg : {10, 30, 60}) {
    const int y = qRound(ElToY(elDeg, height()));
    painter.fillRect(0, y, kTickPx, 1, kFaint);
    painter.drawText(QRect(kTickPx + kGapPx, y - lineHeight / 2, width(), lineHeight), Qt::AlignLeft | Qt::AlignVCenter,
                     QString::number(elDeg) + QChar(0xb0));
  }
}

}  // namespace kestrava::views2d::ui
