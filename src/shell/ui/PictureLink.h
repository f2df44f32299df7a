// A picture that can be clicked, and reached by keyboard: the user's own picture and link on the launcher.
#pragma once

#include <QAbstractButton>
#include <QPixmap>

namespace kestrava::shell::ui {

class PictureLink : public QAbstractButton {
 public:
  explicit PictureLink(QWidget* parent = nullptr);
  /// Shown whole, as large as the widget allows, never larger than it is.
  void SetPicture(const QPixmap& picture);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QPixmap picture_;
};

}  // namespace kestrava::shell::ui
