#include "Land.h"

#include <algorithm>
#include <cmath>

#include "Noise.h"
#include "Sky.h"

namespace kestrava::tools {
namespace {

// A crest runs where the noise passes through zero.
float Crested(Vec3 at, int octaves, std::uint32_t seed) {
  float sum = 0, weight = 1, whole = 0;
  for (int i = 0; i < octaves; ++i) {
    sum += weight * (1 - 2.2F * std::abs(Noise(at, seed + static_cast<std::uint32_t>(i) * 57)));
    whole += weight;
    at = {at.x * 2.03F + 1.7F, at.y * 2.03F + 9.2F, at.z + 3.1F};
    weight *= 0.47F;
  }
  return sum / whole;
}

// Treetops as teeth of uneven height and width.
float Treetop(float column, std::uint32_t seed) {
  float best = 0;
  const float width = 9;
  const int cell = static_cast<int>(std::floor(column / width));
  for (int k = cell - 1; k <= cell + 1; ++k) {
    const auto id = static_cast<std::uint32_t>(k);
    const float at = (static_cast<float>(k) + 0.2F + 0.6F * Hashed(id, 1, 0, seed)) * width;
    const float high = 0.25F + 0.75F * Hashed(id, 2, 0, seed);
    const float slim = 0.75F + 0.6F * Hashed(id, 3, 0, seed);
    best = std::max(best, high * (1 - std::abs(column - at) / (width * slim)));
  }
  return best;
}

}  // namespace

std::vector<float> Ridge(const Canvas& canvas, const RidgeForm& form) {
  std::vector<float> ridge;
  for (int x = 0; x < canvas.Width(); ++x) {
    const Vec3 d = Direction(canvas.AzimuthDeg(static_cast<float>(x)), 0);
    const float around = form.detail / 2;
    const Vec3 at{d.x * around, d.y * around, static_cast<float>(form.seed % 97)};
    const float rolling = std::clamp(0.5F + 0.75F * Layered(at, form.octaves, form.seed), 0.0F, 1.0F);
    // no two crests of a range are alike in height
    const float lift = 0.62F + 0.55F * Noise({d.x * around * 0.7F, d.y * around * 0.7F, 7.7F}, form.seed + 9);
    const float crested = std::clamp((0.30F + 0.62F * Crested(at, form.octaves, form.seed)) * lift * 1.45F, 0.0F, 1.0F);
    const float high = rolling + (crested - rolling) * form.peaked;
    // the number of teeth in a turn is whole, so that the last one meets the first
    const float teeth = form.treesDeg > 0 ? Treetop(static_cast<float>(x), form.seed + 5) : 0;
    const float edge = Smooth(0, 20, static_cast<float>(std::min(x, canvas.Width() - 1 - x)));
    ridge.push_back(form.lowDeg + (form.highDeg - form.lowDeg) * high + form.treesDeg * (0.4F + (teeth - 0.4F) * edge));
  }
  return ridge;
}

void PaintGround(Canvas& canvas, const std::vector<float>& ridge, const GroundColour& colour) {
  for (int x = 0; x < canvas.Width(); ++x) {
    const float azimuth = canvas.AzimuthDeg(static_cast<float>(x) + 0.5F);
    const float top = canvas.RowOf(ridge[static_cast<std::size_t>(x)]);
    for (int y = std::max(0, static_cast<int>(top)); y < canvas.Height(); ++y) {
      const float covered = std::clamp(static_cast<float>(y) + 1 - top, 0.0F, 1.0F);
      const float elevation = canvas.ElevationDeg(static_cast<float>(y) + 0.5F);
      const float depth = std::max(0.0F, ridge[static_cast<std::size_t>(x)] - elevation);
      canvas.At(x, y) = Mix(canvas.At(x, y), colour(azimuth, elevation, depth), covered);
    }
  }
}

float SlopeLight(float azimuthDeg, float depthDeg, std::uint32_t seed) {
  const auto height = [&](float azimuth) {
    const Vec3 d = Direction(azimuth, 0);
    // the gullies run down aslant, to both sides
    const Vec3 e = Direction(azimuth + 1.6F * depthDeg, 0);
    return 0.5F * Crested({d.x * 6, d.y * 6, depthDeg * 0.5F}, 5, seed) +
           0.5F * Crested({e.x * 6, e.y * 6, depthDeg * 0.3F}, 5, seed + 3);
  };
  return std::clamp(0.45F + 2.2F * (height(azimuthDeg) - height(azimuthDeg - 0.45F)), 0.0F, 1.0F);
}

}  // namespace kestrava::tools
