#include "BenchStation.h"

#include <QImage>
#include <algorithm>
#include <string>

#include <unistd.h>

#include "platform/Files.h"
#include "platform/Text.h"

namespace kestrava::bench {

namespace {

const std::string kData = KESTRAVA_DATA;

/// Names of the shipped sets, without their quotes.
std::vector<std::string> KnownNames(const orbit::OrbitEngine& engine) {
  std::vector<std::string> names = platform::SplitAt(engine.SatelliteNames(), ',');
  for (std::string& name : names) name = name.substr(1, name.size() - 2);
  return names;
}

std::unique_ptr<platform::qt::ImageSurface> Sprite(const std::string& name) {
  const QImage picture(QString::fromStdString(kData + "pictures/" + name + ".png"));
  return std::make_unique<platform::qt::ImageSurface>(picture);
}

}  // namespace

BenchStation::BenchStation(int favourites, int widthPx, int heightPx)
    : folder_(std::filesystem::temp_directory_path() / ("kestrava-bench-" + std::to_string(getpid()))),
      settings_(folder_, clock_),
      final_(widthPx, heightPx) {
  engine_.SetDataFolder(kData + "sample/");
  engine_.SetObserver({47.4, 8.5, 400});
  settings_.Set("Latitude", "47.4");
  settings_.Set("Longitude", "351.5");
  tables_.LocationName = "Home";
  const std::vector<std::string> names = KnownNames(engine_);
  tables_.FaveCount = static_cast<std::int16_t>(favourites);
  for (std::size_t i = 1; i <= static_cast<std::size_t>(favourites); ++i) {
    tables_.FaveList[i].Name = names[(i - 1) % names.size()];
  }
  tables_.SelSat = 1;
  LoadPictures();
  painter_ = std::make_unique<views2d::MapPainter>(tables_, map_, Surfaces(), window_);
  Plot();
  Track();
  SunAndMoon();
}

BenchStation::~BenchStation() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

platform::Doors BenchStation::AllDoors() {
  platform::Doors doors = platform::TheDoors();
  doors.clock = &clock_;
  doors.locale = &locale_;
  doors.files = &files_;
  doors.settings = &settings_;
  doors.eventLoop = &eventLoop_;
  doors.windows = windows_.get();
  return doors;
}

void BenchStation::LoadPictures() {
  world_.Load(QImage(QString::fromStdString(kData + "sample/Default.jpg")));
  sprites_[0] = Sprite("sun-mask");
  sprites_[1] = Sprite("sun-image");
  sprites_[2] = Sprite("moon-mask");
  sprites_[3] = Sprite("moon-image");
  for (std::size_t i = 0; i < 6; ++i) {
    sprites_[4 + 2 * i] = Sprite("sat" + std::to_string(i) + "-mask");
    sprites_[5 + 2 * i] = Sprite("sat" + std::to_string(i) + "-image");
  }
}

views2d::SpriteSet BenchStation::Sprites() const {
  views2d::SpriteSet set{*sprites_[0], *sprites_[1], *sprites_[2], *sprites_[3], {}, {}};
  for (std::size_t i = 0; i < views2d::kSatSprites; ++i) {
    set.SatMask[i] = sprites_[4 + 2 * i].get();
    set.SatPic[i] = sprites_[5 + 2 * i].get();
  }
  return set;
}

views2d::MapSurfaces BenchStation::Surfaces() {
  return {final_, world_, alpha_, Sprites()};
}

void BenchStation::Plot() {
  views2d::Gsatroutine(sky_, map_, window_);
}

void BenchStation::Tick() {
  clock_.AdvanceS(2);
  Plot();
  Paint();
}

}  // namespace kestrava::bench
