// The input box of the settings panels: a prompt, one line of text, OK and Cancel. Characters that the answer may not
// hold are refused while the user types or pastes, and the box says why.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <optional>

namespace kestrava::panels::ui {

class TextQuestion : public QDialog {
  Q_OBJECT

 public:
  struct Wording {
    QString prompt;
    QString title;
    QString defaultText;
    QString refused;     ///< each of these characters
    QString whyRefused;  ///< what the box says when one of them is tried
  };

  TextQuestion(const Wording& wording, QWidget* parent);

  QString Text() const { return text_->text(); }

 private:
  void BuildUi(const Wording& wording);
  void SayWhy(const QString& why);

  QLineEdit* text_;
  QLabel* why_;
};

/// Shows the box and waits for it. @return nothing if it was cancelled
std::optional<QString> AskForText(const TextQuestion::Wording& wording, QWidget& parent);
/// A window that ends takes the box that stands over it along: a cancel.
void CancelQuestionOver(const QWidget& parent);

}  // namespace kestrava::panels::ui
