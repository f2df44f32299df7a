#include "orbit/Sgp4.h"

#include <cmath>

#include "orbit/Frames.h"
#include "platform/SerialDate.h"

#include "DeepSpace.h"
#include "Sgp4Constants.h"

namespace kestrava::orbit {

using platform::kMinutesPerDay;
using sgp4::kJ2;
using sgp4::kJ3OverJ2;
using sgp4::kJ4;
using sgp4::kTwoThirds;

namespace {

/// Julian date of 1949-12-31 0h, from which the deep-space model counts its days.
constexpr double kJulianOf1950 = 2433281.5;

/// Periods of 225 minutes and more belong to the deep-space model.
constexpr double kDeepSpaceFromMinutes = 225;

/// Mean motion after Brouwer from the published one after Kozai.
double BrouwerMeanMotion(double kozai, double eccentricity, double cosio) {
  const double rest = 1 - eccentricity * eccentricity;
  const double ak = std::pow(sgp4::kXke / kozai, kTwoThirds);
  const double d1 = 0.75 * kJ2 * (3 * cosio * cosio - 1) / (std::sqrt(rest) * rest);
  double del = d1 / (ak * ak);
  const double adel = ak * (1 - del * del - del * (1.0 / 3.0 + 134 * del * del / 81));
  del = d1 / (adel * adel);
  return kozai / (1 + del);
}

}  // namespace

Sgp4::Sgp4(const ElementSet& set)
    : epoch_(set.epoch),
      bstar_(set.dragTermPerEarthRadius),
      inclination_(set.inclinationDeg * kRadPerDeg),
      node_(set.ascendingNodeDeg * kRadPerDeg),
      eccentricity_(set.eccentricity),
      perigee_(set.argumentOfPerigeeDeg * kRadPerDeg),
      meanAnomaly_(set.meanAnomalyDeg * kRadPerDeg),
      revolutionNumber_(set.revolutionNumber) {
  sinio_ = std::sin(inclination_);
  cosio_ = std::cos(inclination_);
  meanMotion_ = BrouwerMeanMotion(set.meanMotionRevPerDay * kTurn / kMinutesPerDay, eccentricity_, cosio_);
  ao_ = std::pow(sgp4::kXke / meanMotion_, kTwoThirds);
  const double cosio2 = cosio_ * cosio_;
  con41_ = 3 * cosio2 - 1;
  x1mth2_ = 1 - cosio2;
  x7thm1_ = 7 * cosio2 - 1;
  const double po = ao_ * (1 - eccentricity_ * eccentricity_);
  PrepareSecular(po * po);
  PrepareDrag(ao_ * (1 - eccentricity_));
  if (kTurn / meanMotion_ >= kDeepSpaceFromMinutes) PrepareDeepSpace();
  nodeTurnsAtEpoch_ = NodeTurns(0, Propagate(0));
}

Sgp4::~Sgp4() = default;
Sgp4::Sgp4(Sgp4&&) noexcept = default;
Sgp4& Sgp4::operator=(Sgp4&&) noexcept = default;

void Sgp4::PrepareSecular(double posq) {
  const double cosio2 = cosio_ * cosio_, cosio4 = cosio2 * cosio2;
  const double rteosq = std::sqrt(1 - eccentricity_ * eccentricity_);
  const double pinvsq = 1 / posq;
  const double temp1 = 1.5 * kJ2 * pinvsq * meanMotion_;
  const double temp2 = 0.5 * temp1 * kJ2 * pinvsq;
  const double temp3 = -0.46875 * kJ4 * pinvsq * pinvsq * meanMotion_;
  mdot_ = meanMotion_ + 0.5 * temp1 * rteosq * con41_ + 0.0625 * temp2 * rteosq * (13 - 78 * cosio2 + 137 * cosio4);
  argpdot_ = -0.5 * temp1 * (1 - 5 * cosio2) + 0.0625 * temp2 * (7 - 114 * cosio2 + 395 * cosio4) +
             temp3 * (3 - 36 * cosio2 + 49 * cosio4);
  const double xhdot1 = -temp1 * cosio_;
  nodedot_ = xhdot1 + (0.5 * temp2 * (4 - 19 * cosio2) + 2 * temp3 * (3 - 7 * cosio2)) * cosio_;
  nodecf_ = 3.5 * (1 - eccentricity_ * eccentricity_) * xhdot1;  // times cc1, which comes with the drag
  constexpr double kNearlyZero = 1.5e-12;                        // an inclination of 180 degrees divides by it
  const double divisor = std::abs(cosio_ + 1) > kNearlyZero ? 1 + cosio_ : kNearlyZero;
  xlcof_ = -0.25 * kJ3OverJ2 * sinio_ * (3 + 5 * cosio_) / divisor;
  aycof_ = -0.5 * kJ3OverJ2 * sinio_;
}

void Sgp4::PrepareDrag(double perigeeEarthRadii) {
  const double re = sgp4::kEarthRadiusKm;
  const double perigeeKm = (perigeeEarthRadii - 1) * re;
  isSimple_ = perigeeKm < 220 || kTurn / meanMotion_ >= kDeepSpaceFromMinutes;
  double sfour = 78 / re + 1, top = (120.0 - 78.0) / re;
  if (perigeeKm < 156) {  // the atmosphere's reference height sinks with the perigee
    const double heightKm = perigeeKm < 98 ? 20 : perigeeKm - 78;
    top = (120 - heightKm) / re;
    sfour = heightKm / re + 1;
  }
  const double qzms24 = top * top * top * top;
  const double e = eccentricity_, omeosq = 1 - e * e;
  const double tsi = 1 / (ao_ - sfour);
  eta_ = ao_ * e * tsi;
  const double etasq = eta_ * eta_, eeta = e * eta_, psisq = std::abs(1 - etasq);
  const double coef = qzms24 * tsi * tsi * tsi * tsi;
  const double coef1 = coef / (psisq * psisq * psisq * std::sqrt(psisq));
  const double cc2 = coef1 * meanMotion_ *
                     (ao_ * (1 + 1.5 * etasq + eeta * (4 + etasq)) +
                      0.375 * kJ2 * tsi / psisq * con41_ * (8 + 3 * etasq * (8 + etasq)));
  cc1_ = bstar_ * cc2;
  const bool eccentric = e > 1e-4;
  const double cc3 = eccentric ? -2 * coef * tsi * kJ3OverJ2 * meanMotion_ * sinio_ / e : 0;
  bstarCc4_ = bstar_ * (2 * meanMotion_ * coef1 * ao_ * omeosq *
                        (eta_ * (2 + 0.5 * etasq) + e * (0.5 + 2 * etasq) -
                         kJ2 * tsi / (ao_ * psisq) *
                             (-3 * con41_ * (1 - 2 * eeta + etasq * (1.5 - 0.5 * eeta)) +
                              0.75 * x1mth2_ * (2 * etasq - eeta * (1 + etasq)) * std::cos(2 * perigee_))));
  bstarCc5_ = bstar_ * (2 * coef1 * ao_ * omeosq * (1 + 2.75 * (etasq + eeta) + eeta * etasq));
  omgcof_ = bstar_ * cc3 * std::cos(perigee_);
  xmcof_ = eccentric ? -kTwoThirds * coef * bstar_ / eeta : 0;
  nodecf_ *= cc1_;
  t2cof_ = 1.5 * cc1_;
  const double delmo = 1 + eta_ * std::cos(meanAnomaly_);
  delmo_ = delmo * delmo * delmo;
  sinmao_ = std::sin(meanAnomaly_);
  if (!isSimple_) PrepareDragPowers(sfour, tsi);
}

void Sgp4::PrepareDragPowers(double sfour, double tsi) {
  const double cc1sq = cc1_ * cc1_;
  d2_ = 4 * ao_ * tsi * cc1sq;
  const double temp = d2_ * tsi * cc1_ / 3;
  d3_ = (17 * ao_ + sfour) * temp;
  d4_ = 0.5 * temp * ao_ * tsi * (221 * ao_ + 31 * sfour) * cc1_;
  t3cof_ = d2_ + 2 * cc1sq;
  t4cof_ = 0.25 * (3 * d3_ + cc1_ * (12 * d2_ + 10 * cc1sq));
  t5cof_ = 0.2 * (3 * d4_ + 12 * cc1_ * d3_ + 6 * d2_ * d2_ + 15 * cc1sq * (2 * d2_ + cc1sq));
}

void Sgp4::PrepareDeepSpace() {
  const MeanElements atEpoch{meanMotion_, eccentricity_, inclination_, perigee_, node_, meanAnomaly_};
  // Julian date in one number, 40 microseconds coarse, because the published values rest on it: for the most
  // eccentric orbits Sun and Moon would otherwise differ by some millimetres
  const double julian = JulianFromSerial(epoch_.wholeDays).midnight + epoch_.dayFraction;
  const double midnight = std::floor(julian - 0.5) + 0.5;
  deep_ = std::make_unique<DeepSpace>(atEpoch, SecularRates{mdot_, argpdot_, nodedot_}, julian - kJulianOf1950,
                                      GreenwichMeanSiderealTime(JulianDate{midnight, julian - midnight}));
}

double Sgp4::MinutesSinceEpoch(double utcSerial) const {
  const double whole = std::floor(utcSerial);
  return ((whole - epoch_.wholeDays) + ((utcSerial - whole) - epoch_.dayFraction)) * kMinutesPerDay;
}

/// Argument of latitude in turns, not reduced: its whole part grows by one at each northward crossing. The mean
/// angles tell the turn, the state itself the place in it.
double Sgp4::NodeTurns(double minutes, const Sgp4State& state) const {
  double meanLatitude = state.meanAnomalyRad + state.argumentOfPerigeeRad;
  if (deep_) {  // its angles are reduced to a turn; the secular rates tell which one
    const double expected = meanAnomaly_ + perigee_ + (mdot_ + argpdot_) * minutes;
    meanLatitude = expected + WrapHalfTurn(meanLatitude - expected);
  }
  const Vec3 h = Cross(state.positionKm, state.velocityKmS);
  const Vec3& r = state.positionKm;
  const double latitude = std::atan2(r.z * Length(h), h.x * r.y - h.y * r.x);
  return (meanLatitude + WrapHalfTurn(latitude - meanLatitude)) / kTurn;
}

int Sgp4::RevolutionNumber(double minutes, const Sgp4State& state) const {
  const double passed = std::floor(NodeTurns(minutes, state)) - std::floor(nodeTurnsAtEpoch_);
  if (!(std::abs(passed) < 1e9)) return revolutionNumber_;
  return revolutionNumber_ + static_cast<int>(passed);
}

}  // namespace kestrava::orbit
