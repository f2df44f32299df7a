#include "platform/qt/Fonts.h"

#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <algorithm>
#include <cmath>

#include "platform/Text.h"

namespace kestrava::platform::qt {
namespace {

constexpr double kPixelsPerPoint = 96.0 / 72.0;
constexpr int kInterfacePoints = 9;

constexpr const char* kInterfaceFamily = "Kestrava Sans";
constexpr const char* kSmallFamily = "Kestrava Narrow";
constexpr const char* kGrotesqueFamily = "Kestrava Grotesque";
constexpr const char* kFixedPitchFamily = "Kestrava Mono";

/// Reads the faces that the program carries in itself, once.
void LoadFaces() {
  static const bool loaded = [] {
    for (const QFileInfo& face : QDir(":/fonts").entryInfoList()) QFontDatabase::addApplicationFont(face.filePath());
    return true;
  }();
  static_cast<void>(loaded);
}

const char* FamilyByName(std::string_view name) {
  if (EqualsIgnoringCase(name, "Small fonts")) return kSmallFamily;
  if (EqualsIgnoringCase(name, "Arial")) return kGrotesqueFamily;
  if (EqualsIgnoringCase(name, "Lucida Console")) return kFixedPitchFamily;
  return kInterfaceFamily;
}

}  // namespace

QFont FontForScale(std::string_view name, int pointSize, bool bold, double scale) {
  LoadFaces();
  QFont font(FamilyByName(name));
  font.setPixelSize(std::max(1, static_cast<int>(std::lround(pointSize * kPixelsPerPoint * scale))));
  font.setBold(bold);
  font.setHintingPreference(QFont::PreferFullHinting);
  font.setStyleStrategy(QFont::NoSubpixelAntialias);
  return font;
}

QFont FontByName(std::string_view name, int pointSize, bool bold) {
  return FontForScale(name, pointSize, bold, 1.0);
}

QFont InterfaceFont() {
  LoadFaces();
  QFont font(kInterfaceFamily);
  font.setPixelSize(static_cast<int>(std::lround(kInterfacePoints * kPixelsPerPoint)));
  return font;
}

}  // namespace kestrava::platform::qt
