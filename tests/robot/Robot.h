// A user who is in no hurry and has no plan: clicks, keys, menus, sizes and settings at random, but the same ones for
// the same seed, on all windows of a whole station in simulated time.
#pragma once

#include <QWidget>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "robot/RobotStation.h"

namespace kestrava::robot {

/// The controls of a kind in a window that a user can work with now.
template <class Control>
std::vector<Control*> UsableIn(const QWidget* window) {
  std::vector<Control*> usable;
  if (!window) return usable;
  for (Control* control : window->findChildren<Control*>())
    if (control->isVisible() && control->isEnabled()) usable.push_back(control);
  return usable;
}

/// The first group would be deleted by it: a station without its element file ends, and the robot has one run.
bool DeletesTheFirstGroup(const QWidget& control);

class Robot {
 public:
  Robot(RobotStation& station, unsigned seed);

  /// One thing that a user may do. What it was stands in LastDeed.
  void Act();
  const std::string& LastDeed() const { return lastDeed_; }

 private:
  using Deed = void (Robot::*)();

  int Below(int bound) { return bound > 0 ? static_cast<int>(random_() % static_cast<unsigned>(bound)) : 0; }
  template <class Item>
  const Item& OneOf(const std::vector<Item>& items) {
    return items[static_cast<std::size_t>(Below(static_cast<int>(items.size())))];
  }
  /// A visible top-level window of the station, or null.
  QWidget* SomeWindow();
  QWidget* ComeTo(QWidget* window);
  void AnswerAnInputBox();
  void Do(const std::string& deed, const std::function<void()>& work);

  void LetTimePass();
  void LetHoursPass();
  void ClickAButton();
  void ChooseAMenuEntry();
  void ClickTheMap();
  void ClickTheTable();
  void ChooseFromAList();
  void TypeANumber();
  void PressAKey();
  void MoveASlider();
  void ResizeAWindow();
  void MinimiseAWindow();
  void ChangeASetting();
  void OpenAWindow();
  void CloseAWindow();
  void ComeBackToTheLauncher();

  // In the windows of settings.
  QWidget* SomePanel();
  void TickARow();
  void TypeNonsense();
  void SearchSomething();
  void ClickThePlaceMap();
  void GoToAControl();
  void MoveByKeys();

  RobotStation& station_;
  std::mt19937 random_;
  std::string lastDeed_;
};

}  // namespace kestrava::robot
