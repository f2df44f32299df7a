// A user who has no mouse: all he does reaches the station as key events of the window that has the keyboard. What a
// desktop does for him, and only that, is done beside: going to another window (Alt+Tab), closing one (Alt+F4), and
// giving the keyboard back when the window that had it is gone.
#pragma once

#include <QTimer>
#include <QWidget>
#include <deque>
#include <stdexcept>
#include <string>
#include <vector>

#include "robot/RobotStation.h"

namespace kestrava::first_hour {

/// A box that is going to stand in the way, and how the user answers it.
struct Box {
  std::string part;  ///< of what it says
  QString typed;     ///< into its field, over what stands there
  Qt::Key key = Qt::Key_Return;
  Qt::KeyboardModifiers modifiers = Qt::NoModifier;
};

class Keyboard {
 public:
  explicit Keyboard(robot::RobotStation& station);

  /// What the user is about to do; every failure tells it.
  void Begin(const std::string& step) { step_ = step; }
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  void PressTimes(int times, Qt::Key key);
  void Alt(Qt::Key letter) { Press(letter, Qt::AltModifier); }
  void Type(const QString& text);

  /// Goes through the controls of the present window, with Tab, to one of them.
  void TabTo(const QString& control) { GoTo(control, Qt::Key_Tab); }
  void BackTabTo(const QString& control) { GoTo(control, Qt::Key_Backtab); }
  /// Puts a text into a field, over what it holds.
  void TypeInto(const QString& field, const QString& text);
  /// The same in a combo list that takes any text.
  void TypeOver(const QString& combo, const QString& text);
  /// Presses the space bar on a tick box, if it does not stand as wanted.
  void Tick(const QString& box, bool wanted);
  /// Goes down a combo list until it shows this.
  void ChooseIn(const QString& combo, const QString& entry);
  /// The launcher's button, and the entry of the menu that pops up by it (empty: it opens a window).
  void OpenFromLauncher(const QString& button, const QString& entry, const QString& window);

  void SwitchTo(const QString& window);
  void CloseWindow(const QString& window);
  void Wait(double seconds) { station_.Loop().Advance(seconds); }
  /// The next box must be this one. A box that nobody expects, and one that does not come, are failures.
  void Expect(Box box) { expected_.push_back(std::move(box)); }
  void CheckAllBoxesCame();

  QWidget& Window(const QString& name);
  template <class Control>
  Control& In(const QString& window, const QString& control) {
    auto* found = Window(window).findChild<Control*>(control);
    if (!found) Fail("there is no " + control.toStdString() + " in " + window.toStdString());
    return *found;
  }
  template <class Control>
  Control& Focused() {
    auto* found = dynamic_cast<Control*>(FocusWidget());
    if (!found) Fail("the keyboard is in " + FocusName().toStdString() + ", which is something else");
    return *found;
  }

  /// Texts of all boxes so far.
  const std::vector<std::string>& Boxes() const { return boxes_; }
  int KeysPressed() const { return keysPressed_; }

 private:
  [[noreturn]] void Fail(const std::string& what) const { throw std::logic_error("He " + step_ + ": " + what); }
  void GoTo(const QString& control, Qt::Key tab);
  static QWidget* FocusWidget();
  static QString FocusName();
  void Strike(Qt::Key key, Qt::KeyboardModifiers modifiers);
  void StrikeLetter(QChar letter);
  template <class Work>
  void Do(Work&& work);
  void AnswerABox();
  void GiveTheKeyboardBack();

  robot::RobotStation& station_;
  QTimer answers_;
  std::string step_;
  std::deque<Box> expected_;
  std::vector<std::string> boxes_;
  std::string boxFailure_;
  bool answering_ = false;
  int keysPressed_ = 0;
};

}  // namespace kestrava::first_hour
