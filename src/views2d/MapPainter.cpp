#include "views2d/MapPainter.h"

#include <array>
#include <charconv>

#include "platform/EventLoop.h"
#include "platform/Fault.h"
#include "platform/Format.h"
#include "platform/Settings.h"
#include "platform/Text.h"
#include "views2d/MapGeometry.h"

#include "MapModes.h"
#include "Sprites.h"

namespace kestrava::views2d {

namespace {

using platform::At;
using platform::DrawMode;
using platform::PixelRect;
using platform::RasterOp;
using platform::Surface;

constexpr platform::FaultTrap trap{"mapview RepaintMapScreen"};

constexpr std::string_view kSmallFont = "Small fonts";
constexpr int kSmallFontSize = 7;
constexpr int kLineWidthPx = 2;
constexpr int kHomeOffsetPx = 3;  // the dot stands right of and above the true place on purpose
constexpr int kMoonSizePx = 20;
constexpr int kStatusLineRisePx = 20;
constexpr std::uint8_t kNightWeight = 40;  // of 255
/// A jump of the terminator by more than this leaves through one edge and comes back through the other. A plain
/// threshold for a mask of about 566 pixels; it does not scale.
constexpr double kEdgeJumpPx = 500;
constexpr double kFarRightPx = 10000;
constexpr double kBeyondEdgePx = 10;
constexpr int kSeedCount = 16;
constexpr std::array<const char*, 4> kPlaceKeys{"WinPosX", "WinPosY", "WinPosW", "WinPosH"};

int Rounded(double x) {
  return platform::ToInt32(x);
}

int Half(int length) {
  return Rounded(length / 2.0);
}

/// The last of the dots of "GroundTrackLen" minutes. The length is asked anew: just raised and the track not yet
/// recalculated, the rows beyond are old ones, or zero ones at latitude 0, longitude 0.
int LastTrackRow() {
  return platform::ToInt16(2 * platform::ReadNumberSetting("GroundTrackLen", "90"));
}

double StoredNumber(std::string_view text) {
  return platform::ParseNumber(platform::ApplyCommaRule(text));
}

}  // namespace

double MapPainter::LonToMapX(double lonDeg) const {
  return LonToX(lonDeg, surfaces_.Final.Width(), map_.MapMode);
}
double MapPainter::LatToMapY(double latDeg) const {
  return LatToY(latDeg, surfaces_.Final.Height(), map_.MapMode);
}
double MapPainter::LonToMaskX(double lonDeg) const {
  return LonToX(lonDeg, surfaces_.Alpha.Width(), map_.MapMode);
}
double MapPainter::LatToMaskY(double latDeg) const {
  return LatToY(latDeg, surfaces_.Alpha.Height(), map_.MapMode);
}

void MapPainter::RepaintMapScreen() {
  trap([&] {
    surfaces_.Final.SetFont(kSmallFont, kSmallFontSize, true);
    surfaces_.Final.SetLineWidth(kLineWidthPx);
  });
  trap([&] { PaintBaseLayer(); });
  platform::YieldOnce();
  if (!host_.IsOpen()) return;
  trap([&] { PaintHome(); });
  PaintLocations();
  trap([&] { PaintSun(); });  // before the mask, whose blending tints it
  DrawMaskOutline();
  FillMask();
  trap([&] { BlendMask(); });
  trap([&] { PaintMoon(); });
  trap([&] { PaintTrack(); });
  trap([&] { PaintFootprint(); });
  PaintSatellites();
  trap([&] { PaintStatusLine(); });
  platform::YieldOnce();
  if (!host_.IsOpen()) return;
  StorePlace();
}

void MapPainter::PaintBaseLayer() {
  // An empty world picture shows in the log.
  if (PaintWorld(surfaces_.Final, surfaces_.WorldNormal, map_.MapMode) != 1) {
    platform::ErrorTrap("World Normal BLiTter", "StretchBlt error");
  }
}

int PaintWorld(Surface& final, const Surface& world, std::string_view mapMode) {
  const int width = final.Width();
  const int height = final.Height();
  const int halfWorldWidth = Half(world.Width());
  if (const RegionalMode* mode = FindRegionalMode(mapMode)) {
    // The quarter begins where the doubled map is moved off the edge: a shift of 360 degrees is half the picture.
    const int left = Rounded(world.Width() * mode->westShiftDeg / 720);
    const int top = Rounded(world.Height() * mode->northShiftDeg / 360);
    final.StretchBlt({0, 0, width, height}, world, {left, top, halfWorldWidth, Half(world.Height())},
                     RasterOp::kSrcCopy);
    return 1;
  }
  if (mapMode == kSwappedHalves) {
    const int halfWidth = Half(width);
    final.StretchBlt({0, 0, halfWidth, height}, world, {halfWorldWidth, 0, halfWorldWidth, world.Height()},
                     RasterOp::kSrcCopy);
    final.StretchBlt({halfWidth, 0, halfWidth, height}, world, {0, 0, halfWorldWidth, world.Height()},
                     RasterOp::kSrcCopy);
    return 1;
  }
  const PixelRect whole{0, 0, world.Width(), world.Height()};
  return final.StretchBlt({0, 0, width, height}, world, whole, RasterOp::kSrcCopy);
}

void MapPainter::PaintHome() {
  Surface& final = surfaces_.Final;
  final.SetPen(platform::kGreen);  // the locations keep it, also when the home place cannot be read
  const double latDeg = StoredNumber(platform::ReadSetting("Latitude", "0"));
  const double lonDeg = StoredNumber(platform::ReadSetting("Longitude", "0"));
  final.DrawCircle(LonToMapX(lonDeg) + kHomeOffsetPx, LatToMapY(latDeg) - kHomeOffsetPx, 1);
  final.Print(tables_.LocationName);
}

void MapPainter::PaintLocations() {
  for (int i = 1; i <= orbit::kLocationRows; ++i) {
    trap([&] {
      const orbit::LocationRec& row = At(tables_.LocationList, i);
      if (row.OnMap != "1") return;
      const double lonDeg = StoredNumber(row.Longitude);
      const double latDeg = StoredNumber(row.Latitude);
      surfaces_.Final.DrawPoint(LonToMapX(lonDeg), LatToMapY(latDeg));
      surfaces_.Final.Print(row.Name);
    });
  }
}

void MapPainter::PaintSun() {
  const double x = LonToMapX(map_.work.SunLon) - kSunSizePx / 2.0;
  const double y = LatToMapY(map_.work.SunLat) - kSunSizePx / 2.0;
  PlaceSprite(surfaces_.Final, x, y, kSunSizePx, surfaces_.sprites.SunMask, surfaces_.sprites.SunPic);
}

void MapPainter::DrawMaskOutline() {
  Surface& alpha = surfaces_.Alpha;
  trap([&] {
    alpha.Clear(platform::kBlack);
    alpha.SetLineWidth(kLineWidthPx);
    alpha.DrawPoint(LonToMaskX(map_.work.SunCircle[0].lon), LatToMaskY(map_.work.SunCircle[0].lat));
    alpha.SetPen(platform::kWhite);
  });
  for (std::size_t i = 1; i < map_.work.SunCircle.size(); ++i) {
    trap([&] {
      const double x = LonToMaskX(map_.work.SunCircle[i].lon);
      const double y = LatToMaskY(map_.work.SunCircle[i].lat);
      const double previousX = LonToMaskX(map_.work.SunCircle[i - 1].lon);
      // The pen is placed by a point, which lands off the surface.
      if (x - previousX > kEdgeJumpPx) {
        alpha.LineTo(-kBeyondEdgePx, y);
        alpha.DrawPoint(alpha.Width() + kBeyondEdgePx, y);
      }
      if (previousX - x > kEdgeJumpPx) {
        alpha.LineTo(kFarRightPx, y);
        alpha.DrawPoint(-kBeyondEdgePx, y);
      }
      alpha.LineTo(x, y);
    });
  }
}

void MapPainter::FillMask() {
  for (int i = 0; i < kSeedCount; ++i) {
    trap([&] {
      const orbit::PointRec& seed = At(map_.work.SunSeeds, i);
      surfaces_.Alpha.FloodFill(LonToMaskX(seed.lon), LatToMaskY(seed.lat), platform::kWhite);
    });
  }
}

void MapPainter::BlendMask() {
  const Surface& alpha = surfaces_.Alpha;
  const int width = Half(surfaces_.Final.Width());
  const int height = Half(surfaces_.Final.Height());
  const int maskWidth = Half(alpha.Width());
  const int maskHeight = Half(alpha.Height());
  for (const int row : {0, 1}) {
    for (const int column : {0, 1}) {
      AlphaBlendPercent(surfaces_.Final, {column * width, row * height, width, height}, alpha,
                        {column * maskWidth, row * maskHeight, maskWidth, maskHeight}, kNightWeight);
    }
  }
}

void MapPainter::PaintMoon() {
  const double x = LonToMapX(map_.work.MoonLon) - kMoonSizePx / 2.0;
  const double y = LatToMapY(map_.work.MoonLat) - kMoonSizePx / 2.0;
  PlaceSprite(surfaces_.Final, x, y, kMoonSizePx, surfaces_.sprites.MoonMask, surfaces_.sprites.MoonPic);
}

void MapPainter::PaintTrack() {
  if (!platform::ReadSwitch("ShowGroundtrack", "1") || map_.work.nothingSelected) return;
  const int lastRow = LastTrackRow();
  for (int i = 0; i <= lastRow; ++i) {
    const bool drawn = trap([&] {
      const orbit::TrackRec& row = At(map_.work.GroundTrack, i);
      if (row.hasNoPosition) return;
      surfaces_.Final.SetPen(row.colour);
      surfaces_.Final.DrawPoint(LonToMapX(row.lon), LatToMapY(row.lat));
    });
    if (!drawn && i >= static_cast<int>(map_.work.GroundTrack.size())) return;  // all further rows are beyond it too
  }
}

void MapPainter::PaintFootprint() {
  if (!platform::ReadSwitch("ShowFootprints", "1") || map_.work.nothingSelected) return;
  if (map_.work.rows.Row(tables_, tables_.SelSat).hasNoPosition) return;  // the circle is another one's
  surfaces_.Final.SetPen(platform::kOrange);
  for (int i = 0; i <= 360; i += 2) {
    const orbit::PointRec& row = At(map_.work.FootPrint, i);
    surfaces_.Final.DrawPoint(LonToMapX(row.lon), LatToMapY(row.lat));
  }
}

void MapPainter::PaintSatellites() {
  for (int i = 1; i <= tables_.FaveCount; ++i) trap([&] { PaintSatellite(i); });
  trap([&] {  // what the labels leave behind
    MoveTextTo(surfaces_.Final, 0, 0);
    surfaces_.Final.SetPen(platform::kBlue);
    surfaces_.Final.SetFont("Arial", 11, true);
    surfaces_.Final.SetFont(kSmallFont, kSmallFontSize, true);
  });
}

void MapPainter::PaintSatellite(int index) {
  const orbit::FaveRec& row = map_.work.rows.Row(tables_, index);
  if (row.hasNoPosition) return;
  const SpriteLook look = LookOnMap(row.Name);
  const double x = LonToMapX(row.Lon);
  const double y = LatToMapY(row.Lat);
  // Off-centre by design: 14 left and up, 18 right and down.
  PlaceSprite(surfaces_.Final, x - 14, y - 14, kSatSizePx, *At(surfaces_.sprites.SatMask, look.sprite),
              *At(surfaces_.sprites.SatPic, look.sprite));
  MoveTextTo(surfaces_.Final, x - 16, y - look.labelRisePx);
  surfaces_.Final.SetPen(platform::kWhite);
  surfaces_.Final.Print(row.Name);
}

void MapPainter::PaintStatusLine() {
  Surface& final = surfaces_.Final;
  MoveTextTo(surfaces_.Final, 0, host_.PlaceToStore().innerHeightPx - kStatusLineRisePx);
  const RegionalMode* mode = FindRegionalMode(map_.MapMode);
  final.SetPen(mode && mode->northShiftDeg == 0 ? platform::kWhite : platform::kBlack);
  final.SetFont("Arial", 8, true);
  const auto& stat = map_.RemoteStat;
  const std::string name = platform::Mid(stat[0], 13);  // without "Satellite : "
  final.Print(" " + name + "  " + stat[1] + "  " + stat[2] + "  " + stat[3] + "  " + stat[4] + "   " + stat[7]);
  final.SetFont(kSmallFont, kSmallFontSize, true);
}

void MapPainter::StorePlace() {
  const MapWindowPlace place = host_.PlaceToStore();
  if (!place.storable) return;
  const std::array<int, 4> twips{place.leftTwips, place.topTwips, place.widthTwips, place.heightTwips};
  if (storedTwips_ == twips) return;
  bool whole = true;
  for (std::size_t i = 0; i < twips.size(); ++i) {
    whole = trap([&] { platform::WriteSetting(kPlaceKeys[i], std::to_string(twips[i])); }) && whole;
  }
  if (whole) storedTwips_ = twips;
}

void AlphaBlendPercent(Surface& dest, const PixelRect& to, const Surface& source, const PixelRect& from,
                       std::uint8_t alpha) {
  // The blend function is composed as hexadecimal text: the weight, then no per-pixel alpha, no flags, source-over.
  std::array<char, 6> hex{};
  char* end = std::to_chars(hex.data(), hex.data() + 2, alpha, 16).ptr;
  for (int zero = 0; zero < 4; ++zero) *end++ = '0';
  std::uint32_t blendFunction = 0;
  std::from_chars(hex.data(), end, blendFunction, 16);
  dest.AlphaBlend(to, source, from, blendFunction);
}

}  // namespace kestrava::views2d
