#include "Pixels.h"

#include <QHash>
#include <QPixmap>
#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <vector>

#include "platform/qt/Theme.h"

namespace kestrava::accessibility {

namespace {

constexpr int kStrayPixels = 3;
constexpr QRgb kAlike = 0xfff8f8f8;  // channels that differ in the lowest bits only are one tone
constexpr int kAroundPx = 3;

using Counts = std::map<QRgb, int>;

Counts CountsOf(const QImage& picture) {
  Counts counts;
  for (int y = 0; y < picture.height(); ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
    for (int x = 0; x < picture.width(); ++x) ++counts[row[x]];
  }
  return counts;
}

QRgb MostFrequent(const Counts& counts) {
  const auto fewer = [](const auto& a, const auto& b) { return a.second < b.second; };
  return counts.empty() ? 0 : std::max_element(counts.begin(), counts.end(), fewer)->first;
}

QRgb GroundOf(const Counts& counts) {
  Counts tones;
  for (const auto& [colour, count] : counts) tones[colour & kAlike] += count;
  const QRgb tone = MostFrequent(tones);
  Counts ofTheTone;
  for (const auto& [colour, count] : counts)
    if ((colour & kAlike) == tone) ofTheTone[colour] = count;
  return MostFrequent(ofTheTone);
}

double Contrast(QRgb a, QRgb b) {
  static QHash<quint64, double> known;
  const quint64 pair = (static_cast<quint64>(a) << 32) | b;
  const auto found = known.constFind(pair);
  if (found != known.constEnd()) return *found;
  return *known.insert(pair, platform::qt::ContrastRatio(QColor::fromRgb(a), QColor::fromRgb(b)));
}

/// The strongest contrast to the tone around the box on a short way across its edge, from outside inwards.
std::optional<double> AcrossEdge(const QImage& around, QPoint outside, QPoint step, int length) {
  const QPoint last = outside + step * (length - 1);
  if (!around.rect().contains(outside) || !around.rect().contains(last)) return std::nullopt;
  double strongest = 1;
  for (int i = 1; i < length; ++i)
    strongest = std::max(strongest, Contrast(around.pixel(outside + step * i), around.pixel(outside)));
  return strongest;
}

struct Side {
  QPoint corner;  ///< of the box, in device pixels
  QPoint along;   ///< to its other end
  QPoint inwards;
  std::vector<int> quarters;  ///< where it is looked at
};

/// The middle one of three places.
std::optional<double> ContrastOfSide(const QImage& around, const Side& side, int reach) {
  std::vector<double> found;
  for (const int quarter : side.quarters) {
    const QPoint at = side.corner + side.along * quarter / 4 - side.inwards * reach;
    if (const auto contrast = AcrossEdge(around, at, side.inwards, 2 * reach)) found.push_back(*contrast);
  }
  if (found.empty()) return std::nullopt;
  std::sort(found.begin(), found.end());
  return found[found.size() / 2];
}

}  // namespace

QImage GrabPart(QWidget& window, const QRect& part) {
  return window.grab(part).toImage().convertToFormat(QImage::Format_RGB32);
}

QRgb GroundOf(const QImage& picture) {
  return GroundOf(CountsOf(picture));
}

double TextContrast(const QImage& picture) {
  const Counts counts = CountsOf(picture);
  const QRgb ground = GroundOf(counts);
  std::vector<std::pair<double, int>> contrasts;
  for (const auto& [colour, count] : counts) contrasts.emplace_back(Contrast(colour, ground), count);
  std::sort(contrasts.rbegin(), contrasts.rend());
  int pixels = 0;
  for (const auto& [contrast, count] : contrasts) {
    pixels += count;
    if (pixels >= kStrayPixels) return contrast;
  }
  return 1;
}

double ChangedArea(const QImage& before, const QImage& after, double contrast) {
  if (before.size() != after.size()) return static_cast<double>(before.width()) * before.height();
  int changed = 0;
  for (int y = 0; y < before.height(); ++y) {
    const auto* a = reinterpret_cast<const QRgb*>(before.constScanLine(y));
    const auto* b = reinterpret_cast<const QRgb*>(after.constScanLine(y));
    for (int x = 0; x < before.width(); ++x)
      if (a[x] != b[x] && Contrast(a[x], b[x]) >= contrast) ++changed;
  }
  return changed / (before.devicePixelRatio() * before.devicePixelRatio());
}

double EdgeContrast(QWidget& window, const QRect& box, bool round) {
  const QRect part = box.adjusted(-kAroundPx, -kAroundPx, kAroundPx, kAroundPx) & window.rect();
  const QImage around = GrabPart(window, part);
  const double scale = around.devicePixelRatio();
  const QRect device((box.topLeft() - part.topLeft()) * scale, box.size() * scale);
  const QPoint right(device.width() - 1, 0);
  const QPoint down(0, device.height() - 1);
  const std::vector<int> at = round ? std::vector{2} : std::vector{1, 2, 3};
  const std::array<Side, 4> sides{Side{device.topLeft(), right, {0, 1}, at},
                                  Side{device.bottomLeft(), right, {0, -1}, at},
                                  Side{device.topLeft(), down, {1, 0}, at}, Side{device.topRight(), down, {-1, 0}, at}};
  std::optional<double> weakest;
  for (const Side& side : sides) {
    const auto contrast = ContrastOfSide(around, side, static_cast<int>(kAroundPx * scale));
    if (contrast) weakest = std::min(weakest.value_or(*contrast), *contrast);
  }
  return weakest.value_or(1);
}

}  // namespace kestrava::accessibility
