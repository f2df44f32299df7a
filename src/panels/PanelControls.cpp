#include "panels/PanelControls.h"

#include "platform/Text.h"

namespace kestrava::panels {

bool PassesFilter(std::string_view row, std::string_view filter) {
  return platform::Contains(platform::ToCapitals(row), platform::ToCapitals(platform::Trim(filter)));
}

void FilterRows(TickListControl& list, std::string_view filter) {
  for (int row = 0; row < list.Count(); ++row) {
    const bool shown = PassesFilter(list.Row(row), filter);
    if (list.IsShown(row) != shown) list.SetShown(row, shown);
  }
}

}  // namespace kestrava::panels
