// Settings that live as long as a test.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Fault.h"
#include "platform/Settings.h"
#include "platform/Text.h"

namespace kestrava::testing {

class MemorySettings : public platform::SettingsStore {
 public:
  std::string Get(std::string_view key) override {
    reads_.emplace_back(key);
    const auto entry = values_.find(platform::ToCapitals(key));
    return entry == values_.end() ? std::string() : entry->second;
  }
  void Set(std::string_view key, std::string_view value) override {
    if (writeFault_) throw *writeFault_;
    std::string& stored = values_[platform::ToCapitals(key)];
    if (stored == value) return;
    stored = value;
    writes_.emplace_back(key, value);
  }

  bool Has(std::string_view key) const { return values_.count(platform::ToCapitals(key)) > 0; }
  void Clear() { values_.clear(); }
  void FailWrites(const platform::Fault& fault) { writeFault_ = fault; }
  void Mend() { writeFault_.reset(); }

  /// All reads, and all writes that changed something, in order.
  const std::vector<std::string>& Reads() const { return reads_; }
  const std::vector<std::pair<std::string, std::string>>& Writes() const { return writes_; }
  void ForgetAccesses() {
    reads_.clear();
    writes_.clear();
  }

 private:
  std::map<std::string, std::string> values_;
  std::vector<std::string> reads_;
  std::vector<std::pair<std::string, std::string>> writes_;
  std::optional<platform::Fault> writeFault_;
};

}  // namespace kestrava::testing
