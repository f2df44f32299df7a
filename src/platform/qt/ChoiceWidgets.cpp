#include "platform/qt/ChoiceWidgets.h"

#include <QListView>
#include <QPainter>

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
  return FromQt(currentIndex() < 0 ? placeholderText() : currentText());
}

void ComboList::SetText(std::string_view text) {
  const QString shown = ToQt(text);
  if (Text() == text) return;
  const int entry = findText(shown, Qt::MatchExactly | Qt::MatchCaseSensitive);
  if (entry < 0 && placeholderText() != shown) setPlaceholderText(shown);
  setCurrentIndex(entry);
}

ListBox::ListBox(QWidget* parent) : QListWidget(parent) {
  setUniformItemSizes(true);
  setSpacing(1);
  setTextElideMode(Qt::ElideRight);
}

void ListBox::Add(std::string_view row) {
  addItem(ToQt(row));
}

/// Nothing is selected afterwards: a second click takes no other row away unseen.
void ListBox::Remove(int row) {
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
