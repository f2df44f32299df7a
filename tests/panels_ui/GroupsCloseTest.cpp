// The groups window when its user closes it while the station could not go on: the launcher, to which he comes back,
// ends the run where the first group's element file is missing.
#include <gtest/gtest.h>

#include "orbit/OrbitEngine.h"
#include "orbit/Satcalc.h"
#include "platform/Files.h"
#include "store/ElementFiles.h"

#include "GroupsFixture.h"

namespace kestrava::panels::ui {
namespace {

constexpr const char* kStay = "Stay in this window to do that?";

class GroupsCloseTest : public GroupsFixture {
 protected:
  void DeleteFirst() {
    ClickRow("GroupList", 0);
    Click("BUTdeletegroup");
  }
  /// Leaves the group alone whose file is missing.
  void LeaveWeather() {
    Open();
    DeleteFirst();
    messages.ExpectMessage("Weather satellite group keps are not updated yet");
    DeleteFirst();
    ASSERT_EQ(Rows("GroupList"), Strings{"Weather"});
  }
  /// What the launcher looks for at each activation.
  bool LauncherFindsItsFile() {
    const std::string file = store::ElementFileOf(tables.GroupList[1]);
    return !file.empty() && platform::FileExists(platform::InAppDir(file));
  }
};

TEST_F(GroupsCloseTest, HeWhoStaysAndDoesWhatHelpsClosesWithoutAQuestion) {
  LeaveWeather();
  messages.ExpectQuestion(kStay, true);
  CloseByUser();
  ASSERT_TRUE(IsOpen());
  EXPECT_TRUE(windows->IsVisible(kGroupsWindow));
  EXPECT_FALSE(files.Exists("/house/faves.dat")) << "nothing is written yet";
  EXPECT_NE(
      messages.Texts().back().find("delete all groups, as no file of theirs is there, and choose \"Amateur\" among "
                                   "the groups of the element server, whose file is there, and click \"Add This to "
                                   "your Groups\"."),
      std::string::npos)
      << messages.Texts().back();
  Click("BUTdeletegroup");
  Choose("COMCelestrak", "Amateur");
  Click("BUTaddCelestrak");
  EXPECT_TRUE(LauncherFindsItsFile());
  CloseByUser();
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Content("groups.dat"), "Amateur,celestrak.org/NORAD/elements/amateur.txt,0\n");
}

TEST_F(GroupsCloseTest, TheButtonsAndTheListAreCalledAsTheMessageCallsThem) {
  Open();
  EXPECT_EQ(Child<QAbstractButton>("BUTaddCelestrak").text().remove('&'), "Add This to your Groups");
  EXPECT_EQ(Child<QAbstractButton>("BUTaddgroup").text().remove('&'), "Add New Group");
}

TEST_F(GroupsCloseTest, HeWhoClosesAllTheSameIsNotAskedOfFavouritesThen) {
  orbit::Engine = std::make_unique<orbit::OrbitEngine>();
  orbit::Engine->SetDataFolder("/house/");
  Favour({"NEWCOMER"});
  LeaveWeather();
  EXPECT_FALSE(LauncherFindsItsFile());
  messages.ExpectQuestion(kStay, false);
  CloseByUser();
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(hub.starts, 0);
  EXPECT_EQ(Content("groups.dat"), "Weather,celestrak.org/NORAD/elements/weather.txt,0\n");
  orbit::Engine.reset();
}

TEST_F(GroupsCloseTest, WithoutAnyGroupHeIsToldToo) {
  LeaveWeather();
  Click("BUTdeletegroup");
  EXPECT_TRUE(Rows("GroupList").empty());
  messages.ExpectQuestion("There is no group on your list.", false);
  CloseByUser();
  EXPECT_EQ(Content("groups.dat"), "");
}

TEST_F(GroupsCloseTest, TakenAlongByTheLauncherNothingIsAsked) {
  LeaveWeather();
  const std::size_t before = messages.Texts().size();
  CloseByLauncher();
  EXPECT_EQ(messages.Texts().size(), before);
}

TEST_F(GroupsCloseTest, AStationThatEndsUnderTheQuestionTakesTheWindowAlong) {
  orbit::Engine = std::make_unique<orbit::OrbitEngine>();
  orbit::Engine->SetDataFolder("/house/");
  Favour({"NEWCOMER"});
  LeaveWeather();
  messages.ExpectQuestion(kStay, false, [&] {
    CloseByLauncher();
    Put("weather.txt", Sets({"NOAA 19"}));  // so that only the end itself keeps the next question away
  });
  CloseByUser();
  EXPECT_FALSE(IsOpen());
  orbit::Engine.reset();
}

}  // namespace
}  // namespace kestrava::panels::ui
