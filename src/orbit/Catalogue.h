#pragma once

// The element sets of one folder, made ready, and found by name. Read once and then only asked; engines on the same
// folder share it.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "orbit/ElementSet.h"
#include "orbit/Sgp4.h"

namespace kestrava::orbit {

/// The part of a name that counts: its first 15 characters without blanks at the ends. Some lists cut at 16.
std::string_view NameKey(std::string_view name);

class Catalogue {
 public:
  Catalogue();

  /// The database of a folder; the one that another engine has read is shared while the files hold the same bytes.
  /// What had to be left out is logged once.
  static std::shared_ptr<const Catalogue> Of(std::string_view folder);

  /// Adds a set, or replaces the one of the same name and catalogue number if this one is newer.
  /// @return false if the name belongs to another catalogue number, which stays
  bool Add(ElementSet set);
  /// To be called once, when all sets are in.
  void Prepare();

  std::size_t Count() const { return models_.size(); }
  /// Every name in double quotes, separated by commas, in the order they came in.
  const std::string& NamesText() const { return namesText_; }
  /// The satellite of exactly this name, or else the first whose name differs in capitals only: favourites are kept
  /// however they are written.
  /// @return nothing if no satellite has the name
  const Sgp4* Find(std::string_view name) const;
  /// The element set behind a model that Find gave.
  const ElementSet& SetOf(const Sgp4& model) const { return sets_[static_cast<std::size_t>(&model - models_.data())]; }

 private:
  std::size_t SlotOf(std::string_view key) const;
  void Grow();
  std::uint32_t InOtherLetters(std::string_view key) const;

  std::vector<ElementSet> sets_;
  std::vector<Sgp4> models_;
  std::vector<std::uint32_t> slots_;  ///< index into sets_ plus one, by hash of the name; 0 is free
  std::string namesText_;
  /// Index into sets_ plus one, by the name in capitals; made by the first search that needs it.
  mutable std::unordered_map<std::string, std::uint32_t> byCapitals_;
};

}  // namespace kestrava::orbit
