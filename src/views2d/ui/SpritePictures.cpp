#include "SpritePictures.h"

#include <QImage>

#include "platform/Doors.h"
#include "platform/Fault.h"

namespace kestrava::views2d::ui {

using platform::qt::ImageSurface;

namespace {

/// A sprite with its finer variants: ":/pictures/sun-mask.png", "sun-mask@15.png" and "sun-mask@2.png".
std::unique_ptr<ImageSurface> Sprite(const QString& name) {
  const QString start = ":/pictures/" + name;
  auto surface = std::make_unique<ImageSurface>(QImage(start + ".png"));
  surface->AddVariant(QImage(start + "@15.png"), 1.5);
  surface->AddVariant(QImage(start + "@2.png"), 2);
  return surface;
}

}  // namespace

SpritePictures::SpritePictures()
    : sun_{Sprite("sun-mask"), Sprite("sun-image")}, moon_{Sprite("moon-mask"), Sprite("moon-image")} {
  for (std::size_t i = 0; i < kSatSprites; ++i) {
    satMask_[i] = Sprite(QString("sat%1-mask").arg(i));
    satPic_[i] = Sprite(QString("sat%1-image").arg(i));
  }
}

SpriteSet SpritePictures::Set() const {
  SpriteSet set{*sun_[0], *sun_[1], *moon_[0], *moon_[1], {}, {}};
  for (std::size_t i = 0; i < kSatSprites; ++i) {
    set.SatMask[i] = satMask_[i].get();
    set.SatPic[i] = satPic_[i].get();
  }
  return set;
}

QImage ReadPicture(const std::string& file) {
  const std::string bytes = platform::TheFiles().Read(file);
  const QImage picture = QImage::fromData(reinterpret_cast<const uchar*>(bytes.data()), static_cast<int>(bytes.size()));
  if (picture.isNull()) throw platform::Fault::InvalidPicture();
  return picture;
}

void LoadPicture(ImageSurface& surface, const std::string& file) {
  surface.Load(ReadPicture(file));
}

}  // namespace kestrava::views2d::ui
