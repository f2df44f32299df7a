#include "HorizonFixture.h"

#include <array>
#include <cmath>

#include "orbit/Angles.h"

namespace kestrava::views2d {

HorizonSurfaceSet::HorizonSurfaceSet() {
  for (const char* kind : {"SatMask", "SatPic"}) {
    for (std::size_t i = 0; i < kSatSprites; ++i) {
      const std::string name = kind + ("(" + std::to_string(i) + ")");
      sprites.push_back(std::make_unique<LoggedSurface>(log, name, 32, 32));
    }
  }
}

HorizonSurfaces HorizonSurfaceSet::Surfaces() {
  SpriteSet all{sunMask, sunPic, moonMask, moonPic, {}, {}};
  for (std::size_t i = 0; i < kSatSprites; ++i) {
    all.SatMask[i] = sprites[i].get();
    all.SatPic[i] = sprites[kSatSprites + i].get();
  }
  return {final, backDrop, all};
}

void HorizonSky::SetFavourites(const std::vector<std::string>& names) {
  tables.FaveCount = 0;
  for (const std::string& name : names) AddFavourite(name, 0);
}

void HorizonSky::GoPastRise(const std::string& satellite, double seconds) {
  GoTo(engine.NextRise(satellite, NowUtc()) + seconds / platform::kSecondsPerDay);
}

void HorizonSky::GoPastSet(const std::string& satellite, double seconds) {
  GoTo(engine.NextSet(satellite, NowUtc()) + seconds / platform::kSecondsPerDay);
}

void HorizonSky::GoTo(platform::SerialDate utc) {
  clock.SetUtc(platform::SplitSerial(utc));
}

void HorizonSky::StandBelow(const std::string& satellite) {
  const orbit::Geodetic below = engine.PlaceOf(satellite, NowUtc()).subPoint;
  engine.SetObserver({orbit::RadToDeg(below.latitudeRad), orbit::RadToDeg(below.longitudeRad), 0});
}

double HorizonSky::ElevationDeg(const std::string& object) {
  return orbit::RadToDeg(engine.PlaceOf(object, NowUtc()).look.elevationRad);
}

double HorizonSky::AzimuthDeg(const std::string& object) {
  return orbit::RadToDeg(engine.PlaceOf(object, NowUtc()).look.azimuthRad);
}

void HorizonSky::SeeAt(const std::string& body, double elevationDeg) {
  const double belowLonDeg = orbit::RadToDeg(engine.PlaceOf(body, NowUtc()).subPoint.longitudeRad);
  double nearDeg = 0;  // the elevation falls all the way to the other side of the Earth
  double farDeg = 175;
  for (int i = 0; i < 60; ++i) {
    const double middleDeg = (nearDeg + farDeg) / 2;
    engine.SetObserver({0, belowLonDeg + middleDeg, 0});
    (ElevationDeg(body) > elevationDeg ? nearDeg : farDeg) = middleDeg;
  }
}

void HorizonPainterFixture::Paint() {
  log.operations.clear();
  painter.PaintScreen();
}

void HorizonPainterFixture::Track(const std::string& satellite) {
  log.operations.clear();
  painter.DrawSkyTrack(satellite);
}

std::vector<std::string> HorizonPainterFixture::Printed() const {
  std::vector<std::string> texts = log.Of("Final Print");
  for (std::string& text : texts) text = text.substr(13, text.size() - 14);
  return texts;
}

}  // namespace kestrava::views2d
