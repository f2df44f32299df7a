#include "MachineFacts.h"

#include <QApplication>
#include <QFontDatabase>
#include <QLocale>
#include <QProxyStyle>
#include <QScreen>
#include <QStyle>
#include <QSysInfo>
#include <QTimeZone>

#include "platform/Version.h"
#include "platform/qt/Theme.h"
#include "platform/qt/Widgets.h"

namespace kestrava::shell::ui {

using platform::qt::FromQt;

namespace {

std::string OrNone(const QString& text) {
  return text.isEmpty() ? "none" : FromQt(text);
}

std::string ScreenText(const QScreen& screen) {
  const QSize size = screen.size();
  return FromQt(QString("%1 x %2 at %3,%4, scale %5, %6 dpi, %7 bit, %8 Hz")
                    .arg(size.width())
                    .arg(size.height())
                    .arg(screen.geometry().x())
                    .arg(screen.geometry().y())
                    .arg(screen.devicePixelRatio())
                    .arg(qRound(screen.logicalDotsPerInch()))
                    .arg(screen.depth())
                    .arg(qRound(screen.refreshRate())));
}

/// A style sheet hides the style's own name; its class tells it all the same. The plain look is the desktop's own style
/// with a thin layer upon it.
std::string StyleName() {
  const QStyle* style = QApplication::style();
  if (const auto* layer = qobject_cast<const QProxyStyle*>(style)) style = layer->baseStyle();
  return style->name().isEmpty() ? style->metaObject()->className() : FromQt(style->name());
}

std::string FontText(const QFont& font) {
  const int size = font.pixelSize() > 0 ? font.pixelSize() : font.pointSize();
  return FromQt(font.family()) + ", " + std::to_string(size) + (font.pixelSize() > 0 ? " pixels" : " points");
}

}  // namespace

ReportPage ProgramPage() {
  return {"program",
          "Program",
          {{"Kestrava", platform::LongVersion()},
           {"Qt", std::string(qVersion()) + ", built with " + QT_VERSION_STR},
           {"Compiler", __VERSION__},
           {"Build", OrNone(QSysInfo::buildAbi())},
           {"Program file", FromQt(QCoreApplication::applicationFilePath())}}};
}

ReportPage SystemPage() {
  return {"system",
          "System",
          {{"System", FromQt(QSysInfo::prettyProductName())},
           {"Kernel", FromQt(QSysInfo::kernelType() + " " + QSysInfo::kernelVersion())},
           {"Processor", FromQt(QSysInfo::currentCpuArchitecture())},
           {"Desktop", OrNone(qEnvironmentVariable("XDG_CURRENT_DESKTOP"))},
           {"Language", FromQt(QLocale::system().name())},
           {"Time zone", OrNone(QString::fromUtf8(QTimeZone::systemTimeZoneId()))}}};
}

ReportPage GraphicsPage() {
  ReportPage page{"graphics",
                  "Graphics",
                  {{"Window system", FromQt(QGuiApplication::platformName())},
                   {"Style", StyleName()},
                   {"Skin", platform::qt::SkinIsOn() ? "on" : "off"},
                   {"Face of the controls", FontText(QApplication::font())},
                   {"Faces installed", std::to_string(QFontDatabase::families().size())}}};
  for (const QScreen* screen : QGuiApplication::screens()) {
    page.lines.emplace_back("Screen " + FromQt(screen->name()), ScreenText(*screen));
  }
  return page;
}

}  // namespace kestrava::shell::ui
