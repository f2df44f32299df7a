#include "orbit/TextHelpers.h"

#include <algorithm>
#include <array>

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Text.h"

namespace kestrava::orbit {

namespace {

/// Position of a part in a text from a start, both counted from 1; 0 if it is not there.
std::size_t PositionFrom(std::size_t start, std::string_view text, std::string_view part) {
  if (start > text.size()) return 0;
  const std::size_t found = text.find(part, start - 1);
  return found == std::string_view::npos ? 0 : found + 1;
}

std::string WordOf(std::string_view text, int n, std::string_view delimiter) {
  // One character past the delimiter's first, however long the delimiter is.
  const std::size_t step = std::max<std::size_t>(1, platform::Left(delimiter, 1).size());
  std::size_t start = 1;
  for (int i = 1; i < n; ++i) {
    const std::size_t found = PositionFrom(start, text, delimiter);
    start = found == 0 ? 1 : found + step;  // past the end the count goes on from the beginning
  }
  const std::size_t found = PositionFrom(start, text, delimiter);
  const std::size_t stop = found <= 1 ? text.size() : found - 1;  // a delimiter in front of all else is not seen
  return std::string(text.substr(start - 1, stop + 1 - start));
}

struct SpokenForm {
  std::string_view contains;
  std::string_view becomes;
};

// The two "Starshiine" texts steer the voice. The last two rows never match, as the hyphens are gone by then.
constexpr std::array<SpokenForm, 8> kSpokenForms{{{"HST", "The Hubble space telescope"},
                                                  {"ISS", "The International Space station"},
                                                  {"STS", "The Space shuttle"},
                                                  {"PCSAT", "P C SAT"},
                                                  {"STARSHINE 2", "Starshiine 2"},
                                                  {"STARSHINE 3", "Starshiine 3"},
                                                  {"AO-40", "A O four zero"},
                                                  {"AO-13", "A O one three"}}};

}  // namespace

std::string GetDelimitedWord(std::string_view text, int n, std::string_view delimiter) {
  return WordOrMessage([&] { return WordOf(text, n, delimiter); });
}

std::string WordOrMessage(const std::function<std::string()>& search) {
  try {
    return search();
  } catch (const platform::Fault& fault) {
    platform::TheMessages().Show("DelimitedWord Error: " + std::to_string(fault.Number()) + ". " + fault.what());
    return {};
  }
}

bool IsFavourite(const Tables& tables, std::string_view name) {
  for (int i = 1; i <= tables.FaveCount; ++i) {
    if (platform::At(tables.FaveList, i).Name == name) return true;
  }
  return false;
}

std::string SpokenName(std::string_view name) {
  std::string spoken = platform::ReplaceAll(name, "-", " ");
  for (const SpokenForm& form : kSpokenForms) {
    if (platform::Contains(spoken, form.contains)) spoken = form.becomes;
  }
  return spoken;
}

std::string ShortName(std::string_view path) {
  // File systems here have one form of a name: the short form is the name itself, known once the file exists.
  platform::Files& files = platform::TheFiles();
  if (!files.Exists(path)) {
    files.Replace(path, "");
    files.Remove(path);
  }
  return std::string(path);
}

bool HasBlank(std::string_view text) {
  return platform::Contains(text, " ");
}

}  // namespace kestrava::orbit
