// The robot user on the whole station. How long, and with which seed, can be said from outside: KESTRAVA_ROBOT_MINUTES,
// KESTRAVA_ROBOT_SEED. Under the sanitizers it finds what no plan would.
#include <QAbstractButton>
#include <QWidget>
#include <QtGlobal>
#include <iostream>

#include <gtest/gtest.h>

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
      "Copy ALL Keplerian element files", "Keplerian files copied", "Floppy Drive A:",
      // of the pass window and its wizard
      "You must select either one of the", "Predictions saved as /documents/", "You must select a preset first",
      "you must select a preset to", "you must choose a job name", "You must fill in the days box",
      "You havn't chosen any satellites", "First select a Group", "Select a satellite on the list first",
      "You will loose the information", "Can't file PASS.DAT",
      // of the groups window
      "Select a satellite first", "Select a group first", "satellite group keps are not updated yet",
      "Is this new group updated via the Internet?", "Primary Favourite Satellite changed from",
      "Sorry, this feature is not available", "These favourites are not known yet"};
  for (const std::string& part : parts)
    if (message.find(part) != std::string::npos) return true;
  return false;
}

/// A prediction for a prompt instead of a satellite is logged, and is the user's own doing.
std::vector<std::string> UnexpectedFaults(RobotStation& station) {
  std::vector<std::string> faults = station.TakeFaults();
  std::erase_if(faults, [](const std::string& fault) {
    return fault.find("No element set for \"Select ") == 0 && fault.ends_with(" - PassPred-CalcResults");
  });
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
