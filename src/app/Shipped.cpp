#include "Shipped.h"

#include <array>
#include <system_error>

#include "platform/Fault.h"
#include "store/FirstStart.h"
#include "store/ShippedElements.h"

namespace kestrava::app {

std::filesystem::path FindShippedData(const std::filesystem::path& programFolder) {
  const std::array candidates{programFolder / ".." / KESTRAVA_SAMPLE_FROM_PROGRAM,
                              std::filesystem::path(KESTRAVA_SAMPLE_INSTALLED),
                              std::filesystem::path(KESTRAVA_SAMPLE_SOURCE)};
  for (const auto& candidate : candidates) {
    std::error_code ignored;
    if (std::filesystem::exists(candidate / "groups.dat", ignored)) return candidate.lexically_normal();
  }
  return {};
}

bool ShippedData::Has(const std::string& name) const {
  return !folder_.empty() && store::IsShipped(folder_, name);
}

void ShippedData::PutBack(const std::string& name) {
  if (!store::PutBack(folder_, name)) throw platform::Fault::FileNotFound();
}

bool ShippedData::AreElements(const std::string& name) const {
  return !folder_.empty() && store::HoldsShippedElements(folder_, name);
}

}  // namespace kestrava::app
