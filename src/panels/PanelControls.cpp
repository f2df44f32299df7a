#include "panels/PanelControls.h"

#include <string>

#include "platform/Text.h"

namespace kestrava::panels {

void FilterRows(TickListControl& list, std::string_view filter) {
  const std::string wanted = platform::ToCapitals(platform::Trim(filter));
  for (int row = 0; row < list.Count(); ++row) {
    const bool shown = wanted.empty() || platform::Contains(platform::ToCapitals(list.Row(row)), wanted);
    if (list.IsShown(row) != shown) list.SetShown(row, shown);
  }
}

}  // namespace kestrava::panels
