// The rules themselves, on small windows that break them: a walk that finds nothing proves something only if it would
// have found what is wrong.
#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include "platform/qt/Theme.h"
#include "platform/qt/Widgets.h"

#include "Rules.h"

namespace kestrava::accessibility {
namespace {

using platform::qt::Named;

/// Keeps the keyboard to itself.
class Trap : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;

 protected:
  bool focusNextPrevChild(bool) override { return true; }
};

/// Looks the same with the focus and without, enabled and disabled.
class Blank : public QWidget {
 public:
  explicit Blank(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setFixedSize(60, 30);
  }
};

class RulesOfTheWalk : public ::testing::Test {
 protected:
  RulesOfTheWalk() {
    platform::qt::ApplyTheme(false);
    window.setObjectName("small");
    first = Named(new QLineEdit(&window), "first", "First field");
    column.addWidget(first);
    first->setFocus();
  }

  std::vector<std::string> FindingsOf(Count (*rule)(const Visit&, Findings&),
                                      std::span<const KnownException> known = {}) {
    window.show();
    window.activateWindow();
    QCoreApplication::processEvents();
    Findings findings(known);
    rule({"small", window}, findings);
    return findings.Lines();
  }

  template <class Control>
  Control* Add(Control* control) {
    column.addWidget(control);
    return control;
  }

  using Lines = std::vector<std::string>;
  QWidget window;
  QVBoxLayout column{&window};
  QLineEdit* first = nullptr;
};

TEST_F(RulesOfTheWalk, AnOrderlyWindowPassesAllOfThem) {
  Add(Named(new QCheckBox("&Tick"), "tick"));
  Add(Named(new QPushButton("&Press"), "press"));
  for (const auto rule : {CheckNames, CheckMenus, CheckRows, CheckMnemonics, CheckKeyboard, CheckFocusIsSeen,
                          CheckTexts, CheckEdges, CheckDisabled})
    EXPECT_EQ(FindingsOf(rule), Lines());
}

TEST_F(RulesOfTheWalk, AFieldWithoutANameIsFound) {
  Add(new QLineEdit)->setObjectName("second");
  EXPECT_EQ(FindingsOf(CheckNames), Lines{"small: QLineEdit second: no accessible name"});
}

TEST_F(RulesOfTheWalk, AnObjectNameIsNoName) {
  Add(Named(new QLineEdit, "Tname", "Tname"));
  EXPECT_EQ(FindingsOf(CheckNames), Lines{"small: QLineEdit Tname: only its object name as accessible name"});
}

TEST_F(RulesOfTheWalk, APaintedControlWithoutARoleIsFound) {
  Add(Named(new Blank(&window), "blank", "Picture"));
  EXPECT_EQ(FindingsOf(CheckNames), Lines{"small: QWidget blank: no role"});
}

TEST_F(RulesOfTheWalk, AMenuEntryWithoutWordsIsFound) {
  auto* menu = Named(new QMenu(&window), "menu", "Menu");
  menu->addAction("Copy")->setObjectName("copy");
  menu->addAction("")->setObjectName("mute");
  EXPECT_EQ(FindingsOf(CheckMenus), Lines{"small: entry mute of the menu menu: no accessible name"});
}

TEST_F(RulesOfTheWalk, ARowWithoutWordsIsFound) {
  auto* list = Add(Named(new QListWidget, "list", "List"));
  list->addItems({"one", ""});
  EXPECT_EQ(FindingsOf(CheckRows), Lines{"small: QListWidget list: row 1 cannot be read"});
}

TEST_F(RulesOfTheWalk, ALetterThatStandsForTwoIsFound) {
  Add(Named(new QCheckBox("&Tick"), "tick"));
  Add(Named(new QPushButton("&Take"), "take"));
  EXPECT_EQ(FindingsOf(CheckMnemonics).size(), 1u);
}

TEST_F(RulesOfTheWalk, ALetterOfADisabledControlIsFree) {
  Add(Named(new QCheckBox("&Tick"), "tick"))->setEnabled(false);
  Add(Named(new QPushButton("&Take"), "take"));
  EXPECT_EQ(FindingsOf(CheckMnemonics), Lines());
}

TEST_F(RulesOfTheWalk, ALabelOfAnotherWindowsFieldIsFound) {
  QLineEdit elsewhere;
  auto* label = Add(Named(new QLabel("&Far"), "far"));
  label->setBuddy(&elsewhere);
  EXPECT_EQ(FindingsOf(CheckMnemonics), Lines{"small: QLabel far \"&Far\": its buddy stands in another window"});
}

TEST_F(RulesOfTheWalk, AControlThatTabPassesByIsFound) {
  Add(Named(new QPushButton("Press"), "press"))->setFocusPolicy(Qt::ClickFocus);
  Add(Named(new QLineEdit, "last", "Last field"));
  EXPECT_EQ(FindingsOf(CheckKeyboard), (Lines{"small: QPushButton press \"Press\": not reached by Tab",
                                              "small: QPushButton press \"Press\": not reached by Shift+Tab"}));
}

TEST_F(RulesOfTheWalk, AControlThatKeepsTheKeyboardIsFound) {
  Add(Named(new Trap, "trap", "Trap"));
  Add(Named(new QLineEdit, "last", "Last field"));
  const Lines found = FindingsOf(CheckKeyboard);
  ASSERT_FALSE(found.empty());
  EXPECT_EQ(found.front(), "small: QLineEdit trap: keeps the focus from Tab");
}

TEST_F(RulesOfTheWalk, RadioButtonsAreReachedByTheArrows) {
  auto* group = Add(new QGroupBox("Group"));
  auto* rows = new QVBoxLayout(group);
  for (const char* name : {"one", "two", "three"}) rows->addWidget(Named(new QRadioButton(name), name));
  group->findChild<QRadioButton*>("two")->setChecked(true);
  EXPECT_EQ(FindingsOf(CheckKeyboard), Lines());
  EXPECT_TRUE(group->findChild<QRadioButton*>("two")->isChecked());
}

TEST_F(RulesOfTheWalk, AFocusThatIsNotSeenIsFound) {
  Add(Named(new Blank(&window), "blank", "Picture"));
  EXPECT_EQ(FindingsOf(CheckFocusIsSeen), Lines{"small: QWidget blank: the focus is not seen (0 of 24 px)"});
}

TEST_F(RulesOfTheWalk, AFaintTextIsFound) {
  auto* label = Add(Named(new QLabel("faint words"), "faint"));
  label->setStyleSheet("color: #b0b0b0; background: #ffffff");
  const Lines found = FindingsOf(CheckTexts);
  ASSERT_EQ(found.size(), 1u);
  EXPECT_NE(found.front().find("\"faint words\" stands out by 2."), std::string::npos) << found.front();
}

TEST_F(RulesOfTheWalk, AFaintPaletteIsFound) {
  auto* label = Add(Named(new QLabel("faint words"), "faint"));
  QPalette pale;
  pale.setColor(QPalette::WindowText, pale.color(QPalette::Window).darker(120));
  label->setPalette(pale);
  EXPECT_EQ(FindingsOf(CheckTexts).size(), 2u);
}

TEST_F(RulesOfTheWalk, AFaintEdgeIsFound) {
  first->setStyleSheet("border: 1px solid #d0d0d0; background: #ffffff");
  const Lines found = FindingsOf(CheckEdges);
  ASSERT_EQ(found.size(), 1u);
  EXPECT_NE(found.front().find("its edge stands out by 1."), std::string::npos) << found.front();
}

TEST_F(RulesOfTheWalk, ADisabledControlThatLooksEnabledIsFound) {
  Add(Named(new Blank(&window), "blank", "Picture"))->setEnabled(false);
  EXPECT_EQ(FindingsOf(CheckDisabled), Lines{"small: QWidget blank: disabled it looks as if it were enabled"});
}

TEST_F(RulesOfTheWalk, AKnownExceptionExcusesItsOwnControlOnly) {
  Add(new QLineEdit)->setObjectName("second");
  Add(new QLineEdit)->setObjectName("third");
  const KnownException known[]{{"small", "second", "no accessible name", "for this test"}};
  EXPECT_EQ(FindingsOf(CheckNames, known), Lines{"small: QLineEdit third: no accessible name"});
}

}  // namespace
}  // namespace kestrava::accessibility
