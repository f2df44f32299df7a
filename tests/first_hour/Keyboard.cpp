#include "first_hour/Keyboard.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QWindow>
#include <algorithm>

#include "shell/Shutdown.h"

namespace kestrava::first_hour {

namespace {

constexpr int kMostTabs = 80;      // more than any window has controls
constexpr int kMostEntries = 100;  // more than any list of the hour has entries
constexpr double kBreathS = 0.7;   // a window has been told by then that the user has come to it

std::string TextOf(const QDialog& box) {
  QString text = box.windowTitle();
  for (const QLabel* label : box.findChildren<QLabel*>()) text += '\n' + label->text();
  return text.toStdString();
}

bool AButtonIsDown() {
  const QWidgetList all = QApplication::allWidgets();
  return std::any_of(all.begin(), all.end(), [](const QWidget* widget) {
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    return button && button->isDown();
  });
}

/// A button that is pressed by its letter stays down for a moment of the toolkit's own, and is clicked at its end.
void LetButtonsComeUp() {
  QCoreApplication::processEvents();
  while (AButtonIsDown()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

}  // namespace

Keyboard::Keyboard(robot::RobotStation& station) : station_(station) {
  QObject::connect(&answers_, &QTimer::timeout, &answers_, [this] { AnswerABox(); });
}

QWidget* Keyboard::FocusWidget() {
  return QApplication::focusWidget();
}

QString Keyboard::FocusName() {
  const QWidget* widget = FocusWidget();
  return widget ? widget->objectName() : QString("no control");
}

void Keyboard::Strike(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QWindow* window = QGuiApplication::focusWindow();
  if (!window) return;
  ++keysPressed_;
  QTest::keyClick(window, key, modifiers);
}

void Keyboard::StrikeLetter(QChar letter) {
  QWindow* window = QGuiApplication::focusWindow();
  if (!window) return;
  ++keysPressed_;
  QTest::sendKeyEvent(QTest::Click, window, static_cast<Qt::Key>(letter.toUpper().unicode()), QString(letter),
                      letter.isUpper() ? Qt::ShiftModifier : Qt::NoModifier);
}

/// An event of the user's, with the boxes that it opens, which wait in loops of their own.
template <class Work>
void Keyboard::Do(Work&& work) {
  GiveTheKeyboardBack();
  if (!QGuiApplication::focusWindow()) Fail("no window has the keyboard");
  answers_.start(0);
  station_.Loop().RunEvent(work);
  station_.Loop().RunEvent([] { LetButtonsComeUp(); });
  answers_.stop();
  if (!boxFailure_.empty()) Fail(boxFailure_);
}

/// Of a box that was not expected only Escape is known to be harmless.
void Keyboard::AnswerABox() {
  auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
  if (!box || answering_) return;
  if (QGuiApplication::focusWindow() != box->windowHandle()) return box->activateWindow();  // it is only coming up
  answering_ = true;
  const std::string text = TextOf(*box);
  boxes_.push_back(text);
  if (expected_.empty() || text.find(expected_.front().part) == std::string::npos) {
    if (boxFailure_.empty()) boxFailure_ = "a box comes that he did not expect: " + text;
    box->reject();
  } else {
    const Box answer = expected_.front();
    expected_.pop_front();
    for (const QChar letter : answer.typed) StrikeLetter(letter);
    Strike(answer.key, answer.modifiers);
    LetButtonsComeUp();
    if (box->isVisible()) {
      boxFailure_ = "the box stays: " + text;
      box->reject();
    }
  }
  answering_ = false;
}

/// As a desktop does: where the window with the keyboard is gone, the last one that is left has it.
void Keyboard::GiveTheKeyboardBack() {
  const QWindow* focus = QGuiApplication::focusWindow();
  if (QApplication::activePopupWidget() || (focus && focus->isVisible())) return;
  const auto loaded = station_.Windows().Loaded();
  for (auto each = loaded.rbegin(); each != loaded.rend(); ++each) {
    auto* widget = dynamic_cast<QWidget*>(each->second);
    if (!widget || !widget->isVisible()) continue;
    station_.Loop().RunEvent([&] {
      widget->activateWindow();
      QCoreApplication::processEvents();
    });
    return;
  }
}

void Keyboard::Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  Do([&] { Strike(key, modifiers); });
}

void Keyboard::PressTimes(int times, Qt::Key key) {
  for (int i = 0; i < times; ++i) Press(key);
}

void Keyboard::Type(const QString& text) {
  for (const QChar letter : text) Do([&] { StrikeLetter(letter); });
}

void Keyboard::GoTo(const QString& control, Qt::Key tab) {
  const Qt::KeyboardModifiers modifiers = tab == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier;
  for (int i = 0; i < kMostTabs && FocusName() != control; ++i) Press(tab, modifiers);
  if (FocusName() != control) Fail("Tab does not lead to " + control.toStdString());
}

void Keyboard::TypeInto(const QString& field, const QString& text) {
  TabTo(field);
  auto& line = Focused<QLineEdit>();
  if (!line.text().isEmpty() && line.selectedText() != line.text()) Press(Qt::Key_A, Qt::ControlModifier);
  Type(text);
  if (line.text() != text) Fail(field.toStdString() + " holds " + line.text().toStdString());
}

void Keyboard::TypeOver(const QString& combo, const QString& text) {
  TabTo(combo);
  auto& list = Focused<QComboBox>();
  Type(text);
  if (list.currentText() != text) Fail(combo.toStdString() + " holds " + list.currentText().toStdString());
}

void Keyboard::Tick(const QString& box, bool wanted) {
  TabTo(box);
  auto& tick = Focused<QCheckBox>();
  if (tick.isChecked() != wanted) Press(Qt::Key_Space);
  if (tick.isChecked() != wanted) Fail("the space bar does not tick " + box.toStdString());
}

void Keyboard::ChooseIn(const QString& combo, const QString& entry) {
  TabTo(combo);
  auto& list = Focused<QComboBox>();
  Press(Qt::Key_Home);
  for (int i = 0; i < kMostEntries && list.currentText() != entry; ++i) Press(Qt::Key_Down);
  if (list.currentText() != entry) Fail(combo.toStdString() + " has no " + entry.toStdString());
}

void Keyboard::OpenFromLauncher(const QString& button, const QString& entry, const QString& window) {
  SwitchTo(QString::fromUtf8(shell::kLauncherName.data(), static_cast<qsizetype>(shell::kLauncherName.size())));
  TabTo(button);
  Press(Qt::Key_Space);
  if (!entry.isEmpty()) {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu) Fail("no menu pops up by " + button.toStdString());
    const auto isThere = [&] { return menu->activeAction() && menu->activeAction()->objectName() == entry; };
    for (int i = 0; i < kMostEntries && !isThere(); ++i) Press(Qt::Key_Down);
    if (!isThere()) Fail("the menu has no " + entry.toStdString());
    Press(Qt::Key_Return);
  }
  Wait(kBreathS);
  if (!station_.Windows().IsVisible(window.toStdString())) Fail(window.toStdString() + " does not open");
  SwitchTo(window);
}

void Keyboard::SwitchTo(const QString& window) {
  QWidget& widget = Window(window);
  if (QGuiApplication::focusWindow() == widget.windowHandle()) return;
  station_.Loop().RunEvent([&] {
    widget.raise();
    widget.activateWindow();
    QCoreApplication::processEvents();
  });
  Wait(kBreathS);
  if (QApplication::activeWindow() != &widget) Fail("the keyboard does not come to " + window.toStdString());
}

void Keyboard::CloseWindow(const QString& window) {
  QWidget& widget = Window(window);
  Do([&] { widget.close(); });
  Wait(kBreathS);
  if (station_.Windows().Find(window.toStdString())) Fail(window.toStdString() + " does not close");
}

void Keyboard::CheckAllBoxesCame() {
  if (!expected_.empty()) Fail("a box does not come: " + expected_.front().part);
}

QWidget& Keyboard::Window(const QString& name) {
  auto* window = dynamic_cast<QWidget*>(station_.Windows().Find(name.toStdString()));
  if (!window) Fail("there is no window " + name.toStdString());
  return *window;
}

}  // namespace kestrava::first_hour
