// Combo lists and list boxes, as logic needs them: the operations that the system names, and nothing of a toolkit. The
// windows hand out an adapter for each such control of theirs.
#pragma once

#include <string>
#include <string_view>

namespace kestrava::platform {

/// A combo list: a text, which may be a prompt that is none of its entries, and the entries to choose from. Entries
/// count from 0.
class ComboControl {
 public:
  virtual ~ComboControl() = default;
  /// Takes the entries and the choice away; the text stays.
  virtual void Clear() = 0;
  virtual void Add(std::string_view entry) = 0;
  virtual std::string Text() const = 0;
  /// Shows a text. That is no click: nothing runs by it.
  virtual void SetText(std::string_view text) = 0;
  /// The chosen entry; -1 for none.
  virtual int Index() const = 0;
  /// Chooses an entry. That is no click: nothing runs by it.
  /// @throws Fault "Subscript out of range"
  virtual void SetIndex(int index) = 0;
};

/// A list box of rows, of which one may be selected. Rows count from 0.
class ListBoxControl {
 public:
  virtual ~ListBoxControl() = default;
  virtual void Clear() = 0;
  virtual void Add(std::string_view row) = 0;
  virtual void Remove(int row) = 0;
  virtual int Count() const = 0;
  virtual std::string Row(int row) const = 0;
  /// The selected row, or -1.
  virtual int Selected() const = 0;
  /// That is no click: nothing runs by it. -1 selects nothing.
  virtual void Select(int row) = 0;
};

}  // namespace kestrava::platform
