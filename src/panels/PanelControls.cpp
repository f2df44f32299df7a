#include "panels/PanelControls.h"

#include <string>

#include "platform/Text.h"

namespace kestrava::panels {

namespace {

std::string Wanted(std::string_view filter) {
  return platform::ToCapitals(platform::Trim(filter));
}

bool HoldsWanted(std::string_view row, std::string_view wanted) {
  return wanted.empty() || platform::Contains(platform::ToCapitals(row), wanted);
}

}  // namespace

bool PassesFilter(std::string_view row, std::string_view filter) {
  return HoldsWanted(row, Wanted(filter));
}

void FilterRows(TickListControl& list, std::string_view filter) {
  const std::string wanted = Wanted(filter);
  for (int row = 0; row < list.Count(); ++row) {
    const bool shown = HoldsWanted(list.Row(row), wanted);
    if (list.IsShown(row) != shown) list.SetShown(row, shown);
  }
}

}  // namespace kestrava::panels
