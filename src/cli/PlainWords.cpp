#include "PlainWords.h"

#include <algorithm>
#include <array>

#include "platform/Fault.h"
#include "platform/Text.h"

namespace kestrava::cli {

namespace {

struct Work {
  std::string_view trapName;
  std::string_view words;
};
constexpr std::array<Work, 5> kWorks{{{"PassPred-FormLoad", "pass.dat, while its jobs were listed"},
                                      {"PassPred-PresetGo", "pass.dat, while the job was read"},
                                      {"PassPred-CalcResults", "while passes were worked out"},
                                      {"Global Satcalc", "while a position was worked out"},
                                      {"Global SatelliteDataFunc", "while satellite.dat was read"}}};

bool IsOfAWrite(std::string_view trapName) {
  return platform::Contains(trapName, "Save");
}

}  // namespace

std::string PlainWords(std::string_view message, std::string_view trapName) {
  if (IsOfAWrite(trapName)) return {};
  if (trapName == "PassPred-PresetGo" && message == platform::Fault::SubscriptOutOfRange().what()) {
    return {};  // once for each satellite beyond the fiftieth, which is told in one sentence
  }
  const auto work = std::find_if(kWorks.begin(), kWorks.end(), [&](const Work& w) { return w.trapName == trapName; });
  if (work == kWorks.end()) return std::string(message);
  return std::string(work->words) + ": " + std::string(message);
}

}  // namespace kestrava::cli
