#include "platform/qt/ChoiceWidgets.h"

#include <QKeyEvent>
#include <QListView>
#include <QMetaMethod>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScreen>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

#include "platform/Fault.h"
#include "platform/qt/Widgets.h"

#include "ComboSearch.h"

namespace kestrava::platform::qt {

namespace {

constexpr int kEntriesSeen = 20;
constexpr int kLeastLetters = 16;
constexpr int kHintMarginPx = 12;
constexpr int kPopupEdgesPx = 4;

/// Below the combo, or above it where there is more room: a list as tall as the screen would leave a search's few
/// matches far from the eye.
void PlacePopup(const QComboBox& combo, QWidget& popup, int wantedHeightPx) {
  const QRect screen = combo.screen()->availableGeometry();
  const QRect place(combo.mapToGlobal(QPoint()), combo.size());
  const int below = screen.bottom() - place.bottom();
  const int above = place.top() - screen.top();
  const bool goesDown = below >= std::min(wantedHeightPx, above);
  const int height = std::min(wantedHeightPx, goesDown ? below : above);
  const int top = goesDown ? place.bottom() + 1 : place.top() - height;
  const int left = std::clamp(place.left(), screen.left(), std::max(screen.left(), screen.right() + 1 - popup.width()));
  popup.setGeometry(left, top, popup.width(), height);
}

}  // namespace

ComboList::ComboList(QWidget* parent) : QComboBox(parent) {
  setMaxVisibleItems(kEntriesSeen);
  setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(kLeastLetters);
  setFocusPolicy(Qt::StrongFocus);  // not by the wheel
  connect(this, &QComboBox::activated, this, [this] {
    choiceIsOpen_ = true;
    if (!steps_ && TakeOpenChoice()) emit Chosen(currentIndex());
  });
  // Thousands of entries: their heights are not measured one by one.
  if (auto* list = qobject_cast<QListView*>(view())) list->setUniformItemSizes(true);
}

void ComboList::Clear() {
  const QString text = ToQt(Text());
  choiceIsOpen_ = false;
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
  const int entry = findText(shown, Qt::MatchExactly | Qt::MatchCaseSensitive);
  if (Text() == text && entry == currentIndex()) return;
  choiceIsOpen_ = false;
  if (entry < 0 && placeholderText() != shown) setPlaceholderText(shown);
  setCurrentIndex(entry);
  if (isEditable()) setEditText(shown);
}

bool ComboList::TakeOpenChoice() {
  return std::exchange(choiceIsOpen_, false) && currentIndex() >= 0;
}

/// What follows may take its time and yield: the keyboard is where it goes to first.
void ComboList::focusOutEvent(QFocusEvent* event) {
  QComboBox::focusOutEvent(event);
  const bool goesOn = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason ||
                      event->reason() == Qt::MouseFocusReason || event->reason() == Qt::ShortcutFocusReason;
  if (!goesOn || !TakeOpenChoice()) return;
  QMetaObject::invokeMethod(
      this, [this] { emit LeftAt(currentIndex()); }, Qt::QueuedConnection);
}

void ComboList::wheelEvent(QWheelEvent* event) {
  const QScopedValueRollback mark(steps_, true);
  if (hasFocus()) {
    QComboBox::wheelEvent(event);
  } else {
    event->ignore();
  }
}

void ComboList::SetIndex(int index) {
  if (index < 0 || index >= count()) throw Fault::SubscriptOutOfRange();
  choiceIsOpen_ = false;
  setCurrentIndex(index);
}

void ComboList::showPopup() {
  QComboBox::showPopup();
  if (!search_ && IsSearched() && qobject_cast<QListView*>(view())) search_ = new ComboSearch(*this);
  if (!search_) return;
  search_->setVisible(IsSearched());
  if (!IsSearched()) return;
  search_->clear();
  const int rows = std::max(view()->sizeHintForRow(0), fontMetrics().height()) * kEntriesSeen;
  PlacePopup(*this, *view()->window(), search_->sizeHint().height() + rows + kPopupEdgesPx);
  search_->setFocus();
}

/// Return chooses what was stepped to; without that it is the window's. A letter drops a long list down and begins the
/// search there; in a short one it steps, as the toolkit has it.
void ComboList::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  // Where nobody waits for a choice, it has been made step by step, and Return is the window's.
  if (enter && TakeOpenChoice() && isSignalConnected(QMetaMethod::fromSignal(&ComboList::Chosen))) {
    emit Chosen(currentIndex());
    return;
  }
  const QScopedValueRollback mark(steps_, true);
  const QString letter = event->text().trimmed();
  const bool types = !letter.isEmpty() && letter.front().isPrint() &&
                     !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
  if (!types || !IsSearched()) return QComboBox::keyPressEvent(event);
  showPopup();
  if (search_) search_->insert(letter);
}

ListBox::ListBox(QWidget* parent) : QListWidget(parent) {
  setUniformItemSizes(true);
  setSpacing(1);
  setTextElideMode(Qt::ElideRight);
  connect(this, &QListWidget::itemSelectionChanged, this, [this] {
    chosenByMouse_ = mouseIsDown_ && !byCode_;
    if (!mouseIsDown_ && !byCode_ && Selected() >= 0) emit Chosen(Selected());
  });
  connect(this, &QListWidget::itemClicked, this, [this] {
    if (Selected() == selectedAtPress_) chosenByMouse_ = true;
  });
}

void ListBox::mousePressEvent(QMouseEvent* event) {
  selectedAtPress_ = Selected();
  mouseIsDown_ = true;
  QListWidget::mousePressEvent(event);
}

void ListBox::mouseReleaseEvent(QMouseEvent* event) {
  QListWidget::mouseReleaseEvent(event);
  TellChosenByMouse();
}

void ListBox::TellChosenByMouse() {
  mouseIsDown_ = false;
  if (std::exchange(chosenByMouse_, false) && Selected() >= 0) emit Chosen(Selected());
}

/// A key that comes while the release of the mouse has gone elsewhere chooses at once again.
void ListBox::keyPressEvent(QKeyEvent* event) {
  mouseIsDown_ = false;
  QListWidget::keyPressEvent(event);
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
