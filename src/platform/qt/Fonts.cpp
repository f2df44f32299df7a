#include "platform/qt/Fonts.h"

#include <QFontDatabase>
#include <QStringList>
#include <algorithm>
#include <cmath>

#include "platform/Text.h"

namespace kestrava::platform::qt {
namespace {

constexpr double kPixelsPerPoint = 96.0 / 72.0;
constexpr int kInterfacePoints = 9;

QString FirstInstalled(const QStringList& families) {
  const QStringList installed = QFontDatabase::families();
  for (const QString& family : families) {
    if (installed.contains(family)) return family;
  }
  return families.last();
}

QString SmallFamily() {
  static const QString family = FirstInstalled({"DejaVu Sans Condensed", "DejaVu Sans"});
  return family;
}

QString GrotesqueFamily() {
  static const QString family = FirstInstalled({"Liberation Sans", "DejaVu Sans"});
  return family;
}

QString InterfaceFamily() {
  static const QString family = FirstInstalled({"DejaVu Sans", "Liberation Sans"});
  return family;
}

QString FixedPitchFamily() {
  static const QString family = FirstInstalled({"Lucida Console", "DejaVu Sans Mono", "Liberation Mono",
                                                QFontDatabase::systemFont(QFontDatabase::FixedFont).family()});
  return family;
}

QString FamilyByName(std::string_view name) {
  if (EqualsIgnoringCase(name, "Small fonts")) return SmallFamily();
  if (EqualsIgnoringCase(name, "Arial")) return GrotesqueFamily();
  if (EqualsIgnoringCase(name, "Lucida Console")) return FixedPitchFamily();
  return InterfaceFamily();
}

}  // namespace

QFont FontForScale(std::string_view name, int pointSize, bool bold, double scale) {
  QFont font(FamilyByName(name));
  if (EqualsIgnoringCase(name, "Small fonts")) font.setStretch(QFont::SemiCondensed);
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
  QFont font(InterfaceFamily());
  font.setPixelSize(static_cast<int>(std::lround(kInterfacePoints * kPixelsPerPoint)));
  return font;
}

}  // namespace kestrava::platform::qt
