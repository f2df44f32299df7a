#include "platform/VoiceOrder.h"

#include <algorithm>
#include <tuple>

namespace kestrava::platform {

namespace {

constexpr std::string_view kAddOn = "mb-";
constexpr std::string_view kAddOnFolder = "mb/";

std::string InLowerCase(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

bool IsOfLanguage(std::string_view code, std::string_view language) {
  return code.starts_with(language) && (code.size() == language.size() || code[language.size()] == '-');
}

int Rank(const VoiceFact& voice, std::string_view english) {
  if (IsOfLanguage(voice.language, english)) return 0;
  return IsOfLanguage(voice.language, "en") ? 1 : 2;
}

}  // namespace

std::vector<VoiceFact> InListOrder(std::vector<VoiceFact> voices, std::string_view region) {
  std::erase_if(voices, [](const VoiceFact& voice) {
    return voice.name.starts_with(kAddOn) || voice.identifier.starts_with(kAddOnFolder);
  });
  const std::string english = "en-" + std::string(region);
  const auto place = [&](const VoiceFact& voice) {
    const int rank = Rank(voice, english);
    return rank < 2 ? std::tuple(rank, voice.priority, voice.language, voice.name)
                    : std::tuple(rank, 0, voice.name, voice.language);
  };
  std::stable_sort(voices.begin(), voices.end(),
                   [&](const VoiceFact& a, const VoiceFact& b) { return place(a) < place(b); });
  return voices;
}

std::string RegionOfLocale(std::string_view locale) {
  const std::string_view plain = locale.substr(0, locale.find_first_of(".@"));
  const std::size_t line = plain.find('_');
  return line == std::string_view::npos ? std::string() : InLowerCase(plain.substr(line + 1));
}

}  // namespace kestrava::platform
