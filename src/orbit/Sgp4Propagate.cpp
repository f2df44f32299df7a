#include <cmath>

#include "orbit/Frames.h"
#include "orbit/Sgp4.h"

#include "DeepSpace.h"
#include "Sgp4Constants.h"
#include "SmallTurn.h"

namespace kestrava::orbit {

using sgp4::kJ2;
using sgp4::kJ3OverJ2;

/// The elements of a moment on their way through the stages, and what hangs on the inclination, which only Sun and
/// Moon change.
struct Sgp4::Moment {
  MeanElements mean;
  double semiMajorAxis;  ///< earth radii
  double sini, cosi;
  double con41, x1mth2, x7thm1, xlcof, aycof;
};

namespace {

/// Eccentric longitude: Kepler's equation in the variables of the model, solved by Newton's method with steps held
/// below 0.95, ten at most, as published.
SineCosine SolveKepler(double u, double axnl, double aynl) {
  constexpr double kLongestStep = 0.95, kExact = 1e-12, kNextIsExact = 1e-7;
  SineCosine at = SineCosine::Of(u);
  double eo1 = u;
  for (int i = 0; i < 10; ++i) {
    double step = (u - aynl * at.cosine + axnl * at.sine - eo1) / (1 - at.cosine * axnl - at.sine * aynl);
    if (std::abs(step) < kExact) break;
    if (std::abs(step) >= kLongestStep) step = step > 0 ? kLongestStep : -kLongestStep;
    if (i == 9) break;  // the published loop ends with the sine and cosine of before its last step
    eo1 += step;
    at = Turned(at, step);
    if (std::abs(step) < kNextIsExact) break;  // convergence is quadratic
  }
  return at;
}

}  // namespace

ModelError Sgp4::MeanElementsAt(double t, Moment& at) const {
  MeanElements& m = at.mean;
  const double xmdf = meanAnomaly_ + mdot_ * t;
  const double t2 = t * t;
  m = {meanMotion_, eccentricity_, inclination_, perigee_ + argpdot_ * t, node_ + nodedot_ * t + nodecf_ * t2, xmdf};
  double tempa = 1 - cc1_ * t, tempe = bstarCc4_ * t, templ = t2cof_ * t2;
  if (!isSimple_) {
    const SineCosine anomaly = SineCosine::Of(xmdf);
    const double delm = 1 + eta_ * anomaly.cosine;
    const double shift = omgcof_ * t + xmcof_ * (delm * delm * delm - delmo_);
    m.meanAnomaly = xmdf + shift;
    m.perigee -= shift;
    const double t3 = t2 * t, t4 = t3 * t;
    tempa -= d2_ * t2 + d3_ * t3 + d4_ * t4;
    tempe += bstarCc5_ * (Turned(anomaly, shift).sine - sinmao_);
    templ += t3cof_ * t3 + t4 * (t4cof_ + t * t5cof_);
  }
  double axis = ao_;
  if (deep_) {
    deep_->ApplySecular(t, m);
    if (m.meanMotion <= 0) return ModelError::kMeanMotion;
    axis = std::pow(sgp4::kXke / m.meanMotion, sgp4::kTwoThirds);
  }
  at.semiMajorAxis = axis * tempa * tempa;
  m.eccentricity -= tempe;
  if (m.eccentricity >= 1 || m.eccentricity < -0.001) return ModelError::kMeanEccentricity;
  if (m.eccentricity < 1e-6) m.eccentricity = 1e-6;
  m.meanAnomaly += meanMotion_ * templ;
  return ModelError::kNone;
}

ModelError Sgp4::AddDeepSpacePeriodics(double t, Moment& at) const {
  MeanElements& m = at.mean;
  deep_->ApplyPeriodics(t, m);
  if (m.inclination < 0) {
    m.inclination = -m.inclination;
    m.node += kHalfTurn;
    m.perigee -= kHalfTurn;
  }
  if (m.eccentricity < 0 || m.eccentricity > 1) return ModelError::kPerturbedEccentricity;
  at.sini = std::sin(m.inclination);
  at.cosi = std::cos(m.inclination);
  constexpr double kNearlyZero = 1.5e-12;
  const double divisor = std::abs(at.cosi + 1) > kNearlyZero ? 1 + at.cosi : kNearlyZero;
  at.aycof = -0.5 * kJ3OverJ2 * at.sini;
  at.xlcof = -0.25 * kJ3OverJ2 * at.sini * (3 + 5 * at.cosi) / divisor;
  const double cosisq = at.cosi * at.cosi;
  at.con41 = 3 * cosisq - 1;
  at.x1mth2 = 1 - cosisq;
  at.x7thm1 = 7 * cosisq - 1;
  return ModelError::kNone;
}

ModelError Sgp4::AddShortPeriodics(const Moment& at, Sgp4State& state) const {
  const MeanElements& m = at.mean;
  const double am = at.semiMajorAxis;
  // long-period periodics
  const SineCosine perigee = SineCosine::Of(m.perigee);
  const double axnl = m.eccentricity * perigee.cosine;
  const double longPeriod = 1 / (am * (1 - m.eccentricity * m.eccentricity));
  const double aynl = m.eccentricity * perigee.sine + longPeriod * at.aycof;
  const double u = m.meanAnomaly + m.perigee + longPeriod * at.xlcof * axnl;
  const SineCosine eo1 = SolveKepler(u, axnl, aynl);

  // short-period preliminary quantities
  const double ecose = axnl * eo1.cosine + aynl * eo1.sine;
  const double esine = axnl * eo1.sine - aynl * eo1.cosine;
  const double el2 = axnl * axnl + aynl * aynl;
  const double pl = am * (1 - el2);
  if (pl < 0) return ModelError::kSemiLatusRectum;
  const double rl = am * (1 - ecose), inverseRl = 1 / rl, inversePl = 1 / pl;
  const double betal = std::sqrt(1 - el2), sqrtAm = std::sqrt(am);
  const double rdotl = sqrtAm * esine * inverseRl;
  const double rvdotl = sqrtAm * betal * inverseRl;
  const double tilt = esine / (1 + betal);
  const double sinu = am * inverseRl * (eo1.sine - aynl - axnl * tilt);
  const double cosu = am * inverseRl * (eo1.cosine - axnl + aynl * tilt);
  const double sin2u = (cosu + cosu) * sinu, cos2u = 1 - 2 * sinu * sinu;
  const double temp1 = 0.5 * kJ2 * inversePl, temp2 = temp1 * inversePl;

  // short-period periodics; the corrections of the angles are small, so the angles themselves are never needed
  const double mrt = rl * (1 - 1.5 * temp2 * betal * at.con41) + 0.5 * temp1 * at.x1mth2 * cos2u;
  const SineCosine su = Turned({sinu, cosu}, -0.25 * temp2 * at.x7thm1 * sin2u);
  const SineCosine node = SineCosine::Of(m.node + 1.5 * temp2 * at.cosi * sin2u);
  const SineCosine inc = Turned({at.sini, at.cosi}, 1.5 * temp2 * at.cosi * at.sini * cos2u);
  const double scaled = temp1 / (am * sqrtAm);  // mean motion times temp1 over the model's gravity constant
  const double mvt = rdotl - scaled * at.x1mth2 * sin2u;
  const double rvdot = rvdotl + scaled * (at.x1mth2 * cos2u + 1.5 * at.con41);

  // orientation
  const double xmx = -node.sine * inc.cosine, xmy = node.cosine * inc.cosine;
  const Vec3 radial{xmx * su.sine + node.cosine * su.cosine, xmy * su.sine + node.sine * su.cosine, inc.sine * su.sine};
  const Vec3 transverse{xmx * su.cosine - node.cosine * su.sine, xmy * su.cosine - node.sine * su.sine,
                        inc.sine * su.cosine};
  state.positionKm = mrt * sgp4::kEarthRadiusKm * radial;
  state.velocityKmS = sgp4::kKmSPerEarthRadiusMin * (mvt * radial + rvdot * transverse);
  return mrt >= 1 ? ModelError::kNone : ModelError::kDecayed;  // no number at all counts as decayed
}

Sgp4State Sgp4::Propagate(double minutes) const {
  Sgp4State state;
  Moment at{{}, 0, sinio_, cosio_, con41_, x1mth2_, x7thm1_, xlcof_, aycof_};
  state.error = MeanElementsAt(minutes, at);
  if (state.error != ModelError::kNone) return state;
  if (deep_) {
    MeanElements& m = at.mean;
    const double longitude = std::fmod(m.meanAnomaly + m.perigee + m.node, kTurn);
    m.node = std::fmod(m.node, kTurn);
    m.perigee = std::fmod(m.perigee, kTurn);
    m.meanAnomaly = std::fmod(longitude - m.perigee - m.node, kTurn);
  }
  state.meanAnomalyRad = at.mean.meanAnomaly;
  state.argumentOfPerigeeRad = at.mean.perigee;
  if (deep_) state.error = AddDeepSpacePeriodics(minutes, at);
  if (state.error == ModelError::kNone) state.error = AddShortPeriodics(at, state);
  return state;
}

}  // namespace kestrava::orbit
