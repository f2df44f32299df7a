// The search line on top of a long combo list that has dropped down: it leaves only the entries that hold what was
// typed. Nothing is chosen by it; that is done by a click or by Return, as in any such list.
#pragma once

#include <QLineEdit>

class QComboBox;
class QListView;

namespace kestrava::platform::qt {

class ComboSearch : public QLineEdit {
  Q_OBJECT

 public:
  /// @param combo  one whose entries are shown in a list view; outlives this
  explicit ComboSearch(QComboBox& combo);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  /// The list has been closed: the next time it begins with all entries.
  void hideEvent(QHideEvent* event) override;

 private:
  void Narrow();
  /// @return the first row in sight, or -1
  int ShowMatches();

  QComboBox& combo_;
  QListView& list_;
};

}  // namespace kestrava::platform::qt
