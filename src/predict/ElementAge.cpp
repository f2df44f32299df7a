#include "predict/ElementAge.h"

#include "orbit/OrbitEngine.h"

namespace kestrava::predict {

std::vector<ElementAge> ElementAges(const orbit::OrbitEngine& engine, const std::vector<std::string>& satellites,
                                    platform::SerialDate utc) {
  std::vector<ElementAge> ages;
  for (const std::string& satellite : satellites) {
    if (!engine.Knows(satellite)) continue;
    ages.push_back({satellite, utc - engine.Model(satellite).Epoch().Serial()});
  }
  return ages;
}

}  // namespace kestrava::predict
