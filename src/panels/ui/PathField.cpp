#include "PathField.h"

#include <QStyleOptionFrame>
#include <QStylePainter>

namespace kestrava::panels::ui {

namespace {

constexpr int kLettersSeen = 24;
constexpr int kInsetPx = 2;  // as the toolkit sets its own text in a field

}  // namespace

PathField::PathField(QWidget* parent) : QLineEdit(parent) {
  setReadOnly(true);
}

void PathField::SetPath(const QString& path) {
  setText(path);
  setToolTip(path);
  setCursorPosition(0);
}

QSize PathField::sizeHint() const {
  return {fontMetrics().averageCharWidth() * kLettersSeen, QLineEdit::sizeHint().height()};
}

void PathField::paintEvent(QPaintEvent* event) {
  if (hasFocus()) return QLineEdit::paintEvent(event);
  QStyleOptionFrame option;
  initStyleOption(&option);
  QStylePainter painter(this);
  painter.drawPrimitive(QStyle::PE_PanelLineEdit, option);
  const QRect room =
      style()->subElementRect(QStyle::SE_LineEditContents, &option, this).adjusted(kInsetPx, 0, -kInsetPx, 0);
  painter.setPen(palette().color(QPalette::Text));
  painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft,
                   fontMetrics().elidedText(text(), Qt::ElideMiddle, room.width()));
}

}  // namespace kestrava::panels::ui
