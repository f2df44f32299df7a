// Small things that every window needs of its controls: their names, for the tests and for assistive programs, and the
// list control that logic fills.
#pragma once

#include <QString>
#include <QTreeWidget>
#include <QWidget>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Controls.h"

namespace kestrava::platform::qt {

/// "BUTmenu(5)": the object name of a member of a control array.
QString ArrayName(std::string_view array, int index);

/// Gives a control its object name and its accessible name. @return the control
template <class Control>
Control* Named(Control* control, const QString& objectName, const QString& accessibleName = {}) {
  control->setObjectName(objectName);
  if (!accessibleName.isEmpty()) control->setAccessibleName(accessibleName);
  return control;
}

/// UTF-8 text of the station as the toolkit has it, and back.
QString ToQt(std::string_view utf8);
std::string FromQt(const QString& text);

/// A list with columns that logic fills through ListControl. Column 0 is narrow and stays empty. A heading that logic
/// adds is an ordinary first row, so the widget shows none of its own.
class ListWidget : public QTreeWidget, public ListControl {
  Q_OBJECT

 public:
  /// @param columns  names of all columns, column 0 too
  explicit ListWidget(const std::vector<std::string>& columns, QWidget* parent = nullptr);

  void Clear() override;
  void AddRow(const std::vector<std::string>& subItems) override;
  int RowCount() const override;

  /// The text in a row and column, both counted from 0; empty where there is none.
  std::string Text(int row, int column) const;
  /// First row in the look of a heading. On by default.
  void SetFirstRowIsHeading(bool heading) { firstRowIsHeading_ = heading; }

 private:
  bool firstRowIsHeading_ = true;
};

}  // namespace kestrava::platform::qt
