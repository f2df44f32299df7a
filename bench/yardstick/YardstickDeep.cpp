// The deep-space part of the yardstick.

#include <cmath>
#include <numbers>

#include "yardstick/Yardstick.h"

namespace kestrava::bench {
namespace {

constexpr double kPi = std::numbers::pi, kTwoPi = 2 * kPi;
const double kXke = 60.0 / std::sqrt(6378.135 * 6378.135 * 6378.135 / 398600.8);
constexpr double kX2o3 = 2.0 / 3.0;
constexpr double kRptim = 4.37526908801129966e-3;
constexpr double kZns = 1.19459e-5, kZes = 0.01675, kZnl = 1.5835218e-4, kZel = 0.05490;

}  // namespace

void Yardstick::Dscom() {
  const double snodm = std::sin(nodeo), cnodm = std::cos(nodeo), sinomm = std::sin(argpo), cosomm = std::cos(argpo);
  const double sinim = std::sin(inclo), cosim = std::cos(inclo), emsq = ecco * ecco, betasq = 1 - emsq;
  const double rtemsq = std::sqrt(betasq), day = epoch + 18261.5;
  const double xnodce = std::fmod(4.5236020 - 9.2422029e-4 * day, kTwoPi);
  const double stem = std::sin(xnodce), ctem = std::cos(xnodce);
  const double zcosil = 0.91375164 - 0.03568096 * ctem, zsinil = std::sqrt(1 - zcosil * zcosil);
  const double zsinhl = 0.089683511 * stem / zsinil, zcoshl = std::sqrt(1 - zsinhl * zsinhl);
  const double gam = 5.8351514 + 0.0019443680 * day;
  const double zx = gam + std::atan2(0.39785416 * stem / zsinil, zcoshl * ctem + 0.91744867 * zsinhl * stem) - xnodce;
  double zcosg = 0.1945905, zsing = -0.98088458, zcosi = 0.91744867, zsini = 0.39785416, zcosh = cnodm, zsinh = snodm;
  double cc = 2.9864797e-6, z2 = 0, z12 = 0, z22 = 0, z32 = 0, sz2 = 0, sz12 = 0, sz22 = 0, sz32 = 0;
  double s6 = 0, s7 = 0, ss6 = 0, ss7 = 0;
  for (int body = 1; body <= 2; ++body) {
    const double a1 = zcosg * zcosh + zsing * zcosi * zsinh, a3 = -zsing * zcosh + zcosg * zcosi * zsinh;
    const double a7 = -zcosg * zsinh + zsing * zcosi * zcosh, a8 = zsing * zsini;
    const double a9 = zsing * zsinh + zcosg * zcosi * zcosh, a10 = zcosg * zsini;
    const double a2 = cosim * a7 + sinim * a8, a4 = cosim * a9 + sinim * a10;
    const double a5 = -sinim * a7 + cosim * a8, a6 = -sinim * a9 + cosim * a10;
    const double x1 = a1 * cosomm + a2 * sinomm, x2 = a3 * cosomm + a4 * sinomm;
    const double x3 = -a1 * sinomm + a2 * cosomm, x4 = -a3 * sinomm + a4 * cosomm;
    const double x5 = a5 * sinomm, x6 = a6 * sinomm, x7 = a5 * cosomm, x8 = a6 * cosomm;
    z31 = 12 * x1 * x1 - 3 * x3 * x3;
    z32 = 24 * x1 * x2 - 6 * x3 * x4;
    z33 = 12 * x2 * x2 - 3 * x4 * x4;
    z1 = 3 * (a1 * a1 + a2 * a2) + z31 * emsq;
    z2 = 6 * (a1 * a3 + a2 * a4) + z32 * emsq;
    z3 = 3 * (a3 * a3 + a4 * a4) + z33 * emsq;
    z11 = -6 * a1 * a5 + emsq * (-24 * x1 * x7 - 6 * x3 * x5);
    z12 = -6 * (a1 * a6 + a3 * a5) + emsq * (-24 * (x2 * x7 + x1 * x8) - 6 * (x3 * x6 + x4 * x5));
    z13 = -6 * a3 * a6 + emsq * (-24 * x2 * x8 - 6 * x4 * x6);
    z21 = 6 * a2 * a5 + emsq * (24 * x1 * x5 - 6 * x3 * x7);
    z22 = 6 * (a4 * a5 + a2 * a6) + emsq * (24 * (x2 * x5 + x1 * x6) - 6 * (x4 * x7 + x3 * x8));
    z23 = 6 * a4 * a6 + emsq * (24 * x2 * x6 - 6 * x4 * x8);
    z1 = z1 + z1 + betasq * z31;
    z2 = z2 + z2 + betasq * z32;
    z3 = z3 + z3 + betasq * z33;
    s3 = cc / no;
    s2 = -0.5 * s3 / rtemsq;
    s4 = s3 * rtemsq;
    s1 = -15 * ecco * s4;
    s5 = x1 * x3 + x2 * x4;
    s6 = x2 * x3 + x1 * x4;
    s7 = x2 * x4 - x1 * x3;
    if (body == 1) {
      ss1 = s1, ss2 = s2, ss3 = s3, ss4 = s4, ss5 = s5, ss6 = s6, ss7 = s7;
      sz1 = z1, sz2 = z2, sz3 = z3, sz11 = z11, sz12 = z12, sz13 = z13, sz21 = z21, sz22 = z22, sz23 = z23;
      sz31 = z31, sz32 = z32, sz33 = z33;
      zcosg = std::cos(zx), zsing = std::sin(zx), zcosi = zcosil, zsini = zsinil;
      zcosh = zcoshl * cnodm + zsinhl * snodm;
      zsinh = snodm * zcoshl - cnodm * zsinhl;
      cc = 4.7968065e-7;
    }
  }
  zmol = std::fmod(4.7199672 + 0.22997150 * day - gam, kTwoPi);
  zmos = std::fmod(6.2565837 + 0.017201977 * day, kTwoPi);
  se2 = 2 * ss1 * ss6, se3 = 2 * ss1 * ss7, si2 = 2 * ss2 * sz12, si3 = 2 * ss2 * (sz13 - sz11);
  sl2 = -2 * ss3 * sz2, sl3 = -2 * ss3 * (sz3 - sz1), sl4 = -2 * ss3 * (-21 - 9 * emsq) * kZes;
  sgh2 = 2 * ss4 * sz32, sgh3 = 2 * ss4 * (sz33 - sz31), sgh4 = -18 * ss4 * kZes;
  sh2 = -2 * ss2 * sz22, sh3 = -2 * ss2 * (sz23 - sz21);
  ee2 = 2 * s1 * s6, e3 = 2 * s1 * s7, xi2 = 2 * s2 * z12, xi3 = 2 * s2 * (z13 - z11);
  xl2 = -2 * s3 * z2, xl3 = -2 * s3 * (z3 - z1), xl4 = -2 * s3 * (-21 - 9 * emsq) * kZel;
  xgh2 = 2 * s4 * z32, xgh3 = 2 * s4 * (z33 - z31), xgh4 = -18 * s4 * kZel;
  xh2 = -2 * s2 * z22, xh3 = -2 * s2 * (z23 - z21);
}

void Yardstick::Dsinit() {
  const double em = ecco, emsq = em * em, sinim = std::sin(inclo), cosim = std::cos(inclo), nm = no;
  irez = nm < 0.0052359877 && nm > 0.0034906585 ? 1 : nm >= 8.26e-3 && nm <= 9.24e-3 && em >= 0.5 ? 2 : 0;
  const double ses = ss1 * kZns * ss5, sis = ss2 * kZns * (sz11 + sz13),
               sls = -kZns * ss3 * (sz1 + sz3 - 14 - 6 * emsq);
  const double sghs = ss4 * kZns * (sz31 + sz33 - 6);
  const bool low = inclo < 5.2359877e-2 || inclo > kPi - 5.2359877e-2;
  double shs = low ? 0 : -kZns * ss2 * (sz21 + sz23), shll = low ? 0 : -kZnl * s2 * (z21 + z23);
  if (sinim != 0) shs /= sinim;
  dedt = ses + s1 * kZnl * s5;
  didt = sis + s2 * kZnl * (z11 + z13);
  dmdt = sls - kZnl * s3 * (z1 + z3 - 14 - 6 * emsq);
  domdt = sghs - cosim * shs + s4 * kZnl * (z31 + z33 - 6);
  dnodt = shs;
  if (sinim != 0) {
    domdt -= cosim / sinim * shll;
    dnodt += shll / sinim;
  }
  if (irez == 0) return;
  const double theta = std::fmod(gsto, kTwoPi), aonv = std::pow(nm / kXke, kX2o3);
  if (irez == 2) {
    const double cosisq = cosim * cosim, eoc = em * emsq, sini2 = sinim * sinim;
    const double g201 = -0.306 - (em - 0.64) * 0.440;
    double g211, g310, g322, g410, g422, g520, g521, g532, g533;
    if (em <= 0.65) {
      g211 = 3.616 - 13.2470 * em + 16.2900 * emsq;
      g310 = -19.302 + 117.3900 * em - 228.4190 * emsq + 156.5910 * eoc;
      g322 = -18.9068 + 109.7927 * em - 214.6334 * emsq + 146.5816 * eoc;
      g410 = -41.122 + 242.6940 * em - 471.0940 * emsq + 313.9530 * eoc;
      g422 = -146.407 + 841.8800 * em - 1629.014 * emsq + 1083.4350 * eoc;
      g520 = -532.114 + 3017.977 * em - 5740.032 * emsq + 3708.2760 * eoc;
    } else {
      g211 = -72.099 + 331.819 * em - 508.738 * emsq + 266.724 * eoc;
      g310 = -346.844 + 1582.851 * em - 2415.925 * emsq + 1246.113 * eoc;
      g322 = -342.585 + 1554.908 * em - 2366.899 * emsq + 1215.972 * eoc;
      g410 = -1052.797 + 4758.686 * em - 7193.992 * emsq + 3651.957 * eoc;
      g422 = -3581.690 + 16178.110 * em - 24462.770 * emsq + 12422.520 * eoc;
      g520 = em > 0.715 ? -5149.66 + 29936.92 * em - 54087.36 * emsq + 31324.56 * eoc
                        : 1464.74 - 4664.75 * em + 3763.64 * emsq;
    }
    if (em < 0.7) {
      g533 = -919.22770 + 4988.6100 * em - 9064.7700 * emsq + 5542.21 * eoc;
      g521 = -822.71072 + 4568.6173 * em - 8491.4146 * emsq + 5337.524 * eoc;
      g532 = -853.66600 + 4690.2500 * em - 8624.7700 * emsq + 5341.4 * eoc;
    } else {
      g533 = -37995.780 + 161616.52 * em - 229838.20 * emsq + 109377.94 * eoc;
      g521 = -51752.104 + 218913.95 * em - 309468.16 * emsq + 146349.42 * eoc;
      g532 = -40023.880 + 170470.89 * em - 242699.48 * emsq + 115605.82 * eoc;
    }
    const double f220 = 0.75 * (1 + 2 * cosim + cosisq), f221 = 1.5 * sini2;
    const double f321 = 1.875 * sinim * (1 - 2 * cosim - 3 * cosisq);
    const double f322 = -1.875 * sinim * (1 + 2 * cosim - 3 * cosisq);
    const double f441 = 35 * sini2 * f220, f442 = 39.3750 * sini2 * sini2;
    const double f522 =
        9.84375 * sinim * (sini2 * (1 - 2 * cosim - 5 * cosisq) + 0.33333333 * (-2 + 4 * cosim + 6 * cosisq));
    const double f523 =
        sinim * (4.92187512 * sini2 * (-2 - 4 * cosim + 10 * cosisq) + 6.56250012 * (1 + 2 * cosim - 3 * cosisq));
    const double f542 = 29.53125 * sinim * (2 - 8 * cosim + cosisq * (-12 + 8 * cosim + 10 * cosisq));
    const double f543 = 29.53125 * sinim * (-2 - 8 * cosim + cosisq * (12 + 8 * cosim - 10 * cosisq));
    double temp1 = 3 * nm * nm * aonv * aonv, temp = temp1 * 1.7891679e-6;
    d2201 = temp * f220 * g201, d2211 = temp * f221 * g211;
    temp1 *= aonv, temp = temp1 * 3.7393792e-7;
    d3210 = temp * f321 * g310, d3222 = temp * f322 * g322;
    temp1 *= aonv, temp = 2 * temp1 * 7.3636953e-9;
    d4410 = temp * f441 * g410, d4422 = temp * f442 * g422;
    temp1 *= aonv, temp = temp1 * 1.1428639e-7;
    d5220 = temp * f522 * g520, d5232 = temp * f523 * g532;
    temp = 2 * temp1 * 2.1765803e-9;
    d5421 = temp * f542 * g521, d5433 = temp * f543 * g533;
    xlamo = std::fmod(mo + nodeo + nodeo - theta - theta, kTwoPi);
    xfact = mdot + dmdt + 2 * (nodedot + dnodt - kRptim) - no;
  } else {
    const double g200 = 1 + emsq * (-2.5 + 0.8125 * emsq), g310 = 1 + 2 * emsq, g300 = 1 + emsq * (-6 + 6.60937 * emsq);
    const double f220 = 0.75 * (1 + cosim) * (1 + cosim);
    const double f311 = 0.9375 * sinim * sinim * (1 + 3 * cosim) - 0.75 * (1 + cosim);
    const double f330 = 1.875 * std::pow(1 + cosim, 3);
    del1 = 3 * nm * nm * aonv * aonv;
    del2 = 2 * del1 * f220 * g200 * 1.7891679e-6;
    del3 = 3 * del1 * f330 * g300 * 2.2123015e-7 * aonv;
    del1 = del1 * f311 * g310 * 2.1460748e-6 * aonv;
    xlamo = std::fmod(mo + nodeo + argpo - theta, kTwoPi);
    xfact = mdot + (argpdot + nodedot) - kRptim + dmdt + domdt + dnodt - no;
  }
  xli = xlamo;
  xni = no;
  atime = 0;
}

void Yardstick::Dspace(double t, double& em, double& argpm, double& inclm, double& mm, double& nodem, double& nm) {
  constexpr double kFasx2 = 0.13130908, kFasx4 = 2.8843198, kFasx6 = 0.37448087, kG22 = 5.7686396, kG32 = 0.95240898,
                   kG44 = 1.8014998, kG52 = 1.0508330, kG54 = 4.4108898, kStep = 720, kStep2 = 259200;
  const double theta = std::fmod(gsto + t * kRptim, kTwoPi);
  em += dedt * t;
  inclm += didt * t;
  argpm += domdt * t;
  nodem += dnodt * t;
  mm += dmdt * t;
  if (irez == 0) return;
  if (atime == 0 || t * atime <= 0 || std::fabs(t) < std::fabs(atime)) {
    atime = 0;
    xni = no;
    xli = xlamo;
  }
  const double delt = t > 0 ? kStep : -kStep;
  double xndt = 0, xldot = 0, xnddt = 0;
  for (;;) {
    xldot = xni + xfact;
    if (irez == 1) {
      xndt = del1 * std::sin(xli - kFasx2) + del2 * std::sin(2 * (xli - kFasx4)) + del3 * std::sin(3 * (xli - kFasx6));
      xnddt = del1 * std::cos(xli - kFasx2) + 2 * del2 * std::cos(2 * (xli - kFasx4)) +
              3 * del3 * std::cos(3 * (xli - kFasx6));
    } else {
      const double xomi = argpo + argpdot * atime, x2omi = xomi + xomi, x2li = xli + xli;
      xndt = d2201 * std::sin(x2omi + xli - kG22) + d2211 * std::sin(xli - kG22) + d3210 * std::sin(xomi + xli - kG32) +
             d3222 * std::sin(-xomi + xli - kG32) + d4410 * std::sin(x2omi + x2li - kG44) +
             d4422 * std::sin(x2li - kG44) + d5220 * std::sin(xomi + xli - kG52) +
             d5232 * std::sin(-xomi + xli - kG52) + d5421 * std::sin(xomi + x2li - kG54) +
             d5433 * std::sin(-xomi + x2li - kG54);
      xnddt = d2201 * std::cos(x2omi + xli - kG22) + d2211 * std::cos(xli - kG22) +
              d3210 * std::cos(xomi + xli - kG32) + d3222 * std::cos(-xomi + xli - kG32) +
              d5220 * std::cos(xomi + xli - kG52) + d5232 * std::cos(-xomi + xli - kG52) +
              2 * (d4410 * std::cos(x2omi + x2li - kG44) + d4422 * std::cos(x2li - kG44) +
                   d5421 * std::cos(xomi + x2li - kG54) + d5433 * std::cos(-xomi + x2li - kG54));
    }
    xnddt *= xldot;
    if (std::fabs(t - atime) < kStep) break;
    xli += xldot * delt + xndt * kStep2;
    xni += xndt * delt + xnddt * kStep2;
    atime += delt;
  }
  const double ft = t - atime;
  nm = xni + xndt * ft + xnddt * ft * ft * 0.5;
  const double xl = xli + xldot * ft + xndt * ft * ft * 0.5;
  mm = irez == 1 ? xl - nodem - argpm + theta : xl - 2 * nodem + 2 * theta;
}

void Yardstick::Dpper(double t, double& ep, double& inclp, double& nodep, double& argpp, double& mp) const {
  double zm = zmos + kZns * t, zf = zm + 2 * kZes * std::sin(zm), sinzf = std::sin(zf);
  double f2 = 0.5 * sinzf * sinzf - 0.25, f3 = -0.5 * sinzf * std::cos(zf);
  const double ses = se2 * f2 + se3 * f3, sis = si2 * f2 + si3 * f3, sls = sl2 * f2 + sl3 * f3 + sl4 * sinzf;
  const double sghs = sgh2 * f2 + sgh3 * f3 + sgh4 * sinzf, shs = sh2 * f2 + sh3 * f3;
  zm = zmol + kZnl * t;
  zf = zm + 2 * kZel * std::sin(zm);
  sinzf = std::sin(zf);
  f2 = 0.5 * sinzf * sinzf - 0.25;
  f3 = -0.5 * sinzf * std::cos(zf);
  const double pe = ses + ee2 * f2 + e3 * f3, pinc = sis + xi2 * f2 + xi3 * f3;
  const double pl = sls + xl2 * f2 + xl3 * f3 + xl4 * sinzf;
  double pgh = sghs + xgh2 * f2 + xgh3 * f3 + xgh4 * sinzf, ph = shs + xh2 * f2 + xh3 * f3;
  inclp += pinc;
  ep += pe;
  const double sinip = std::sin(inclp), cosip = std::cos(inclp);
  if (inclp >= 0.2) {
    ph /= sinip;
    pgh -= cosip * ph;
    argpp += pgh;
    nodep += ph;
    mp += pl;
    return;
  }
  const double sinop = std::sin(nodep), cosop = std::cos(nodep);
  const double alfdp = sinip * sinop + ph * cosop + pinc * cosip * sinop;
  const double betdp = sinip * cosop - ph * sinop + pinc * cosip * cosop;
  nodep = std::fmod(nodep, kTwoPi);
  const double xls = mp + argpp + cosip * nodep + pl + pgh - pinc * nodep * sinip, xnoh = nodep;
  nodep = std::atan2(alfdp, betdp);
  if (std::fabs(xnoh - nodep) > kPi) nodep += nodep < xnoh ? kTwoPi : -kTwoPi;
  mp += pl;
  argpp = xls - mp - cosip * nodep;
}

}  // namespace kestrava::bench
