// The settings store: one flat per-user map of text to text. Keys compare without regard to case. Nothing caches a
// setting: every reader asks at the moment of use, and the first read of a key writes its default.
#pragma once

#include <string>
#include <string_view>

namespace kestrava::platform {

/// The door to where settings are kept (application Kestrava, section Settings).
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  /// The stored value; empty if there is none. Cheap: 100,000 reads a second and more.
  virtual std::string Get(std::string_view key) = 0;
  /// Durable when it returns; a value that already stands costs nothing. @throws Fault if it cannot be stored
  virtual void Set(std::string_view key, std::string_view value) = 0;
};

/// The value as stored; a missing or blank one is replaced by `defaultValue`, which is written to the store at once.
std::string ReadSetting(std::string_view key, std::string_view defaultValue);

/// Stores a value at once.
void WriteSetting(std::string_view key, std::string_view value);

/// The number in a setting, in the machine's locale. @throws Fault "Type mismatch"
double ReadNumberSetting(std::string_view key, std::string_view defaultValue);

/// True for exactly "1".
bool ReadSwitch(std::string_view key, std::string_view defaultValue);

}  // namespace kestrava::platform
