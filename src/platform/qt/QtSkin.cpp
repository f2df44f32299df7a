#include "platform/qt/QtSkin.h"

#include <QPainter>
#include <algorithm>
#include <array>

#include "platform/qt/ImageSurface.h"
#include "platform/qt/Theme.h"

namespace kestrava::platform::qt {
namespace {

constexpr int kEdgePx = 6;          // of the finest picture
constexpr int kColourfulFrom = 36;  // difference of the channels from which a pixel of the edge counts as coloured

QColor FromColour(Colour colour) {
  return QColor::fromRgb(ToRgb(colour));
}

/// The coloured pixels of the picture's outermost edge, in the accent's hue and their own brightness.
void ColourEdge(QImage& picture, const QColor& accent) {
  for (int y = 0; y < picture.height(); ++y) {
    auto* row = reinterpret_cast<QRgb*>(picture.scanLine(y));
    const bool edgeRow = y < kEdgePx || y >= picture.height() - kEdgePx;
    for (int x = 0; x < picture.width(); ++x) {
      if (!edgeRow && x >= kEdgePx && x < picture.width() - kEdgePx) continue;
      const auto [low, high] = std::minmax({qRed(row[x]), qGreen(row[x]), qBlue(row[x])});
      if (high - low < kColourfulFrom) continue;
      row[x] = QColor::fromHsv(accent.hue(), accent.saturation() * (high - low) / high, high).rgb();
    }
  }
}

/// The frame picture that fits the screen's scale.
const char* FrameFile(double scale) {
  if (scale > 1.75) return ":/pictures/skin-frame@2.png";
  return scale > 1.2 ? ":/pictures/skin-frame@15.png" : ":/pictures/skin-frame.png";
}

/// Where a picture is cut for stretching: outer pieces are kept, cropped at their inner side where room is short.
struct Cuts {
  std::array<double, 4> source;
  std::array<int, 4> target;
};

/// @param designLength,piece  of the picture in logical pixels, of which each is `scale` of its own
Cuts CutsOf(int designLength, int piece, double scale, int targetStart, int targetLength) {
  const int kept = std::min({piece, designLength / 2, targetLength / 2});
  return {{0, kept * scale, (designLength - kept) * scale, designLength * scale},
          {targetStart, targetStart + kept, targetStart + targetLength - kept, targetStart + targetLength}};
}

}  // namespace

void QtSkin::SetColours(Colour first, Colour second, Colour third) {
  accent_ = first;
  light_ = second;
  shade_ = third;
}

void QtSkin::SetFontsFromWindow() {
  // Both fonts are the window's own, and its controls take theirs from it.
}

void QtSkin::Apply(const SkinLayout& layout) {
  layout_ = layout;
  QImage picture(FrameFile(window_.devicePixelRatioF()));
  if (!picture.isNull()) {
    picture = picture.convertToFormat(QImage::Format_RGB32);
    ColourEdge(picture, FromColour(accent_));
  }
  picture_ = QPixmap::fromImage(picture);
  applied_ = true;
  window_.update();
}

Colour QtSkin::BackgroundColour() const {
  return FromRgb(Tones().window.rgb());
}

void QtSkin::Paint(QPainter& painter, const QRect& area) const {
  if (!applied_) return;
  if (picture_.isNull()) {
    PaintPlainFrame(painter, area);
  } else {
    PaintPicture(painter, area);
  }
}

void QtSkin::PaintPicture(QPainter& painter, const QRect& area) const {
  const double scale = static_cast<double>(picture_.width()) / layout_.sourceWidth;
  const Cuts across = CutsOf(layout_.sourceWidth, layout_.pieces[0], scale, area.left(), area.width());
  const Cuts down = CutsOf(layout_.sourceHeight, layout_.pieces[1], scale, area.top(), area.height());
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t j = 0; j < 3; ++j) {
      const QRectF to(QPointF(across.target[i], down.target[j]), QPointF(across.target[i + 1], down.target[j + 1]));
      const QRectF from(QPointF(across.source[i], down.source[j]), QPointF(across.source[i + 1], down.source[j + 1]));
      if (!to.isEmpty()) painter.drawPixmap(to, picture_, from);
    }
  }
}

void QtSkin::PaintPlainFrame(QPainter& painter, const QRect& area) const {
  painter.fillRect(area, Tones().window);
  painter.setPen(FromColour(shade_));
  painter.drawRect(area.adjusted(0, 0, -1, -1));
  painter.setPen(FromColour(accent_));
  const int length = std::min(area.width(), area.height()) / 6;
  painter.drawLine(area.topLeft(), area.topLeft() + QPoint(length, 0));
  painter.drawLine(area.bottomRight() - QPoint(length, 0), area.bottomRight());
}

}  // namespace kestrava::platform::qt
