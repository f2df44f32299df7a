#include "PanelWidgets.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <algorithm>
#include <cmath>

#include "platform/Fault.h"
#include "platform/qt/Theme.h"
#include "platform/qt/Widgets.h"

namespace kestrava::panels::ui {

using platform::qt::Named;
using platform::qt::ToQt;

namespace {

/// What was last told of a row's tick: the toolkit tells of every change of a row, its text and flags too.
constexpr int kToldTick = Qt::UserRole + 1;
constexpr int kMarked = Qt::UserRole + 2;

QListWidgetItem& ItemAt(const QListWidget& list, int row) {
  QListWidgetItem* item = list.item(row);
  if (item == nullptr) throw platform::Fault::SubscriptOutOfRange();
  return *item;
}

/// A star of five points that fills the square.
QPolygonF Star(const QRectF& square) {
  constexpr double kInnerShare = 0.4;
  constexpr double kTenthTurn = 3.14159265358979 / 5;
  QPolygonF star;
  for (int i = 0; i < 10; ++i) {
    const double reach = square.width() / 2 * (i % 2 == 0 ? 1 : kInnerShare);
    star << square.center() + QPointF(reach * std::sin(i * kTenthTurn), -reach * std::cos(i * kTenthTurn));
  }
  return star;
}

/// Paints the star at the end of a marked row, in the colour of its text.
class MarkPainter : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    if (!index.data(kMarked).toBool()) return;
    const double sidePx = SidePx(option);
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const double leftPx = std::min<double>(option.rect.right() - sidePx, option.rect.left() + TextEndPx(option, index));
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
    painter->drawPolygon(Star(QRectF(leftPx, option.rect.center().y() + 0.5 - sidePx / 2, sidePx, sidePx)));
    painter->restore();
  }

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const QSize plain = QStyledItemDelegate::sizeHint(option, index);
    return index.data(kMarked).toBool() ? plain + QSize(static_cast<int>(2 * SidePx(option)), 0) : plain;
  }

 private:
  static double SidePx(const QStyleOptionViewItem& option) { return option.fontMetrics.ascent(); }

  int TextEndPx(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    return QStyledItemDelegate::sizeHint(option, index).width() + static_cast<int>(SidePx(option) / 3);
  }
};

constexpr QColor kBrightWarning{0xff, 0xa0, 0x40};
constexpr QColor kDeepWarning{0x9c, 0x1c, 0x00};

}  // namespace

TickList::TickList(QWidget* parent) : ListBox(parent) {
  setItemDelegate(new MarkPainter(this));
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
  ItemAt(*this, row);
  return !isRowHidden(row);
}

void TickList::SetShown(int row, bool shown) {
  ItemAt(*this, row);
  setRowHidden(row, !shown);
}

bool TickList::IsMarked(int row) const {
  return ItemAt(*this, row).data(kMarked).toBool();
}

/// The text of the row stays the satellite's name alone.
void TickList::SetMarked(int row, bool marked) {
  if (IsMarked(row) == marked) return;
  QListWidgetItem& item = ItemAt(*this, row);
  item.setData(kMarked, marked);
  item.setData(Qt::AccessibleDescriptionRole, marked ? markMeaning_ : QString());
  item.setToolTip(marked ? markMeaning_ : QString());
}

int TickList::FirstShown() const {
  for (int row = 0; row < count(); ++row) {
    if (IsShown(row)) return row;
  }
  return -1;
}

/// A press on a box, which the toolkit keeps to the box alone, selects the row as one on its text does.
void TickList::mousePressEvent(QMouseEvent* event) {
  emit UserTickBegins();
  ListBox::mousePressEvent(event);
  QListWidgetItem* pressed = itemAt(event->position().toPoint());
  if (event->button() == Qt::LeftButton && pressed && !pressed->isSelected()) setCurrentItem(pressed);
}

/// The second press of a double click.
void TickList::mouseDoubleClickEvent(QMouseEvent* event) {
  emit UserTickBegins();
  ListBox::mouseDoubleClickEvent(event);
}

/// The toolkit toggles now: it is the user's tick, also where something came between the press and this.
void TickList::mouseReleaseEvent(QMouseEvent* event) {
  emit UserTickBegins();
  QListWidget::mouseReleaseEvent(event);
  if (event->buttons() == Qt::NoButton) emit UserTickEnds();
  TellChosenByMouse();
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

void TickList::focusOutEvent(QFocusEvent* event) {
  ListBox::focusOutEvent(event);
  emit UserTickEnds();
}

void TickList::hideEvent(QHideEvent* event) {
  ListBox::hideEvent(event);
  emit UserTickEnds();
}

void TickList::paintEvent(QPaintEvent* event) {
  ListBox::paintEvent(event);
  if (count() > 0 && FirstShown() < 0) platform::qt::PaintHint(*viewport(), noneShownHint_);
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
  slider_->setFocusPolicy(Qt::StrongFocus);  // not by the wheel
  slider_->installEventFilter(this);
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
  connect(slider_, &QSlider::valueChanged, this, [this] { TellChange(); });
  connect(slider_, &QSlider::sliderPressed, this, [this] { moved_ = false; });
  connect(slider_, &QSlider::sliderReleased, this, [this] {
    if (moved_) emit Changed();
  });
}

void ValueSlider::TellChange() {
  if (byCode_) return;
  moved_ = true;
  slider_->isSliderDown() ? emit Moved() : emit Changed();
}

/// The wheel over a slider without the focus scrolls what the slider stands in.
bool ValueSlider::eventFilter(QObject* watched, QEvent* event) {
  if (watched == slider_ && event->type() == QEvent::Wheel && !slider_->hasFocus()) {
    event->ignore();
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

void ValueSlider::SetValue(int value) {
  const QScopedValueRollback mark(byCode_, true);
  slider_->setValue(value);
}

void ValueSlider::SetLabel(std::string_view text) {
  label_->setText(ToQt(text));
}

void MarkAsWarning(QLabel& line, bool warning) {
  QFont font = line.font();
  font.setBold(warning);
  line.setFont(font);
  QPalette colours;  // of the application, as far as nothing is set
  const QColor ground = QApplication::palette().color(QPalette::Window);
  const bool bright =
      platform::qt::ContrastRatio(kBrightWarning, ground) > platform::qt::ContrastRatio(kDeepWarning, ground);
  if (warning) colours.setColor(QPalette::WindowText, bright ? kBrightWarning : kDeepWarning);
  line.setPalette(colours);
}

}  // namespace kestrava::panels::ui
