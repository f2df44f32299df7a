#include "orbit/OrbitEngine.h"

#include <algorithm>
#include <cmath>

#include "orbit/PassList.h"
#include "orbit/PassSearch.h"
#include "orbit/SunMoon.h"
#include "platform/Fault.h"

#include "Catalogue.h"
#include "NoPosition.h"

namespace kestrava::orbit {
namespace {

/// Engine time counts days from 2000-01-01 0h UTC: the difference to a serial date loses nothing.
constexpr double kEngineZeroSerial = 36526;

constexpr std::string_view kSun = "sun", kMoon = "moon";
constexpr std::int16_t kTrue = -1;

platform::Fault UnknownName(std::string_view name) {
  constexpr int kInvalidCall = 5;
  return {kInvalidCall, "No element set for \"" + std::string(name) + "\""};
}

/// The sub-point moves south where the velocity has a southward part along the ellipsoid.
bool MovesSouth(const Geodetic& subPoint, const EarthFixedState& state) {
  const double sinLat = std::sin(subPoint.latitudeRad), cosLat = std::cos(subPoint.latitudeRad);
  const Vec3& r = state.positionKm;
  const Vec3& v = state.velocityKmS;
  const double outwards = r.x * v.x + r.y * v.y;  // times the distance from the axis, as the other term is made
  const double axisDistance = std::sqrt(r.x * r.x + r.y * r.y);
  return v.z * cosLat * axisDistance - sinLat * outwards < 0;
}

ObjectPlace FromBody(const BodyPlace& body, double heightKm, double phaseRad) {
  ObjectPlace place;
  place.look = {body.azimuthRad, body.elevationRad, body.rangeKm, body.rangeRateKmS};
  place.subPoint = {body.subLatitudeRad, body.subLongitudeRad, heightKm};
  place.descending = body.descending;
  place.phaseAngleRad = phaseRad;
  return place;
}

}  // namespace

OrbitEngine::OrbitEngine() : catalogue_(std::make_shared<const Catalogue>()), site_(Site::Of({})) {
  turn_ = EarthTurn::At(GreenwichMeanSiderealTime(turnOf_));
}

OrbitEngine::~OrbitEngine() = default;

void OrbitEngine::SetDataFolder(std::string_view folder) {
  catalogue_ = Catalogue::Of(folder);
  dataFolder_ = folder;
}

std::int32_t OrbitEngine::SatelliteCount() const {
  return static_cast<std::int32_t>(catalogue_->Count());
}

const std::string& OrbitEngine::SatelliteNames() const {
  return catalogue_->NamesText();
}

std::string OrbitEngine::CalcPassList(std::string_view name, double startSerial, std::int32_t /*one*/,
                                      std::int32_t days, std::int32_t /*word1*/, std::int32_t /*word2*/) {
  return PassListText(Passes(name, startSerial, days));
}

void OrbitEngine::CalcPosition(std::string_view name, double engineTime, std::int32_t /*word1*/, std::int32_t /*word2*/,
                               std::int16_t& descending, double& azimuthRad, double& elevationRad, double& longitudeRad,
                               double& latitudeRad, double& rangeKm, double& rangeRateKmS, double& heightKm,
                               double& phaseRad, std::int16_t& unused) {
  latest_ = PlaceOf(name, engineTime + kEngineZeroSerial);
  descending = latest_.descending ? kTrue : std::int16_t{0};
  azimuthRad = latest_.look.azimuthRad;
  elevationRad = latest_.look.elevationRad;
  longitudeRad = latest_.subPoint.longitudeRad;
  latitudeRad = latest_.subPoint.latitudeRad;
  rangeKm = latest_.look.rangeKm;
  rangeRateKmS = latest_.look.rangeRateKmS;
  heightKm = latest_.subPoint.heightKm;
  phaseRad = latest_.phaseAngleRad;
  unused = 0;
}

double OrbitEngine::EngineTime(double utcSerial) const {
  return utcSerial - kEngineZeroSerial;
}

double OrbitEngine::NextAOSTime(std::string_view name, double utcSerial) const {
  return NextRise(name, utcSerial);
}

double OrbitEngine::NextLOSTime(std::string_view name, double utcSerial) const {
  return NextSet(name, utcSerial);
}

double OrbitEngine::OrbitPhase() const {
  return std::max<std::int32_t>(0, latest_.revolution) + latest_.meanAnomalyRad / kTurn;
}

void OrbitEngine::StateVector(double& x, double& y, double& z, double& vx, double& vy, double& vz) const {
  x = latest_.positionTemeKm.x;
  y = latest_.positionTemeKm.y;
  z = latest_.positionTemeKm.z;
  vx = latest_.velocityTemeKmS.x;
  vy = latest_.velocityTemeKmS.y;
  vz = latest_.velocityTemeKmS.z;
}

bool OrbitEngine::Knows(std::string_view satellite) const {
  return catalogue_->Find(satellite) != nullptr;
}

const Sgp4& OrbitEngine::Model(std::string_view satellite) const {
  const Sgp4* model = catalogue_->Find(satellite);
  if (model == nullptr) throw UnknownName(satellite);
  return *model;
}

int OrbitEngine::CatalogueNumber(std::string_view satellite) const {
  return catalogue_->SetOf(Model(satellite)).catalogueNumber;
}

Sgp4State OrbitEngine::Propagate(std::string_view satellite, double utcSerial) const {
  const Sgp4& model = Model(satellite);
  return model.Propagate(model.MinutesSinceEpoch(utcSerial));
}

const Site& OrbitEngine::CurrentSite() const {
  if (siteOf_.latitudeDeg != observer_.latitudeDeg || siteOf_.longitudeEastDeg != observer_.longitudeEastDeg ||
      siteOf_.heightM != observer_.heightM) {
    site_ = Site::Of(observer_);
    siteOf_ = observer_;
  }
  return site_;
}

const EarthTurn& OrbitEngine::TurnAt(double utcSerial) const {
  if (utcSerial != turnOf_) {
    turn_ = EarthTurn::At(GreenwichMeanSiderealTime(utcSerial));
    turnOf_ = utcSerial;
  }
  return turn_;
}

ObjectPlace OrbitEngine::PlaceOfSatellite(std::string_view name, double utcSerial) const {
  const Sgp4& model = Model(name);
  const double minutes = model.MinutesSinceEpoch(utcSerial);
  const Sgp4State state = model.Propagate(minutes);
  if (state.error != ModelError::kNone) throw NoPosition(name, state.error);
  const EarthFixedState ground = EarthFixedFromTeme(TurnAt(utcSerial), state.positionKm, state.velocityKmS);
  ObjectPlace place;
  place.look = LookFrom(CurrentSite(), ground);
  place.subPoint = GeodeticFromEarthFixed(ground.positionKm);
  place.descending = MovesSouth(place.subPoint, ground);
  place.revolution = model.RevolutionNumber(minutes, state);
  place.meanAnomalyRad = WrapTurn(state.meanAnomalyRad);
  place.positionTemeKm = state.positionKm;
  place.velocityTemeKmS = state.velocityKmS;
  return place;
}

ObjectPlace OrbitEngine::PlaceOf(std::string_view object, double utcSerial) const {
  if (object == kSun) {
    const BodyPlace sun = PlaceOfSun(utcSerial, observer_);
    return FromBody(sun, sun.heightKm, 0);
  }
  if (object == kMoon) {
    const MoonPlace moon = PlaceOfMoon(utcSerial, observer_);
    return FromBody(moon, moon.distanceKm, moon.phaseRad);
  }
  return PlaceOfSatellite(object, utcSerial);
}

LookAngle OrbitEngine::LookAngle(std::string_view object, double utcSerial) const {
  return PlaceOf(object, utcSerial).look;
}

double OrbitEngine::NextRise(std::string_view satellite, double utcSerial) const {
  return orbit::NextRise(Model(satellite), observer_, utcSerial);
}

double OrbitEngine::NextSet(std::string_view satellite, double utcSerial) const {
  return orbit::NextSet(Model(satellite), observer_, utcSerial);
}

std::vector<Pass> OrbitEngine::Passes(std::string_view satellite, double utcSerial, double days) const {
  constexpr double kMostDays = 400;  // a year and the days around it
  return orbit::Passes(Model(satellite), observer_, utcSerial, std::clamp(days, 0.0, kMostDays));
}

}  // namespace kestrava::orbit
