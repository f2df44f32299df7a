// Groups added and deleted through the real controls, and the input box that asks for them.
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include "GroupsFixture.h"

namespace kestrava::panels::ui {
namespace {

class GroupsAddTest : public GroupsFixture {
 protected:
  void ExpectUpdateQuestion(bool internet) {
    messages.ExpectQuestion("Is this new group updated via the Internet?", internet);
  }
  static QLineEdit& TextOf(QDialog& box) { return *box.findChild<QLineEdit*>("InputText"); }
  static std::string WhyOf(QDialog& box) { return box.findChild<QLabel*>("InputWhy")->text().toStdString(); }
  std::string LastGroup() {
    const orbit::GroupRec& group = tables.GroupList.at(static_cast<std::size_t>(tables.GroupCount));
    return group.Name + "," + group.Address + "," + group.Manual;
  }
};

TEST_F(GroupsAddTest, AGroupOfTheElementServerIsAddedFromTheList) {
  Open();
  Choose("COMCelestrak", "Space Stations");
  Click("BUTaddCelestrak");
  EXPECT_EQ(Rows("GroupList").back(), "Space Stations");
  EXPECT_EQ(LastGroup(), "Space Stations,celestrak.org/NORAD/elements/stations.txt,0");
}

TEST_F(GroupsAddTest, AGroupThatIsNoLongerPublishedIsMarkedAndCanBeAdded) {
  Open();
  auto& server = Child<QComboBox>("COMCelestrak");
  for (const char* ended : {"Gorizont", "Iridium", "Molniya", "NOAA Weather", "Raduga"})
    EXPECT_GE(server.findText(QString(ended) + " (no longer published)"), 0) << ended;
  Choose("COMCelestrak", "Iridium (no longer");
  Click("BUTaddCelestrak");
  EXPECT_EQ(LastGroup(), "Iridium,celestrak.org/NORAD/elements/iridium.txt,0");
}

TEST_F(GroupsAddTest, WithoutAChoiceTheButtonSaysWhatToDo) {
  Open();
  messages.ExpectMessage("Select a group first, then click this button");
  Click("BUTaddCelestrak");
  EXPECT_EQ(tables.GroupCount, 3);
}

TEST_F(GroupsAddTest, AGroupOfTheInternetIsAddedWithoutItsScheme) {
  Open();
  ExpectUpdateQuestion(true);
  InTheBox([](QDialog& box) {
    EXPECT_EQ(box.windowTitle(), "Display name");
    EXPECT_EQ(TextOf(box).text(), "New Group");
    EXPECT_TRUE(TextOf(box).hasSelectedText()) << "typing replaces it";
    QTest::keyClicks(&TextOf(box), "Net");
    QTest::keyClick(&TextOf(box), Qt::Key_Return);
  });
  InTheBox([](QDialog& box) {
    EXPECT_EQ(box.windowTitle(), "Web Address of Keplerian Elements");
    EXPECT_EQ(TextOf(box).text(), "");
    QTest::keyClicks(&TextOf(box), "https://host/path/net.txt");
    QTest::mouseClick(box.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
  });
  Click("BUTaddgroup");
  EXPECT_EQ(LastGroup(), "Net,host/path/net.txt,0");
  EXPECT_EQ(Rows("GroupList").back(), "Net");
}

TEST_F(GroupsAddTest, AGroupKeptByHandIsAddedByKeysAlone) {
  Open();
  ExpectUpdateQuestion(false);
  AnswerBox("Own");
  InTheBox([](QDialog& box) {
    EXPECT_EQ(box.windowTitle(), "Manually updated Keps");
    QTest::keyClicks(&TextOf(box), "own.txt");
    QTest::keyClick(&TextOf(box), Qt::Key_Return);
  });
  Press("BUTaddgroup", Qt::Key_Return);
  EXPECT_EQ(LastGroup(), "Own,own.txt,1");
}

TEST_F(GroupsAddTest, TheInputBoxIsNamedForScreenReaders) {
  Open();
  ExpectUpdateQuestion(false);
  InTheBox([](QDialog& box) {
    EXPECT_EQ(TextOf(box).accessibleName(), "Type a Display name for this group. This can be any name you would like.");
    for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();  // it comes up
    EXPECT_EQ(QApplication::focusWidget(), &TextOf(box));
    box.reject();
  });
  Click("BUTaddgroup");
}

TEST_F(GroupsAddTest, ACommaIsRefusedWhileTypingAndTheBoxSaysWhy) {
  Open();
  ExpectUpdateQuestion(false);
  InTheBox([](QDialog& box) {
    EXPECT_EQ(WhyOf(box), "");
    QTest::keyClicks(&TextOf(box), "a,");
    EXPECT_EQ(TextOf(box).text(), "a");
    EXPECT_EQ(WhyOf(box).find("A comma cannot be a part of it"), 0U) << WhyOf(box);
    EXPECT_FALSE(TextOf(box).accessibleDescription().isEmpty());
    QTest::keyClicks(&TextOf(box), "b");
    EXPECT_EQ(WhyOf(box), "") << "it is over";
    QTest::keyClick(&TextOf(box), Qt::Key_Return);
  });
  AnswerBox("b,c.txt");
  Click("BUTaddgroup");
  EXPECT_EQ(LastGroup(), "ab,bc.txt,1");
}

TEST_F(GroupsAddTest, APastedTextWithACommaIsRefusedWhole) {
  Open();
  ExpectUpdateQuestion(false);
  InTheBox([](QDialog& box) {
    QApplication::clipboard()->setText("one, two");
    QTest::keyClick(&TextOf(box), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(TextOf(box).text(), "New Group");
    EXPECT_NE(WhyOf(box), "");
    QApplication::clipboard()->setText("one two");
    QTest::keyClick(&TextOf(box), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(TextOf(box).text(), "one two");
    box.reject();
  });
  Click("BUTaddgroup");
}

TEST_F(GroupsAddTest, CancelOrAnEmptyAnswerEndsTheAdd) {
  Open();
  const std::vector<std::vector<const char*>> answers{{nullptr}, {"   "}, {"Name", nullptr}, {"Name", "  "}};
  for (const auto& each : answers) {
    ExpectUpdateQuestion(true);
    for (const char* answer : each) answer ? AnswerBox(answer) : CancelBox();
    Click("BUTaddgroup");
    EXPECT_EQ(tables.GroupCount, 3);
    EXPECT_EQ(Rows("GroupList").size(), 3u);
  }
}

TEST_F(GroupsAddTest, AWindowThatIsClosedUnderTheInputBoxTakesItAlong) {
  Open();
  ExpectUpdateQuestion(false);
  InTheBox([this](QDialog&) { windows->Unload(*windows->Find(kGroupsWindow)); });
  Click("BUTaddgroup");
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_EQ(tables.GroupCount, 3);
}

TEST_F(GroupsAddTest, TheFortyFirstGroupIsLoggedWithoutAMessage) {
  for (int i = 4; i <= 40; ++i) AddRow("G" + std::to_string(i), "mine.txt", "1");
  Open();
  Choose("COMCelestrak", "Weather");
  Click("BUTaddCelestrak");
  EXPECT_EQ(TakeFaults(), Strings{"Subscript out of range - GroupsCON - BUTaddCelestrak"});
  ExpectUpdateQuestion(false);
  AnswerBox("Own");
  AnswerBox("own.txt");
  Click("BUTaddgroup");
  EXPECT_EQ(TakeFaults(), Strings{"Subscript out of range - GroupsCON - BUTaddgroup"});
  EXPECT_EQ(tables.GroupCount, 40);
  EXPECT_EQ(Rows("GroupList").size(), 40u);
}

TEST_F(GroupsAddTest, ADeletedGroupGoesAndTheFirstIsListed) {
  Open();
  ClickRow("GroupList", 1);
  Click("BUTdeletegroup");
  EXPECT_EQ(Rows("GroupList"), (Strings{"Amateur", "Weather"}));
  EXPECT_EQ(Child<platform::qt::ListBox>("GroupList").Selected(), 0);
  EXPECT_EQ(Rows("SatelliteList").front(), "AO-07");
  EXPECT_TRUE(files.Exists("/house/mine.txt"));
}

TEST_F(GroupsAddTest, WithoutASelectedGroupNothingIsDeletedAndTheButtonSaysWhy) {
  tables.GroupCount = 1;
  Open();
  const auto& button = Child<QWidget>("BUTdeletegroup");
  Click("BUTdeletegroup");
  EXPECT_TRUE(Rows("GroupList").empty());
  EXPECT_TRUE(Rows("SatelliteList").empty());
  EXPECT_TRUE(button.isEnabled());
  EXPECT_EQ(button.toolTip(), "There is no group on the list");
  Click("BUTdeletegroup");
  Choose("COMCelestrak", "Amateur");
  Click("BUTaddCelestrak");
  EXPECT_EQ(button.toolTip(), "Select a group first") << "the new one is not selected";
  messages.ExpectMessage("Select a group first, then click this button");
  Click("BUTdeletegroup");
  EXPECT_EQ(Rows("GroupList"), Strings{"Amateur"});
  ClickRow("GroupList", 0);
  EXPECT_TRUE(button.toolTip().startsWith("Takes the selected group off the list"));
}

TEST_F(GroupsAddTest, TheWindowClosedWhileAGroupIsReadGoes) {
  Put("mine.txt", "A header\nof two lines\n" + Sets({"MY SAT"}));
  Open();
  eventLoop.AtYield(1, [&] { CloseByUser(); });
  ClickRow("GroupList", 1);
  EXPECT_FALSE(IsOpen());
}

TEST_F(GroupsAddTest, AddedGroupsAreOnDiskWhenTheWindowHasClosed) {
  Open();
  Choose("COMCelestrak", "Weather");
  Click("BUTaddCelestrak");
  CloseByUser();
  EXPECT_EQ(Content("groups.dat"),
            "Amateur,celestrak.org/NORAD/elements/amateur.txt,0\nMine,mine.txt,1\n"
            "Weather,celestrak.org/NORAD/elements/weather.txt,0\n"
            "Weather,celestrak.org/NORAD/elements/weather.txt,0\n");
}

}  // namespace
}  // namespace kestrava::panels::ui
