#include <QClipboard>
#include <QGuiApplication>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>

#include "ShellWindows.h"
#include "support_qt/Shots.h"

namespace kestrava::shell::ui {
namespace {

using Splash = ShellWindows;
using About = ShellWindows;
using SystemInformation = ShellWindows;

TEST_F(Splash, ShowsTheVersionWithBothPoints) {
  SplashWindow splash;
  EXPECT_EQ(LabelText(splash, "lblVersion"), "Version 2.0.2");
  testing::SaveShot(splash, "splash");
}

TEST_F(Splash, ItsActivationYieldsAndShowsTheLauncherWhichEndsIt) {
  const int yields = eventLoop.YieldCount();
  eventLoop.RunEvent([this] { windows->Show(kSplashName); });
  Settle();
  EXPECT_GT(eventLoop.YieldCount(), yields);
  EXPECT_EQ(LoadedNames(), Strings{"frmLAUNCHER"});
  EXPECT_TRUE(windows->Find("frmLAUNCHER")->IsVisible());
}

TEST_F(Splash, WithoutALauncherThereIsNoRunAndNothingIsSaid) {
  windows->Register("frmLAUNCHER", []() -> std::unique_ptr<platform::Window> { throw platform::Fault::DeviceError(); });
  eventLoop.RunEvent([this] { windows->Show(kSplashName); });
  Settle();
  EXPECT_EQ(eventLoop.ExitCode(), 1);
}

TEST_F(About, NamesProgramVersionAndTheSourceOfItsOrbits) {
  AboutWindow about;
  EXPECT_EQ(about.windowTitle(), "About Kestrava");
  EXPECT_EQ(LabelText(about, "lblTitle"), "Kestrava");
  EXPECT_EQ(LabelText(about, "lblVersion"), "Version 2.0.2");
  EXPECT_FALSE(LabelText(about, "lblDescription").empty());
  EXPECT_NE(LabelText(about, "lblDisclaimer").find("SGP4"), std::string::npos);
}

TEST_F(About, NoTextIsClipped) {
  for (const bool skin : {false, true}) {
    platform::qt::ApplyTheme(skin);
    settings.Set("Skin", skin ? "1" : "0");
    AboutWindow about;
    about.show();
    Settle();
    for (const QLabel* label : about.findChildren<QLabel*>()) {
      if (label->wordWrap()) {
        EXPECT_LE(label->heightForWidth(label->width()), label->height()) << label->text().toStdString();
      }
    }
    testing::SaveShot(about, skin ? "about-skin" : "about-plain");
  }
}

TEST_F(About, OkUnloadsTheWindow) {
  eventLoop.RunEvent([this] { windows->Show(kAboutName); });
  auto& about = dynamic_cast<AboutWindow&>(*windows->Find(kAboutName));
  Click(In<QPushButton>(about, "cmdOK"));
  EXPECT_EQ(windows->Find(kAboutName), nullptr);
}

TEST_F(About, SystemInfoShowsTheInformation) {
  AboutWindow about;
  EXPECT_EQ(In<QPushButton>(about, "cmdSysInfo").text(), "&System Info...");
  Click(In<QPushButton>(about, "cmdSysInfo"));
  EXPECT_TRUE(windows->IsVisible(kSystemInformationName));
}

TEST_F(About, SystemInfoSaysSoWhereThereIsNone) {
  const auto bare = platform::MakeWindows();
  platform::Doors doors = platform::TheDoors();
  doors.windows = bare.get();
  const platform::ScopedDoors scoped(doors);
  AboutWindow about;
  messages.ExpectMessage("System Information Is Unavailable At This Time");
  Click(In<QPushButton>(about, "cmdSysInfo"));
}

TEST_F(SystemInformation, CopiesAllPagesAsText) {
  eventLoop.RunEvent([this] { windows->Show(kSystemInformationName); });
  Settle();
  auto& window = dynamic_cast<SystemInformationWindow&>(*windows->Find(kSystemInformationName));
  testing::SaveShot(window, "system-information");
  Click(In<QPushButton>(window, "cmdCopy"));
  const std::string text = QGuiApplication::clipboard()->text().toStdString();
  for (const char* part : {"Kestrava: 2.0.2", "Qt: 6.", "Window system: offscreen", "Speech engine: recording",
                           "Data folder: /house/", "Settings: /config/settings.conf", "Shipped files: /shipped"}) {
    EXPECT_NE(text.find(part), std::string::npos) << part << " is not in\n" << text;
  }
}

TEST_F(SystemInformation, OpensAtTheGraphicsPageWhenAskedForIt) {
  eventLoop.RunEvent([this] { windows->Show(kSystemInformationName, "graphics"); });
  Settle();
  auto& window = dynamic_cast<SystemInformationWindow&>(*windows->Find(kSystemInformationName));
  const auto& pages = In<QTabWidget>(window, "tabPages");
  EXPECT_EQ(pages.tabText(pages.currentIndex()), "Graphics");
}

TEST_F(SystemInformation, LabelsAndFactsStandWholeInTheirColumns) {
  eventLoop.RunEvent([this] { windows->Show(kSystemInformationName); });
  Settle();
  auto& window = dynamic_cast<SystemInformationWindow&>(*windows->Find(kSystemInformationName));
  for (const auto* page : window.findChildren<QTreeWidget*>()) {
    for (int row = 0; row < page->topLevelItemCount(); ++row) {
      const QString label = page->topLevelItem(row)->text(0);
      EXPECT_LE(page->fontMetrics().horizontalAdvance(label), page->columnWidth(0)) << label.toStdString();
    }
  }
}

TEST_F(SystemInformation, EachPageListsItsFacts) {
  SystemInformationWindow window({"/config/settings.conf", "/shipped"});
  const auto& pages = In<QTabWidget>(window, "tabPages");
  ASSERT_EQ(pages.count(), 5);
  for (int i = 0; i < pages.count(); ++i) {
    EXPECT_GT(dynamic_cast<QTreeWidget&>(*pages.widget(i)).topLevelItemCount(), 2) << pages.tabText(i).toStdString();
  }
}

}  // namespace
}  // namespace kestrava::shell::ui
