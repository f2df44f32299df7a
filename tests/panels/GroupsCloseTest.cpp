// What the groups panel says when the user closes it while the station cannot go on, and its letter to the maker.
#include "platform/Endpoints.h"
#include "platform/Fault.h"
#include "store/Groups.h"

#include "GroupsPanelFixture.h"

namespace kestrava::panels {
namespace {

constexpr const char* kNeeds =
    "\n\nKestrava needs a first group whose file is in its folder. Without one it ends as soon as this window is "
    "closed "
    "and you go on, and does not start again.\n\nWhat helps: ";
constexpr const char* kStay = "\n\nStay in this window to do that?";

class GroupsCloseTest : public GroupsPanelTest {
 protected:
  void NoGroups() {
    for (; tables.GroupCount > 0; --tables.GroupCount)
      tables.GroupList[static_cast<std::size_t>(tables.GroupCount)] = {};
  }
  /// What he is told when he closes, and stays.
  std::string Told() {
    messages.ExpectQuestion(kStay, true);
    EXPECT_FALSE(panel.MayClose());
    return messages.Texts().back();
  }
};

TEST_F(GroupsCloseTest, WithAFirstGroupWhoseFileIsThereNothingIsAsked) {
  EXPECT_TRUE(panel.MayClose());
  EXPECT_TRUE(messages.Texts().empty());
}

TEST_F(GroupsCloseTest, OfAListThatCouldNotBeReadWholeTheStartHasTold) {
  std::string many;
  for (int i = 1; i <= 41; ++i) many += "G" + std::to_string(i) + ",amateur.txt,0\n";
  Put("groups.dat", many);
  NoGroups();
  EXPECT_THROW(store::LoadGroups(tables), platform::Fault);
  ASSERT_EQ(tables.GroupCount, 0);
  EXPECT_TRUE(panel.MayClose());
  EXPECT_TRUE(messages.Texts().empty());
}

TEST_F(GroupsCloseTest, HeMayCloseAllTheSame) {
  NoGroups();
  messages.ExpectQuestion(kStay, false);
  EXPECT_TRUE(panel.MayClose());
}

TEST_F(GroupsCloseTest, WithoutAGroupHeIsToldOfOneOfTheServerWhoseFileIsThere) {
  NoGroups();
  EXPECT_EQ(Told(), std::string("There is no group on your list.") + kNeeds +
                        "choose \"Amateur\" among the groups of the element server, whose file is there, and click "
                        "\"Add This to your Groups\"." +
                        kStay);
  view.server.text = "Amateur";
  panel.AddServerGroupClicked();
  EXPECT_TRUE(panel.MayClose()) << "the advice helps";
}

TEST_F(GroupsCloseTest, OfTheFirstGroupsFileThatIsMissingHeIsToldWhichGroupsToDelete) {
  files.Remove("/house/amateur.txt");
  EXPECT_EQ(Told(), std::string("The file of your first group \"Amateur\" is not there: \"amateur.txt\".") + kNeeds +
                        "delete the groups above \"Mine\", whose file is there." + kStay);
}

TEST_F(GroupsCloseTest, WhereNoGroupHasItsFileTheyAllHaveToGo) {
  NoGroups();
  AddRow("Weather", "host/weather.txt", "0");
  AddRow("Nothing", "", "1");
  EXPECT_NE(Told().find("delete all groups, as no file of theirs is there, and choose \"Amateur\" among"),
            std::string::npos);
}

TEST_F(GroupsCloseTest, AFileThatNoServerGroupHasIsAddedByHand) {
  NoGroups();
  files.Remove("/house/amateur.txt");
  Put("about.txt", "Nothing of a satellite\n");
  Put("geo.txt", "");
  EXPECT_NE(
      Told().find("click \"Add New Group\", answer No, type any name for the group, and then \"mine.txt\", a file "
                  "that is there."),
      std::string::npos)
      << messages.Texts().back();
  messages.ExpectQuestion("Internet", false);
  view.answers = {"Own", "mine.txt"};
  panel.AddGroupClicked();
  EXPECT_TRUE(panel.MayClose()) << "the advice helps";
}

TEST_F(GroupsCloseTest, WhereNoFileOfElementsIsAtAllOneIsToBeCopied) {
  files.Remove("/house/amateur.txt");
  files.Remove("/house/mine.txt");
  EXPECT_NE(Told().find("copy a file of elements named \"amateur.txt\" into the folder /house/."), std::string::npos);
  NoGroups();
  EXPECT_NE(Told().find("copy a file of elements into the folder /house/, click \"Add New Group\""), std::string::npos);
}

TEST_F(GroupsCloseTest, AFirstGroupThatNamesNoFileIsNone) {
  tables.GroupList[1].Address = "";
  EXPECT_NE(Told().find("The file of your first group \"Amateur\" is not there: it names none."), std::string::npos);
}

TEST_F(GroupsCloseTest, AFileThatCannotBeReadIsNotNamedAndLogged) {
  NoGroups();
  files.BreakFile("/house/amateur.txt", platform::Fault::DeviceError());
  EXPECT_NE(Told().find("\"mine.txt\", a file that is there"), std::string::npos);
  EXPECT_FALSE(TakeFaults().empty());
}

TEST_F(GroupsCloseTest, HeWhoClosesAllTheSameIsNotAskedToStartAnew) {
  orbit::OrbitEngine running;
  running.SetDataFolder("/house/");
  engine = &running;
  panel.Load();
  Favour({"NEWCOMER"});
  NoGroups();
  panel.Unload();
  panel.UserClosed();
  EXPECT_TRUE(messages.Texts().empty());
}

class LetterToTheMaker : public GroupsPanelTest {
 protected:
  LetterToTheMaker() {
    Put("satellite.dat", "NOAA\n***\n");
    letters.Load();
    view.satellites.Select(2);
    letters.SatelliteClicked();
  }

  GroupsPanel letters{
      tables, [this] { return engine; }, view,
      [](std::string_view subject) { return platform::endpoints::MailAddress(subject, "maker@kestrava.example"); }};
};

TEST_F(LetterToTheMaker, IsAnnouncedAndThenOpenedInTheMailProgram) {
  messages.ExpectMessage(
      "A Request will now be sent via your email program for information about this satellite. When information is "
      "found, it will be added to the Kestrava database file, and you can update that file from the 'Internet Updates' "
      "window, but you already have the keps, so you can go ahead and start tracking it now.",
      [&] { EXPECT_TRUE(opener.opened.empty()); });
  letters.DetailsClicked();
  EXPECT_EQ(opener.opened,
            Texts{"mailto:maker@kestrava.example?subject=Satellite%20Info%20Request%20for%20ISS_(ZARYA)"});
}

TEST_F(LetterToTheMaker, IsNotAvailableWithoutAMailProgram) {
  opener.canOpen = false;
  messages.ExpectMessage("A Request will now be sent via your email program");
  messages.ExpectMessage("Sorry, this feature is not available for this version of windows");
  letters.DetailsClicked();
}

}  // namespace
}  // namespace kestrava::panels
