#include "panels/PlacePicking.h"

#include <algorithm>
#include <cmath>

#include "platform/Format.h"

namespace kestrava::panels {

using store::ShownAngle;

namespace {

constexpr double kTurnDeg = 360;
constexpr double kHalfTurnDeg = 180;
constexpr double kPoleDeg = 90;
constexpr int kSecondsOfMinute = 60;
constexpr int kSecondsOfDegree = 3600;

/// An angle that grew by steps, without the noise of their sum.
double NineDecimals(double degrees) {
  constexpr double kNineDecimals = 1e9;
  return std::round(degrees * kNineDecimals) / kNineDecimals;
}

std::string TwoDigits(long value) {
  return platform::Format(static_cast<double>(value), "00");
}

std::string AngleText(double degrees, AngleForm form) {
  if (form == AngleForm::kDecimals) return platform::NumberText(degrees) + "°";
  const long seconds = std::lround(degrees * kSecondsOfDegree);
  return std::to_string(seconds / kSecondsOfDegree) + "° " + TwoDigits(seconds % kSecondsOfDegree / kSecondsOfMinute) +
         "' " + TwoDigits(seconds % kSecondsOfMinute) + "\"";
}

const char* WestOrEast(bool west) {
  return west ? " west" : " east";
}

}  // namespace

MapArea FitMap(int widthPx, int heightPx) {
  const int height = std::max(0, std::min(widthPx / 2, heightPx));
  const int width = 2 * height;
  return {(widthPx - width) / 2, (heightPx - height) / 2, width, height};
}

std::optional<GeoPoint> PlaceAtPixel(const MapArea& area, int column, int row) {
  const int x = column - area.left;
  const int y = row - area.top;
  if (x < 0 || x >= area.width || y < 0 || y >= area.height) return std::nullopt;
  return GeoPoint{kPoleDeg - (y + 0.5) * kHalfTurnDeg / area.height, (x + 0.5) * kTurnDeg / area.width - kHalfTurnDeg};
}

MapSpot SpotOfPlace(const MapArea& area, const GeoPoint& place) {
  return {area.left + (place.longitudeEastDeg + kHalfTurnDeg) * area.width / kTurnDeg,
          area.top + (kPoleDeg - place.latitudeDeg) * area.height / kHalfTurnDeg};
}

GeoPoint Moved(const GeoPoint& place, double northDeg, double eastDeg) {
  double east = NineDecimals(place.longitudeEastDeg + eastDeg);
  if (east > kHalfTurnDeg) east -= kTurnDeg;
  if (east < -kHalfTurnDeg) east += kTurnDeg;
  return {std::clamp(NineDecimals(place.latitudeDeg + northDeg), -kPoleDeg, kPoleDeg), NineDecimals(east)};
}

GeoPoint PointOf(const ShownAngle& latitude, const ShownAngle& longitude) {
  const double east = longitude.ticked ? -longitude.degrees : longitude.degrees;
  return {store::StoredLatitude(latitude),
          std::abs(east) <= kHalfTurnDeg ? east : east - std::copysign(kTurnDeg, east)};
}

std::string LatitudeInWords(const ShownAngle& latitude, AngleForm form) {
  return AngleText(latitude.degrees, form) + (latitude.ticked ? " north" : " south");
}

std::string LongitudeInWords(const ShownAngle& longitude, AngleForm form) {
  const std::string text = AngleText(longitude.degrees, form) + WestOrEast(longitude.ticked);
  if (longitude.degrees <= kHalfTurnDeg) return text;
  const double shorter = NineDecimals(kTurnDeg - longitude.degrees);
  return text + " (that is " + AngleText(shorter, form) + WestOrEast(!longitude.ticked) + ")";
}

std::string PointInWords(const GeoPoint& place) {
  const auto tenths = [](double degrees) { return platform::Format(std::abs(degrees), "0.0") + "°"; };
  return tenths(place.latitudeDeg) + (place.latitudeDeg < 0 ? " south, " : " north, ") +
         tenths(place.longitudeEastDeg) + WestOrEast(place.longitudeEastDeg < 0);
}

}  // namespace kestrava::panels
