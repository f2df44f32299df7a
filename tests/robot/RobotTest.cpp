// The robot user on the whole station. How long, and with which seed, can be said from outside: KESTRAVA_ROBOT_MINUTES,
// KESTRAVA_ROBOT_SEED. Under the sanitizers it finds what no plan would.
#include <QAbstractButton>
#include <QComboBox>
#include <QListWidget>
#include <QWidget>
#include <QtGlobal>
#include <algorithm>
#include <iostream>

#include <gtest/gtest.h>

#include "station/Hub.h"

#include "robot/Robot.h"

namespace kestrava::robot {
namespace {

constexpr double kUsualMinutes = 5;
constexpr int kUsualSeed = 20261115;

double MinutesToRun() {
  bool given = false;
  const double minutes = qEnvironmentVariable("KESTRAVA_ROBOT_MINUTES").toDouble(&given);
  return given ? minutes : kUsualMinutes;
}

unsigned SeedToUse() {
  bool given = false;
  const int seed = qEnvironmentVariableIntValue("KESTRAVA_ROBOT_SEED", &given);
  return static_cast<unsigned>(given ? seed : kUsualSeed);
}

/// Messages that a user without a plan may well meet.
bool IsExpected(const std::string& message) {
  static const std::vector<std::string> parts{
      "Copy ALL Keplerian element files", "Keplerian files copied", "The copied files are in", "Floppy Drive A:",
      // of the pass window and its wizard
      "You must select either one of the", "Predictions saved as /documents/", "You must select a preset first",
      "you must select a preset to", "you must choose a job name", "You must fill in the days box",
      "You havn't chosen any satellites", "First select a Group", "Select a satellite on the list first",
      "You will loose the information", "Can't file PASS.DAT", "goes back to the list as it was before",
      // of the groups window
      "Select a satellite first", "Select a group first", "satellite group keps are not updated yet",
      "Is this new group updated via the Internet?", "Primary Favourite Satellite changed from",
      "Sorry, this feature is not available", "These favourites are not known yet", "Stay in this window",
      // of the locations window: refused numbers and names, and what cannot be done to the primary place
      "the box \"", "This is already the Primary Location", "Can't Remove the Primary Location!",
      "What you have typed is not stored yet.",
      // of the main settings
      "No Speech Engines Found", "Invalid Folder name, try again", "There was a problem, the filename was '"};
  for (const std::string& part : parts)
    if (message.find(part) != std::string::npos) return true;
  return false;
}

/// What is logged by right, as it is the user's own doing.
bool IsTheUsersOwnDoing(const std::string& fault) {
  static const std::vector<std::string> whole{
      // nonsense or nought as the minutes of announcements, with which the watch then reckons
      "Division by zero - Global UpdateQuickETA", "Overflow - Global UpdateQuickETA",
      // settings that a slider does not reach
      "Invalid property value: MapUpdate 1 - 2Dcon - FormLoad", "Invalid property value: WxEL 90 - mainCON - FormLoad",
      // he comes back to a map after the favourites have become more: entries that are there already
      "Object already loaded - map - Form_activate",
      // the map selects one of these by itself before that: it has no menu entry yet
      "Subscript out of range - map - menu favelist_Click",
      // more favourites, or groups, than there is room for
      "Subscript out of range - GroupsCON - Satlist_itemcheck", "Subscript out of range - GroupsCON - BUTaddCelestrak",
      "Subscript out of range - GroupsCON - BUTaddgroup"};
  if (std::find(whole.begin(), whole.end(), fault) != whole.end()) return true;
  // a prediction for a prompt instead of a satellite
  if (fault.starts_with("No element set for \"Select ") && fault.ends_with(" - PassPred-CalcResults")) return true;
  // a favourite of an orbit that has decayed by now
  return fault.starts_with("No position for \"") && fault.find("\": model error ") != std::string::npos &&
         fault.ends_with(" - Global Satcalc");
}

std::vector<std::string> UnexpectedFaults(RobotStation& station) {
  std::vector<std::string> faults = station.TakeFaults();
  std::erase_if(faults, IsTheUsersOwnDoing);
  return faults;
}

TEST(RobotUser, MeetsNoFaultAndNoUnexpectedMessage) {
  const unsigned seed = SeedToUse();
  SCOPED_TRACE("seed " + std::to_string(seed));
  RobotStation station;
  station.Start();
  ASSERT_TRUE(station.Windows().Find("frmLAUNCHER"));
  for (const std::string& fault : station.TakeFaults()) ADD_FAILURE() << "at the start: " << fault;
  Robot robot(station, seed);
  const double end = station.House().clock.ElapsedMs() + MinutesToRun() * 60e3;
  int deeds = 0;
  while (station.House().clock.ElapsedMs() < end && station.Windows().Find("frmLAUNCHER")) {
    robot.Act();
    ++deeds;
    for (const std::string& fault : UnexpectedFaults(station))
      ADD_FAILURE() << "deed " << deeds << ", the robot " << robot.LastDeed() << ": " << fault;
    if (::testing::Test::HasFailure()) break;
  }
  std::cout << "[ robot    ] " << deeds << " deeds with seed " << seed << "\n";
  EXPECT_TRUE(station.Windows().Find("frmLAUNCHER")) << "the launcher closed by itself after: " << robot.LastDeed();
  for (const std::string& message : station.Messages()) EXPECT_TRUE(IsExpected(message)) << message;
  station.Close();
  EXPECT_TRUE(station.Windows().Loaded().empty()) << "a window is left";
}

TEST(RobotUser, FindsTheTableBehindTheLaunchersButton) {
  RobotStation station;
  station.Start();
  auto* launcher = dynamic_cast<QWidget*>(station.Windows().Find("frmLAUNCHER"));
  ASSERT_TRUE(launcher);
  auto* button = launcher->findChild<QAbstractButton*>("BUTmenu(9)");
  ASSERT_TRUE(button);
  EXPECT_TRUE(button->isEnabled());
  station.Loop().RunEvent([&] { button->click(); });
  EXPECT_TRUE(station.Windows().IsVisible("Tabular"));
  station.Loop().Advance(2);
  station.Close();
}

TEST(RobotUser, WhoClosesTheGroupsWithoutAUsableOneStaysDoesWhatHelpsAndGoesOn) {
  RobotStation station;
  station.Start();
  station.Loop().RunEvent([&] { station.Windows().Show("frmCONGroups"); });
  auto* groups = dynamic_cast<QWidget*>(station.Windows().Find("frmCONGroups"));
  ASSERT_TRUE(groups);
  const auto click = [&](const char* name) {
    station.Loop().RunEvent([&] { groups->findChild<QAbstractButton*>(name)->click(); });
  };
  for (auto* list = groups->findChild<QListWidget*>("GroupList"); list->count() > 0; list->setCurrentRow(0)) {
    click("BUTdeletegroup");
  }
  station.Loop().RunEvent([&] { groups->close(); });
  ASSERT_TRUE(station.Windows().IsVisible("frmCONGroups")) << "he stays";
  const std::string told = station.Messages().back();
  auto* server = groups->findChild<QComboBox*>("COMCelestrak");
  for (int row = 0; row < server->count(); ++row) {
    if (told.find("choose \"" + server->itemText(row).toStdString() + '"') != std::string::npos)
      server->setCurrentIndex(row);
  }
  ASSERT_GE(server->currentIndex(), 0) << told;
  click("BUTaddCelestrak");
  station.Loop().RunEvent([&] { groups->close(); });
  EXPECT_FALSE(station.Windows().Find("frmCONGroups"));
  station.Loop().RunEvent([] { station::TheHub().RunActivation(); });
  EXPECT_TRUE(station.Windows().Find("frmLAUNCHER")) << "the run goes on";
  station.Close();
}

TEST(RobotUser, ClosingTheLauncherInTheMidstOfAnythingEndsTheRunInOrder) {
  for (unsigned seed = 1; seed <= 12; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RobotStation station;
    station.Start();
    Robot robot(station, seed);
    station.Loop().RunEvent([&] { station.Windows().Show("WorldView", "worldnormal"); });
    for (int i = 0; i < 15; ++i) robot.Act();
    // Some yields later, wherever the station then is, the launcher goes.
    station.Loop().AtYield(static_cast<int>(1 + seed * 3), [&] { station.Close(); });
    station.Loop().Advance(61);
    if (station.Windows().Find("frmLAUNCHER")) station.Close();
    EXPECT_TRUE(station.Windows().Loaded().empty());
    for (const std::string& fault : UnexpectedFaults(station)) ADD_FAILURE() << robot.LastDeed() << ": " << fault;
  }
}

}  // namespace
}  // namespace kestrava::robot
