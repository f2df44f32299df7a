#include <QApplication>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QTime>
#include <QTimer>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/qt/QtDoors.h"
#include "platform/qt/Theme.h"
#include "platform/qt/TimeForm.h"
#include "platform/qt/Widgets.h"

#include "support/House.h"
#include "support_qt/Shots.h"

namespace kestrava::platform::qt {
namespace {

using QtDoorsTests = testing::House;

/// Presses a button of the message box that will stand next. @return its text once it has stood
std::shared_ptr<std::string> PressInBox(QMessageBox::StandardButton button) {
  auto text = std::make_shared<std::string>();
  QTimer::singleShot(0, qApp, [text, button] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    *text = FromQt(box->windowTitle() + ": " + box->text());
    testing::SaveShot(*box, SkinIsOn() ? "message-skin" : "message-plain");
    box->button(button)->click();
  });
  return text;
}

/// What stands beside the text of a message of that kind, where the user sees it.
QImage SignBesideText(MessageIcon icon) {
  QImage sign;
  QTimer::singleShot(0, qApp, [&sign, icon] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    testing::SaveShot(*box, icon == MessageIcon::kExclamation ? "message-exclamation" : "message-information");
    for (QLabel* label : box->findChildren<QLabel*>()) {
      if (label->isVisible() && !label->pixmap(Qt::ReturnByValue).isNull()) sign = testing::Grab(*label);
    }
    box->button(QMessageBox::Ok)->click();
  });
  QtMessages().Show("Read this", "Kestrava", icon);
  return sign;
}

TEST_F(QtDoorsTests, AMessageShowsItsSignAndAnExclamationIsAnotherThanAnInformation) {
  for (const bool skin : {false, true}) {
    ApplyTheme(skin);
    const QImage information = SignBesideText(MessageIcon::kInformation);
    const QImage exclamation = SignBesideText(MessageIcon::kExclamation);
    EXPECT_GE(information.width(), 32) << skin;
    EXPECT_EQ(information.size(), exclamation.size()) << skin;
    EXPECT_NE(information, exclamation) << skin;
  }
  ApplyTheme(false);
}

TEST_F(QtDoorsTests, ARunThatIsEndingIsHeldUpByNoBox) {
  QtMessages boxes;
  boxes.GoSilent();
  ::testing::internal::CaptureStderr();
  boxes.Show("not read by anybody");
  EXPECT_FALSE(boxes.AskYesNo("Copy?"));
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "not read by anybody\nCopy?\n");
}

TEST_F(QtDoorsTests, AMessageStandsUntilItIsRead) {
  const auto text = PressInBox(QMessageBox::Ok);
  ApplyTheme(true);
  QtMessages().Show("3 Keplerian files copied to Floppy disk", "Keplerian Data Transfer");
  ApplyTheme(false);
  EXPECT_EQ(*text, "Keplerian Data Transfer: 3 Keplerian files copied to Floppy disk");
}

TEST_F(QtDoorsTests, AQuestionGivesItsAnswer) {
  PressInBox(QMessageBox::Yes);
  EXPECT_TRUE(QtMessages().AskYesNo("Copy?"));
  PressInBox(QMessageBox::No);
  EXPECT_FALSE(QtMessages().AskYesNo("Copy?"));
}

TEST_F(QtDoorsTests, AMessageIsPlainText) {
  const auto text = PressInBox(QMessageBox::Ok);
  QtMessages().Show("<b>a</b> & b");
  EXPECT_EQ(*text, "Kestrava: <b>a</b> & b");
}

TEST_F(QtDoorsTests, WithoutADesktopNothingIsOpened) {
  EXPECT_FALSE(QtOpener().Open("https://example.org/"));
  EXPECT_FALSE(QtOpener().Open("/no/such/file.html"));
}

TEST_F(QtDoorsTests, AProgramThatIsNotThereIsNotStarted) {
  EXPECT_FALSE(QtOpener().Run("kestrava-no-such-program", {}));
  EXPECT_TRUE(QtOpener().Run("true", {"--version"}));
}

TEST_F(QtDoorsTests, TheLocaleIsTheMachines) {
  const QtLocale machine;
  EXPECT_EQ(machine.DecimalSign(), FromQt(QLocale::system().decimalPoint()));
  EXPECT_EQ(machine.GroupSign(), FromQt(QLocale::system().groupSeparator()));
  EXPECT_FALSE(machine.DateText(MakeSerial({2024, 6, 1, 14, 5, 9})).empty());
}

TEST_F(QtDoorsTests, TheTimeHasItsSeconds) {
  EXPECT_NE(QtLocale().TimeText(MakeSerial({2024, 6, 1, 14, 5, 9})).find("05:09"), std::string::npos);
}

std::string TimeIn(const char* locale) {
  const QLocale place(locale);
  const QString form = WithSeconds(place.timeFormat(QLocale::ShortFormat), place.timeFormat(QLocale::LongFormat));
  return FromQt(place.toString(QTime(14, 5, 9), form));
}

TEST(TimeForms, SecondsArePartedAsTheMinutesAre) {
  EXPECT_EQ(TimeIn("de_DE"), "14:05:09");
  EXPECT_EQ(TimeIn("da_DK"), "14.05.09");
  EXPECT_EQ(TimeIn("fi_FI"), "14.05.09");
  EXPECT_EQ(TimeIn("id_ID"), "14.05.09");
  EXPECT_EQ(TimeIn("fr_CA"), "14 h 05 min 09 s");
  // As Bulgarian had it in the toolkit of Debian 12, and has no more in that of 13.
  EXPECT_EQ(FromQt(WithSeconds("H:mm 'ч'.", "H:mm:ss 'ч'. t")), "H:mm:ss 'ч'.") << "what stands behind stays behind";
  EXPECT_EQ(TimeIn("C"), "14:05:09");
}

TEST(TimeForms, AZoneIsNoPartOfATime) {
  for (const char* form : {"HH:mm:ss t", "HH:mm:ss (t)", "t HH:mm:ss", "HH:mm:ss [t]", "HH:mm:ss, t"}) {
    EXPECT_EQ(FromQt(WithSeconds("HH 'h' mm", form)), "HH:mm:ss") << form;
  }
  EXPECT_EQ(FromQt(WithSeconds("HH 'h' mm", "HH 'h' mm 'min' ss 's' t")), "HH 'h' mm 'min' ss 's'");
  EXPECT_EQ(FromQt(WithSeconds("", "")), "HH:mm:ss") << "a locale that has no form";
}

/// The numbers of a text in any digits, and the signs between them.
struct TimeParts {
  std::vector<int> numbers;
  std::vector<QString> between;
};

TimeParts PartsOf(const QString& text) {
  TimeParts parts;
  bool inNumber = false;
  for (const char32_t c : text.toUcs4()) {
    if (const int digit = QChar::digitValue(c); digit >= 0) {
      if (!inNumber) parts.numbers.push_back(0);
      parts.numbers.back() = parts.numbers.back() * 10 + digit;
      inNumber = true;
    } else {
      if (inNumber) parts.between.emplace_back();
      if (!parts.numbers.empty()) parts.between.back() += QString::fromUcs4(&c, 1);
      inNumber = false;
    }
  }
  return parts;
}

TEST(TimeForms, EveryLocaleThatTheToolkitKnowsWritesHourMinuteAndSecond) {
  int tried = 0;
  for (const QLocale& locale :
       QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory)) {
    const QString form = WithSeconds(locale.timeFormat(QLocale::ShortFormat), locale.timeFormat(QLocale::LongFormat));
    const QString text = locale.toString(QTime(14, 5, 9), form);
    const TimeParts parts = PartsOf(text);
    const std::string where = FromQt(locale.name() + ": " + form + ": " + text);
    ASSERT_EQ(parts.numbers.size(), 3U) << where;
    EXPECT_EQ(parts.numbers[0] % 12, 2) << where;
    EXPECT_EQ(parts.numbers[1], 5) << where;
    EXPECT_EQ(parts.numbers[2], 9) << where;
    const bool words = parts.between[0].size() > 1;
    EXPECT_TRUE(words || parts.between[0] == parts.between[1]) << where;
    ++tried;
  }
  EXPECT_GT(tried, 500);
}

}  // namespace
}  // namespace kestrava::platform::qt
