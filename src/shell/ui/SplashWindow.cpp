#include "shell/ui/SplashWindow.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QScreen>

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Version.h"
#include "platform/qt/Fonts.h"
#include "platform/qt/Widgets.h"
#include "shell/FatalFault.h"
#include "shell/Shutdown.h"
#include "shell/ui/LauncherWindow.h"

namespace kestrava::shell::ui {

using platform::qt::Named;
using platform::qt::ToQt;

namespace {

constexpr QRect kVersionPlace(32, 106, 220, 18);  // dark sky in the picture

/// A picture of the resources in the finest variant that the screen's scale can use.
QPixmap ScaledPicture(const QString& name, const QString& ending, double scale) {
  const bool fine = scale > 1.5;
  const QString variant = scale <= 1 ? "" : (fine ? "@2" : "@15");
  QPixmap picture(":/pictures/" + name + variant + "." + ending);
  picture.setDevicePixelRatio(scale <= 1 ? 1 : (fine ? 2 : 1.5));
  return picture;
}

}  // namespace

SplashWindow::SplashWindow() : StationWindow(kSplashName) {
  BuildUi();
}

void SplashWindow::BuildUi() {
  // A plain window without a frame: one of the splash kind is not activated everywhere, and then the launcher waits.
  setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
  setWindowTitle(ToQt(platform::kProgramTitle));
  picture_ = ScaledPicture("splash", "jpg", devicePixelRatioF());
  const QSize size = picture_.isNull() ? QSize(480, 300) : picture_.deviceIndependentSize().toSize();
  setFixedSize(size);
  const QString version = ToQt("Version " + platform::LongVersion());
  auto* label = Named(new QLabel(version, this), "lblVersion", version);
  label->setFont(platform::qt::FontByName("Arial", 10, false));
  label->setStyleSheet("color: #dddddd; background: transparent;");
  label->setGeometry(kVersionPlace);
  if (const QScreen* screen = QGuiApplication::primaryScreen()) {
    move(screen->availableGeometry().center() - rect().center());
  }
}

void SplashWindow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor(0x12, 0x16, 0x1b));
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(rect(), picture_);
}

void SplashWindow::OnActivated() {
  if (launcherShown_) return;
  launcherShown_ = true;
  try {
    platform::YieldOnce();
    platform::TheWindows().Show(kLauncherName);
  } catch (const platform::Fault&) {
    // Nothing is told here; without a launcher there is no run.
    if (!platform::TheWindows().Find(kLauncherName)) platform::TheEventLoop().Quit(kFatalExitCode);
  }
}

}  // namespace kestrava::shell::ui
