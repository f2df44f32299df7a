#include "Scenery.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/qt/ImageSurface.h"
#include "views2d/HorizonPainter.h"
#include "views2d/Twilight.h"

namespace kestrava::views2d::ui {

namespace {

/// Less than this a step of the Sun does not show; it takes two minutes.
constexpr double kLeastStepDeg = 0.5;

/// What is darker than this share of the sky's brightness in its row takes no glow, what is lighter than the other all.
constexpr double kSilhouette = 0.3;
constexpr double kOpenSky = 0.9;

int Brightness(QRgb pixel) {
  return (30 * qRed(pixel) + 59 * qGreen(pixel) + 11 * qBlue(pixel)) / 100;
}

double ElevationOf(int row, int height) {
  return 90 * (1 - (row + 0.5) / height);
}

/// What most of a row is: the brightness below which two thirds of its pixels lie.
int SkyOf(const QRgb* row, int width) {
  std::array<int, 256> pixels{};
  for (int x = 0; x < width; ++x) ++pixels[static_cast<std::size_t>(Brightness(row[x]))];
  int sum = 0;
  int brightness = 0;
  for (; brightness < 255 && 3 * sum < 2 * width; ++brightness) sum += pixels[static_cast<std::size_t>(brightness)];
  return brightness;
}

/// What each brightness takes of the glow before a sky of this one, 0 to 255.
std::array<std::uint8_t, 256> SharesBefore(int sky) {
  std::array<std::uint8_t, 256> shares{};
  for (std::size_t i = 0; i < shares.size(); ++i) {
    const double share = (static_cast<double>(i) / sky - kSilhouette) / (kOpenSky - kSilhouette);
    shares[i] = static_cast<std::uint8_t>(255 * std::clamp(share, 0.0, 1.0));
  }
  return shares;
}

const QRgb* RowOf(const QImage& image, int row) {
  return reinterpret_cast<const QRgb*>(image.constScanLine(row));
}

bool IsSameLight(const SunInView& a, const SunInView& b) {
  const bool night = a.elDeg <= kNightDeg && b.elDeg <= kNightDeg;
  const double turnDeg = std::abs(std::remainder(a.azDeg - b.azDeg, 360));
  const double riseDeg = std::abs(a.elDeg - b.elDeg);
  return night || (a.centreNorth == b.centreNorth && turnDeg < kLeastStepDeg && riseDeg < kLeastStepDeg);
}

}  // namespace

void Scenery::Load(const QImage& picture) {
  picture_ = picture.convertToFormat(QImage::Format_RGB32);
  night_ = picture.text("Sky") == "night" ? picture_ : QImage();
  sun_ = {};
  FindSky();
}

// Low down the sky is the lightest thing of a night; where a row holds more land than sky, the rows above tell.
void Scenery::FindSky() {
  const int width = night_.width();
  sky_.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(night_.height()), 0);
  int sky = 1;
  for (int y = 0; y < night_.height(); ++y) {
    const QRgb* row = RowOf(night_, y);
    sky = std::max(sky, SkyOf(row, width));
    const auto shares = SharesBefore(sky);
    std::uint8_t* taken = sky_.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width);
    for (int x = 0; x < width; ++x) taken[x] = shares[static_cast<std::size_t>(Brightness(row[x]))];
  }
}

bool Scenery::Light(const SunInView& sun) {
  if (night_.isNull() || IsSameLight(sun, sun_)) return false;
  sun_ = sun;
  picture_ = night_.copy();
  across_.clear();
  for (int x = 0; x < night_.width(); ++x) {
    const double azDeg = 360 * (x + 0.5) / night_.width() + (sun.centreNorth ? 180 : 0);
    across_.push_back(static_cast<float>(GlowAcross(azDeg - sun.azDeg)));
  }
  for (int y = 0; y < night_.height(); ++y) LightRow(y);
  return true;
}

void Scenery::LightRow(int row) {
  const double elDeg = ElevationOf(row, night_.height());
  const auto up = static_cast<float>(GlowUp(elDeg, sun_.elDeg));
  if (up <= 0) return;
  const QRgb glow = platform::qt::ToRgb(GlowColour(elDeg));
  auto* pixels = reinterpret_cast<QRgb*>(picture_.scanLine(row));
  const std::uint8_t* taken = sky_.data() + static_cast<std::size_t>(row) * across_.size();
  for (std::size_t x = 0; x < across_.size(); ++x) {
    const auto share = static_cast<int>(static_cast<float>(taken[x]) * across_[x] * up);  // of 255
    const auto mixed = [&](int from, int to) { return from + (to - from) * share / 255; };
    pixels[x] = qRgb(mixed(qRed(pixels[x]), qRed(glow)), mixed(qGreen(pixels[x]), qGreen(glow)),
                     mixed(qBlue(pixels[x]), qBlue(glow)));
  }
}

}  // namespace kestrava::views2d::ui
