#include "Sky.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kestrava::tools {
namespace {

constexpr float kDeg = std::numbers::pi_v<float> / 180;

float Dot(const Vec3& a, const Vec3& b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}

Vec3 Times(const Vec3& a, float f) {
  return {a.x * f, a.y * f, a.z * f};
}

float Bell(float x, float width) {
  return std::exp(-x * x / (width * width));
}

// Light of the Milky Way in a direction, 0 to about 1: a broad band, a brighter heart, dark lanes along the middle.
float WayLight(const MilkyWay& way, const Vec3& d) {
  const Vec3 pole = Direction(way.archDeg + 180, 90 - way.highestDeg);
  const float b = std::asin(std::clamp(Dot(d, pole), -1.0F, 1.0F)) / kDeg;
  if (std::abs(b) > 34) return 0;
  const Vec3 heart = Direction(way.archDeg + 52, way.highestDeg * 0.62F);
  const float core = std::pow(std::max(0.0F, Dot(d, heart)), 8.0F);
  const float bent = b + 3.0F * Layered(Times(d, 2.2F), 3, 11);
  const float clouds = 0.80F + 0.7F * Layered(Times(d, 7), 5, 21);
  const float band = (0.55F * Bell(bent, 12) + 0.45F * Bell(bent, 5.5F)) * clouds * (0.55F + 0.9F * core);
  const float lane = Bell(bent + 1.2F, 2.6F) * Smooth(-0.15F, 0.40F, Layered(Times(d, 5.5F), 4, 31));
  return std::max(0.0F, band * (1 - 0.75F * lane));
}

// Near the horizon the air takes the light of what is faint.
float ThroughAir(float elevationDeg) {
  return Smooth(3, 26, elevationDeg);
}

float Brightness(const Rgb& c) {
  return 0.3F * c.r + 0.59F * c.g + 0.11F * c.b;
}

template <typename Colour>
void ForEachPixel(Canvas& canvas, Colour colour) {
  for (int y = 0; y < canvas.Height(); ++y) {
    const float elevation = canvas.ElevationDeg(static_cast<float>(y) + 0.5F);
    for (int x = 0; x < canvas.Width(); ++x) {
      canvas.At(x, y) = colour(canvas.AzimuthDeg(static_cast<float>(x) + 0.5F), elevation, canvas.At(x, y));
    }
  }
}

}  // namespace

Vec3 Direction(float azimuthDeg, float elevationDeg) {
  const float across = std::cos(elevationDeg * kDeg);
  return {across * std::cos(azimuthDeg * kDeg), across * std::sin(azimuthDeg * kDeg), std::sin(elevationDeg * kDeg)};
}

void PaintAir(Canvas& canvas, const Ramp& air) {
  ForEachPixel(canvas, [&](float, float elevation, const Rgb&) { return air.At(elevation); });
}

void PaintMilkyWay(Canvas& canvas, const MilkyWay& way) {
  const Rgb pale = FromHex(0x3C4058);
  ForEachPixel(canvas, [&](float azimuth, float elevation, const Rgb& sky) {
    if (elevation < 3) return sky;
    const float drowned = 1 - Smooth(0.10F, 0.26F, Brightness(sky));
    const float light = WayLight(way, Direction(azimuth, elevation)) * ThroughAir(elevation) * drowned;
    return sky + pale * (light * way.strength);
  });
}

void PaintStars(Canvas& canvas, const MilkyWay& way, int count, std::uint32_t seed) {
  Chance chance(seed);
  for (int placed = 0; placed < count;) {
    const auto azimuth = static_cast<float>(chance.Between(0, 360));
    const auto elevation = static_cast<float>(chance.Between(3, 90));
    const auto rarity = static_cast<float>(chance.Share());
    const auto tint = static_cast<float>(chance.Share());
    const auto keep = static_cast<float>(chance.Share());
    // the top of the picture is the zenith drawn out to a line; as many stars as there are would crowd nowhere else
    const float dense = std::max(0.35F, std::cos(elevation * kDeg));
    if (keep > dense * (0.45F + 0.9F * WayLight(way, Direction(azimuth, elevation)))) continue;
    ++placed;
    const float magnitude = std::min(0.020F * std::pow(std::max(rarity, 1e-4F), -0.47F), 0.9F);
    const float x = canvas.ColumnOf(azimuth), y = canvas.RowOf(elevation);
    const Rgb& sky =
        canvas.At(static_cast<int>(x) % canvas.Width(), std::min(static_cast<int>(y), canvas.Height() - 1));
    const float seen = Smooth(2, 22, elevation) * (1 - Smooth(0.14F, 0.34F, Brightness(sky)));
    const Rgb colour = tint < 0.25F  ? Rgb{1.0F, 0.88F, 0.74F}
                       : tint < 0.6F ? Rgb{0.96F, 0.97F, 1.0F}
                                     : Rgb{0.80F, 0.88F, 1.0F};
    const float peak = std::min(2.6F * magnitude, 0.50F) * seen;
    const float radius = 1.05F + 1.5F * std::min(magnitude, 0.75F);
    canvas.AddLight(x, y, radius, colour * peak);
    if (magnitude > 0.22F) canvas.AddLight(x, y, radius * 2.6F, colour * (peak * 0.16F));
  }
}

void PaintStreaks(Canvas& canvas, const Streaks& streaks) {
  const auto density = [&](float azimuth, float elevation) {
    const Vec3 d = Direction(azimuth, 0);
    const float wide = Layered({d.x * 3.6F, d.y * 3.6F, elevation * 0.62F}, 6, streaks.seed);
    const float here = Bell(elevation - streaks.middleDeg - 2.5F * Noise({d.x * 2, d.y * 2, 0.5F}, streaks.seed + 7),
                            streaks.reachDeg);
    const float level = 0.55F - 0.75F * streaks.cover * here;
    return Smooth(level, level + 0.45F, wide) * Smooth(0, 0.25F, here);
  };
  ForEachPixel(canvas, [&](float azimuth, float elevation, const Rgb& sky) {
    if (std::abs(elevation - streaks.middleDeg) > 3.2F * streaks.reachDeg) return sky;
    const float thick = density(azimuth, elevation);
    if (thick <= 0) return sky;
    return Mix(sky, streaks.colour, 0.78F * thick);
  });
}

void PaintSheet(Canvas& canvas, const Sheet& sheet) {
  constexpr float kEvenLight = 0.6F;
  // clouds hang on a plane overhead that bends down a little towards the horizon
  const auto density = [&](float px, float py) {
    const float shape = Layered({px * sheet.scale, py * sheet.scale, 0.3F}, 6, sheet.seed);
    const float wide = Noise({px * sheet.scale * 0.28F, py * sheet.scale * 0.28F, 4.4F}, sheet.seed + 3);
    const float level = 0.55F - sheet.cover - 0.45F * wide;
    return Smooth(level, level + 0.75F, shape);
  };
  const float towardX = std::cos(sheet.lightDeg * kDeg), towardY = std::sin(sheet.lightDeg * kDeg);
  ForEachPixel(canvas, [&](float azimuth, float elevation, const Rgb& sky) {
    const Vec3 d = Direction(azimuth, elevation);
    const float far = 1 / (d.z + 0.13F);
    const float px = d.x * far, py = d.y * far;
    const float fade = Smooth(1, 9, elevation) * (1 - Smooth(44, 74, elevation));
    if (fade <= 0) return sky;
    const float thick = density(px, py);
    if (thick <= 0) return sky;
    const float ahead = density(px + 0.07F * towardX, py + 0.07F * towardY);
    const float thin = thick * (1 - thick) * 4;  // a veil lets the light through, a thick cloud does not
    const float light = std::clamp(0.22F + 0.40F * thin + 1.5F * (thick - ahead), 0.0F, 1.0F) * kEvenLight;
    return Mix(sky, Mix(sheet.shade, sheet.lit, light), std::min(1.0F, 0.85F * thick * fade * sheet.strength));
  });
}

}  // namespace kestrava::tools
