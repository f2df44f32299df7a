#include "shell/ui/AboutWindow.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/Doors.h"
#include "platform/Version.h"
#include "platform/qt/Fonts.h"
#include "platform/qt/Widgets.h"
#include "shell/ui/LauncherWindow.h"

namespace kestrava::shell::ui {

using platform::qt::FontByName;
using platform::qt::Named;
using platform::qt::ToQt;

namespace {

constexpr int kIconPixels = 72;
constexpr int kWidthPixels = 430;
constexpr int kMarginPixels = 22;

constexpr auto kDescription =
    "A satellite tracking station for your desk: where your favourite satellites are now, where they will be, and when "
    "they next rise over your place.";
constexpr auto kEngineCredit =
    "Orbits by the published SGP4 and SDP4 models of F. R. Hoots and R. L. Roehrich (1980), in the form revised by "
    "D. A. Vallado, P. Crawford, R. Hujsak and T. S. Kelso (2006). "
    "Sun and Moon with the help of ERFA, the free library of fundamental astronomy.";

QLabel* Paragraph(const QString& text, const QString& objectName) {
  auto* label = Named(new QLabel(text), objectName);
  label->setWordWrap(true);
  label->setTextFormat(Qt::PlainText);
  return label;
}

}  // namespace

AboutWindow::AboutWindow() : StationWindow(kAboutName) {
  BuildUi();
  ApplySkin();
}

void AboutWindow::BuildUi() {
  setWindowTitle("About " + ToQt(platform::kProgramTitle));
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(kMarginPixels, kMarginPixels, kMarginPixels, kMarginPixels);
  row->setSpacing(kMarginPixels);
  auto* icon = Named(new QLabel, "picIcon", "Kestrava");
  icon->setPixmap(QIcon(":/pictures/kestrava.svg").pixmap(QSize(kIconPixels, kIconPixels), devicePixelRatioF()));
  row->addWidget(icon, 0, Qt::AlignTop);
  auto* column = new QVBoxLayout;
  column->setSpacing(8);
  BuildTexts(*column);
  BuildButtons(*column);
  row->addLayout(column, 1);
  setFixedWidth(kWidthPixels);
  setFixedHeight(row->totalHeightForWidth(kWidthPixels));
}

void AboutWindow::BuildTexts(QVBoxLayout& column) {
  auto* title = Named(new QLabel(ToQt(platform::kProgramTitle)), "lblTitle");
  title->setFont(FontByName("Interface", 18, true));
  column.addWidget(title);
  column.addWidget(Named(new QLabel(ToQt("Version " + platform::LongVersion())), "lblVersion"));
  column.addSpacing(6);
  column.addWidget(Paragraph(kDescription, "lblDescription"));
  column.addWidget(Paragraph(kEngineCredit, "lblDisclaimer"));
  column.addWidget(Paragraph("Free software under the GNU General Public License, version 3 or later.", "lblLicence"));
  column.addStretch(1);
}

void AboutWindow::BuildButtons(QVBoxLayout& column) {
  auto* buttons = new QHBoxLayout;
  auto* info = Named(new QPushButton("&System Info..."), "cmdSysInfo", "System information");
  auto* ok = Named(new QPushButton("OK"), "cmdOK", "OK");
  ok->setDefault(true);
  ok->setAutoDefault(true);
  buttons->addStretch(1);
  buttons->addWidget(info);
  buttons->addWidget(ok);
  column.addSpacing(6);
  column.addLayout(buttons);
  connect(info, &QPushButton::clicked, this, [this] { StartSysInfo(); });
  connect(ok, &QPushButton::clicked, this, [this] { Unload(); });
  ok->setFocus();
}

void AboutWindow::StartSysInfo() {
  platform::Windows& windows = platform::TheWindows();
  if (windows.Knows(kSystemInformationName)) {
    platform::RunUntrapped("System Info", [&] { windows.Show(kSystemInformationName); });
  } else {
    platform::TheMessages().Show("System Information Is Unavailable At This Time");
  }
}

}  // namespace kestrava::shell::ui
