// The groups window with its real controls, in a scripted house: "Amateur" of three satellites, "Mine" of two, and
// "Weather", whose file is not there.
#pragma once

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QWidget>
#include <deque>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "orbit/Tables.h"
#include "panels/GroupsPanel.h"
#include "panels/ui/PanelWindows.h"
#include "platform/qt/ChoiceWidgets.h"
#include "station/Hub.h"

#include "support/House.h"

class QDialog;
class QListWidget;

namespace kestrava::panels::ui {

using Strings = std::vector<std::string>;

/// Remembers that a new start was asked for.
class CountingHub : public station::Hub {
 public:
  CountingHub() { station::UseHub(this); }
  ~CountingHub() override { station::UseHub(nullptr); }
  void StartAnew() override { ++starts; }
  int starts = 0;
};

class GroupsFixture : public testing::House {
 protected:
  GroupsFixture();
  ~GroupsFixture() override;

  /// Shows the window through the registry.
  QWidget& Open();
  bool IsOpen() { return windows->Find(kGroupsWindow) != nullptr; }
  /// What happens in one event of the toolkit.
  void RunEvent(const std::function<void()>& event);
  void CloseByUser();
  /// As the launcher does when it goes.
  void CloseByLauncher();
  static void HandleEvents();

  template <class Control>
  Control& Child(const char* name) {
    auto* control = window_->findChild<Control*>(name);
    if (!control) throw std::runtime_error(std::string("no control ") + name);
    return *control;
  }
  void Click(const char* name);
  void Press(const char* name, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  void Type(const char* name, const char* text);
  void Choose(const char* combo, const char* entry);
  /// A click of the mouse on the text of a row.
  void ClickRow(const char* list, int row);
  /// A click of the mouse on a row's tick box.
  void ClickBox(int row);
  /// The middle of a tick box in the list's viewport.
  QPoint BoxOf(int row);

  Strings Rows(const char* list);
  /// The satellites that a filter leaves in sight.
  Strings Shown();
  Strings Ticked();
  std::string Details();
  std::string Count() { return Child<QLabel>("FavouriteCount").text().toStdString(); }

  /// The next input box is worked by this.
  void InTheBox(std::function<void(QDialog&)> work) { boxes_.push_back(std::move(work)); }
  /// Types an answer into the next input box, or cancels it.
  void AnswerBox(const char* text);
  void CancelBox();

  void AddRow(const std::string& name, const std::string& address, const std::string& manual);
  void Favour(const Strings& names);
  void FillFavourites(int count);
  Strings Favourites();
  static std::string Sets(const Strings& names);
  static std::string ManySets(int count);

  orbit::Tables& tables = orbit::TheTables();
  CountingHub hub;

 private:
  void WorkABox();

  QWidget* window_ = nullptr;
  std::deque<std::function<void(QDialog&)>> boxes_;
};

}  // namespace kestrava::panels::ui
