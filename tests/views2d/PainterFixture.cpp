#include "PainterFixture.h"

#include <cmath>

namespace kestrava::views2d {

namespace {

constexpr double kDeg = 3.14159265358979323846 / 180;

/// A point at an angular distance from another, in a direction counted from north towards the west.
orbit::PointRec PointFrom(double latDeg, double lonDegWest, double distanceDeg, double directionDeg) {
  const double sinLat = std::sin(latDeg * kDeg) * std::cos(distanceDeg * kDeg) +
                        std::cos(latDeg * kDeg) * std::sin(distanceDeg * kDeg) * std::cos(directionDeg * kDeg);
  const double y = std::sin(directionDeg * kDeg) * std::sin(distanceDeg * kDeg) * std::cos(latDeg * kDeg);
  const double x = std::cos(distanceDeg * kDeg) - std::sin(latDeg * kDeg) * sinLat;
  const double lon = std::fmod(lonDegWest + std::atan2(y, x) / kDeg + 720, 360);
  return {std::asin(sinLat) / kDeg, lon};
}

}  // namespace

PainterFixture::PainterFixture() {
  std::array<const platform::Surface*, 6> masks{};
  std::array<const platform::Surface*, 6> pictures{};
  for (std::size_t i = 0; i < masks.size(); ++i) {
    const std::string index = "(" + std::to_string(i) + ")";
    masks[i] = sprites.emplace_back(std::make_unique<LoggedSurface>(log, "SatMask" + index, 32, 32)).get();
    pictures[i] = sprites.emplace_back(std::make_unique<LoggedSurface>(log, "SatPic" + index, 32, 32)).get();
  }
  painter = std::make_unique<MapPainter>(
      tables, map, MapSurfaces{final, world, alpha, {sunMask, sunPic, moonMask, moonPic, masks, pictures}}, host);
  SetSun(20, 60);
  map.work.MoonLat = -10;
  map.work.MoonLon = 250;
  map.RemoteStat[0] = "Satellite : ISS (ZARYA)";
  map.RemoteStat[1] = "Latitude : 10.00 Deg";
  map.RemoteStat[2] = "Longitude : 020.000 W Deg";
  map.RemoteStat[3] = "Azimuth : 1.0 Deg";
  map.RemoteStat[4] = "Elevation : -2.0 Deg";
  map.RemoteStat[5] = "Height : 420.0 Km";
  map.RemoteStat[7] = "AOS : 12:34:56";
  settings.Set("GroundTrackLen", "2");
}

void PainterFixture::Paint() {
  log.operations.clear();
  painter->RepaintMapScreen();
}

void PainterFixture::AddFavourite(const std::string& name, double latDeg, double lonDeg) {
  orbit::FaveRec& row = tables.FaveList[static_cast<std::size_t>(++tables.FaveCount)];
  row.Name = name;
  row.Lat = latDeg;
  row.Lon = lonDeg;
}

void PainterFixture::AddLocation(const std::string& name, const std::string& latitude, const std::string& longitude,
                                 const std::string& onMap) {
  for (std::size_t i = 1; i < tables.LocationList.size(); ++i) {
    if (!tables.LocationList[i].Name.empty()) continue;
    tables.LocationList[i] = {name, latitude, longitude, 0, onMap};
    return;
  }
}

void PainterFixture::SetSun(double latDeg, double lonDeg) {
  map.work.SunLat = latDeg;
  map.work.SunLon = lonDeg;
  for (std::size_t i = 0; i < map.work.SunCircle.size(); ++i) {
    map.work.SunCircle[i] = PointFrom(latDeg, lonDeg, 89.99655, static_cast<double>(i));
  }
  for (std::size_t i = 0; i < 16; ++i) {
    map.work.SunSeeds[i] = PointFrom(latDeg, lonDeg, 82.67122, static_cast<double>(i) * 24);
  }
}

std::vector<std::string> PainterFixture::Printed() const {
  std::vector<std::string> texts = log.Of("Final Print");
  for (std::string& text : texts) text = text.substr(13, text.size() - 14);
  return texts;
}

std::vector<std::string> PainterFixture::SpritesPainted() const {
  std::vector<std::string> names;
  for (const std::string& operation : log.Of("Final BitBlt")) {
    const std::size_t name = operation.find("SatMask(");
    if (name != std::string::npos) names.push_back(operation.substr(name + 8, 1));
  }
  return names;
}

std::vector<std::string> PainterFixture::LayerOf(const std::string& firstOperation,
                                                 const std::string& endOperation) const {
  const int first = log.IndexOf(firstOperation);
  if (first < 0) return {};
  return log.Between(first, log.IndexOf(endOperation, first));
}

}  // namespace kestrava::views2d
