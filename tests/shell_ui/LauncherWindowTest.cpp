#include <QKeyEvent>
#include <QLayout>
#include <QMenu>
#include <QScreen>

#include "platform/qt/LedClockWidget.h"
#include "shell/Menus.h"
#include "station/Hub.h"

#include "ShellWindows.h"
#include "support_qt/Shots.h"

namespace kestrava::shell::ui {
namespace {

using platform::qt::LedClockWidget;
using LauncherWindowTests = ShellWindows;

TEST_F(LauncherWindowTests, ShowsWhatTheLoadAndTheActivationSay) {
  LauncherWindow& launcher = Open();
  EXPECT_EQ(launcher.windowTitle().toStdString(), "Kestrava v2.02");
  EXPECT_EQ(LabelText(launcher, "lblVersion"), "Version 2.02 Pro");
  EXPECT_EQ(LabelText(launcher, "Label1"), "\u00a9 2024 The Kestrava Makers");
  EXPECT_EQ(LabelText(launcher, "lblKepAge"), "Keplerian Elements Last Updated 3 Days Ago");
  EXPECT_TRUE(LabelText(launcher, "lblSunrise").starts_with("Sunrise/Set : "));
  EXPECT_TRUE(LabelText(launcher, "lblSunshine").starts_with("Sunshine : "));
  EXPECT_EQ(LabelText(launcher, "lblClock"), "Local Time");
}

TEST_F(LauncherWindowTests, SaysOfTheSunsTimesThatTheyAreWithoutRefraction) {
  LauncherWindow& launcher = Open();
  EXPECT_TRUE(launcher.findChild<QLabel*>("lblSunrise")->toolTip().contains("without refraction"));
}

TEST_F(LauncherWindowTests, StartsWithTextsThatAskForPatience) {
  const auto engine = std::make_unique<orbit::OrbitEngine>();
  windows->IsVisible("frmLAUNCHER");  // made, not shown
  auto& launcher = dynamic_cast<LauncherWindow&>(*windows->Find("frmLAUNCHER"));
  EXPECT_EQ(LabelText(launcher, "lblKepAge"), "Checking Age of Keplerian Elements, Please Wait..");
  EXPECT_EQ(LabelText(launcher, "lblSunrise"), "Calculating Sunrise/set");
  EXPECT_EQ(LabelText(launcher, "lblSunshine"), "Calculating Sunshine");
  EXPECT_EQ(LabelText(launcher, "lblClock"), "Local Time");
}

TEST_F(LauncherWindowTests, HasThePanelsSizeAndTheColumnsPlaces) {
  LauncherWindow& launcher = Open();
  EXPECT_EQ(launcher.size(), QSize(161, 542));
  int row = 0;
  for (const LauncherButton& entry : LauncherButtons()) {
    const QRect place = Button(launcher, entry.index).geometry();
    EXPECT_EQ(place, QRect(4, 92 + 22 * row, 153, 20)) << entry.caption;
    ++row;
  }
}

TEST_F(LauncherWindowTests, NoTextIsClippedInEitherLook) {
  for (const bool skin : {false, true}) {
    platform::qt::ApplyTheme(skin);
    settings.Set("Skin", skin ? "1" : "0");
    LauncherWindow& launcher = Open();
    for (const QLabel* label : launcher.findChildren<QLabel*>()) {
      const QRect needed = label->fontMetrics().boundingRect(QRect(0, 0, label->width(), 1000),
                                                             label->wordWrap() ? Qt::TextWordWrap : 0, label->text());
      EXPECT_LE(needed.height(), label->height()) << label->text().toStdString();
      EXPECT_LE(needed.width(), label->width()) << label->text().toStdString();
    }
    for (const LauncherButton& entry : LauncherButtons()) {
      const QAbstractButton& button = Button(launcher, entry.index);
      EXPECT_LE(button.fontMetrics().horizontalAdvance(button.text()) + 8, button.width()) << entry.caption;
      EXPECT_LE(button.fontMetrics().height(), button.height()) << entry.caption;
    }
    testing::SaveShot(launcher, skin ? "launcher-skin" : "launcher-plain");
  }
}

TEST_F(LauncherWindowTests, SaysUnderTheAgeThatTheElementsAreForDemonstration) {
  shipped.demonstration = true;
  LauncherWindow& launcher = Open();
  auto& line = In<QLabel>(launcher, "LABdemo");
  EXPECT_TRUE(line.isVisible());
  EXPECT_EQ(line.text(), "demonstration elements");
  EXPECT_EQ(line.textInteractionFlags(), Qt::NoTextInteraction) << "there is no update yet";
  EXPECT_GE(line.y(), In<QLabel>(launcher, "lblKepAge").geometry().bottom());
  EXPECT_LE(line.geometry().bottom(), In<QLabel>(launcher, "lblSunrise").y());
  const int below = In<QLabel>(launcher, "lblSunrise").y();
  shipped.demonstration = false;
  station::TheHub().RunActivation();
  EXPECT_FALSE(line.isVisible());
  EXPECT_EQ(In<QLabel>(launcher, "lblSunrise").y(), below) << "nothing moves";
}

TEST_F(LauncherWindowTests, TheDemonstrationLineOpensTheUpdateOnceThatExists) {
  shipped.demonstration = true;
  RegisterStub("frmCONUpdates");
  LauncherWindow& launcher = Open();
  auto& line = In<QLabel>(launcher, "LABdemo");
  EXPECT_TRUE(line.focusPolicy() & Qt::TabFocus);
  eventLoop.RunEvent([&] { emit line.linkActivated("#"); });
  EXPECT_TRUE(windows->IsVisible("frmCONUpdates"));
}

TEST_F(LauncherWindowTests, AFirstStartGivesTheMapTheScreenBesideTheLauncher) {
  firstStart = true;
  LauncherWindow& launcher = Open();
  const QRect screen = launcher.screen()->availableGeometry();
  EXPECT_EQ(launcher.frameGeometry().topLeft(), screen.topLeft());
  const auto pixels = [&](const char* key) { return std::stoi(settings.Get(key)) / 15; };
  const QRect map(pixels("WinPosX"), pixels("WinPosY"), pixels("WinPosW"), pixels("WinPosH"));
  EXPECT_TRUE(screen.contains(map));
  EXPECT_FALSE(map.intersects(launcher.frameGeometry()));
  EXPECT_GE(map.width(), (screen.width() - launcher.width()) * 9 / 10);
}

TEST_F(LauncherWindowTests, ALaterStartStoresNoPlaceForTheMap) {
  Open();
  EXPECT_EQ(settings.Get("WinPosX"), "");
}

TEST_F(LauncherWindowTests, GreyButtonsSayThatTheyComeLater) {
  RegisterStub("Horizon");
  LauncherWindow& launcher = Open();
  EXPECT_EQ(Button(launcher, 5).toolTip(), "comes with a later version");
  EXPECT_EQ(Button(launcher, 5).accessibleDescription(), "comes with a later version");
  EXPECT_EQ(Button(launcher, 8).toolTip(), "");
  EXPECT_EQ(Button(launcher, 0).toolTip(), "");
}

TEST_F(LauncherWindowTests, EveryControlHasANameAndIsReachedByKeyboard) {
  LauncherWindow& launcher = Open();
  for (const auto* button : launcher.findChildren<QAbstractButton*>()) {
    EXPECT_FALSE(button->objectName().isEmpty());
    EXPECT_FALSE(button->accessibleName().isEmpty()) << button->objectName().toStdString();
    EXPECT_TRUE(button->focusPolicy() & Qt::TabFocus) << button->objectName().toStdString();
  }
}

TEST_F(LauncherWindowTests, ButtonsWithoutTheirWindowAreDisabled) {
  LauncherWindow& launcher = Open();
  for (const LauncherButton& entry : LauncherButtons()) {
    const bool opensWindow = entry.action == ButtonAction::kShow || entry.action == ButtonAction::kShowNew;
    EXPECT_EQ(Button(launcher, entry.index).isEnabled(), !opensWindow) << entry.caption;
  }
}

TEST_F(LauncherWindowTests, AButtonWhoseWindowExistsShowsIt) {
  RegisterStub("Horizon");
  LauncherWindow& launcher = Open();
  Click(Button(launcher, 8));
  EXPECT_TRUE(windows->IsVisible("Horizon"));
}

TEST_F(LauncherWindowTests, EachClickOnThe3DViewMakesANewOne) {
  RegisterStub("Orrery3D");
  LauncherWindow& launcher = Open();
  Click(Button(launcher, 5));
  Click(Button(launcher, 5));
  EXPECT_EQ(LoadedNames(), (Strings{"frmLAUNCHER", "Orrery3D", "Orrery3D"}));
}

TEST_F(LauncherWindowTests, AClickThatFailsIsToldOnceAndTheWindowStays) {
  windows->Register("Tabular", []() -> std::unique_ptr<platform::Window> { throw platform::Fault::DeviceError(); });
  LauncherWindow& launcher = Open();
  messages.ExpectMessage("Tabular Data View could not be done: Device I/O error");
  Click(Button(launcher, 9));
  EXPECT_TRUE(launcher.isVisible());
}

TEST_F(LauncherWindowTests, TheMapMenuPopsUpAndShowsTheWorld) {
  RegisterStub("WorldView");
  LauncherWindow& launcher = Open();
  Click(Button(launcher, 6));  // returns while the menu stands: no loop of its own
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  EXPECT_EQ(menu->objectName(), "mnu2");
  eventLoop.RunEvent([&] { menu->findChild<QAction*>("mnu2Dworld")->trigger(); });
  menu->close();
  Settle();
  EXPECT_EQ(dynamic_cast<TaggedStub&>(*windows->Find("WorldView")).tag, "worldnormal");
}

TEST_F(LauncherWindowTests, MenusStandAtTheLaunchersLowerRightByTheirHeights) {
  LauncherWindow& launcher = Open();
  launcher.move(10, 10);
  Settle();
  Click(Button(launcher, 14));
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  const QPoint wanted = launcher.mapToGlobal(QPoint(launcher.width(), launcher.height() - 17));
  EXPECT_EQ(menu->pos().x(), wanted.x());
  EXPECT_LE(menu->pos().y(), wanted.y());  // moved up where the screen ends
  menu->close();
}

TEST_F(LauncherWindowTests, EntriesWithoutTheirWindowCannotBeChosen) {
  LauncherWindow& launcher = Open();
  Click(Button(launcher, 0));
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  for (const QAction* action : menu->actions()) EXPECT_FALSE(action->isEnabled()) << action->text().toStdString();
  menu->close();
}

TEST_F(LauncherWindowTests, AnEntryBecomesUsableWhenItsWindowComes) {
  LauncherWindow& launcher = Open();
  RegisterStub("frmCON2D");
  Click(Button(launcher, 0));
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  EXPECT_TRUE(menu->findChild<QAction*>("mnu2Dsettings")->isEnabled());
  EXPECT_FALSE(menu->findChild<QAction*>("mnu3Dsettings")->isEnabled());
  menu->close();
}

TEST_F(LauncherWindowTests, TheMenusWindowIsNeverVisible) {
  LauncherWindow& launcher = Open();
  Click(Button(launcher, 14));
  QApplication::activePopupWidget()->close();
  windows->Show(kMenuName);
  EXPECT_FALSE(windows->IsVisible(kMenuName));
  EXPECT_EQ(windows->VisibleCount(), 1);
  (void)launcher;
}

TEST_F(LauncherWindowTests, TheFloppyButtonAsks) {
  LauncherWindow& launcher = Open();
  messages.ExpectQuestion("Copy ALL Keplerian element files onto a Floppy disk ?", false);
  messages.ExpectMessage("0 Keplerian files copied to Floppy disk");
  Click(Button(launcher, 13));
}

TEST_F(LauncherWindowTests, ThePictureOpensItsLinkByClickAndByKey) {
  LauncherWindow& launcher = Open();
  auto& picture = In<QAbstractButton>(launcher, "PBCustomise");
  EXPECT_EQ(picture.toolTip(), "Our club");
  Click(picture);
  QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
  QCoreApplication::sendEvent(&picture, &enter);
  EXPECT_EQ(opener.opened, (Strings{"https://club.example/", "https://club.example/"}));
}

TEST_F(LauncherWindowTests, APictureThatIsNoneIsLogged) {
  Put("cust1.dat", "no picture at all");
  Open();
  EXPECT_EQ(TakeFaults(), Strings{"Invalid picture - Main Form Load"});
}

TEST_F(LauncherWindowTests, TheClockShowsOnlyWhileTheLauncherIsAlone) {
  RegisterStub("Horizon");
  LauncherWindow& launcher = Open();
  const auto& shown = In<LedClockWidget>(launcher, "LEDclockLocal");
  eventLoop.Advance(1.1);
  EXPECT_TRUE(shown.IsClockVisible());
  Click(Button(launcher, 8));
  eventLoop.Advance(1.1);
  EXPECT_FALSE(shown.IsClockVisible());
  windows->Find("Horizon")->Hide();
  eventLoop.Advance(1.1);
  EXPECT_TRUE(shown.IsClockVisible());
}

TEST_F(LauncherWindowTests, NothingMovesWhenTheClockHides) {
  RegisterStub("Horizon");
  LauncherWindow& launcher = Open();
  const QRect before = In<QLabel>(launcher, "lblKepAge").geometry();
  Click(Button(launcher, 8));
  eventLoop.Advance(1.1);
  Settle();
  EXPECT_EQ(In<QLabel>(launcher, "lblKepAge").geometry(), before);
}

TEST_F(LauncherWindowTests, AChangedSettingReachesItWhenTheUserComesBack) {
  LauncherWindow& launcher = Open();
  settings.Set("LEDclocks", "2");
  settings.Set("Latitude", "48");
  QEvent away(QEvent::WindowDeactivate), back(QEvent::WindowActivate);
  QCoreApplication::sendEvent(&launcher, &away);
  QCoreApplication::sendEvent(&launcher, &back);
  EXPECT_EQ(LabelText(launcher, "lblClock"), "UTC Time");
  EXPECT_EQ(orbit::Engine->ObserverLatitude(), 48);
}

}  // namespace
}  // namespace kestrava::shell::ui
