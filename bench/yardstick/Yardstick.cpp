#include "yardstick/Yardstick.h"

#include <cmath>
#include <numbers>

namespace kestrava::bench {
namespace {

constexpr double kPi = std::numbers::pi, kTwoPi = 2 * kPi;
constexpr double kRe = 6378.135, kMu = 398600.8;
const double kXke = 60.0 / std::sqrt(kRe * kRe * kRe / kMu);
const double kVkmps = kRe * kXke / 60.0;
constexpr double kJ2 = 0.001082616, kJ3 = -0.00000253881, kJ4 = -0.00000165597, kJ3oj2 = kJ3 / kJ2;
constexpr double kX2o3 = 2.0 / 3.0;

double Gstime(double jdut1) {
  const double tut1 = (jdut1 - 2451545.0) / 36525.0;
  const double seconds =
      -6.2e-6 * tut1 * tut1 * tut1 + 0.093104 * tut1 * tut1 + (876600.0 * 3600 + 8640184.812866) * tut1 + 67310.54841;
  const double angle = std::fmod(seconds * (kPi / 180) / 240.0, kTwoPi);
  return angle < 0 ? angle + kTwoPi : angle;
}

}  // namespace

Yardstick::Yardstick(const YardstickElements& el)
    : epoch(el.epochDays1950),
      bstar(el.bstar),
      inclo(el.inclinationDeg * kPi / 180),
      nodeo(el.nodeDeg * kPi / 180),
      ecco(el.eccentricity),
      argpo(el.perigeeDeg * kPi / 180),
      mo(el.meanAnomalyDeg * kPi / 180),
      gsto(Gstime(el.epochDays1950 + 2433281.5)),
      d2(0),
      d3(0),
      d4(0),
      t3cof(0),
      t4cof(0),
      t5cof(0),
      irez(0) {
  const double kozai = el.meanMotionRevPerDay * kTwoPi / 1440.0;
  const double eccsq = ecco * ecco, omeosq = 1 - eccsq, rteosq = std::sqrt(omeosq);
  const double cosio = std::cos(inclo), cosio2 = cosio * cosio, sinio = std::sin(inclo);
  const double ak = std::pow(kXke / kozai, kX2o3);
  const double d1 = 0.75 * kJ2 * (3 * cosio2 - 1) / (rteosq * omeosq);
  double del = d1 / (ak * ak);
  const double adel = ak * (1 - del * del - del * (1.0 / 3.0 + 134 * del * del / 81));
  del = d1 / (adel * adel);
  no = kozai / (1 + del);
  const double ao = std::pow(kXke / no, kX2o3), po = ao * omeosq, con42 = 1 - 5 * cosio2;
  con41 = -con42 - cosio2 - cosio2;
  const double posq = po * po, rp = ao * (1 - ecco);

  isimp = rp < 220 / kRe + 1;
  double sfour = 78 / kRe + 1, qzms24 = std::pow((120.0 - 78.0) / kRe, 4);
  const double perige = (rp - 1) * kRe;
  if (perige < 156) {
    sfour = perige < 98 ? 20 : perige - 78;
    qzms24 = std::pow((120 - sfour) / kRe, 4);
    sfour = sfour / kRe + 1;
  }
  const double pinvsq = 1 / posq, tsi = 1 / (ao - sfour);
  eta = ao * ecco * tsi;
  const double etasq = eta * eta, eeta = ecco * eta, psisq = std::fabs(1 - etasq);
  const double coef = qzms24 * std::pow(tsi, 4), coef1 = coef / std::pow(psisq, 3.5);
  const double cc2 =
      coef1 * no *
      (ao * (1 + 1.5 * etasq + eeta * (4 + etasq)) + 0.375 * kJ2 * tsi / psisq * con41 * (8 + 3 * etasq * (8 + etasq)));
  cc1 = bstar * cc2;
  const double cc3 = ecco > 1e-4 ? -2 * coef * tsi * kJ3oj2 * no * sinio / ecco : 0;
  x1mth2 = 1 - cosio2;
  cc4 = 2 * no * coef1 * ao * omeosq *
        (eta * (2 + 0.5 * etasq) + ecco * (0.5 + 2 * etasq) -
         kJ2 * tsi / (ao * psisq) *
             (-3 * con41 * (1 - 2 * eeta + etasq * (1.5 - 0.5 * eeta)) +
              0.75 * x1mth2 * (2 * etasq - eeta * (1 + etasq)) * std::cos(2 * argpo)));
  cc5 = 2 * coef1 * ao * omeosq * (1 + 2.75 * (etasq + eeta) + eeta * etasq);
  const double cosio4 = cosio2 * cosio2;
  const double temp1 = 1.5 * kJ2 * pinvsq * no, temp2 = 0.5 * temp1 * kJ2 * pinvsq;
  const double temp3 = -0.46875 * kJ4 * pinvsq * pinvsq * no;
  mdot = no + 0.5 * temp1 * rteosq * con41 + 0.0625 * temp2 * rteosq * (13 - 78 * cosio2 + 137 * cosio4);
  argpdot = -0.5 * temp1 * con42 + 0.0625 * temp2 * (7 - 114 * cosio2 + 395 * cosio4) +
            temp3 * (3 - 36 * cosio2 + 49 * cosio4);
  const double xhdot1 = -temp1 * cosio;
  nodedot = xhdot1 + (0.5 * temp2 * (4 - 19 * cosio2) + 2 * temp3 * (3 - 7 * cosio2)) * cosio;
  omgcof = bstar * cc3 * std::cos(argpo);
  xmcof = ecco > 1e-4 ? -kX2o3 * coef * bstar / eeta : 0;
  nodecf = 3.5 * omeosq * xhdot1 * cc1;
  t2cof = 1.5 * cc1;
  xlcof = -0.25 * kJ3oj2 * sinio * (3 + 5 * cosio) / (std::fabs(cosio + 1) > 1.5e-12 ? 1 + cosio : 1.5e-12);
  aycof = -0.5 * kJ3oj2 * sinio;
  delmo = std::pow(1 + eta * std::cos(mo), 3);
  sinmao = std::sin(mo);
  x7thm1 = 7 * cosio2 - 1;
  deep = kTwoPi / no >= 225;
  if (deep) {
    isimp = true;
    Dscom();
    Dsinit();
  }
  if (!isimp) {
    const double cc1sq = cc1 * cc1;
    d2 = 4 * ao * tsi * cc1sq;
    const double temp = d2 * tsi * cc1 / 3;
    d3 = (17 * ao + sfour) * temp;
    d4 = 0.5 * temp * ao * tsi * (221 * ao + 31 * sfour) * cc1;
    t3cof = d2 + 2 * cc1sq;
    t4cof = 0.25 * (3 * d3 + cc1 * (12 * d2 + 10 * cc1sq));
    t5cof = 0.2 * (3 * d4 + 12 * cc1 * d3 + 6 * d2 * d2 + 15 * cc1sq * (2 * d2 + cc1sq));
  }
}

YardstickState Yardstick::Propagate(double t) {
  YardstickState out{};
  const double xmdf = mo + mdot * t, argpdf = argpo + argpdot * t, nodedf = nodeo + nodedot * t, t2 = t * t;
  double argpm = argpdf, mm = xmdf, nodem = nodedf + nodecf * t2;
  double tempa = 1 - cc1 * t, tempe = bstar * cc4 * t, templ = t2cof * t2;
  if (!isimp) {
    const double delomg = omgcof * t;
    const double delm = xmcof * (std::pow(1 + eta * std::cos(xmdf), 3) - delmo);
    const double temp = delomg + delm;
    mm = xmdf + temp;
    argpm = argpdf - temp;
    const double t3 = t2 * t, t4 = t3 * t;
    tempa = tempa - d2 * t2 - d3 * t3 - d4 * t4;
    tempe = tempe + bstar * cc5 * (std::sin(mm) - sinmao);
    templ = templ + t3cof * t3 + t4 * (t4cof + t * t5cof);
  }
  double nm = no, em = ecco, inclm = inclo;
  if (deep) Dspace(t, em, argpm, inclm, mm, nodem, nm);
  if (nm <= 0) return out.error = 2, out;
  const double am = std::pow(kXke / nm, kX2o3) * tempa * tempa;
  nm = kXke / std::pow(am, 1.5);
  em -= tempe;
  if (em >= 1 || em < -0.001) return out.error = 1, out;
  if (em < 1e-6) em = 1e-6;
  mm += no * templ;
  double xlm = mm + argpm + nodem;
  nodem = std::fmod(nodem, kTwoPi);
  argpm = std::fmod(argpm, kTwoPi);
  xlm = std::fmod(xlm, kTwoPi);
  mm = std::fmod(xlm - argpm - nodem, kTwoPi);

  double ep = em, xincp = inclm, argpp = argpm, nodep = nodem, mp = mm;
  double sinip = std::sin(inclm), cosip = std::cos(inclm);
  if (deep) {
    Dpper(t, ep, xincp, nodep, argpp, mp);
    if (xincp < 0) {
      xincp = -xincp;
      nodep += kPi;
      argpp -= kPi;
    }
    if (ep < 0 || ep > 1) return out.error = 3, out;
    sinip = std::sin(xincp);
    cosip = std::cos(xincp);
    aycof = -0.5 * kJ3oj2 * sinip;
    xlcof = -0.25 * kJ3oj2 * sinip * (3 + 5 * cosip) / (std::fabs(cosip + 1) > 1.5e-12 ? 1 + cosip : 1.5e-12);
  }
  const double axnl = ep * std::cos(argpp);
  double temp = 1 / (am * (1 - ep * ep));
  const double aynl = ep * std::sin(argpp) + temp * aycof;
  const double xl = mp + argpp + nodep + temp * xlcof * axnl;

  const double u = std::fmod(xl - nodep, kTwoPi);
  double eo1 = u, tem5 = 9999.9, sineo1 = 0, coseo1 = 0;
  for (int ktr = 1; std::fabs(tem5) >= 1e-12 && ktr <= 10; ++ktr) {
    sineo1 = std::sin(eo1);
    coseo1 = std::cos(eo1);
    tem5 = 1 - coseo1 * axnl - sineo1 * aynl;
    tem5 = (u - aynl * coseo1 + axnl * sineo1 - eo1) / tem5;
    if (std::fabs(tem5) >= 0.95) tem5 = tem5 > 0 ? 0.95 : -0.95;
    eo1 += tem5;
  }
  const double ecose = axnl * coseo1 + aynl * sineo1, esine = axnl * sineo1 - aynl * coseo1;
  const double el2 = axnl * axnl + aynl * aynl, pl = am * (1 - el2);
  if (pl < 0) return out.error = 4, out;
  const double rl = am * (1 - ecose), rdotl = std::sqrt(am) * esine / rl, rvdotl = std::sqrt(pl) / rl;
  const double betal = std::sqrt(1 - el2);
  temp = esine / (1 + betal);
  const double sinu = am / rl * (sineo1 - aynl - axnl * temp), cosu = am / rl * (coseo1 - axnl + aynl * temp);
  double su = std::atan2(sinu, cosu);
  const double sin2u = (cosu + cosu) * sinu, cos2u = 1 - 2 * sinu * sinu;
  temp = 1 / pl;
  const double temp1 = 0.5 * kJ2 * temp, temp2 = temp1 * temp;
  if (deep) {
    const double cosisq = cosip * cosip;
    con41 = 3 * cosisq - 1;
    x1mth2 = 1 - cosisq;
    x7thm1 = 7 * cosisq - 1;
  }
  const double mrt = rl * (1 - 1.5 * temp2 * betal * con41) + 0.5 * temp1 * x1mth2 * cos2u;
  su -= 0.25 * temp2 * x7thm1 * sin2u;
  const double xnode = nodep + 1.5 * temp2 * cosip * sin2u, xinc = xincp + 1.5 * temp2 * cosip * sinip * cos2u;
  const double mvt = rdotl - nm * temp1 * x1mth2 * sin2u / kXke;
  const double rvdot = rvdotl + nm * temp1 * (x1mth2 * cos2u + 1.5 * con41) / kXke;
  const double sinsu = std::sin(su), cossu = std::cos(su), snod = std::sin(xnode), cnod = std::cos(xnode);
  const double sini = std::sin(xinc), cosi = std::cos(xinc);
  const double xmx = -snod * cosi, xmy = cnod * cosi;
  const double ux[3] = {xmx * sinsu + cnod * cossu, xmy * sinsu + snod * cossu, sini * sinsu};
  const double vx[3] = {xmx * cossu - cnod * sinsu, xmy * cossu - snod * sinsu, sini * cossu};
  for (int i = 0; i < 3; ++i) {
    out.r[i] = mrt * ux[i] * kRe;
    out.v[i] = (mvt * ux[i] + rvdot * vx[i]) * kVkmps;
  }
  if (mrt < 1) out.error = 6;
  return out;
}

}  // namespace kestrava::bench
