#include "FirstFavourites.h"

#include "orbit/OrbitEngine.h"
#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Format.h"
#include "platform/Text.h"
#include "platform/TextFile.h"

namespace kestrava::store {

namespace {

/// A satellite of which the engine can say nothing stays.
bool ComesUp(const orbit::OrbitEngine& engine, std::string_view name) {
  try {
    const double epochUtc = engine.Model(name).Epoch().Serial();
    return engine.LookAngle(name, epochUtc).elevationRad > 0 || engine.NextRise(name, epochUtc) > 0;
  } catch (const platform::Fault&) {
    return true;
  }
}

double StoredAngleDeg(std::string_view key) {
  return platform::ParseNumber(platform::ApplyCommaRule(platform::TheSettings().Get(key)));
}

}  // namespace

std::optional<orbit::Observer> FirstObserver(const std::optional<ZonePlace>& guess) {
  try {
    return orbit::Observer{StoredAngleDeg("Latitude"), 360 - StoredAngleDeg("Longitude"), 0};
  } catch (const platform::Fault&) {
    if (!guess) return std::nullopt;
    return orbit::Observer{guess->latitudeDeg, guess->longitudeEastDeg, 0};
  }
}

std::string FavouritesThatRise(const std::filesystem::path& shipped, const orbit::Observer& observer) {
  orbit::OrbitEngine engine;
  engine.SetDataFolder((shipped / "").string());
  engine.SetObserver(observer);
  std::string kept;
  platform::TextReader reader(shipped / kFavouritesFile);
  while (!reader.AtEnd()) {
    const std::string line = reader.ReadLine();
    if (ComesUp(engine, platform::Trim(line))) kept += line + "\n";
  }
  return kept.empty() ? platform::TheFiles().Read(shipped / kFavouritesFile) : kept;
}

}  // namespace kestrava::store
