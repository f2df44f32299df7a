// A read-only text that may offer something: then it looks and acts like a link, for the mouse and for the keyboard.
#pragma once

#include <QPlainTextEdit>

namespace kestrava::panels::ui {

class OfferText : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit OfferText(QWidget* parent = nullptr);

  /// @param offers  a click on it, or Return or the space bar, accepts what it offers
  /// @param link  the words of it that look like a link
  void Show(const QString& text, bool offers, const QString& link);
  bool Offers() const { return offers_; }

 signals:
  void Accepted();

 protected:
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void MarkLink();

  QString link_;
  bool offers_ = false;
  bool pressed_ = false;
};

}  // namespace kestrava::panels::ui
