// What the settings panels need of their controls beside the plain lists of the platform. Setting anything by code is
// no event of the user; where it runs one all the same, as ticks do, that is said.
#pragma once

#include <string>
#include <string_view>

#include "platform/ChoiceControls.h"

namespace kestrava::panels {

/// A list box whose rows have tick boxes, and of which a filter hides rows.
class TickListControl : public virtual platform::ListBoxControl {
 public:
  virtual bool IsTicked(int row) const = 0;
  /// Where the state changes this runs the tick event, as a user's tick does.
  virtual void SetTicked(int row, bool ticked) = 0;
  virtual bool IsShown(int row) const = 0;
  virtual void SetShown(int row, bool shown) = 0;
  /// A star beside the row's text: there is no more than one that matters.
  virtual void SetMarked(int row, bool marked) = 0;
};

class CheckControl {
 public:
  virtual ~CheckControl() = default;
  virtual bool IsChecked() const = 0;
  /// That is no click: nothing runs by it.
  virtual void SetChecked(bool checked) = 0;
};

/// A slider with the label that tells its value.
class SliderControl {
 public:
  virtual ~SliderControl() = default;
  virtual int Value() const = 0;
  /// That is no change of the user's: nothing runs by it.
  virtual void SetValue(int value) = 0;
  virtual void SetLabel(std::string_view text) = 0;
};

/// Shows the rows of a list in which the filter's text occurs, whatever the case, and hides the others. Blanks around
/// the filter do not count, and an empty one shows all.
void FilterRows(TickListControl& list, std::string_view filter);

}  // namespace kestrava::panels
