// A strip of captioned values: as many beside each other as there is room for, the rest below them.
#pragma once

#include <QLabel>
#include <QString>
#include <QWidget>
#include <vector>

namespace kestrava::views2d::ui {

/// A line of text that may be cut off: it never widens what it stands in. Its whole text is its tool tip.
class CutLabel : public QLabel {
 public:
  explicit CutLabel(QWidget* parent = nullptr);
  void ShowText(const QString& text);
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

class StatusStrip : public QWidget {
 public:
  explicit StatusStrip(QWidget* parent = nullptr);

  /// Adds a value at the end. @return its label, empty still
  CutLabel* AddValue(const QString& objectName, const QString& caption);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int widthPx) const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Value {
    QLabel* caption = nullptr;
    CutLabel* text = nullptr;
  };

  int Columns(int widthPx) const;
  int RowHeight() const;

  std::vector<Value> values_;
};

}  // namespace kestrava::views2d::ui
