#include "platform/qt/ChoiceWidgets.h"

#include <QListView>
#include <QPainter>
#include <QScopedValueRollback>
#include <QWheelEvent>

#include "platform/Fault.h"
#include "platform/qt/Widgets.h"

namespace kestrava::platform::qt {

namespace {

constexpr int kEntriesSeen = 20;
constexpr int kLeastLetters = 16;
constexpr int kHintMarginPx = 12;

}  // namespace

ComboList::ComboList(QWidget* parent) : QComboBox(parent) {
  setMaxVisibleItems(kEntriesSeen);
  setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(kLeastLetters);
  setFocusPolicy(Qt::StrongFocus);  // not by the wheel
  // Thousands of entries: their heights are not measured one by one.
  if (auto* list = qobject_cast<QListView*>(view())) list->setUniformItemSizes(true);
}

void ComboList::Clear() {
  const QString text = ToQt(Text());
  clear();
  setPlaceholderText(text);
}

void ComboList::Add(std::string_view entry) {
  const int chosen = currentIndex();
  addItem(ToQt(entry));
  if (chosen < 0) setCurrentIndex(-1);  // the first entry would choose itself
}

std::string ComboList::Text() const {
  return FromQt(currentIndex() < 0 && !isEditable() ? placeholderText() : currentText());
}

void ComboList::SetText(std::string_view text) {
  const QString shown = ToQt(text);
  if (Text() == text) return;
  const int entry = findText(shown, Qt::MatchExactly | Qt::MatchCaseSensitive);
  if (entry < 0 && placeholderText() != shown) setPlaceholderText(shown);
  setCurrentIndex(entry);
  if (isEditable()) setEditText(shown);
}

void ComboList::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) {
    QComboBox::wheelEvent(event);
  } else {
    event->ignore();
  }
}

void ComboList::SetIndex(int index) {
  if (index < 0 || index >= count()) throw Fault::SubscriptOutOfRange();
  setCurrentIndex(index);
}

ListBox::ListBox(QWidget* parent) : QListWidget(parent) {
  setUniformItemSizes(true);
  setSpacing(1);
  setTextElideMode(Qt::ElideRight);
  connect(this, &QListWidget::itemSelectionChanged, this, [this] {
    if (!byCode_ && Selected() >= 0) emit Chosen(Selected());
  });
  connect(this, &QListWidget::itemClicked, this, [this] {
    if (Selected() >= 0 && Selected() == selectedAtPress_) emit Chosen(Selected());
  });
}

void ListBox::mousePressEvent(QMouseEvent* event) {
  selectedAtPress_ = Selected();
  QListWidget::mousePressEvent(event);
}

void ListBox::Clear() {
  const QScopedValueRollback mark(byCode_, true);
  clear();
}

void ListBox::Add(std::string_view row) {
  addItem(ToQt(row));
}

/// Nothing is selected afterwards: a second click takes no other row away unseen.
void ListBox::Remove(int row) {
  const QScopedValueRollback mark(byCode_, true);
  delete takeItem(row);
  setCurrentRow(-1);
}

std::string ListBox::Row(int row) const {
  const QListWidgetItem* entry = item(row);
  return entry == nullptr ? std::string() : FromQt(entry->text());
}

int ListBox::Selected() const {
  const QList<QListWidgetItem*> chosen = selectedItems();
  return chosen.isEmpty() ? -1 : row(chosen.first());
}

void ListBox::Select(int row) {
  const QScopedValueRollback mark(byCode_, true);
  setCurrentRow(row);
  if (row < 0) clearSelection();
}

void ListBox::paintEvent(QPaintEvent* event) {
  QListWidget::paintEvent(event);
  if (count() == 0) PaintHint(*viewport(), hint_);
}

void PaintHint(QWidget& viewport, const QString& hint) {
  QPainter painter(&viewport);
  painter.setPen(viewport.palette().color(QPalette::PlaceholderText));
  const QRect area = viewport.rect().adjusted(kHintMarginPx, kHintMarginPx, -kHintMarginPx, -kHintMarginPx);
  painter.drawText(area, Qt::AlignCenter | Qt::TextWordWrap, hint);
}

}  // namespace kestrava::platform::qt
