#include "panels/SettingRows.h"

#include <algorithm>

#include "platform/Fault.h"
#include "platform/Format.h"
#include "platform/Messages.h"
#include "platform/Settings.h"

namespace kestrava::panels {

namespace {

constexpr std::string_view kOutOfRange = "Invalid property value";

std::string TextOf(bool checked) {
  return std::string(1, checked ? '1' : '0');
}

}  // namespace

void StoreByClick(std::string_view key, std::string_view value) {
  platform::RunUntrapped("the storing of a setting", [&] { platform::WriteSetting(key, value); });
}

void ShowSetting(const CheckRow& row, CheckControl& check) {
  check.SetChecked(platform::ReadSwitch(row.setting, row.defaultValue));
}

void StoreSetting(const CheckRow& row, const CheckControl& check) {
  StoreByClick(row.setting, TextOf(check.IsChecked()));
}

void ShowSetting(const SliderRow& row, SliderControl& slider, std::string_view trapName) {
  const platform::FaultTrap trap{trapName};
  double value = platform::Val(row.defaultValue);
  trap([&] { value = platform::RoundHalfEven(platform::ReadNumberSetting(row.setting, row.defaultValue)); });
  const double shown = std::clamp(value, double{0} + row.minimum, double{0} + row.maximum);
  slider.SetValue(static_cast<int>(shown));
  if (shown != value) {
    platform::ErrorTrap(std::string(kOutOfRange) + ": " + std::string(row.setting) + " " + platform::NumberText(value),
                        trapName);
  }
  ShowValue(row, slider);
}

void ShowValue(const SliderRow& row, SliderControl& slider) {
  slider.SetLabel(std::to_string(slider.Value()) + " " + std::string(row.unit));
}

void StoreSetting(const SliderRow& row, const SliderControl& slider) {
  StoreByClick(row.setting, std::to_string(slider.Value()));
}

}  // namespace kestrava::panels
