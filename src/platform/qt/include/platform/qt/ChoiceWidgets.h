// Combo lists and list boxes that logic works with through the plain interfaces of platform/ChoiceControls.h.
#pragma once

#include <QComboBox>
#include <QListWidget>

#include "platform/ChoiceControls.h"

namespace kestrava::platform::qt {

/// Shows a prompt until an entry is chosen. What the user chooses, also anew, is told by the signal `activated`.
class ComboList : public QComboBox, public ComboControl {
  Q_OBJECT

 public:
  explicit ComboList(QWidget* parent = nullptr);

  void Clear() override;
  void Add(std::string_view entry) override;
  std::string Text() const override;
  void SetText(std::string_view text) override;
};

class ListBox : public QListWidget, public ListBoxControl {
  Q_OBJECT

 public:
  explicit ListBox(QWidget* parent = nullptr);
  /// What stands in the middle of an empty list.
  void SetHint(const QString& hint) { hint_ = hint; }

  void Add(std::string_view row) override;
  void Remove(int row) override;
  int Count() const override { return count(); }
  std::string Row(int row) const override;
  int Selected() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString hint_;
};

/// A hint in the middle of a list's empty area.
void PaintHint(QWidget& viewport, const QString& hint);

}  // namespace kestrava::platform::qt
