// How the cells and the heads of the table are drawn: dark in every look.
#pragma once

#include <QColor>
#include <QHeaderView>
#include <QStyledItemDelegate>

namespace kestrava::views2d::ui {

// The grounds of rows, all so dark that the red of a row in range stands out by 4.5 to 1.
inline constexpr QColor kGround{0x0d, 0x10, 0x14};
inline constexpr QColor kGroundOfEverySecond{0x15, 0x18, 0x1c};
inline constexpr QColor kGroundOfSelected{0x1e, 0x1d, 0x0a};

inline constexpr int kCellPaddingPx = 9;  ///< at both sides of a text

/// A row keeps the colour of its state when it is selected: its ground and lines along the selected ones tell that.
/// A bar beside a cell tells where the keyboard is.
class TableCells : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

/// The arrow of the sorted column stands before a caption on the right and behind one on the left, so that captions
/// stay in line with their columns.
class TableHeads : public QHeaderView {
 public:
  explicit TableHeads(QWidget* parent = nullptr);

 protected:
  void paintSection(QPainter* painter, const QRect& box, int column) const override;
  void paintEvent(QPaintEvent* event) override;
  QSize sectionSizeFromContents(int column) const override;

 private:
  QString Caption(int column) const;
  bool IsOnTheRight(int column) const;
};

}  // namespace kestrava::views2d::ui
