#include "LabelCache.h"

#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QString>
#include <algorithm>
#include <utility>

namespace kestrava::platform::qt {
namespace {

constexpr std::size_t kGenerationBytes = 24u << 20;  // 499 names at 200 % are 13 MB
constexpr std::uint32_t kHaloOpacity = 190;          // of 255

bool IsLight(std::uint32_t rgb) {
  const std::uint32_t red = (rgb >> 16) & 0xff;
  const std::uint32_t green = (rgb >> 8) & 0xff;
  const std::uint32_t blue = rgb & 0xff;
  return red * 299 + green * 587 + blue * 114 > 127500;
}

/// How much of each pixel the text covers, 0..255.
std::vector<std::uint8_t> Coverage(const QString& text, const QFont& font, int width, int height, int margin,
                                   int ascent) {
  QImage picture(width, height, QImage::Format_RGB32);
  picture.fill(Qt::black);
  QPainter painter(&picture);
  painter.setFont(font);
  painter.setPen(Qt::white);
  painter.drawText(margin, margin + ascent, text);
  painter.end();
  std::vector<std::uint8_t> coverage;
  coverage.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  for (int y = 0; y < height; ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
    for (int x = 0; x < width; ++x) coverage.push_back(static_cast<std::uint8_t>(qGreen(row[x])));
  }
  return coverage;
}

/// The greatest coverage within `reach` pixels, row by row and then column by column.
std::vector<std::uint8_t> Widen(const std::vector<std::uint8_t>& coverage, int width, int height, int reach) {
  const auto at = [width](int x, int y) {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
  };
  std::vector<std::uint8_t> across(coverage.size());
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      for (int i = std::max(0, x - reach); i <= std::min(width - 1, x + reach); ++i) {
        across[at(x, y)] = std::max(across[at(x, y)], coverage[at(i, y)]);
      }
    }
  }
  std::vector<std::uint8_t> both(coverage.size());
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      for (int i = std::max(0, y - reach); i <= std::min(height - 1, y + reach); ++i) {
        both[at(x, y)] = std::max(both[at(x, y)], across[at(x, i)]);
      }
    }
  }
  return both;
}

std::uint32_t PremultipliedOver(std::uint32_t rgb, std::uint32_t cover, std::uint32_t haloTone,
                                std::uint32_t haloCover) {
  const std::uint32_t haloAlpha = haloCover * kHaloOpacity / 255;
  const std::uint32_t under = haloAlpha * (255 - cover) / 255;
  const auto channel = [&](int shift) {
    return std::min(255u, ((rgb >> shift) & 0xff) * cover / 255 + haloTone * under / 255) << shift;
  };
  return (std::min(255u, cover + under) << 24) | channel(16) | channel(8) | channel(0);
}

}  // namespace

Label RenderLabel(std::string_view text, std::uint32_t rgb, const QFont& font, int haloPixels) {
  const QString string = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  const QFontMetrics metrics(font);
  Label label;
  label.margin = haloPixels + 1;
  label.width =
      std::max(metrics.horizontalAdvance(string), metrics.boundingRect(string).right() + 1) + 2 * label.margin;
  label.height = metrics.height() + 2 * label.margin;
  const auto cover = Coverage(string, font, label.width, label.height, label.margin, metrics.ascent());
  const auto halo = Widen(cover, label.width, label.height, haloPixels);
  const std::uint32_t haloTone = IsLight(rgb) ? 0 : 255;
  label.pixels.resize(cover.size());
  for (std::size_t i = 0; i < cover.size(); ++i) {
    label.pixels[i] = PremultipliedOver(rgb, cover[i], haloTone, haloPixels > 0 ? halo[i] : 0);
  }
  return label;
}

const Label& LabelCache::Get(std::string_view text, std::uint32_t look, std::uint32_t rgb, const QFont& font,
                             int haloPixels) {
  const KeyView key{text, (static_cast<std::uint64_t>(look) << 32) | rgb};
  if (const auto found = recent_.find(key); found != recent_.end()) return found->second;
  if (recentBytes_ > kGenerationBytes) NextPicture();
  if (const auto old = earlier_.find(key); old != earlier_.end()) {
    recentBytes_ += old->second.pixels.size() * sizeof(std::uint32_t);
    return recent_.insert(earlier_.extract(old)).position->second;
  }
  ++renderCount_;
  Label label = RenderLabel(text, rgb, font, haloPixels);
  recentBytes_ += label.pixels.size() * sizeof(std::uint32_t);
  return recent_.emplace(Key{std::string(text), key.look}, std::move(label)).first->second;
}

void LabelCache::NextPicture() {
  earlier_ = std::exchange(recent_, {});
  recentBytes_ = 0;
}

void LabelCache::Clear() {
  recent_.clear();
  earlier_.clear();
  recentBytes_ = 0;
}

}  // namespace kestrava::platform::qt
