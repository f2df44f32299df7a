// The settings file: any bytes are refused or read, and what was read is written and read back the same.
#include "platform/SettingsText.h"

#include "Fuzz.h"

using kestrava::platform::SettingsFromText;
using kestrava::platform::SettingsToText;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto settings = SettingsFromText(kestrava::fuzz::TextOf(data, size));
  if (!settings) return 0;
  const std::string text = SettingsToText(*settings);
  const auto again = SettingsFromText(text);
  kestrava::fuzz::Check(again.has_value(), "a file that we wrote is not damaged");
  kestrava::fuzz::Check(again->size() == settings->size(), "no setting is lost or made");
  for (const auto& [key, value] : *settings) {
    const auto entry = again->find(key);
    kestrava::fuzz::Check(entry != again->end() && entry->second == value, "each value comes back");
  }
  kestrava::fuzz::Check(SettingsToText(*again) == text, "writing again writes the same");
  return 0;
}
