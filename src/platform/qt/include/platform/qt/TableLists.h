// What the station's lists of rows and columns have in common: how they are shaped, and the menu by which their rows
// are copied. Called by the lists of the windows when they are built.
#pragma once

#include <QMenu>
#include <QTableView>
#include <functional>

namespace kestrava::platform::qt {

/// Whole rows are selected, several of them; nothing is edited; Tab leaves the list; rows without numbers, as high as
/// their text and a margin, every second one shaded.
void ShapeRows(QTableView& list, int rowMarginPx);

/// Gives a list the menu of its right button: Copy, Copy with Heads and Select All (mnuCopy, mnuCopyHeads,
/// mnuSelectAll), whose keys hold while the list has the focus.
/// @param menuName  object name of the menu; @param copy  told whether the heads are wanted
/// @return the menu, which belongs to the list
QMenu* AddCopyMenu(QTableView& list, const QString& menuName, const QString& accessibleName,
                   const std::function<void(bool withHeads)>& copy);

}  // namespace kestrava::platform::qt
