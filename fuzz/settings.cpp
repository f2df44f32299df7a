// The settings file: any bytes are refused or read, and what was read is written and read back the same.
#include "platform/SettingsText.h"

#include "Fuzz.h"

using kestrava::platform::SettingsText;

namespace {

void CheckSame(const SettingsText& a, const SettingsText& b) {
  kestrava::fuzz::Check(a.Values().size() == b.Values().size(), "no setting is lost or made");
  for (const auto& [key, value] : a.Values()) {
    const auto entry = b.Values().find(key);
    kestrava::fuzz::Check(entry != b.Values().end() && entry->second == value, "each value comes back");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto settings = SettingsText::Parse(kestrava::fuzz::TextOf(data, size));
  if (!settings) return 0;
  const auto again = SettingsText::Parse(settings->Bytes());
  kestrava::fuzz::Check(again.has_value(), "a file that we wrote is no damaged one");
  CheckSame(*settings, *again);
  kestrava::fuzz::Check(again->Bytes() == settings->Bytes(), "writing again writes the same");
  SettingsText written = *settings;
  for (const auto& [key, value] : settings->Values()) written.Set(key, value);
  const auto read = SettingsText::Parse(written.Bytes());
  kestrava::fuzz::Check(read.has_value(), "a file of settings that were set is no damaged one");
  CheckSame(*settings, *read);
  return 0;
}
