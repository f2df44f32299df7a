#include "shell/ui/LauncherWindow.h"

#include <QLabel>
#include <QPointer>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Files.h"
#include "platform/Messages.h"
#include "platform/Settings.h"
#include "platform/qt/Fonts.h"
#include "platform/qt/LaterWindows.h"
#include "platform/qt/LedClockWidget.h"
#include "platform/qt/SkinButton.h"
#include "platform/qt/Theme.h"
#include "platform/qt/Widgets.h"
#include "predict/JobWindows.h"
#include "shell/FirstMapPlace.h"
#include "shell/FloppyTransfer.h"
#include "shell/Menus.h"
#include "shell/Shutdown.h"
#include "shell/ui/MenuWindow.h"

#include "PictureLink.h"

namespace kestrava::shell::ui {

using platform::qt::ArrayName;
using platform::qt::FontByName;
using platform::qt::Named;
using platform::qt::PixelsToTwips;
using platform::qt::ToQt;
using platform::qt::TwipsToPixels;

namespace {

constexpr int kPanelWidthTwips = 2415;
constexpr int kPanelHeightTwips = 8130;
constexpr int kTimer1Ms = 1000;
constexpr int kTextPoints = 8;
constexpr int kGapPixels = 6;

constexpr const char* kDemonstration = "demonstration elements";
constexpr std::string_view kUpdateWindow = "frmCONUpdates";

TwipsArea ToTwips(const QRect& area) {
  return {PixelsToTwips(area.left()), PixelsToTwips(area.top()), PixelsToTwips(area.width()),
          PixelsToTwips(area.height())};
}

/// All open windows follow the theme by themselves.
void FollowSkinSetting() {
  if (platform::qt::SkinIsOn() != platform::ReadSwitch("Skin", "1")) platform::qt::ApplyThemeFromSettings();
}

}  // namespace

LauncherWindow::LauncherWindow(LauncherSetup setup)
    : StationWindow(kLauncherName),
      shipped_(setup.shipped),
      firstStart_(setup.firstStart),
      launcher_(*this, orbit::TheTables(), std::move(setup)) {
  BuildUi();
  ConnectSignals();
  ShowLook();
}

LauncherWindow::~LauncherWindow() {
  LeaveHub();
}

/// From here on nobody asks this window for anything.
void LauncherWindow::LeaveHub() {
  if (&station::TheHub() == this) station::UseHub(nullptr);
}

void LauncherWindow::BuildUi() {
  setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                 Qt::WindowCloseButtonHint);
  setWindowTitle(ToQt(platform::kProgramTitle));
  setFont(FontByName("Arial", kTextPoints, false));
  const ButtonPlace first = PlaceOfButton(0);
  auto* column = new QVBoxLayout(this);
  const int side = TwipsToPixels(first.left);
  column->setContentsMargins(side, side, side, side);
  column->setSpacing(0);
  BuildHead(*column);
  BuildButtons(*column);
  BuildFoot(*column);
}

/// Everything above the first button, in the height that the column of buttons leaves it.
void LauncherWindow::BuildHead(QVBoxLayout& column) {
  auto* head = new QWidget(this);
  auto* rows = new QVBoxLayout(head);
  rows->setContentsMargins(0, 0, 0, kGapPixels);
  rows->setSpacing(2);
  QLabel* version = MakeLabel(LauncherLabel::kVersion, 1);
  version->setFont(FontByName("Arial", kTextPoints, true));
  picture_ = Named(new PictureLink(head), "PBCustomise", "Picture and link of your own");
  rows->addWidget(picture_, 1);
  rows->addWidget(version);
  head->setFixedHeight(TwipsToPixels(PlaceOfButton(0).top) - TwipsToPixels(PlaceOfButton(0).left));
  column.addWidget(head);
}

void LauncherWindow::BuildButtons(QVBoxLayout& column) {
  int row = 0;
  for (const LauncherButton& entry : LauncherButtons()) {
    const ButtonPlace place = PlaceOfButton(row);
    const QString caption = ToQt(entry.caption);
    auto* button = Named(new platform::qt::SkinButton(caption, this), ArrayName("BUTmenu", entry.index), caption);
    button->setFont(FontByName("Arial", kTextPoints, false));
    button->setMinimumSize(TwipsToPixels(place.width), TwipsToPixels(place.height));
    column.addWidget(button);
    column.addSpacing(TwipsToPixels(PlaceOfButton(row + 1).top - place.top - place.height));
    connect(button, &QAbstractButton::clicked, this, [this, index = entry.index] { ClickMenuButton(index); });
    ++row;
  }
}

void LauncherWindow::BuildFoot(QVBoxLayout& column) {
  column.addSpacing(kGapPixels);
  column.addWidget(MakeLabel(LauncherLabel::kKepAge, 3));
  column.addWidget(MakeDemonstrationLine());
  column.addSpacing(kGapPixels);
  QLabel* sunrise = MakeLabel(LauncherLabel::kSunrise, 2);
  sunrise->setToolTip(
      tr("When the Sun's centre crosses the horizon, to the minute and without refraction.\nAlmanacs "
         "have its rise some minutes earlier and its set some minutes later."));
  column.addWidget(sunrise);
  column.addWidget(MakeLabel(LauncherLabel::kSunshine, 1));
  column.addStretch(1);
  column.addWidget(MakeLabel(LauncherLabel::kClock, 1));
  clock_ = Named(new platform::qt::LedClockWidget(this), "LEDclockLocal", "Clock");
  QSizePolicy keepsItsPlace = clock_->sizePolicy();
  keepsItsPlace.setRetainSizeWhenHidden(true);
  clock_->setSizePolicy(keepsItsPlace);
  column.addWidget(clock_, 0, Qt::AlignHCenter);
  column.addStretch(1);
  column.addWidget(MakeLabel(LauncherLabel::kCredit, 2));
}

/// A centred label that keeps room for so many lines, so that nothing moves when its text changes.
QLabel* LauncherWindow::MakeLabel(LauncherLabel which, int lines) {
  const LabelStart start = StartOf(which);
  auto* label = Named(new QLabel(ToQt(start.text), this), ToQt(start.objectName));
  label->setAlignment(Qt::AlignCenter);
  label->setWordWrap(lines > 1);
  label->setMinimumHeight(lines * label->fontMetrics().lineSpacing() + 2);
  labels_[which] = label;
  return label;
}

/// It keeps its place while it is hidden, and is a link once there is a window that fetches fresh elements.
QLabel* LauncherWindow::MakeDemonstrationLine() {
  demonstration_ = Named(new QLabel(this), "LABdemo", kDemonstration);
  demonstration_->setAlignment(Qt::AlignCenter);
  demonstration_->setMinimumHeight(demonstration_->fontMetrics().lineSpacing() + 2);
  demonstration_->setToolTip(
      tr("The elements that came with Kestrava are for trying it out:\nthe orbits are real in shape, but no satellite "
         "is where they say.\nThe help tells how to get fresh ones."));
  QSizePolicy keepsItsPlace = demonstration_->sizePolicy();
  keepsItsPlace.setRetainSizeWhenHidden(true);
  demonstration_->setSizePolicy(keepsItsPlace);
  demonstration_->hide();
  connect(demonstration_, &QLabel::linkActivated, this,
          [] { platform::RunUntrapped("The update", [] { platform::TheWindows().Show(kUpdateWindow); }); });
  return demonstration_;
}

void LauncherWindow::ShowDemonstration(bool shown) {
  const bool canUpdate = platform::TheWindows().Knows(kUpdateWindow);
  demonstration_->setText(canUpdate ? QString("<a href=\"#\">%1</a>").arg(kDemonstration) : kDemonstration);
  demonstration_->setTextInteractionFlags(canUpdate ? Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard
                                                    : Qt::NoTextInteraction);
  demonstration_->setVisible(shown);
}

void LauncherWindow::ConnectSignals() {
  connect(picture_, &QAbstractButton::clicked, this,
          [this] { platform::RunUntrapped("Opening the link", [this] { launcher_.CustomiseClick(); }); });
  timer1_ = platform::TheEventLoop().MakeTimer(kTimer1Ms, [this] { launcher_.Timer1Tick(); });
  timer1_->SetEnabled(true);
  findChild<QAbstractButton*>(ArrayName("BUTmenu", 0))->setFocus();
}

void LauncherWindow::ShowLook() {
  for (const LauncherButton& entry : LauncherButtons()) {
    auto* button = findChild<QAbstractButton*>(ArrayName("BUTmenu", entry.index));
    if (OpensWindow(entry)) platform::qt::EnableByWindow(*button, entry.target);
  }
  ApplySkin();
  FitPanel();
}

/// The panel's own size, or more where the machine's letters need it.
void LauncherWindow::FitPanel() {
  const QSize needed = layout()->totalMinimumSize();
  const int width = std::max(TwipsToPixels(kPanelWidthTwips), needed.width());
  setFixedSize(width,
               std::max({TwipsToPixels(kPanelHeightTwips), needed.height(), layout()->totalHeightForWidth(width)}));
}

void LauncherWindow::Show() {
  if (!loaded_) {
    loaded_ = true;
    station::UseHub(this);
    launcher_.Load();
    // A new user's map is to have the rest of the screen.
    if (firstStart_) move(screen()->availableGeometry().topLeft());
  }
  if (!closing_) StationWindow::Show();
}

void LauncherWindow::OnActivated() {
  if (closing_) return;
  try {
    FollowSkinSetting();
    ShowLook();
    launcher_.Activate();
    started_ = true;
    if (std::exchange(firstStart_, false)) PlaceFirstMap();
  } catch (const platform::Fault& fault) {
    EndByFault(fault);
  }
}

void LauncherWindow::PlaceFirstMap() {
  const int titlePx = geometry().top() - frameGeometry().top();
  StoreFirstMapPlace(
      FirstMapPlace(ToTwips(screen()->availableGeometry()), ToTwips(frameGeometry()), PixelsToTwips(titlePx)));
}

/// Before the first activation there is nothing to do: that one reads everything afresh, and takes the splash away when
/// the window itself stands.
void LauncherWindow::RunActivation() {
  if (started_) platform::RunUntrapped("The update of the launcher", [this] { OnActivated(); });
}

void LauncherWindow::Refresh() {
  if (closing_ || !started_) return;
  FollowSkinSetting();
  ShowLook();
  launcher_.ShowClockMode();
}

void LauncherWindow::StartAnew() {
  platform::TheEventLoop().Later([launcher = QPointer(this)] {
    if (launcher) launcher->EndToStartAnew();
  });
}

/// The window closes as by its user, who may be asked and may refuse: then the run goes on.
void LauncherWindow::EndToStartAnew() {
  if (closing_ || !started_) return;
  startsAnew_ = true;
  close();
  startsAnew_ = closing_;
}

/// One message, then the end of the run in order.
void LauncherWindow::EndByFault(const platform::Fault& fault) {
  closing_ = true;
  if (!started_) launcher_.BringFavouritesBack();
  ReportFatal(launcher_.DescribeFault(fault), shipped_);
  started_ = false;
  launcher_.QueryUnload();
  platform::TheWindows().Unload(*this);
}

bool LauncherWindow::MayClose() {
  if (!closing_ && !predict::MayEndWithJobs()) return false;
  if (!closing_) {
    closing_ = true;
    launcher_.QueryUnload();
  }
  return true;
}

void LauncherWindow::UnloadSelf() {
  if (closing_) return;
  closing_ = true;
  launcher_.QueryUnload();
  platform::TheWindows().Unload(*this);
}

/// The end of this window is the end of the run. A run that never came to work ends with a failure.
void LauncherWindow::OnUnload() {
  closing_ = true;
  LeaveHub();
  timer1_->SetEnabled(false);
  StationWindow::OnUnload();
  launcher_.Unload();
  const int orderly = startsAnew_ ? kStartAnewCode : 0;
  platform::TheEventLoop().Quit(started_ ? orderly : kFatalExitCode);
}

void LauncherWindow::ClickMenuButton(int index) {
  for (const LauncherButton& entry : LauncherButtons()) {
    if (entry.index != index) continue;
    platform::RunUntrapped(entry.caption, [&] {
      switch (entry.action) {
        case ButtonAction::kPopUp:
          PopUp(entry.target);
          break;
        case ButtonAction::kShow:
          platform::TheWindows().Show(entry.target);
          break;
        case ButtonAction::kShowNew:
          platform::TheWindows().ShowNew(entry.target);
          break;
        case ButtonAction::kFloppyTransfer:
          TransferElementsToFloppy(orbit::TheTables());
          break;
      }
    });
  }
}

void LauncherWindow::PopUp(std::string_view menu) {
  MenuWindow* menus = MenuWindow::Get();
  if (!menus) throw platform::Fault::ObjectNotSet();
  for (const Menu& row : Menus()) {
    if (row.objectName == menu)
      menus->PopUp(menu, *this, mapToGlobal(QPoint(width(), height() - TwipsToPixels(row.raiseTwips))));
  }
}

void LauncherWindow::SetCaption(std::string_view text) {
  setWindowTitle(ToQt(text));
}

void LauncherWindow::SetLabel(LauncherLabel label, std::string_view text) {
  labels_.at(label)->setText(ToQt(text));
}

platform::LedClock& LauncherWindow::Clock() {
  return *clock_;
}

void LauncherWindow::ShowPicture(std::string_view file) {
  const std::string bytes = platform::TheFiles().Read(file);
  QPixmap picture;
  if (!picture.loadFromData(reinterpret_cast<const uchar*>(bytes.data()), static_cast<uint>(bytes.size()))) {
    throw platform::Fault::InvalidPicture();
  }
  picture_->SetPicture(picture);
}

void LauncherWindow::SetPictureHint(std::string_view text) {
  picture_->setToolTip(ToQt(text));
}

}  // namespace kestrava::shell::ui
