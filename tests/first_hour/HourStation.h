// The station of the first hour, with its user: one run of the program from the splash to the closed launcher.
#pragma once

#include <QImage>
#include <QLocale>
#include <filesystem>
#include <map>
#include <string>

#include "platform/linux/XdgSettings.h"
#include "platform/qt/QtDoors.h"

#include "first_hour/FirstHour.h"
#include "first_hour/Keyboard.h"

namespace kestrava::first_hour {

/// What lies in the data folder, by name.
using DataFolder = std::map<std::string, std::string>;

class HourStation {
 public:
  /// @param settingsFolder  outlives this object
  HourStation(const User& user, const std::filesystem::path& settingsFolder, VoiceRecord& voice,
              const DataFolder& files);
  ~HourStation();
  HourStation(const HourStation&) = delete;
  HourStation& operator=(const HourStation&) = delete;

  void Start() { station_.Start(); }
  Keyboard& Keys() { return keys_; }
  robot::RobotStation& Station() { return station_; }
  DataFolder Files();
  UserFiles FilesOfTheUser();

  /// A number with a point, as this user writes it.
  QString Typed(const char* number) const;
  /// What the controls of a window show, by their names.
  Shown Read(const QString& window);
  /// The open map and the engine. A place has its longitude positive to the east.
  SeenPlace SeePlace(double latitudeDeg, double longitudeDegEast, double oldLatitudeDeg, double oldLongitudeDegEast);
  /// The shipped picture that a window's canvas looks most alike.
  std::string PictureOf(const QString& window, const std::vector<std::string>& candidates);

 private:
  User user_;
  QLocale localeBefore_;
  std::filesystem::path settingsFolder_;
  robot::RobotStation station_;
  platform::XdgSettings settings_;
  platform::qt::QtMessages messages_;
  Keyboard keys_;
};

}  // namespace kestrava::first_hour
