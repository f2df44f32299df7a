#include "views2d/DataText.h"

#include "store/SatelliteData.h"

namespace kestrava::views2d {

std::optional<std::string> DataText::Of(std::string_view name) {
  if (reading_) return std::nullopt;
  struct Reading {
    bool& flag;
    explicit Reading(bool& f) : flag(f) { flag = true; }
    ~Reading() { flag = false; }
  };
  const Reading reading(reading_);
  const std::string text = store::SatelliteDataFunc(name);
  return text.empty() ? std::string(kNoInformation) : text;
}

}  // namespace kestrava::views2d
