// Tables of settings that a control stands for, one row each, and how such a control is loaded and stored. Called by
// the panels of main and 2D settings; their windows build the controls from the same rows.
#pragma once

#include <string>
#include <string_view>

#include "panels/PanelControls.h"

namespace kestrava::panels {

struct CheckRow {
  std::string_view objectName;
  std::string_view caption;
  std::string_view setting;
  std::string_view defaultValue;
  std::string_view window = {};  ///< that it acts through; greyed while there is none
};

struct SliderRow {
  std::string_view objectName;
  std::string_view labelName;
  std::string_view heading;
  std::string_view setting;
  std::string_view defaultValue;
  int minimum;
  int maximum;
  int smallStep;
  int largeStep;
  int tickEvery;          ///< 0: no marks
  std::string_view unit;  ///< behind the value in the label
};

/// Ticked for "1" as the store has it.
void ShowSetting(const CheckRow& row, CheckControl& check);
void StoreSetting(const CheckRow& row, const CheckControl& check);

/// Shows the stored value, and nothing is written. One beyond the slider's range is shown clamped; that, and one that
/// is no number (shown as the default), is logged.
/// @param trapName  of the panel's load; stays alive as a literal
void ShowSetting(const SliderRow& row, SliderControl& slider, std::string_view trapName);
/// The label's text follows the slider.
void ShowValue(const SliderRow& row, SliderControl& slider);
void StoreSetting(const SliderRow& row, const SliderControl& slider);

/// What every control of a panel does on a click that stores: a store that takes nothing is said.
void StoreByClick(std::string_view key, std::string_view value);

}  // namespace kestrava::panels
