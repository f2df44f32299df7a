// Combo lists and list boxes that logic works with through the plain interfaces of platform/ChoiceControls.h.
#pragma once

#include <QComboBox>
#include <QListWidget>

#include "platform/ChoiceControls.h"

namespace kestrava::platform::qt {

class ComboSearch;

/// Shows a prompt until an entry is chosen. What the user chooses, also anew, is told by the signal `activated`; where
/// each step of a cursor key would be too much, by `Chosen`. One that is made editable takes any text. The list of one
/// with more entries than it shows at once is searched by typing, dropped down or not.
class ComboList : public QComboBox, public ComboControl {
  Q_OBJECT

 public:
  explicit ComboList(QWidget* parent = nullptr);

  void Clear() override;
  void Add(std::string_view entry) override;
  std::string Text() const override;
  void SetText(std::string_view text) override;
  int Index() const override { return currentIndex(); }
  void SetIndex(int index) override;

  void showPopup() override;

 signals:
  /// The user has made a choice: the list has closed upon an entry, or Return was pressed after keys or the wheel had
  /// stepped through the entries.
  void Chosen(int index);
  /// The keyboard has gone on from an entry that was stepped to and not chosen.
  void LeftAt(int index);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  /// Without the focus the wheel scrolls what the list stands in, and chooses nothing.
  void wheelEvent(QWheelEvent* event) override;

 private:
  bool IsSearched() const { return count() > maxVisibleItems() && !isEditable(); }
  bool TakeOpenChoice();

  bool steps_ = false;         ///< a key or the wheel is changing the entry
  bool choiceIsOpen_ = false;  ///< entries were stepped through, and nothing has been chosen since
  ComboSearch* search_ = nullptr;
};

class ListBox : public QListWidget, public virtual ListBoxControl {
  Q_OBJECT

 public:
  explicit ListBox(QWidget* parent = nullptr);
  /// What stands in the middle of an empty list.
  void SetHint(const QString& hint) { hint_ = hint; }

  void Clear() override;
  void Add(std::string_view row) override;
  void Remove(int row) override;
  int Count() const override { return count(); }
  std::string Row(int row) const override;
  int Selected() const override;
  void Select(int row) override;

 signals:
  /// The user has selected a row by mouse or keys, or clicked on the selected one. Nothing that code does tells this.
  /// By mouse it comes after the release: a message that it leads to would swallow that, and with it a tick.
  void Chosen(int row);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  /// What the mouse has chosen since it was pressed. The last step of a release: the list may be gone behind it.
  void TellChosenByMouse();

 private:
  QString hint_;
  bool byCode_ = false;
  bool mouseIsDown_ = false;
  bool chosenByMouse_ = false;
  int selectedAtPress_ = -1;
};

/// A hint in the middle of a list's empty area.
void PaintHint(QWidget& viewport, const QString& hint);

}  // namespace kestrava::platform::qt
