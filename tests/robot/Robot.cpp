#include "robot/Robot.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMouseEvent>
#include <QSlider>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include "platform/Doors.h"
#include "shell/Shutdown.h"

namespace kestrava::robot {

namespace {

struct SettingChoice {
  const char* key;
  std::vector<const char*> values;
};

const std::vector<SettingChoice>& Choices() {
  static const std::vector<SettingChoice> choices{
      {"LEDclocks", {"0", "1", "2"}},
      {"Miles", {"0", "1"}},
      {"ShowGroundtrack", {"0", "1"}},
      {"ShowFootprints", {"0", "1"}},
      {"GroundTrackLen", {"5", "90", "180"}},
      {"MapUpdate", {"1", "2", "10", "60"}},
      {"AutoSelect", {"0", "1"}},
      {"Altworld", {"0", "1"}},
      {"Latitude", {"0", "69.6", "-35.6", "90", "-90"}},
      {"Longitude", {"0", "351.5", "180", "360"}},
      {"HASL", {"0", "450", "8848"}},
      {"WxEL", {"0", "10", "90"}},
      {"RecWxsat", {"0", "1"}},
      {"RecPrimary", {"0", "1"}},
      {"Speechpack", {"0", "1"}},
      {"SpeechEvery", {"1", "2", "5"}},
      {"SpeechStart", {"1", "10", "60"}},
      {"ShowInfoPane", {"0", "1"}},
      {"Skin", {"0", "1"}},
      {"MapFile", {"Default", "Night", "Missing"}},
      {"HorizonFile", {"hdefault", "hmoonlit", "hsea", "Missing"}},
  };
  return choices;
}

void ClosePopUps() {
  while (QWidget* popUp = QApplication::activePopupWidget()) popUp->close();
}

}  // namespace

Robot::Robot(RobotStation& station, unsigned seed) : station_(station), random_(seed) {}

void Robot::Act() {
  struct Weighted {
    int weight;
    Deed deed;
  };
  static constexpr Weighted kDeeds[] = {{30, &Robot::LetTimePass},    {1, &Robot::LetHoursPass},
                                        {12, &Robot::ClickAButton},   {12, &Robot::ChooseAMenuEntry},
                                        {12, &Robot::ClickTheMap},    {10, &Robot::PressAKey},
                                        {6, &Robot::MoveASlider},     {6, &Robot::ResizeAWindow},
                                        {2, &Robot::MinimiseAWindow}, {4, &Robot::ClickTheTable},
                                        {8, &Robot::ChooseFromAList}, {3, &Robot::TypeANumber},
                                        {6, &Robot::ChangeASetting},  {5, &Robot::OpenAWindow},
                                        {4, &Robot::CloseAWindow},    {4, &Robot::ComeBackToTheLauncher},
                                        {5, &Robot::TickARow},        {4, &Robot::TypeNonsense},
                                        {3, &Robot::SearchSomething}, {3, &Robot::ClickThePlaceMap},
                                        {3, &Robot::GoToAControl},    {3, &Robot::MoveByKeys}};
  int sum = 0;
  for (const Weighted& each : kDeeds) sum += each.weight;
  int drawn = Below(sum);
  for (const Weighted& each : kDeeds) {
    drawn -= each.weight;
    if (drawn >= 0) continue;
    (this->*each.deed)();
    break;
  }
  ClosePopUps();
}

/// An input box waits in a loop of its own, which a timer reaches: it is answered, or cancelled.
void Robot::AnswerAnInputBox() {
  auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
  if (!box) return;
  if (auto* line = box->findChild<QLineEdit*>()) QTest::keyClicks(line, "a, b");
  Below(3) == 0 ? box->reject() : box->accept();
}

void Robot::Do(const std::string& deed, const std::function<void()>& work) {
  lastDeed_ = deed;
  QTimer answers;
  QObject::connect(&answers, &QTimer::timeout, &answers, [this] { AnswerAnInputBox(); });
  answers.start(0);
  station_.Loop().RunEvent(work);
  answers.stop();
  station_.Loop().RunEvent([] { QCoreApplication::processEvents(); });
}

QWidget* Robot::SomeWindow() {
  std::vector<QWidget*> windows;
  for (const auto& [name, window] : station_.Windows().Loaded()) {
    auto* widget = dynamic_cast<QWidget*>(window);
    if (widget && widget->isVisible()) windows.push_back(widget);
  }
  return windows.empty() ? nullptr : ComeTo(OneOf(windows));
}

/// Whoever clicks or types in a window has come to it.
QWidget* Robot::ComeTo(QWidget* window) {
  if (!window || window->isActiveWindow()) return window;
  station_.Loop().RunEvent([=] {
    window->activateWindow();
    QCoreApplication::processEvents();
  });
  return window;
}

void Robot::LetTimePass() {
  lastDeed_ = "lets time pass";
  station_.Loop().Advance(0.05 + Below(30) / 10.0);
}

void Robot::LetHoursPass() {
  lastDeed_ = "comes back after hours of the machine's sleep";
  // The time of day leaps; timers, which count what really passes, do not notice.
  testing::ScriptedClock& clock = station_.House().clock;
  clock.SetUtc(clock.Read().utc + (1 + Below(20)) / 24.0);
  station_.Loop().Advance(1);
}

void Robot::ClickAButton() {
  auto buttons = UsableIn<QAbstractButton>(SomeWindow());
  // The toolkit's own extension button of a narrow menu bar waits in a loop for the user's choice.
  std::erase_if(buttons, [](QAbstractButton* button) { return qobject_cast<QToolButton*>(button) != nullptr; });
  std::erase_if(buttons, [](QAbstractButton* button) { return DeletesTheFirstGroup(*button); });
  if (buttons.empty()) return;
  QAbstractButton* button = OneOf(buttons);
  Do("clicks " + button->objectName().toStdString(), [button] { QTest::mouseClick(button, Qt::LeftButton); });
}

void Robot::ChooseAMenuEntry() {
  QWidget* window = SomeWindow();
  if (!window) return;
  std::vector<QAction*> entries;
  for (QAction* action : window->findChildren<QAction*>())
    if (action->isEnabled() && !action->isSeparator() && !action->menu()) entries.push_back(action);
  if (entries.empty()) return;
  QAction* entry = OneOf(entries);
  Do("chooses " + entry->objectName().toStdString(), [entry] { entry->trigger(); });
}

void Robot::ClickTheMap() {
  QWidget* window = SomeWindow();
  QWidget* map = window ? window->findChild<QWidget*>("Final") : nullptr;
  if (!map || map->width() < 2 || map->height() < 2) return;
  const QPoint at(Below(map->width()), Below(map->height()));
  const Qt::MouseButton button = Below(4) == 0 ? Qt::RightButton : Qt::LeftButton;
  Do("clicks the map", [=] { QTest::mouseClick(map, button, {}, at); });
}

void Robot::ClickTheTable() {
  QWidget* window = SomeWindow();
  auto* table = window ? window->findChild<QTableView*>("TabList") : nullptr;
  if (!table) return;
  static const std::vector<Qt::KeyboardModifier> modifiers{Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier};
  const bool head = Below(2) == 0;
  QWidget* area = head ? table->horizontalHeader()->viewport() : table->viewport();
  if (area->width() < 2 || area->height() < 2) return;
  const QPoint at(Below(area->width()), Below(area->height()));
  const Qt::MouseButton button = Below(4) == 0 ? Qt::RightButton : Qt::LeftButton;
  const Qt::KeyboardModifier modifier = OneOf(modifiers);
  Do(head ? "clicks a head of the table" : "clicks a row of the table",
     [=] { QTest::mouseClick(area, button, modifier, at); });
}

/// An entry of a combo list, or a row of a list box.
void Robot::ChooseFromAList() {
  QWidget* window = SomeWindow();
  const auto combos = UsableIn<QComboBox>(window);
  const auto boxes = UsableIn<QListWidget>(window);
  if (!combos.empty() && (boxes.empty() || Below(4) > 0)) {
    QComboBox* combo = OneOf(combos);
    if (combo->count() == 0) return;
    const int entry = Below(combo->count());
    Do("chooses from " + combo->objectName().toStdString(), [=] {
      combo->setCurrentIndex(entry);
      emit combo->activated(entry);
    });
  } else if (!boxes.empty()) {
    QListWidget* box = OneOf(boxes);
    const int row = Below(box->count() + 1) - 1;
    Do("selects a row of " + box->objectName().toStdString(), [=] { box->setCurrentRow(row); });
  }
}

void Robot::TypeANumber() {
  const auto fields = UsableIn<QLineEdit>(SomeWindow());
  if (fields.empty()) return;
  QLineEdit* field = OneOf(fields);
  const QString number = QString::number(Below(3));
  Do("types into " + field->objectName().toStdString(), [=] { field->setText(number); });
}

void Robot::PressAKey() {
  QWidget* window = SomeWindow();
  if (!window) return;
  static const std::vector<Qt::Key> keys{Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Space, Qt::Key_Return, Qt::Key_Escape,
                                         Qt::Key_Left, Qt::Key_Right,   Qt::Key_Up,    Qt::Key_Down,   Qt::Key_PageUp,
                                         Qt::Key_Home, Qt::Key_A,       Qt::Key_1,     Qt::Key_F1,     Qt::Key_F5};
  static const std::vector<Qt::KeyboardModifier> modifiers{Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier,
                                                           Qt::ShiftModifier};
  const Qt::Key key = OneOf(keys);
  const Qt::KeyboardModifier modifier = OneOf(modifiers);
  QWidget* target = window->focusWidget() ? window->focusWidget() : window;
  if (qobject_cast<QLineEdit*>(target) && key == Qt::Key_A) return;  // days that are no number are a fault by right
  if (DeletesTheFirstGroup(*target)) return;
  Do("presses a key in " + target->objectName().toStdString(), [=] { QTest::keyClick(target, key, modifier); });
}

void Robot::MoveASlider() {
  const auto sliders = UsableIn<QSlider>(SomeWindow());
  if (sliders.empty()) return;
  QSlider* slider = OneOf(sliders);
  const int value = slider->minimum() + Below(slider->maximum() - slider->minimum() + 1);
  Do("moves " + slider->objectName().toStdString(), [=] { slider->setValue(value); });
}

void Robot::ResizeAWindow() {
  QWidget* window = SomeWindow();
  if (!window) return;
  const QSize size(100 + Below(1500), 80 + Below(1000));
  Do("resizes " + window->objectName().toStdString(), [=] { window->resize(size); });
}

void Robot::MinimiseAWindow() {
  QWidget* window = SomeWindow();
  if (!window) return;
  Do("minimises " + window->objectName().toStdString(), [=] { window->showMinimized(); });
  station_.Loop().Advance(3);
  const bool stillThere = QApplication::topLevelWidgets().contains(window);
  if (stillThere) Do("brings it back", [=] { window->showNormal(); });
}

void Robot::ChangeASetting() {
  const SettingChoice& choice = OneOf(Choices());
  const char* value = OneOf(choice.values);
  lastDeed_ = std::string("sets ") + choice.key + " to " + value;
  platform::WriteSetting(choice.key, value);
}

void Robot::OpenAWindow() {
  static const std::vector<const char*> modes{"worldnormal", "worldalt", "NWQ", "NCQ", "NEQ", "SWQ", "SCQ", "SEQ"};
  static const std::vector<const char*> others{"About",      "SystemInformation", "WorldView",  "Tabular",
                                               "Horizon",    "PassPrediction",    "PassWizard", "frmCONGroups",
                                               "frmCONmain", "frmCONlocations",   "frmCON2D"};
  const char* mode = OneOf(modes);
  const std::string other = OneOf(others);
  const bool quadrant = Below(3) == 0 && station_.Windows().Loaded().size() < 8;
  Do("opens " + (quadrant ? std::string("another map") : other), [=, this] {
    if (quadrant) {
      station_.Windows().ShowNew("WorldView", mode);
    } else if (station_.Windows().Knows(other)) {
      station_.Windows().Show(other, other == "WorldView" ? mode : "");
    }
  });
}

void Robot::CloseAWindow() {
  QWidget* window = SomeWindow();
  if (!window || window->objectName().toStdString() == shell::kLauncherName) return;
  Do("closes " + window->objectName().toStdString(), [=] { window->close(); });
}

void Robot::ComeBackToTheLauncher() {
  Do("comes back to the launcher", [this] {
    auto* launcher = dynamic_cast<QWidget*>(station_.Windows().Find(shell::kLauncherName));
    if (!launcher) return;
    launcher->activateWindow();
    launcher->raise();
  });
}

}  // namespace kestrava::robot
