#include "platform/qt/ImageSurface.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstring>

#include "platform/qt/Fonts.h"

#include "LabelCache.h"
#include "Raster.h"
#include "StretchCache.h"

namespace kestrava::platform::qt {
namespace {

constexpr double kFarOff = 1e6;  // logical pixels; anything beyond is as far off as this
constexpr int kGreatestSide = 16384;

std::uint64_t NextId() {
  static std::uint64_t last = 0;
  return ++last;
}

PixelOp OpOf(RasterOp op) {
  if (op == RasterOp::kSrcAnd) return PixelOp::kAnd;
  return op == RasterOp::kSrcPaint ? PixelOp::kOr : PixelOp::kCopy;
}

/// No number counts as far off the surface.
double Tame(double coordinate) {
  return std::isnan(coordinate) ? -kFarOff : std::clamp(coordinate, -kFarOff, kFarOff);
}

}  // namespace

QRgb ToRgb(Colour colour) {
  return 0xff000000u | ((colour & 0xff) << 16) | (colour & 0xff00) | ((colour >> 16) & 0xff);
}

Colour FromRgb(QRgb rgb) {
  return ((rgb & 0xff) << 16) | (rgb & 0xff00) | ((rgb >> 16) & 0xff);
}

ImageSurface::ImageSurface(int width, int height, double scale, Kind kind)
    : kind_(kind),
      id_(NextId()),
      labels_(std::make_unique<LabelCache>()),
      worker_(std::make_unique<RasterWorker>()),
      stretched_(std::make_unique<StretchCache>()) {
  Allocate(width, height, scale);
  SetFont("Small fonts", 8, false);
}

ImageSurface::ImageSurface(const QImage& picture) : ImageSurface(0, 0) {
  Load(picture);
}

ImageSurface::~ImageSurface() = default;

void ImageSurface::Allocate(int width, int height, double scale) {
  scale_ = scale > 0 ? scale : 1;
  width_ = std::clamp(width, 0, kGreatestSide);
  height_ = std::clamp(height, 0, kGreatestSide);
  const int w = Device(width_);
  const int h = Device(height_);
  pixels_.assign(static_cast<std::size_t>(w) * static_cast<std::size_t>(h), 0xff000000u);
  image_ = Canvas();
  Touch();
}

/// The toolkit's picture around our own pixels. A fresh one for each use of a painter: one that somebody has copied
/// would detach from them.
QImage ImageSurface::Canvas() {
  if (pixels_.empty()) return {};
  const PixelView view = View();
  QImage canvas(reinterpret_cast<uchar*>(view.bits), view.width, view.height, qsizetype{view.width} * 4,
                QImage::Format_RGB32);
  canvas.setDevicePixelRatio(scale_);
  return canvas;
}

void ImageSurface::Resize(int width, int height, double scale) {
  if (width == width_ && height == height_ && scale == scale_) return;
  const bool rescaled = scale != scale_;
  const Face now = faces_[face_];
  Allocate(width, height, scale);
  if (!rescaled) return;
  faces_.clear();
  labels_->Clear();
  SetFont(now.name, now.pointSize, now.bold);
}

void ImageSurface::Load(const QImage& picture) {
  Allocate(picture.width(), picture.height(), 1);
  variants_.clear();
  const QImage plain = picture.convertToFormat(QImage::Format_RGB32);
  for (int y = 0; y < height_; ++y) {
    std::uint32_t* to = View().Row(y);
    std::memcpy(to, plain.constScanLine(y), static_cast<std::size_t>(width_) * 4);
    for (int x = 0; x < width_; ++x) to[x] |= 0xff000000u;
  }
}

void ImageSurface::AddVariant(const QImage& picture, double scale) {
  QImage plain = picture.convertToFormat(QImage::Format_RGB32);
  plain.setDevicePixelRatio(1);
  variants_.push_back({scale, plain});
  std::sort(variants_.begin(), variants_.end(), [](const Variant& a, const Variant& b) { return a.scale < b.scale; });
  Touch();
}

int ImageSurface::RenderCount() const {
  return labels_->RenderCount();
}

int ImageSurface::StretchCount() const {
  return stretched_->StretchCount();
}

int ImageSurface::Device(double logical) const {
  return static_cast<int>(std::lround(Tame(logical) * scale_));
}

DeviceRect ImageSurface::ToDevice(const PixelRect& rect) const {
  return {Device(rect.left), Device(rect.top), Device(static_cast<double>(rect.left) + rect.width),
          Device(static_cast<double>(rect.top) + rect.height)};
}

PixelView ImageSurface::View() const {
  return {pixels_.data(), Device(width_), Device(height_)};
}

/// The content at another surface's scale, without smoothing: masks and sprites must keep pure colours to be joined bit
/// by bit.
PixelView ImageSurface::ViewAt(double scale) const {
  if (scale == scale_) return View();
  if (rescaled_.scale != scale || rescaled_.revision != revision_) {
    const QImage* best = &image_;
    for (const Variant& variant : variants_) {
      best = &variant.picture;
      if (variant.scale >= scale) break;
    }
    rescaled_.scale = scale;
    rescaled_.revision = revision_;
    rescaled_.width = static_cast<int>(std::lround(width_ * scale));
    rescaled_.height = static_cast<int>(std::lround(height_ * scale));
    rescaled_.pixels.assign(static_cast<std::size_t>(rescaled_.width) * static_cast<std::size_t>(rescaled_.height), 0);
    auto* to = rescaled_.pixels.data();
    for (int y = 0; y < rescaled_.height; ++y) {
      const auto* row = reinterpret_cast<const QRgb*>(
          best->constScanLine(static_cast<int>((y + 0.5) * best->height() / rescaled_.height)));
      for (int x = 0; x < rescaled_.width; ++x) {
        *to++ = row[static_cast<int>((x + 0.5) * best->width() / rescaled_.width)] | 0xff000000u;
      }
    }
  }
  return {rescaled_.pixels.data(), rescaled_.width, rescaled_.height};
}

void ImageSurface::Clear(Colour colour) {
  std::fill(pixels_.begin(), pixels_.end(), ToRgb(colour));
  labels_->NextPicture();
  Touch();
}

void ImageSurface::SetFont(std::string_view name, int pointSize, bool bold) {
  for (std::size_t i = 0; i < faces_.size(); ++i) {
    if (faces_[i].name == name && faces_[i].pointSize == pointSize && faces_[i].bold == bold) {
      face_ = i;
      return;
    }
  }
  const QFont font = FontForScale(name, pointSize, bold, scale_);
  faces_.push_back({std::string(name), pointSize, bold, scale_, font, QFontMetrics(font).height() / scale_});
  face_ = faces_.size() - 1;
}

void ImageSurface::DrawPoint(double x, double y) {
  x_ = x;
  y_ = y;
  if (!Marks()) return;
  const int side = std::max(1, Device(lineWidth_));
  const int half = lineWidth_ / 2;  // of an odd width the smaller half: it stands around its pixel
  const int left = Device(x - half);
  const int top = Device(y - half);
  FillRect(View(), {left, top, left + side, top + side}, pen_);
  Touch();
}

void ImageSurface::LineTo(double x, double y) {
  const double fromX = Tame(x_);
  const double fromY = Tame(y_);
  x_ = x;
  y_ = y;
  if (!Marks() || image_.isNull()) return;
  Touch();
  if (kind_ == Kind::kMask) {
    DrawSolidLine(View(), fromX * scale_, fromY * scale_, Tame(x) * scale_, Tame(y) * scale_,
                  std::max(1, Device(lineWidth_)), pen_);
    return;
  }
  QImage canvas = Canvas();
  QPainter painter(&canvas);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(QColor::fromRgb(pen_), lineWidth_, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(fromX, fromY), QPointF(Tame(x), Tame(y)));
}

void ImageSurface::DrawCircle(double x, double y, double radius) {
  x_ = x;
  y_ = y;
  if (!Marks() || image_.isNull()) return;
  Touch();
  QImage canvas = Canvas();
  QPainter painter(&canvas);
  painter.setRenderHint(QPainter::Antialiasing, kind_ == Kind::kPicture);
  painter.setPen(QPen(QColor::fromRgb(pen_), lineWidth_));
  painter.drawEllipse(QPointF(Tame(x), Tame(y)), Tame(radius), Tame(radius));
}

double ImageSurface::LineHeight() const {
  return faces_[face_].lineHeightPx;
}

double ImageSurface::TextWidth(std::string_view text) const {
  const QString string = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  return QFontMetrics(faces_[face_].font).horizontalAdvance(string) / scale_;
}

void ImageSurface::Print(std::string_view text) {
  PrintHere(text);
  x_ = 0;
  y_ += LineHeight();
}

void ImageSurface::PrintHere(std::string_view text) {
  if (!Marks() || text.empty()) return;
  const int halo = kind_ == Kind::kPicture ? std::max(1, Device(1)) : 0;
  const Label& label = labels_->Get(text, static_cast<std::uint32_t>(face_), pen_, faces_[face_].font, halo);
  BlendOver(View(), Device(x_) - label.margin, Device(y_) - label.margin, label.View());
  Touch();
}

void ImageSurface::BitBlt(const PixelRect& target, const Surface& source, int sourceX, int sourceY, RasterOp op) {
  const auto* from = dynamic_cast<const ImageSurface*>(&source);
  if (from == nullptr) return;
  Blit(View(), ToDevice(target), from->ViewAt(scale_), Device(sourceX), Device(sourceY), OpOf(op));
  Touch();
}

int ImageSurface::StretchBlt(const PixelRect& target, const Surface& source, const PixelRect& from, RasterOp op) {
  const auto* picture = dynamic_cast<const ImageSurface*>(&source);
  const DeviceRect to = ToDevice(target);
  if (picture == nullptr || picture->image_.isNull() || to.Empty() || from.width <= 0 || from.height <= 0) return 0;
  const PixelView stretched =
      stretched_->Get(*picture, from, to.right - to.left, to.bottom - to.top, op == RasterOp::kSrcCopy);
  Blit(View(), to, stretched, 0, 0, OpOf(op));
  Touch();
  return 1;
}

void ImageSurface::FloodFill(double x, double y, Colour border) {
  if (!Marks()) return;
  worker_->FloodFill(View(), Device(x), Device(y), ToRgb(border), fill_);
  Touch();
}

void ImageSurface::AlphaBlend(const PixelRect& target, const Surface& source, const PixelRect& from,
                              std::uint32_t blendFunction) {
  const auto* picture = dynamic_cast<const ImageSurface*>(&source);
  const DeviceRect to = ToDevice(target);
  if (picture == nullptr || to.Empty() || from.width <= 0 || from.height <= 0) return;
  const double s = picture->scale_;
  worker_->AlphaStretch(View(), to, picture->View(), {from.left * s, from.top * s, from.width * s, from.height * s},
                        (blendFunction >> 16) & 0xff);
  Touch();
}

}  // namespace kestrava::platform::qt
