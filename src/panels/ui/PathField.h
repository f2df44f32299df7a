// A path that is shown, not typed: shortened in its middle where it does not fit, whole in its tool tip, and whole to
// be read and copied where the keyboard comes to it.
#pragma once

#include <QLineEdit>

namespace kestrava::panels::ui {

class PathField : public QLineEdit {
  Q_OBJECT

 public:
  explicit PathField(QWidget* parent);
  void SetPath(const QString& path);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace kestrava::panels::ui
