// The settings store on Linux: one text file in the user's config folder, read whole into memory. Every write is
// durable and atomic when it returns. Several running copies share it: a write locks the file and reads it anew first,
// and a read sees another copy's write by a counter in the lock file.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/Clock.h"
#include "platform/Settings.h"

namespace kestrava::platform {

class XdgSettings : public SettingsStore {
 public:
  /// Called once in a run when a file that is no text was set aside under a dated name, given here. The store holds no
  /// value then. Called in mid-read or mid-write, never while the store is made, as its owner's doors do not stand yet:
  /// what it shows, it shows later.
  using DamageReport = std::function<void(const std::filesystem::path& setAside)>;

  /// Called once in a run for each line that is no setting or is not UTF-8: "line 3 is no setting: 'Mils'". The line
  /// stays in the file. Called when DamageReport would be.
  using OddityReport = std::function<void(const std::string& oddity)>;

  /// @param folder  where the file settings.conf lies or will lie; made on the first write
  /// @param clock   dates a file that is set aside
  XdgSettings(std::filesystem::path folder, Clock& clock, DamageReport report = {}, OddityReport tellOddity = {});
  ~XdgSettings() override;
  XdgSettings(const XdgSettings&) = delete;
  XdgSettings& operator=(const XdgSettings&) = delete;

  std::string Get(std::string_view key) override;
  void Set(std::string_view key, std::string_view value) override;

 private:
  class Store;
  std::unique_ptr<Store> store_;
};

}  // namespace kestrava::platform
