#include "PlotFixture.h"

#include <cmath>

namespace kestrava::views2d {

namespace {

constexpr double kDeg = 3.14159265358979323846 / 180;

constexpr std::string_view kElementSets =
    "ISS (ZARYA)\n"
    "1 25544U 98067A   26318.89808844  .00002078  00000-0  38550-4 0  9991\n"
    "2 25544  51.6424  32.9776 0003646  28.7227  39.5332 15.54190080 95614\n"
    "NOAA 15\n"
    "1 25338U 98030A   26318.96742132  .00000016  00000-0  25641-4 0  9994\n"
    "2 25338  98.7766  37.2459 0009629 297.3801  62.6398 14.25835947 23784\n"
    "METEOR-M 2\n"
    "1 40069U 14037A   26319.21494460 -.00000035  00000-0  37873-5 0  9997\n"
    "2 40069  98.6254  76.0690 0004685 315.9051  44.1753 14.20648793183516\n"
    "OSCAR 7 (AO-7)\n"
    "1 07530U 74089B   26318.92882759 -.00000031  00000-0  83259-4 0  9999\n"
    "2 07530 101.6660 350.5859 0011799 260.7489 115.8236 12.53630761975916\n";

}  // namespace

PlotFixture::PlotFixture() {
  clock.SetUtc({2026, 11, 15, 12, 0, 0});
  Put("sets.txt", kElementSets);
  engine.SetDataFolder(platform::AppDir);
  engine.SetObserverLatitude(50);
  engine.SetObserverLongitude(10);
  tables.SelSat = 1;
}

void PlotFixture::SetFavourites(const std::vector<std::string>& names) {
  tables.FaveCount = 0;
  for (const std::string& name : names) Fave(++tables.FaveCount).Name = name;
}

double PlotFixture::ElevationDeg(const std::string& satellite) const {
  return engine.PlaceOf(satellite, platform::TheClock().Read().utc).look.elevationRad / kDeg;
}

void PlotFixture::SeeAt(const std::string& satellite, double elevationDeg) {
  const orbit::Geodetic below = engine.PlaceOf(satellite, NowUtc()).subPoint;
  engine.SetObserverLongitude(below.longitudeRad / kDeg);
  double nearDeg = 0;  // the elevation falls all the way from 90 at the sub-point
  double farDeg = 60;
  for (int i = 0; i < 60; ++i) {
    const double middleDeg = (nearDeg + farDeg) / 2;
    const double sign = below.latitudeRad > 0 ? -1 : 1;
    engine.SetObserverLatitude(below.latitudeRad / kDeg + sign * middleDeg);
    (ElevationDeg(satellite) > elevationDeg ? nearDeg : farDeg) = middleDeg;
  }
}

void PlotFixture::SeeWithout(const std::string& other, const std::string& satellite, double elevationDeg) {
  constexpr double kWellBelowDeg = -10;
  SeeAt(satellite, elevationDeg);
  while (ElevationDeg(other) > kWellBelowDeg) {
    clock.AdvanceMs(600000);
    SeeAt(satellite, elevationDeg);
  }
}

void PlotFixture::StartWarp(const platform::DateParts& local, int speed) {
  const auto field = [](int value) { return static_cast<std::int16_t>(value); };
  map.warp = {field(speed),     field(local.hour),  field(local.minute), field(local.second),
              field(local.day), field(local.month), field(local.year)};
}

double DegreesApart(double latDegA, double lonDegA, double latDegB, double lonDegB) {
  const double across = std::sin((latDegB - latDegA) / 2 * kDeg);
  const double around = std::sin((lonDegB - lonDegA) / 2 * kDeg);
  const double half = across * across + std::cos(latDegA * kDeg) * std::cos(latDegB * kDeg) * around * around;
  return 2 * std::asin(std::sqrt(std::min(1.0, half))) / kDeg;
}

}  // namespace kestrava::views2d
