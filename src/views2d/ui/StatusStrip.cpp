#include "StatusStrip.h"

#include <QPainter>
#include <algorithm>

#include "platform/qt/Fonts.h"
#include "platform/qt/Widgets.h"

namespace kestrava::views2d::ui {

namespace {

constexpr int kLeastValuePx = 104;
constexpr int kGapPx = 10;
constexpr int kLineGapPx = 6;

}  // namespace

CutLabel::CutLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
}

void CutLabel::ShowText(const QString& shown) {
  if (shown == text()) return;
  setText(shown);
  setToolTip(shown);
}

QSize CutLabel::minimumSizeHint() const {
  return {0, QLabel::minimumSizeHint().height()};
}

void CutLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter,
                   fontMetrics().elidedText(text(), Qt::ElideRight, rect().width()));
}

StatusStrip::StatusStrip(QWidget* parent) : QWidget(parent) {
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

CutLabel* StatusStrip::AddValue(const QString& objectName, const QString& caption) {
  Value value{new QLabel(caption, this), platform::qt::Named(new CutLabel(this), objectName, caption)};
  QFont small = platform::qt::InterfaceFont();
  small.setPixelSize(small.pixelSize() - 1);
  value.caption->setFont(small);
  QFont clear = platform::qt::InterfaceFont();
  clear.setPixelSize(clear.pixelSize() + 1);
  clear.setBold(true);
  value.text->setFont(clear);
  values_.push_back(value);
  return value.text;
}

/// As many columns as fit, but no row that is much shorter than the others.
int StatusStrip::Columns(int widthPx) const {
  const int count = std::max(1, static_cast<int>(values_.size()));
  const int fitting = std::clamp((widthPx + kGapPx) / (kLeastValuePx + kGapPx), 1, count);
  const int rows = (count + fitting - 1) / fitting;
  return (count + rows - 1) / rows;
}

int StatusStrip::RowHeight() const {
  if (values_.empty()) return 0;
  return values_.front().caption->sizeHint().height() + values_.front().text->sizeHint().height();
}

int StatusStrip::heightForWidth(int widthPx) const {
  const int columns = Columns(widthPx);
  const int rows = (static_cast<int>(values_.size()) + columns - 1) / columns;
  return rows * RowHeight() + std::max(0, rows - 1) * kLineGapPx;
}

QSize StatusStrip::sizeHint() const {
  const int count = static_cast<int>(values_.size());
  return {count * (kLeastValuePx + kGapPx), RowHeight()};
}

QSize StatusStrip::minimumSizeHint() const {
  return {kLeastValuePx, RowHeight()};
}

void StatusStrip::resizeEvent(QResizeEvent*) {
  const int columns = Columns(width());
  const double step = static_cast<double>(width() + kGapPx) / columns;
  for (std::size_t i = 0; i < values_.size(); ++i) {
    const int at = static_cast<int>(i);
    const int left = static_cast<int>(at % columns * step);
    const int top = at / columns * (RowHeight() + kLineGapPx);
    const int widthPx = static_cast<int>(step) - kGapPx;
    const int captionPx = values_[i].caption->sizeHint().height();
    values_[i].caption->setGeometry(left, top, widthPx, captionPx);
    values_[i].text->setGeometry(left, top + captionPx, widthPx, RowHeight() - captionPx);
  }
}

}  // namespace kestrava::views2d::ui
