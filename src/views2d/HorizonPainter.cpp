#include "views2d/HorizonPainter.h"

#include <array>
#include <string>

#include "orbit/TimeHelpers.h"
#include "platform/Fault.h"
#include "platform/Format.h"
#include "views2d/MapState.h"
#include "views2d/Twilight.h"

#include "Sprites.h"

namespace kestrava::views2d {

namespace {

using platform::At;
using platform::DateParts;
using platform::FloorText;
using platform::Format;
using platform::Surface;

constexpr platform::FaultTrap trap{"Horizon - PaintScreen"};
constexpr platform::FaultTrap trackTrap{"Horizon - DrawSkyTrack"};

constexpr int kCompassTopPx = 40;
constexpr int kLastLabelWidthPx = 40;
constexpr int kLastLineRisePx = 15;

constexpr double kCivilTwilightDeg = -6;
constexpr double kMoonUpDeg = 1;

constexpr int kTrackStartS = 10;
constexpr int kTrackStepS = 2;
constexpr int kLastTrackStep = 800;

}  // namespace

double AzToX(double azDeg, double widthPx, bool centreNorth) {
  if (!centreNorth) return widthPx / 360 * azDeg;
  double turnedDeg = azDeg + 180;
  if (turnedDeg > 360) turnedDeg -= 360;
  return widthPx / 360 * turnedDeg;
}

double ElToY(double elDeg, double heightPx) {
  return heightPx / 90 * (90 - elDeg);
}

SunInSky SunAt(double elDeg) {
  if (elDeg > kCivilTwilightDeg) return SunInSky::kUp;
  return elDeg >= kNightDeg ? SunInSky::kTwilight : SunInSky::kTooLow;
}

bool IsMoonShown(double elDeg) {
  return elDeg >= kMoonUpDeg;
}

bool IsSatelliteShown(const orbit::FaveRec& row) {
  return !row.hasNoPosition && row.El > 0;
}

bool HasSet(double elDeg) {
  return elDeg < 0;
}

void StepTrack(DateParts& moment) {
  moment.second += kTrackStepS;
  if (moment.second == 60) {
    moment.second = 0;
    ++moment.minute;
  }
  if (moment.minute == 60) {
    moment.minute = 0;
    ++moment.hour;
  }
  if (moment.hour == 24) {
    moment.hour = 0;
    ++moment.day;
  }
}

double HorizonPainter::AzToHorizonX(double azDeg) const {
  return AzToX(azDeg, surfaces_.Final.Width(), state_.CentreNorth);
}
double HorizonPainter::ElToHorizonY(double elDeg) const {
  return ElToY(elDeg, surfaces_.Final.Height());
}

void HorizonPainter::PaintScreen() {
  orbit::Tables& tables = sky_.tables;
  DateParts now;
  trap([&] { now = orbit::NowLocalParts(); });
  PaintBackDrop();
  PaintCompass();
  PaintSun(now);
  PaintMoon(now);
  for (int i = 1; i <= tables.FaveCount; ++i) {
    trap([&] { PaintFavourite(i, now); });
    if (!host_.IsOpen()) return;  // a message about the satellite taken stood open
  }
  trap([&] {
    const std::string& selected = At(tables.FaveList, tables.SelSat).Name;
    if (tables.SelSat > 0 && !selected.empty()) DrawSkyTrack(selected);  // a row without a name was a favourite
  });
  trap([&] { PaintLastLine(); });
}

void HorizonPainter::PaintBackDrop() {
  Surface& final = surfaces_.Final;
  const Surface& scenery = surfaces_.BackDrop;
  trap([&] { final.Clear(platform::kBlack); });
  trap([&] {
    final.StretchBlt({0, 0, final.Width(), final.Height()}, scenery, {0, 0, scenery.Width(), scenery.Height()},
                     platform::RasterOp::kSrcCopy);
  });
}

void HorizonPainter::PaintCompass() {
  Surface& final = surfaces_.Final;
  const double width = final.Width();
  // 1.35 is not four thirds: the label stands a little short of 270 degrees, on purpose. The last one keeps clear of
  // the edge so as to stay readable.
  const std::array<double, 5> lefts{0, width / 4, width / 2, width / 1.35, width - kLastLabelWidthPx};
  constexpr std::array<const char*, 5> kSouthInCentre{"NORTH", "EAST", "SOUTH", "WEST", "NORTH"};
  constexpr std::array<const char*, 5> kNorthInCentre{"SOUTH", "WEST", "NORTH", "EAST", "SOUTH"};
  for (std::size_t i = 0; i < lefts.size(); ++i) {
    trap([&] {
      final.SetPen(platform::kBlack);
      final.DrawPoint(lefts[i], kCompassTopPx);
      final.SetPen(platform::kYellow);
      final.Print(state_.CentreNorth ? kNorthInCentre[i] : kSouthInCentre[i]);
    });
  }
}

void HorizonPainter::PaintSun(const DateParts& now) {
  Surface& final = surfaces_.Final;
  const orbit::ResultBlock& result = sky_.tables.result;
  trap([&] { orbit::Satcalc(sky_, "sun", now, false); });
  trap([&] {
    final.SetPen(platform::kBlack);
    final.DrawPoint(0, 0);
    final.SetPen(platform::kYellow);
  });
  const SunInSky sun = SunAt(result.SatEl);
  state_.sun = {sun == SunInSky::kUp, result.SatAz, result.SatEl};
  if (sun == SunInSky::kUp) {  // below the horizon its sprite stands under the bottom edge
    trap([&] { PrintBody("Sun", state_.sun); });
    trap([&] { PaintBody(state_.sun, surfaces_.sprites.SunMask, surfaces_.sprites.SunPic); });
  } else if (sun == SunInSky::kTwilight) {
    trap([&] {
      final.Print(
          "The Sun is slightly below the horizon, Astronomical Twilight Time, Ideal for visual satellite observations");
    });
  } else {
    trap([&] { final.Print("The Sun is too far below the horizon for visual observations"); });
  }
}

void HorizonPainter::PaintMoon(const DateParts& now) {
  const orbit::ResultBlock& result = sky_.tables.result;
  trap([&] { orbit::Satcalc(sky_, "moon", now, false); });
  state_.moon = {IsMoonShown(result.SatEl), result.SatAz, result.SatEl};
  if (state_.moon.drawn) {
    trap([&] { PrintBody("Moon", state_.moon); });
    trap([&] { PaintBody(state_.moon, surfaces_.sprites.MoonMask, surfaces_.sprites.MoonPic); });
  } else {
    trap([&] { surfaces_.Final.Print("The Moon is below the horizon."); });
  }
}

void HorizonPainter::PrintBody(std::string_view name, const BodyInSky& body) {
  surfaces_.Final.Print("The " + std::string(name) + " is " + Format(body.elDeg, "#.0") +
                        " degrees above the horizon, at " + Format(body.azDeg, "#.0") + " degrees heading");
}

// With its top left at the body's place: uncentred, and 30 pixels of the Moon's smaller picture too.
void HorizonPainter::PaintBody(const BodyInSky& body, const Surface& mask, const Surface& picture) {
  PlaceSprite(surfaces_.Final, AzToHorizonX(body.azDeg), ElToHorizonY(body.elDeg), kSunSizePx, mask, picture);
}

void HorizonPainter::PaintFavourite(int index, const DateParts& now) {
  orbit::Tables& tables = sky_.tables;
  orbit::FaveRec& row = At(tables.FaveList, index);
  row.hasNoPosition = true;
  trap([&] { row.hasNoPosition = !orbit::Satcalc(sky_, row.Name, now, false); });
  row.Az = tables.result.SatAz;
  row.El = tables.result.SatEl;
  state_.rows.Keep(tables, index);
  if (!IsSatelliteShown(row)) return;
  if (tables.SelSat == 0) {
    tables.SelSat = platform::ToInt16(index);
    trap([&] { host_.SatelliteTaken(index); });
    if (!host_.IsOpen()) return;
  }
  DrawFavourite(row);
}

// On this view the rise moves a label left, not up.
void HorizonPainter::DrawFavourite(const orbit::FaveRec& row) {
  const SpriteLook look = LookOnHorizon(row.Name);
  const double x = AzToHorizonX(row.Az);
  const double top = ElToHorizonY(row.El) - kSatRisePx;
  trap([&] {
    PlaceSprite(surfaces_.Final, x - kSatSizePx / 2.0, top, kSatSizePx, *At(surfaces_.sprites.SatMask, look.sprite),
                *At(surfaces_.sprites.SatPic, look.sprite));
  });
  trap([&] {
    MoveTextTo(surfaces_.Final, x - look.labelRisePx, top);
    surfaces_.Final.SetPen(platform::kWhite);
    surfaces_.Final.Print(row.Name);
  });
}

void HorizonPainter::PaintLastLine() {
  const orbit::Tables& tables = sky_.tables;
  Surface& final = surfaces_.Final;
  final.DrawPoint(-1, final.Height() - kLastLineRisePx);
  if (tables.SelSat == 0) {
    final.Print(" No Satellite Selected");
    return;
  }
  const orbit::FaveRec& row = state_.rows.Row(tables, tables.SelSat);
  const auto degrees = [&](double value) { return row.hasNoPosition ? kNoValue : FloorText(value); };
  final.Print(" " + row.Name + "     AZ: " + degrees(row.Az) + "      EL: " + degrees(row.El));
}

void HorizonPainter::DrawSkyTrack(std::string_view name) {
  orbit::Tables& tables = sky_.tables;
  DateParts moment;
  trackTrap([&] { moment = orbit::NowLocalParts(); });
  moment.second += kTrackStartS;
  for (int step = 0; step <= kLastTrackStep; ++step) {
    bool found = false;
    trackTrap([&] { found = orbit::Satcalc(sky_, name, moment, false); });
    if (!found) return;  // all further steps would fail too, and push everything else out of the log
    if (HasSet(tables.result.SatEl)) {
      if (step == 0) tables.SelSat = 0;  // it has gone down
      return;
    }
    trackTrap([&] {
      surfaces_.Final.SetPen(platform::kGreen);
      surfaces_.Final.DrawPoint(AzToHorizonX(tables.result.SatAz), ElToHorizonY(tables.result.SatEl));
    });
    StepTrack(moment);
  }
}

}  // namespace kestrava::views2d
