#include "Sprites.h"

#include <array>

#include "platform/Fault.h"
#include "platform/Text.h"

namespace kestrava::views2d {

namespace {

enum class Test { kBeginsWith, kIs, kHolds };
enum class ShownOn { kBothViews, kHorizonOnly };

struct LookRow {
  Test test;
  std::string_view text;
  SpriteLook look;
  ShownOn shownOn;
};

constexpr auto kLooks = std::to_array<LookRow>({
    {Test::kBeginsWith, "ISS", {1, 24}, ShownOn::kBothViews},
    {Test::kIs, "MIR", {2, 24}, ShownOn::kHorizonOnly},
    {Test::kBeginsWith, "STS", {3, 24}, ShownOn::kBothViews},
    {Test::kHolds, "P3D", {4, 16}, ShownOn::kBothViews},
    {Test::kHolds, "AO-40", {4, 16}, ShownOn::kBothViews},
    {Test::kBeginsWith, "NOAA", {5, 21}, ShownOn::kBothViews},
});

bool Meets(std::string_view name, const LookRow& row) {
  if (row.test == Test::kIs) return name == row.text;
  return row.test == Test::kBeginsWith ? platform::BeginsWith(name, row.text) : platform::Contains(name, row.text);
}

SpriteLook LookOf(std::string_view name, bool onHorizon) {
  SpriteLook look;
  for (const LookRow& row : kLooks) {
    if ((onHorizon || row.shownOn == ShownOn::kBothViews) && Meets(name, row)) look = row.look;
  }
  return look;
}

}  // namespace

SpriteLook LookOnMap(std::string_view name) {
  return LookOf(name, false);
}
SpriteLook LookOnHorizon(std::string_view name) {
  return LookOf(name, true);
}

void PlaceSprite(platform::Surface& target, double x, double y, int sizePx, const platform::Surface& mask,
                 const platform::Surface& picture) {
  const platform::PixelRect place{platform::ToInt32(x), platform::ToInt32(y), sizePx, sizePx};
  target.BitBlt(place, mask, 0, 0, platform::RasterOp::kSrcAnd);
  target.BitBlt(place, picture, 0, 0, platform::RasterOp::kSrcPaint);
}

void MoveTextTo(platform::Surface& target, double x, double y) {
  target.SetDrawMode(platform::DrawMode::kNoOperation);
  target.DrawPoint(x, y);
  target.SetDrawMode(platform::DrawMode::kCopy);
}

}  // namespace kestrava::views2d
