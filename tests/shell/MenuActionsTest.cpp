#include <algorithm>

#include <gtest/gtest.h>

#include "platform/Endpoints.h"
#include "platform/Fault.h"
#include "shell/Menus.h"
#include "shell/SystemReport.h"

#include "support/House.h"

namespace kestrava::shell {
namespace {

using Strings = std::vector<std::string>;

class TaggedStub : public platform::Window {
 public:
  void SetTag(std::string_view text) override { tag = text; }
  void Show() override { shown = true; }
  void Hide() override { shown = false; }
  bool IsVisible() const override { return shown; }
  std::string tag;
  bool shown = false;
};

class MenuActions : public testing::House {
 protected:
  void Register(const std::string& name) {
    windows->Register(name, [] { return std::make_unique<TaggedStub>(); });
  }
  static const MenuEntry& Entry(std::string_view name) {
    return *std::ranges::find_if(MenuEntries(), [&](const MenuEntry& entry) { return entry.objectName == name; });
  }
  Strings LoadedTags() {
    Strings tags;
    for (const auto& [name, window] : windows->Loaded()) tags.push_back(name + " " + Stub(window).tag);
    return tags;
  }
  static TaggedStub& Stub(platform::Window* window) { return dynamic_cast<TaggedStub&>(*window); }
};

TEST_F(MenuActions, AnEntryWithoutItsWindowCannotBeUsed) {
  EXPECT_FALSE(IsUsable(Entry("mnuMainSettings"), *windows));
  Register("frmCONmain");
  EXPECT_TRUE(IsUsable(Entry("mnuMainSettings"), *windows));
}

TEST_F(MenuActions, EntriesThatNeedNoWindowCanAlwaysBeUsed) {
  EXPECT_TRUE(IsUsable(Entry("mnuHelp"), *windows));
  EXPECT_TRUE(IsUsable(Entry("mnuFAQ"), *windows));
  EXPECT_TRUE(IsUsable(Entry("mnuHistory"), *windows));
}

TEST_F(MenuActions, AButtonWithoutItsWindowCannotBeUsedButMenusAndTheFloppyCan) {
  for (const LauncherButton& button : LauncherButtons()) {
    const bool always = button.index == 0 || button.index == 6 || button.index == 13 || button.index == 14;
    EXPECT_EQ(IsUsable(button, *windows), always) << button.caption;
  }
  Register("Orrery3D");
  EXPECT_TRUE(IsUsable(LauncherButtons()[1], *windows));
}

TEST_F(MenuActions, WorldIsTaggedByTheSettingOfTheAlternativeMap) {
  Register("WorldView");
  RunMenuEntry(Entry("mnu2Dworld"));
  EXPECT_EQ(LoadedTags(), Strings{"WorldView worldnormal"});
  EXPECT_EQ(settings.Get("Altworld"), "0");
  settings.Set("Altworld", "1");
  RunMenuEntry(Entry("mnu2Dworld"));
  EXPECT_EQ(LoadedTags(), Strings{"WorldView worldalt"});
}

TEST_F(MenuActions, WorldTwiceShowsOneWindowAgain) {
  Register("WorldView");
  RunMenuEntry(Entry("mnu2Dworld"));
  windows->Find("WorldView")->Hide();
  RunMenuEntry(Entry("mnu2Dworld"));
  ASSERT_EQ(windows->Loaded().size(), 1U);
  EXPECT_TRUE(windows->Find("WorldView")->IsVisible());
}

TEST_F(MenuActions, AQuadrantTwiceGivesTwoWindows) {
  Register("WorldView");
  RunMenuEntry(Entry("mnu2DNWQ"));
  RunMenuEntry(Entry("mnu2DNWQ"));
  EXPECT_EQ(LoadedTags(), (Strings{"WorldView NWQ", "WorldView NWQ"}));
}

TEST_F(MenuActions, AQuadrantDoesNotBecomeTheWorldMap) {
  Register("WorldView");
  RunMenuEntry(Entry("mnu2DSEQ"));
  RunMenuEntry(Entry("mnu2Dworld"));
  EXPECT_EQ(LoadedTags(), (Strings{"WorldView SEQ", "WorldView worldnormal"}));
}

TEST_F(MenuActions, HelpOpensThePageOfTheFolder) {
  RunMenuEntry(Entry("mnuHelp"));
  EXPECT_EQ(opener.opened, Strings{"/house/faq.html"});
}

TEST_F(MenuActions, HelpGoesToTheViewerWhereTheMachineHasNoProgramForIt) {
  Register("frmViewer");
  opener.canOpen = false;
  RunMenuEntry(Entry("mnuHelp"));
  RunMenuEntry(Entry("mnuHistory"));
  EXPECT_EQ(LoadedTags(), Strings{"frmViewer /house/history.txt"});
}

TEST_F(MenuActions, OnlineHelpIsTheShippedPageWhileTheMakerHasNoServer) {
  ASSERT_EQ(platform::endpoints::HelpAddress(), "");
  RunMenuEntry(Entry("mnuFAQ"));
  EXPECT_EQ(opener.opened, Strings{"/house/faq.html"});
}

TEST_F(MenuActions, OnlineHelpOpensTheMakersPageOnceThereIsOne) {
  OpenOnlineHelp(platform::endpoints::HelpAddress("maker.example"));
  EXPECT_EQ(opener.opened, Strings{"https://maker.example/faq.html"});
}

TEST_F(MenuActions, AnAddressThatCouldNotBeOpenedIsSaid) {
  opener.canOpen = false;
  messages.ExpectMessage("The link \"https://maker.example/faq.html\" could not be opened");
  OpenOnlineHelp("https://maker.example/faq.html");
}

TEST_F(MenuActions, TheGraphicsDiagnosticShowsThatPageOfTheSystemInformation) {
  Register("SystemInformation");
  RunMenuEntry(Entry("mnuDX"));
  EXPECT_EQ(LoadedTags(), Strings{"SystemInformation graphics"});
}

TEST_F(MenuActions, AnEntryWhoseWindowIsMissingIsAFault) {
  EXPECT_THROW(RunMenuEntry(Entry("mnuLocations")), platform::Fault);
}

using SystemReportPages = testing::House;

TEST_F(SystemReportPages, TheTextHoldsEveryPageAndEveryLine) {
  const SystemReport report{{{"a", "First", {{"One", "1"}, {"Two", "2"}}}, {"b", "Second", {{"Three", "3"}}}}};
  EXPECT_EQ(ReportText(report), "First\n  One: 1\n  Two: 2\n\nSecond\n  Three: 3\n");
}

TEST_F(SystemReportPages, AnUnknownPageIsTheFirst) {
  const SystemReport report{{{"a", "First", {}}, {"graphics", "Graphics", {}}}};
  EXPECT_EQ(PageIndex(report, "graphics"), 1);
  EXPECT_EQ(PageIndex(report, "nothing"), 0);
}

TEST_F(SystemReportPages, FoldersNameTheDataFolderAndTheLog) {
  const ReportPage page = FoldersPage("/config/settings.conf", "/usr/share/kestrava/sample");
  EXPECT_EQ(page.lines[0].second, "/house/");
  EXPECT_EQ(page.lines[1].second, "/config/settings.conf");
  EXPECT_EQ(page.lines[2].second, "/house/error.log");
  EXPECT_EQ(page.lines[3].second, "/usr/share/kestrava/sample");
}

TEST_F(SystemReportPages, SoundTellsWhatTheVoiceIs) {
  using Lines = std::vector<std::pair<std::string, std::string>>;
  settings.Set("Speechpack", "1");
  EXPECT_EQ(SoundPage().lines, (Lines{{"Speech", "on"}, {"Voices", "2"}, {"Speech engine", "recording"}}));
  speech.voices.clear();
  EXPECT_EQ(SoundPage().lines[1].second, "0");
}

TEST_F(SystemReportPages, SoundLeavesTheEngineAloneWhileSpeechIsOff) {
  const ReportPage page = SoundPage();
  EXPECT_EQ(page.lines[0].second, "off");
  EXPECT_EQ(page.lines[1].second, "not counted while speech is off");
  EXPECT_EQ(speech.voiceQuestions, 0);
}

}  // namespace
}  // namespace kestrava::shell
