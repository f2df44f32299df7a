#include "Maps.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>
#include <vector>

namespace kestrava::tools {
namespace {

struct Rgb {
  float r;
  float g;
  float b;
};

Rgb Mix(const Rgb& a, const Rgb& b, float t) {
  return {a.r + (b.r - a.r) * t, a.g + (b.g - a.g) * t, a.b + (b.b - a.b) * t};
}
Rgb Scaled(const Rgb& c, float f) {
  return {c.r * f, c.g * f, c.b * f};
}
float Light(const Rgb& c) {
  return 0.30F * c.r + 0.59F * c.g + 0.11F * c.b;
}
Rgb FromHex(unsigned rgb) {
  return {static_cast<float>(rgb >> 16 & 255) / 255, static_cast<float>(rgb >> 8 & 255) / 255,
          static_cast<float>(rgb & 255) / 255};
}

// Colours at rising positions, mixed in between.
using Ramp = std::vector<std::pair<float, Rgb>>;
Rgb Along(const Ramp& ramp, float t) {
  if (t <= ramp.front().first) return ramp.front().second;
  for (size_t i = 1; i < ramp.size(); ++i) {
    if (t > ramp[i].first) continue;
    const auto& [from, low] = ramp[i - 1];
    const auto& [to, high] = ramp[i];
    return Mix(low, high, (t - from) / (to - from));
  }
  return ramp.back().second;
}

constexpr int kDesignWidth = 1400;  // widths and radii of the styles are pixels of a map this wide

struct Line {
  QColor colour;
  double width = 0;  ///< 0 leaves the line out
};

struct Style {
  Ramp sea;             ///< by light of the ocean floor, 0 deep to 1 shelf
  float seaRelief = 1;  ///< weight of the fine relief of the ocean floor
  Rgb glow;             ///< light that the land throws on the sea
  float glowNear = 0;
  float glowFar = 0;
  std::function<Rgb(const Rgb&)> land;  ///< relief colour to map colour
  std::function<Rgb(float latitude)> snow;
  float landRelief = 1;  ///< weight of the fine relief of the land
  Line coast, borders, rivers, grid, mainGrid;
  int gridStepDeg = 30;
};

// Everything finer than about eight pixels, for local contrast.
Plane Detail(const Plane& plane, int radius) {
  const Plane soft = Blur(plane, radius);
  Plane out(plane.Width(), plane.Height());
  for (int y = 0; y < out.Height(); ++y) {
    for (int x = 0; x < out.Width(); ++x) out.At(x, y) = plane.At(x, y) - soft.At(x, y);
  }
  return out;
}

Plane LandLight(const Earth& earth) {
  Plane out(earth.width, earth.height);
  for (int y = 0; y < out.Height(); ++y) {
    for (int x = 0; x < out.Width(); ++x) {
      out.At(x, y) = Light({earth.landColour[0].At(x, y), earth.landColour[1].At(x, y), earth.landColour[2].At(x, y)});
    }
  }
  return out;
}

QRgb ToPixel(const Rgb& c) {
  const auto byte = [](float v) { return static_cast<int>(std::lround(std::clamp(v, 0.0F, 1.0F) * 255)); };
  return qRgb(byte(c.r), byte(c.g), byte(c.b));
}

QImage Ground(const Earth& earth, const Style& style) {
  const int unit = std::max(1, earth.width / kDesignWidth);
  const Plane near = Blur(earth.coverage, 3 * unit);
  const Plane far = Blur(earth.coverage, 16 * unit);
  const Plane landDetail = Detail(LandLight(earth), 4 * unit);
  const Plane seaDetail = Detail(earth.seaLight, 6 * unit);
  QImage image(earth.width, earth.height, QImage::Format_RGB32);
  for (int y = 0; y < earth.height; ++y) {
    const float latitude = 90 - 180 * (static_cast<float>(y) + 0.5F) / static_cast<float>(earth.height);
    // towards the poles the relief is smeared along the parallels
    const float fade = std::clamp((90 - std::abs(latitude)) / 12, 0.0F, 1.0F);
    auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < earth.width; ++x) {
      // the ocean floor of the relief runs from 0.25 (trenches) to 0.60 (shelves)
      const float depth = std::clamp((earth.seaLight.At(x, y) - 0.25F) / 0.35F, 0.0F, 1.0F);
      Rgb sea = Scaled(Along(style.sea, depth), 1 + style.seaRelief * 2.5F * seaDetail.At(x, y) * fade);
      const float glow = style.glowNear * near.At(x, y) + style.glowFar * far.At(x, y);
      sea = Mix(sea, style.glow, std::min(glow, 1.0F));
      const Rgb relief{earth.landColour[0].At(x, y), earth.landColour[1].At(x, y), earth.landColour[2].At(x, y)};
      const float shade = 1 + style.landRelief * 2.5F * landDetail.At(x, y) * fade;
      const float ice = std::clamp(earth.ice.At(x, y), 0.0F, 1.0F);
      const Rgb snow = Scaled(style.snow(latitude), 0.88F + 0.12F * std::min(Light(relief), 1.0F));
      const Rgb land = Mix(Scaled(style.land(relief), shade), Scaled(snow, 1 + (shade - 1) / 2), ice);
      sea = Mix(sea, Mix(snow, style.glow, 0.12F), std::clamp(earth.shelfIce.At(x, y), 0.0F, 1.0F));
      row[x] = ToPixel(Mix(sea, land, earth.coverage.At(x, y)));
    }
  }
  return image;
}

void StrokeLine(QPainter& painter, const QPainterPath& path, const Line& line) {
  const double unit = std::max(1, painter.device()->width() / kDesignWidth);
  if (line.width > 0) {
    painter.strokePath(path, QPen(line.colour, line.width * unit, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  }
}

void DrawGrid(QPainter& painter, const Earth& earth, const Style& style) {
  painter.setRenderHint(QPainter::Antialiasing, false);
  for (int lon = -180 + style.gridStepDeg; lon < 180; lon += style.gridStepDeg) {
    const int x = static_cast<int>(std::lround((lon + 180) * earth.width / 360.0));
    painter.setPen(lon == 0 ? style.mainGrid.colour : style.grid.colour);
    painter.drawLine(x, 0, x, earth.height - 1);
  }
  for (int lat = -90 + style.gridStepDeg; lat < 90; lat += style.gridStepDeg) {
    const int y = static_cast<int>(std::lround((90 - lat) * earth.height / 180.0));
    painter.setPen(lat == 0 ? style.mainGrid.colour : style.grid.colour);
    painter.drawLine(0, y, earth.width - 1, y);
  }
}

QImage Render(const Earth& earth, const Style& style) {
  QImage image = Ground(earth, style);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.save();
  painter.setClipPath(earth.land);
  StrokeLine(painter, earth.rivers, style.rivers);
  StrokeLine(painter, earth.borders, style.borders);
  painter.restore();
  StrokeLine(painter, earth.coast, style.coast);
  DrawGrid(painter, earth, style);
  return image;
}

Rgb Saturated(const Rgb& c, float amount) {
  const float light = Light(c);
  return Mix({light, light, light}, c, amount);
}

Rgb Powered(const Rgb& c, float power) {
  const auto lift = [power](float v) { return std::pow(std::clamp(v, 0.0F, 1.0F), power); };
  return {lift(c.r), lift(c.g), lift(c.b)};
}

// The relief is printed pale; white labels need darker and richer land.
Rgb NaturalLand(const Rgb& c) {
  const Rgb rich = Saturated(Powered(c, 2.1F), 0.98F);
  return {rich.r * 0.74F + 0.015F, rich.g * 0.745F + 0.02F, rich.b * 0.76F + 0.02F};
}

Rgb NightLand(const Rgb& c) {
  const Rgb slate = Mix(FromHex(0x101820), FromHex(0x38424E), std::pow(Light(c), 2.0F));
  return Mix(slate, Scaled(Powered(c, 2.2F), 0.34F), 0.45F);
}

// The foot of the map carries dark text, so the ice grows lighter towards the south pole.
Rgb NightSnow(float latitude) {
  const float south = std::clamp((-latitude - 66) / 21, 0.0F, 1.0F);
  return Mix(FromHex(0x3A4553), FromHex(0x8A97A7), south);
}

Rgb ReliefLand(const Rgb& c) {
  const float light = Light(Powered(c, 2.4F));
  const Rgb earthy = Along({{0.25F, FromHex(0x3B4A36)},
                            {0.45F, FromHex(0x64694A)},
                            {0.62F, FromHex(0x8C7D5C)},
                            {0.80F, FromHex(0xA8936F)},
                            {1.00F, FromHex(0xBFB096)}},
                           light);
  return Mix(earthy, Saturated(Powered(c, 2.8F), 1.1F), 0.25F);
}

Rgb ChartLand(const Rgb& c) {
  return Mix(FromHex(0x59654F), FromHex(0x7E7F62), std::clamp((Light(c) - 0.70F) / 0.2F, 0.0F, 1.0F));
}

}  // namespace

QImage DefaultMap(const Earth& earth) {
  Style style;
  style.sea = {
      {0.0F, FromHex(0x0A2448)}, {0.35F, FromHex(0x123C70)}, {0.65F, FromHex(0x1E5A94)}, {1.0F, FromHex(0x3E8FBF)}};
  style.glow = FromHex(0x7CC4E0);
  style.glowNear = 0.40F;
  style.glowFar = 0.12F;
  style.land = NaturalLand;
  style.snow = [](float) { return FromHex(0xDCE5EE); };
  style.landRelief = 0.75F;
  style.coast = {QColor(12, 30, 40, 170), 0.8};
  style.borders = {QColor(60, 36, 30, 105), 0.7};
  style.rivers = {QColor(44, 96, 140, 120), 0.6};
  style.grid = {QColor(255, 255, 255, 30), 1};
  style.mainGrid = {QColor(255, 255, 255, 58), 1};
  return Render(earth, style);
}

QImage NightMap(const Earth& earth) {
  Style style;
  style.sea = {{0.0F, FromHex(0x050A14)}, {0.5F, FromHex(0x091322)}, {1.0F, FromHex(0x12243A)}};
  style.seaRelief = 0.8F;
  style.glow = FromHex(0x2C5F86);
  style.glowNear = 0.34F;
  style.glowFar = 0.12F;
  style.land = NightLand;
  style.snow = NightSnow;
  style.landRelief = 0.6F;
  style.coast = {QColor(120, 170, 200, 85), 0.7};
  style.borders = {QColor(150, 165, 180, 70), 0.6};
  style.grid = {QColor(150, 190, 230, 26), 1};
  style.mainGrid = {QColor(150, 190, 230, 52), 1};
  return Render(earth, style);
}

QImage ReliefMap(const Earth& earth) {
  Style style;
  style.sea = {
      {0.0F, FromHex(0x0B2B36)}, {0.4F, FromHex(0x17485A)}, {0.7F, FromHex(0x2C6A7C)}, {1.0F, FromHex(0x6AA3A8)}};
  style.seaRelief = 1.3F;
  style.glow = FromHex(0x9CCBC8);
  style.glowNear = 0.25F;
  style.land = ReliefLand;
  style.snow = [](float) { return FromHex(0xD6DCDC); };
  style.landRelief = 1.25F;
  style.coast = {QColor(20, 34, 34, 150), 0.7};
  style.rivers = {QColor(40, 84, 100, 100), 0.5};
  style.grid = {QColor(255, 255, 255, 22), 1};
  style.mainGrid = {QColor(255, 255, 255, 40), 1};
  return Render(earth, style);
}

QImage ChartMap(const Earth& earth) {
  Style style;
  style.sea = {{0.0F, FromHex(0x20384A)}, {0.6F, FromHex(0x284659)}, {1.0F, FromHex(0x355C70)}};
  style.seaRelief = 0;
  style.glow = FromHex(0x6FA0B4);
  style.glowNear = 0.45F;
  style.land = ChartLand;
  style.snow = [](float) { return FromHex(0xB9C2C7); };
  style.landRelief = 0.25F;
  style.coast = {QColor(14, 24, 30, 220), 0.9};
  style.borders = {QColor(28, 30, 24, 190), 0.8};
  style.grid = {QColor(220, 235, 245, 30), 1};
  style.mainGrid = {QColor(255, 236, 190, 90), 1};
  style.gridStepDeg = 15;
  return Render(earth, style);
}

}  // namespace kestrava::tools
