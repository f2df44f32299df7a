#include "OfferText.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QTextCursor>
#include <utility>

namespace kestrava::panels::ui {

OfferText::OfferText(QWidget* parent) : QPlainTextEdit(parent) {
  setReadOnly(true);
  setTabChangesFocus(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

void OfferText::Show(const QString& text, bool offers, const QString& link) {
  offers_ = offers;
  link_ = offers ? link : QString();
  setPlainText(text);
  MarkLink();
  viewport()->setCursor(offers ? Qt::PointingHandCursor : Qt::IBeamCursor);
  const QString hint = offers ? tr("A click, Return or the space bar sends a request") : QString();
  setToolTip(hint);
  setAccessibleDescription(hint);
}

void OfferText::MarkLink() {
  QTextEdit::ExtraSelection words;
  words.cursor = link_.isEmpty() ? QTextCursor() : document()->find(link_);
  words.format.setForeground(palette().color(QPalette::Link));
  words.format.setFontUnderline(true);
  setExtraSelections(words.cursor.isNull() ? QList<QTextEdit::ExtraSelection>() : QList{words});
}

void OfferText::changeEvent(QEvent* event) {
  QPlainTextEdit::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) MarkLink();
}

void OfferText::keyPressEvent(QKeyEvent* event) {
  const bool accepts = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
  if (!offers_ || !accepts) return QPlainTextEdit::keyPressEvent(event);
  if (!event->isAutoRepeat()) emit Accepted();
}

void OfferText::mousePressEvent(QMouseEvent* event) {
  QPlainTextEdit::mousePressEvent(event);
  pressed_ = event->button() == Qt::LeftButton;
}

/// A text that was marked by the mouse is going to be copied: that is no click.
void OfferText::mouseReleaseEvent(QMouseEvent* event) {
  QPlainTextEdit::mouseReleaseEvent(event);
  const bool click = event->button() == Qt::LeftButton && std::exchange(pressed_, false) &&
                     viewport()->rect().contains(event->position().toPoint());
  if (click && offers_ && !textCursor().hasSelection()) emit Accepted();
}

}  // namespace kestrava::panels::ui
