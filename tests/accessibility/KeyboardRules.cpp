#include <QAbstractSpinBox>
#include <QAccessible>
#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QMenuBar>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <algorithm>
#include <set>

#include "Controls.h"
#include "Pixels.h"
#include "Rules.h"
#include "support_qt/Shots.h"

namespace kestrava::accessibility {

namespace {

constexpr int kMostSteps = 400;  // a text's links are steps too
constexpr double kFocusContrast = 3;
constexpr int kLeastMarkPx = 24;
constexpr int kAroundPx = 4;

QWidget* FocusIn(const QWidget& window) {
  QWidget* focus = QApplication::focusWidget();
  return focus && focus->window() == &window ? focus : nullptr;
}

void ComeTo(QWidget& window) {
  window.activateWindow();
  QCoreApplication::processEvents();
}

struct Round {
  std::vector<QWidget*> stops;  ///< in the order of the keys
  QWidget* caught = nullptr;    ///< where the keys no longer lead on
};

/// Presses the key until the focus is where it was at first.
Round GoRound(QWidget& window, Qt::Key key) {
  Round round;
  if (!FocusIn(window)) QTest::keyClick(&window, key);
  QWidget* const first = FocusIn(window);
  if (!first) return round;
  round.stops.push_back(first);
  for (int step = 0; step < kMostSteps; ++step) {
    QTest::keyClick(FocusIn(window), key);
    QWidget* const now = FocusIn(window);
    if (now == first) return round;
    if (!now) break;
    if (std::find(round.stops.begin(), round.stops.end(), now) == round.stops.end()) round.stops.push_back(now);
  }
  round.caught = round.stops.back();
  return round;
}

bool IsReached(const QWidget& control, const std::set<QWidget*>& reached) {
  if (reached.contains(const_cast<QWidget*>(&control)) || reached.contains(control.focusProxy())) return true;
  const bool whole =
      control.inherits("QComboBox") || control.inherits("QAbstractSpinBox") || control.inherits("QCalendarWidget");
  return whole &&
         std::any_of(reached.begin(), reached.end(), [&](QWidget* stop) { return control.isAncestorOf(stop); });
}

QRadioButton* ChosenBeside(const QRadioButton& entry) {
  for (auto* button : entry.parentWidget()->findChildren<QRadioButton*>())
    if (button->isChecked()) return button;
  return nullptr;
}

/// All that the arrow keys reach from a radio button. They press what they come to; what was chosen is chosen again.
void GoThroughGroup(QRadioButton& entry, std::set<QWidget*>& reached) {
  QRadioButton* const chosen = ChosenBeside(entry);
  std::vector<QRadioButton*> known{&entry};
  for (std::size_t at = 0; at < known.size(); ++at) {
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Up, Qt::Key_Left}) {
      known[at]->setFocus(Qt::TabFocusReason);
      QTest::keyClick(known[at], key);
      auto* now = qobject_cast<QRadioButton*>(QApplication::focusWidget());
      if (now && std::find(known.begin(), known.end(), now) == known.end()) known.push_back(now);
    }
  }
  reached.insert(known.begin(), known.end());
  if (chosen) chosen->click();
}

/// Of a group of radio buttons Tab knows one.
void GoThroughGroups(std::set<QWidget*>& reached) {
  const std::set<QWidget*> stops = reached;
  for (QWidget* stop : stops)
    if (auto* button = qobject_cast<QRadioButton*>(stop)) GoThroughGroup(*button, reached);
}

/// The months of a calendar change by keys as by its arrows.
void CheckCalendar(const Visit& visit, QCalendarWidget& calendar, Findings& findings) {
  QWidget* focus = nullptr;
  for (QWidget* child : calendar.findChildren<QWidget*>())
    if (child->inherits("QTableView")) focus = child;
  const int before = calendar.monthShown();
  if (focus) QTest::keyClick(focus, Qt::Key_PageDown);
  if (calendar.monthShown() == before) findings.Add(visit, calendar, "no way by keyboard to another month");
  if (focus) QTest::keyClick(focus, Qt::Key_PageUp);
}

/// A text that is longer than its area can be scrolled by keys.
void CheckScrolling(const Visit& visit, const QScrollArea& area, const std::set<QWidget*>& reached,
                    Findings& findings) {
  if (area.verticalScrollBar()->maximum() == 0 && area.horizontalScrollBar()->maximum() == 0) return;
  const auto leads = [&](QWidget* stop) { return stop == &area || area.isAncestorOf(stop); };
  if (!std::any_of(reached.begin(), reached.end(), leads)) findings.Add(visit, area, "no way by keyboard to scroll it");
}

void CheckReached(const Visit& visit, const std::set<QWidget*>& reached, const char* keys, Findings& findings) {
  for (QWidget* control : ControlsOf(visit.root)) {
    if (qobject_cast<QMenuBar*>(control)) continue;  // by its letters
    const bool can = control->isEnabled() ? IsReached(*control, reached) : (control->focusPolicy() & Qt::TabFocus) != 0;
    if (!can) findings.Add(visit, *control, QString("not reached by ") + keys);
  }
}

/// The row of a list that has the focus shows it, else the whole control.
double LeastMark(const QWidget& control) {
  return std::min({control.width(), control.height(), kLeastMarkPx});
}

}  // namespace

Count CheckKeyboard(const Visit& visit, Findings& findings) {
  const auto controls = ControlsOf(visit.root);
  const auto isKeyed = [](QWidget* control) { return control->isEnabled() && !qobject_cast<QMenuBar*>(control); };
  if (std::none_of(controls.begin(), controls.end(), isKeyed)) return 0;
  ComeTo(visit.root);
  if (!FocusIn(visit.root)) findings.Add(visit, visit.root, "nothing has the focus at first");
  std::set<QWidget*> reached;
  for (const auto& [key, words] : {std::pair{Qt::Key_Tab, "Tab"}, std::pair{Qt::Key_Backtab, "Shift+Tab"}}) {
    const Round round = GoRound(visit.root, key);
    if (round.caught) findings.Add(visit, *round.caught, QString("keeps the focus from ") + words);
    reached = {round.stops.begin(), round.stops.end()};
    GoThroughGroups(reached);
    CheckReached(visit, reached, words, findings);
  }
  for (auto* calendar : Visible<QCalendarWidget>(visit.root)) CheckCalendar(visit, *calendar, findings);
  for (const auto* area : Visible<QScrollArea>(visit.root)) CheckScrolling(visit, *area, reached, findings);
  return static_cast<Count>(reached.size());
}

Count CheckFocusIsSeen(const Visit& visit, Findings& findings) {
  ComeTo(visit.root);
  const Round round = GoRound(visit.root, Qt::Key_Tab);
  for (QWidget* stop : round.stops) {
    stop->setFocus(Qt::TabFocusReason);
    QWidget* control = stop;
    while (IsPart(*control) && control->parentWidget()) control = control->parentWidget();
    const QRect place = BringIntoView(*control).adjusted(-kAroundPx, -kAroundPx, kAroundPx, kAroundPx);
    const QImage with = GrabPart(visit.root, place);
    stop->clearFocus();
    const double mark = ChangedArea(GrabPart(visit.root, place), with, kFocusContrast);
    if (mark >= LeastMark(*control)) continue;
    testing::SaveShot(with, "focus");
    findings.Add(visit, *control, QString("the focus is not seen (%1 of %2 px)").arg(mark).arg(LeastMark(*control)));
  }
  return static_cast<Count>(round.stops.size());
}

}  // namespace kestrava::accessibility
