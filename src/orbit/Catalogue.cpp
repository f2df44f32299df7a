#include "Catalogue.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <optional>

#include "orbit/ElementReader.h"
#include "orbit/Tables.h"
#include "orbit/TextHelpers.h"
#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Text.h"
#include "platform/TextFile.h"

namespace kestrava::orbit {
namespace {

constexpr std::size_t kNameCharacters = 15;
constexpr std::size_t kFirstSlots = 64;

bool StartsCharacter(char c) {
  return (c & 0xC0) != 0x80;
}

}  // namespace

std::string_view NameKey(std::string_view name) {
  if (name.size() > kNameCharacters) {
    std::size_t characters = 0, end = 0;
    for (; end < name.size(); ++end) {
      if (StartsCharacter(name[end]) && ++characters > kNameCharacters) break;
    }
    name = name.substr(0, end);
  }
  return platform::Trim(name);
}

Catalogue::Catalogue() : slots_(kFirstSlots, 0) {}

/// Open addressing: the slot that holds the name, or the free one where it belongs.
std::size_t Catalogue::SlotOf(std::string_view key) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = std::hash<std::string_view>{}(key)&mask;
  while (slots_[slot] != 0 && sets_[slots_[slot] - 1].name != key) slot = (slot + 1) & mask;
  return slot;
}

void Catalogue::Grow() {
  slots_.assign(slots_.size() * 4, 0);
  for (std::size_t i = 0; i < sets_.size(); ++i) slots_[SlotOf(sets_[i].name)] = static_cast<std::uint32_t>(i + 1);
}

bool Catalogue::Add(ElementSet set) {
  const std::size_t slot = SlotOf(set.name);
  if (slots_[slot] == 0) {
    slots_[slot] = static_cast<std::uint32_t>(sets_.size() + 1);
    sets_.push_back(std::move(set));
    if (sets_.size() * 2 > slots_.size()) Grow();
    return true;
  }
  ElementSet& known = sets_[slots_[slot] - 1];
  if (known.catalogueNumber != set.catalogueNumber) return false;
  const bool newer = set.epoch.wholeDays != known.epoch.wholeDays ? set.epoch.wholeDays > known.epoch.wholeDays
                                                                  : set.epoch.dayFraction > known.epoch.dayFraction;
  if (newer) known = std::move(set);
  return true;
}

void Catalogue::Prepare() {
  models_.reserve(sets_.size());
  for (const ElementSet& set : sets_) {
    models_.emplace_back(set);
    if (!namesText_.empty()) namesText_ += ',';
    ((namesText_ += '"') += set.name) += '"';
  }
}

std::uint32_t Catalogue::InOtherLetters(std::string_view key) const {
  if (byCapitals_.empty()) {
    byCapitals_.reserve(models_.size());
    for (std::size_t i = 0; i < models_.size(); ++i) {
      byCapitals_.emplace(platform::ToCapitals(sets_[i].name), static_cast<std::uint32_t>(i + 1));  // the first stays
    }
  }
  const auto found = byCapitals_.find(platform::ToCapitals(key));
  return found == byCapitals_.end() ? 0 : found->second;
}

const Sgp4* Catalogue::Find(std::string_view name) const {
  const std::string_view key = NameKey(name);
  std::uint32_t found = slots_[SlotOf(key)];
  if (found == 0) found = InOtherLetters(key);
  return found == 0 ? nullptr : &models_[found - 1];
}

namespace {

using platform::ErrorTrap;
using platform::TheFiles;

constexpr std::string_view kTrapName = "Engine DataFolder";

struct SourceFile {
  std::string name;
  std::string bytes;
};

bool HasEnding(std::string_view name, std::string_view ending) {
  return name.size() >= ending.size() && platform::EqualsIgnoringCase(name.substr(name.size() - ending.size()), ending);
}

/// The files that groups.dat names, in its order, each once: word 2 of each line, up to the first blank line, by the
/// rule with which the groups themselves are read. So a line without a comma is its own address.
std::vector<std::string> NamesFromGroups(std::string_view groups) {
  std::vector<std::string> names;
  int rows = 0;
  for (const std::string& line : platform::SplitLines(groups)) {
    if (platform::Trim(line).empty() || ++rows > kGroupRows) break;
    std::string name = platform::FileNameOfAddress(platform::Trim(GetDelimitedWord(line, 2, ",")));
    const bool known = std::any_of(names.begin(), names.end(),
                                   [&](const std::string& n) { return platform::EqualsIgnoringCase(n, name); });
    if (!name.empty() && !known) names.push_back(std::move(name));
  }
  return names;
}

std::vector<std::string> ElementFileNames(const std::filesystem::path& folder) {
  if (const auto groups = folder / "groups.dat"; TheFiles().Exists(groups)) {
    return NamesFromGroups(TheFiles().Read(groups));
  }
  std::vector<std::string> names = TheFiles().List(folder);
  names.erase(std::remove_if(names.begin(), names.end(), [](const auto& name) { return !HasEnding(name, ".txt"); }),
              names.end());
  return names;
}

/// The bytes of all element files; one that cannot be read is logged and passed over.
std::vector<SourceFile> ReadSources(const std::filesystem::path& folder) {
  std::vector<SourceFile> sources;
  const platform::FaultTrap trap{kTrapName};
  std::vector<std::string> names;
  trap([&] { names = ElementFileNames(folder); });
  for (std::string& name : names) {
    trap([&] {
      if (!TheFiles().Exists(folder / name)) return;
      std::string bytes = TheFiles().Read(folder / name);
      sources.push_back({std::move(name), std::move(bytes)});
    });
  }
  return sources;
}

/// Names for one log line, each once, with what stands behind it; the line is bounded, the number in front is not.
class NamedOnce {
 public:
  void Add(const std::string& name, const std::string& why) {
    ++count_;
    constexpr std::size_t kLongestLine = 2000;
    const std::string item = name + " (" + why + ")";
    if (text_.size() > kLongestLine || std::find(items_.begin(), items_.end(), item) != items_.end()) return;
    items_.push_back(item);
    if (!text_.empty()) text_ += ", ";
    text_ += item;
  }
  int Count() const { return count_; }
  const std::string& Text() const { return text_; }

 private:
  int count_ = 0;
  std::vector<std::string> items_;
  std::string text_;
};

std::shared_ptr<const Catalogue> Load(const std::vector<SourceFile>& sources) {
  auto catalogue = std::make_shared<Catalogue>();
  NamedOnce homonyms;
  for (const SourceFile& source : sources) {
    ElementFile file = ReadElementSets(source.bytes);
    NamedOnce refused;
    for (const RefusedSet& set : file.refused) refused.Add(set.name, set.reason);
    if (refused.Count() > 0) {
      ErrorTrap(source.name + ": " + std::to_string(refused.Count()) + " element sets left out: " + refused.Text(),
                kTrapName);
    }
    for (ElementSet& set : file.sets) {
      const std::string name = set.name, number = std::to_string(set.catalogueNumber);
      if (!catalogue->Add(std::move(set))) homonyms.Add(name, number);
    }
  }
  if (homonyms.Count() > 0) {
    ErrorTrap("Several satellites of one name, the first found stays; left out: " + homonyms.Text(), kTrapName);
  }
  catalogue->Prepare();
  return catalogue;
}

std::size_t Fingerprint(const std::vector<SourceFile>& sources) {
  constexpr std::size_t kMultiplier = 0x9E3779B97F4A7C15U;
  std::size_t sum = sources.size();
  for (const SourceFile& source : sources) {
    sum = (sum ^ std::hash<std::string>{}(source.name)) * kMultiplier;
    sum = (sum ^ std::hash<std::string>{}(source.bytes)) * kMultiplier;
  }
  return sum;
}

}  // namespace

std::shared_ptr<const Catalogue> Catalogue::Of(std::string_view folder) {
  struct Latest {
    std::string folder;
    std::size_t fingerprint = 0;
    std::weak_ptr<const Catalogue> catalogue;
  };
  static Latest latest;
  const std::vector<SourceFile> sources = ReadSources(std::filesystem::path(folder));
  const std::size_t fingerprint = Fingerprint(sources);
  if (latest.folder == folder && latest.fingerprint == fingerprint) {
    if (auto shared = latest.catalogue.lock()) return shared;
  }
  auto loaded = Load(sources);
  latest = {std::string(folder), fingerprint, loaded};
  return loaded;
}

}  // namespace kestrava::orbit
