#include "TextQuestion.h"

#include <QAccessible>
#include <QDialogButtonBox>
#include <QPointer>
#include <QVBoxLayout>
#include <QValidator>
#include <algorithm>

#include "platform/qt/Forms.h"
#include "platform/qt/QtEventLoop.h"
#include "platform/qt/Widgets.h"

#include "PanelWidgets.h"

namespace kestrava::panels::ui {

using platform::qt::Named;

namespace {

constexpr int kWidthPx = 440;
constexpr int kMarginPx = 14;
constexpr int kGapPx = 8;

/// Refuses an edit that would bring one of its characters in. A whole pasted text is refused with it: half of an
/// address is no address.
class RefusingValidator : public QValidator {
 public:
  RefusingValidator(const QString& refused, QObject* parent) : QValidator(parent), refused_(refused) {}

  State validate(QString& text, int&) const override {
    const bool holdsOne = std::any_of(text.begin(), text.end(), [this](QChar c) { return refused_.contains(c); });
    return holdsOne ? Invalid : Acceptable;
  }

 private:
  QString refused_;
};

}  // namespace

TextQuestion::TextQuestion(const Wording& wording, QWidget* parent)
    : QDialog(parent), text_(Named(new QLineEdit(this), "InputText")), why_(Named(new QLabel(this), "InputWhy")) {
  setObjectName("InputBox");
  setWindowTitle(wording.title);
  BuildUi(wording);
  text_->setText(wording.defaultText);
  text_->selectAll();
  connect(text_, &QLineEdit::inputRejected, this, [this, why = wording.whyRefused] { SayWhy(why); });
  connect(text_, &QLineEdit::textEdited, this, [this] { SayWhy({}); });
}

void TextQuestion::BuildUi(const Wording& wording) {
  QLabel* prompt = platform::qt::LabelFor(text_, wording.prompt, this);
  prompt->setWordWrap(true);
  prompt->setTextFormat(Qt::PlainText);
  text_->setValidator(new RefusingValidator(wording.refused, text_));
  why_->setWordWrap(true);
  why_->setTextFormat(Qt::PlainText);
  auto* buttons = Named(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this), "InputButtons");
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMarginPx, kMarginPx, kMarginPx, kMarginPx);
  column->setSpacing(kGapPx);
  column->addWidget(prompt);
  column->addWidget(text_);
  column->addWidget(why_);
  column->addStretch(1);
  column->addWidget(buttons);
  why_->setMinimumHeight(why_->fontMetrics().height());  // the box does not jump when it says something
  setMinimumWidth(kWidthPx);
}

void TextQuestion::SayWhy(const QString& why) {
  if (why_->text() == why) return;
  MarkAsWarning(*why_, !why.isEmpty());
  why_->setText(why);
  text_->setAccessibleDescription(why);
  if (why.isEmpty()) return;
  QAccessibleEvent told(why_, QAccessible::Alert);
  QAccessible::updateAccessibility(&told);
}

std::optional<QString> AskForText(const TextQuestion::Wording& wording, QWidget& parent) {
  const platform::qt::QtEventLoop::Busy busy;  // the parent's object stays until this has returned
  const QPointer<TextQuestion> box = new TextQuestion(wording, &parent);
  const bool accepted = box->exec() == QDialog::Accepted;
  if (!box) return std::nullopt;
  const QString text = box->Text();
  delete box.data();
  if (!accepted) return std::nullopt;
  return text;
}

void CancelQuestionOver(const QWidget& parent) {
  if (auto* box = parent.findChild<TextQuestion*>()) box->reject();
}

}  // namespace kestrava::panels::ui
