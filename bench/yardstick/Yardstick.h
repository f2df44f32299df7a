#pragma once

// SGP4/SDP4 written down as published, step by step and with library calls for every sine: the yardstick that the
// station's own propagator is measured against in the same run. It is not part of the program. Names follow
// Vallado, Crawford, Hujsak and Kelso, AIAA 2006-6753.

namespace kestrava::bench {

/// Elements as published, in the units of the fields.
struct YardstickElements {
  double epochDays1950, bstar, inclinationDeg, nodeDeg, eccentricity, perigeeDeg, meanAnomalyDeg, meanMotionRevPerDay;
};

struct YardstickState {
  double r[3];  ///< km, TEME
  double v[3];  ///< km/s, TEME
  int error;
};

class Yardstick {
 public:
  explicit Yardstick(const YardstickElements& elements);
  YardstickState Propagate(double minutes);

 private:
  void Dscom();
  void Dsinit();
  void Dspace(double t, double& em, double& argpm, double& inclm, double& mm, double& nodem, double& nm);
  void Dpper(double t, double& ep, double& inclp, double& nodep, double& argpp, double& mp) const;

  double epoch, bstar, inclo, nodeo, ecco, argpo, mo, no, gsto;
  bool isimp, deep;
  double con41, x1mth2, x7thm1, mdot, argpdot, nodedot, nodecf, omgcof, xmcof, eta, delmo, sinmao, cc1, cc4, cc5, d2,
      d3, d4, t2cof, t3cof, t4cof, t5cof, xlcof, aycof;
  // of Sun and Moon
  double s1, s2, s3, s4, s5, ss1, ss2, ss3, ss4, ss5, sz1, sz3, sz11, sz13, sz21, sz23, sz31, sz33, z1, z3, z11, z13,
      z21, z23, z31, z33;
  double se2, se3, si2, si3, sl2, sl3, sl4, sgh2, sgh3, sgh4, sh2, sh3, ee2, e3, xi2, xi3, xl2, xl3, xl4, xgh2, xgh3,
      xgh4, xh2, xh3, zmol, zmos;
  // of the resonance
  int irez;
  double dedt, didt, dmdt, dnodt, domdt, del1, del2, del3, d2201, d2211, d3210, d3222, d4410, d4422, d5220, d5232,
      d5421, d5433, xlamo, xfact, xli, xni, atime;
};

}  // namespace kestrava::bench
