// A map window without its window: the real engine over the shipped element sets, the real settings store in a folder
// of its own, the real surfaces and pictures; a clock that a bench moves.
#pragma once

#include <array>
#include <filesystem>
#include <memory>
#include <string>

#include "orbit/OrbitEngine.h"
#include "orbit/Satcalc.h"
#include "platform/Doors.h"
#include "platform/linux/PosixFiles.h"
#include "platform/linux/XdgSettings.h"
#include "platform/qt/ImageSurface.h"
#include "platform/qt/QtEventLoop.h"
#include "views2d/MapPainter.h"
#include "views2d/SatellitePlot.h"

namespace kestrava::bench {

/// Noon of 15 November 2026, beside the epochs of the shipped sets, unless it is moved.
class BenchClock : public platform::Clock {
 public:
  platform::ClockReading Read() override { return {now_, now_}; }
  void AdvanceS(double seconds) { now_ += seconds / platform::kSecondsPerDay; }

 private:
  platform::SerialDate now_ = platform::MakeSerial({2026, 11, 15, 12, 0, 0});
};

class PointLocale : public platform::MachineLocale {
 public:
  std::string DecimalSign() const override { return "."; }
  std::string GroupSign() const override { return ","; }
  std::string DateText(platform::SerialDate) const override { return {}; }
  std::string TimeText(platform::SerialDate) const override { return {}; }
};

class BenchWindow : public views2d::MapHost, public views2d::PaintHost {
 public:
  void RemoteStatChanged(int) override {}
  void ShowWarpTime(platform::SerialDate) override {}
  void SelectFavourite(int) override {}
  bool IsOpen() const override { return true; }
  views2d::MapWindowPlace PlaceToStore() const override { return {200, 200, 21000, 12000, true, 800}; }
};

class BenchStation {
 public:
  /// @param favourites  taken from the shipped sets in the order of their files, over again if there are fewer
  BenchStation(int favourites, int widthPx, int heightPx);
  ~BenchStation();
  BenchStation(const BenchStation&) = delete;
  BenchStation& operator=(const BenchStation&) = delete;

  /// What Timer1 does for the picture: two seconds on, all places, one paint.
  void Tick();
  void Plot();
  void Paint() { painter_->RepaintMapScreen(); }
  void Track() { views2d::CalcGroundTrack(sky_, map_); }
  void SunAndMoon() { views2d::CalcSunMoon(sky_, map_, window_); }
  BenchClock& Clock() { return clock_; }
  const orbit::Sky& Sky() const { return sky_; }
  views2d::SpriteSet Sprites() const;
  bool SavePicture(const std::string& file) const { return final_.Image().save(QString::fromStdString(file)); }

 private:
  platform::Doors AllDoors();
  views2d::MapSurfaces Surfaces();
  void LoadPictures();

  std::filesystem::path folder_;
  BenchClock clock_;
  PointLocale locale_;
  platform::PosixFiles files_;
  platform::XdgSettings settings_;
  platform::qt::QtEventLoop eventLoop_;
  std::unique_ptr<platform::Windows> windows_ = platform::MakeWindows();
  platform::ScopedDoors doors_{AllDoors()};

  orbit::Tables tables_;
  orbit::OrbitEngine engine_;
  orbit::Sky sky_{tables_, engine_};
  views2d::MapState map_;
  BenchWindow window_;
  platform::qt::ImageSurface final_;
  platform::qt::ImageSurface world_{0, 0};
  platform::qt::ImageSurface alpha_{views2d::kAlphaWidth, views2d::kAlphaHeight, 1,
                                    platform::qt::ImageSurface::Kind::kMask};
  std::array<std::unique_ptr<platform::qt::ImageSurface>, 16> sprites_;  // Sun, Moon, six satellites: mask, image
  std::unique_ptr<views2d::MapPainter> painter_;
};

}  // namespace kestrava::bench
