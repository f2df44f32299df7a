#include "PanelWidgets.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include "platform/Fault.h"
#include "platform/qt/Widgets.h"

namespace kestrava::panels::ui {

using platform::qt::Named;
using platform::qt::ToQt;

namespace {

/// What was last told of a row's tick: the toolkit tells of every change of a row, its text and flags too.
constexpr int kToldTick = Qt::UserRole + 1;

QListWidgetItem& ItemAt(const QListWidget& list, int row) {
  QListWidgetItem* item = list.item(row);
  if (item == nullptr) throw platform::Fault::SubscriptOutOfRange();
  return *item;
}

}  // namespace

TickList::TickList(QWidget* parent) : ListBox(parent) {
  connect(this, &QListWidget::itemChanged, this, [this](QListWidgetItem* item) { TellTick(*item); });
}

void TickList::Add(std::string_view row) {
  auto* item = new QListWidgetItem(ToQt(row));
  item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
  item->setCheckState(Qt::Unchecked);
  item->setData(kToldTick, false);
  addItem(item);
}

void TickList::TellTick(const QListWidgetItem& item) {
  const bool ticked = item.checkState() == Qt::Checked;
  if (item.data(kToldTick).toBool() == ticked) return;
  const int place = row(&item);
  ItemAt(*this, place).setData(kToldTick, ticked);
  emit Ticked(place, ticked);
}

bool TickList::IsTicked(int row) const {
  return ItemAt(*this, row).checkState() == Qt::Checked;
}

void TickList::SetTicked(int row, bool ticked) {
  ItemAt(*this, row).setCheckState(ticked ? Qt::Checked : Qt::Unchecked);
}

bool TickList::IsShown(int row) const {
  return !ItemAt(*this, row).isHidden();
}

void TickList::SetShown(int row, bool shown) {
  ItemAt(*this, row).setHidden(!shown);
}

void TickList::mousePressEvent(QMouseEvent* event) {
  emit UserTickBegins();
  ListBox::mousePressEvent(event);
}

/// The second press of a double click.
void TickList::mouseDoubleClickEvent(QMouseEvent* event) {
  emit UserTickBegins();
  ListBox::mouseDoubleClickEvent(event);
}

void TickList::mouseReleaseEvent(QMouseEvent* event) {
  ListBox::mouseReleaseEvent(event);
  if (event->buttons() == Qt::NoButton) emit UserTickEnds();
}

/// The space bar ticks the row of the cursor, and selects it as a click does.
void TickList::keyPressEvent(QKeyEvent* event) {
  emit UserTickBegins();
  ListBox::keyPressEvent(event);
  emit UserTickEnds();
  if (event->key() == Qt::Key_Space && currentItem() != nullptr && !currentItem()->isSelected()) {
    setCurrentItem(currentItem(), QItemSelectionModel::ClearAndSelect);
  }
}

TickBox::TickBox(const QString& objectName, const QString& caption, QWidget* parent) : QCheckBox(caption, parent) {
  Named(this, objectName, QString(caption).remove('&'));
}

ValueSlider::ValueSlider(const SliderRow& row, QWidget* parent)
    : QWidget(parent),
      slider_(Named(new QSlider(Qt::Horizontal, this), ToQt(row.objectName), ToQt(row.heading))),
      label_(Named(new QLabel(this), ToQt(row.labelName))) {
  slider_->setRange(row.minimum, row.maximum);
  slider_->setSingleStep(row.smallStep);
  slider_->setPageStep(row.largeStep);
  if (row.tickEvery > 0) {
    slider_->setTickPosition(QSlider::TicksBelow);
    slider_->setTickInterval(row.tickEvery);
  }
  const QString widest = QString::number(row.maximum) + ' ' + ToQt(row.unit);
  label_->setMinimumWidth(label_->fontMetrics().horizontalAdvance(widest));
  label_->setBuddy(slider_);
  auto* line = new QHBoxLayout(this);
  line->setContentsMargins(0, 0, 0, 0);
  line->addWidget(slider_, 1);
  line->addWidget(label_);
  setFocusProxy(slider_);
  connect(slider_, &QSlider::valueChanged, this, [this] {
    if (byCode_) return;
    slider_->isSliderDown() ? emit Moved() : emit Changed();
  });
  connect(slider_, &QSlider::sliderReleased, this, [this] { emit Changed(); });
}

void ValueSlider::SetValue(int value) {
  const QScopedValueRollback mark(byCode_, true);
  slider_->setValue(value);
}

void ValueSlider::SetLabel(std::string_view text) {
  label_->setText(ToQt(text));
}

}  // namespace kestrava::panels::ui
