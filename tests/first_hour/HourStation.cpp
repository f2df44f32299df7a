#include "first_hour/HourStation.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSlider>
#include <QTextEdit>
#include <cmath>
#include <fstream>
#include <limits>
#include <optional>
#include <sstream>

#include "orbit/OrbitEngine.h"
#include "orbit/Satcalc.h"
#include "orbit/Tables.h"
#include "platform/Doors.h"
#include "store/FirstStart.h"

#include "support_qt/Shots.h"

namespace kestrava::first_hour {

namespace {

constexpr double kOffsetHours = 1;
constexpr platform::DateParts kStartUtc{2026, 11, 15, 11, 0, 0};  // day in Europe: the night does not tint the marks
constexpr int kMarkReachPx = 4;
constexpr QSize kThumb{64, 32};

std::string BytesOf(const std::filesystem::path& file) {
  std::ostringstream bytes;
  bytes << std::ifstream(file, std::ios::binary).rdbuf();
  return bytes.str();
}

std::string TextOf(const QListWidget& list) {
  std::string text;
  for (int row = 0; row < list.count(); ++row) {
    const QListWidgetItem& item = *list.item(row);
    if (item.data(Qt::CheckStateRole).isValid()) text += item.checkState() == Qt::Checked ? "1 " : "0 ";
    text += item.text().toStdString() + "\n";
  }
  return text;
}

/// Nothing for what shows no content.
std::optional<std::string> ContentOf(const QWidget& control) {
  if (const auto* combo = qobject_cast<const QComboBox*>(&control)) return combo->currentText().toStdString();
  if (const auto* line = qobject_cast<const QLineEdit*>(&control)) return line->text().toStdString();
  if (const auto* slider = qobject_cast<const QSlider*>(&control)) return std::to_string(slider->value());
  if (const auto* list = qobject_cast<const QListWidget*>(&control)) return TextOf(*list);
  if (const auto* label = qobject_cast<const QLabel*>(&control)) return label->text().toStdString();
  const auto* button = qobject_cast<const QAbstractButton*>(&control);
  if (button && button->isCheckable()) return button->isChecked() ? "1" : "0";
  return std::nullopt;
}

bool IsMarkGreen(QRgb pixel) {
  return qGreen(pixel) > 160 && qRed(pixel) < 90 && qBlue(pixel) < 90;
}

/// On a map of the whole world with Greenwich in its middle.
bool IsMarked(const QImage& map, double latitudeDeg, double longitudeDegEast) {
  const double east = longitudeDegEast > 180 ? longitudeDegEast - 360 : longitudeDegEast;
  const QPoint at(static_cast<int>(std::lround((east + 180) / 360 * map.width())),
                  static_cast<int>(std::lround((90 - latitudeDeg) / 180 * map.height())));
  const QRect around = QRect(at - QPoint(kMarkReachPx, kMarkReachPx), at + QPoint(kMarkReachPx, kMarkReachPx));
  for (int y = around.top(); y <= around.bottom(); ++y)
    for (int x = around.left(); x <= around.right(); ++x)
      if (map.rect().contains(x, y) && IsMarkGreen(map.pixel(x, y))) return true;
  return false;
}

QImage Thumb(const QImage& picture) {
  return picture.scaled(kThumb, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).convertToFormat(QImage::Format_RGB32);
}

double Distance(const QImage& a, const QImage& b) {
  double sum = 0;
  for (int y = 0; y < kThumb.height(); ++y) {
    for (int x = 0; x < kThumb.width(); ++x) {
      const QRgb p = a.pixel(x, y);
      const QRgb q = b.pixel(x, y);
      sum += std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q)) + std::abs(qBlue(p) - qBlue(q));
    }
  }
  return sum;
}

}  // namespace

HourStation::HourStation(const User& user, const std::filesystem::path& settingsFolder, VoiceRecord& voice,
                         const DataFolder& files)
    : user_(user),
      settingsFolder_(settingsFolder),
      station_([&voice] { return std::make_unique<HourVoice>(voice); }),
      settings_(settingsFolder, station_.House().clock),
      keys_(station_) {
  testing::ScriptedHouse& house = station_.House();
  house.clock.SetUtc(kStartUtc);
  house.clock.SetOffsetHours(kOffsetHours);
  for (const auto& [name, content] : files) house.Put(name, content);
  user_.decimalSign == ',' ? house.locale.UseComma() : house.locale.UsePoint();
  QLocale::setDefault(QLocale(user_.locale));
  platform::TheDoors().settings = &settings_;
  platform::TheDoors().messages = &messages_;
  // As the program does where there is nothing yet: a guess from the machine's zone.
  store::WriteFirstLocation({"Europe/Berlin", 52.5, 13.3667});
}

HourStation::~HourStation() {
  platform::TheDoors().settings = &station_.House().settings;
  QLocale::setDefault(localeBefore_);
}

DataFolder HourStation::Files() {
  DataFolder files;
  for (const std::string& name : station_.House().files.List(platform::AppDir))
    files[name] = station_.House().Content(name);
  return files;
}

UserFiles HourStation::FilesOfTheUser() {
  testing::ScriptedHouse& house = station_.House();
  return {house.Content("faves.dat"), house.Content("groups.dat"), house.Content("Locations.dat"),
          BytesOf(settingsFolder_ / "settings.conf")};
}

QString HourStation::Typed(const char* number) const {
  return QString(number).replace('.', QChar(user_.decimalSign));
}

Shown HourStation::Read(const QString& window) {
  Shown shown;
  for (const QWidget* control : keys_.Window(window).findChildren<QWidget*>()) {
    const QString name = control->objectName();
    if (name.isEmpty() || name.startsWith("qt_")) continue;
    if (const auto content = ContentOf(*control)) shown[name.toStdString()] = *content;
  }
  return shown;
}

SeenPlace HourStation::SeePlace(double latitudeDeg, double longitudeDegEast, double oldLatitudeDeg,
                                double oldLongitudeDegEast) {
  const QImage map = testing::Grab(keys_.In<QWidget>("WorldView", "Final"));
  SeenPlace seen;
  seen.marked = IsMarked(map, latitudeDeg, longitudeDegEast);
  seen.oldMarked = IsMarked(map, oldLatitudeDeg, oldLongitudeDegEast);
  seen.name = orbit::TheTables().LocationName;
  seen.latitudeDeg = orbit::Engine->ObserverLatitude();
  seen.longitudeDegEast = orbit::Engine->ObserverLongitude();
  seen.heightM = orbit::Engine->ObserverHeight();
  return seen;
}

std::string HourStation::PictureOf(const QString& window, const std::vector<std::string>& candidates) {
  const QImage seen = Thumb(testing::Grab(keys_.In<QWidget>(window, "Final")));
  std::string nearest;
  double least = std::numeric_limits<double>::max();
  for (const std::string& name : candidates) {
    const QImage picture(QString(KESTRAVA_SOURCE_DIR "data/sample/%1.jpg").arg(name.c_str()));
    const double distance = Distance(seen, Thumb(picture));
    if (distance >= least) continue;
    least = distance;
    nearest = name;
  }
  return nearest;
}

}  // namespace kestrava::first_hour
