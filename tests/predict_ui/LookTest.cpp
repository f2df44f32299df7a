// The looks of both windows. Whole pictures for the eye are saved where KESTRAVA_SHOTS names a folder; what can be
// checked by rule is: nothing is cut off at any size, and texts stand out in both looks.
#include <QCalendarWidget>
#include <QGroupBox>
#include <QTableView>
#include <QTextCharFormat>

#include <gtest/gtest.h>

#include "platform/qt/SkinButton.h"
#include "platform/qt/Theme.h"
#include "predict/PassPrediction.h"
#include "predict/PassWizard.h"

#include "PassFixture.h"
#include "support_qt/Shots.h"

namespace kestrava::predict::ui {
namespace {

constexpr double kLegible = 4.5;

class PassLook : public PassFixture {
 protected:
  static void Shot(QWidget& window, const std::string& name) {
    HandleEvents();
    const std::string scale = qEnvironmentVariable("KESTRAVA_TEST_SCALE", "1").toStdString();
    testing::SaveShot(window, ("pass-" + name + "-x" + scale).c_str());
  }

  QWidget& OpenWithPasses(bool skin) {
    settings.Set("Skin", skin ? "1" : "0");
    platform::qt::ApplyTheme(skin);
    Put("pass.dat",
        "Weather tonight\r\nNOAA 19;\r\n1\r\n0\r\n0\r\nAmateur week\r\nOSCAR 7 (AO-7);\r\n7\r\n1\r\n0\r\n"
        "Stations\r\nISS (ZARYA);\r\n3\r\n0\r\n1\r\n");
    QWidget& window = Open();
    for (const int day : {15, 16, 17}) Calculate(window, "ISS", day);
    Calculate(window, "OSCAR 7", 15);
    return window;
  }

  /// No control lies beyond its window or upon another of the same parent.
  static void ExpectNothingCutOff(QWidget& window) {
    for (const auto* button : window.findChildren<QAbstractButton*>()) {
      if (button->objectName().isEmpty() || !button->isVisible()) continue;
      const QRect place(button->mapTo(&window, QPoint()), button->size());
      EXPECT_TRUE(window.rect().contains(place)) << button->objectName().toStdString();
      if (button->inherits("QToolButton")) continue;
      EXPECT_GE(button->width() + 2, button->sizeHint().width()) << button->objectName().toStdString();
    }
  }
};

TEST_F(PassLook, BothLooksInThreeSizes) {
  for (const bool skin : {true, false}) {
    QWidget& window = OpenWithPasses(skin);
    const std::string look = skin ? "skin" : "plain";
    for (const QSize size : {QSize(900, 600), QSize(1600, 1000), window.minimumSizeHint()}) {
      window.resize(size);
      HandleEvents();
      EXPECT_EQ(window.size(), size);
      ExpectNothingCutOff(window);
      Shot(window, look + "-" + std::to_string(size.width()) + "x" + std::to_string(size.height()));
    }
    CloseByUser(window);
  }
}

TEST_F(PassLook, TheSmallestWindowFitsASmallScreen) {
  QWidget& window = Open();
  EXPECT_LE(window.minimumSizeHint().width(), 800);
  EXPECT_LE(window.minimumSizeHint().height(), 560);
}

TEST_F(PassLook, OnlyTheTitlesOfTheSectionsAreBold) {
  for (const bool skin : {true, false}) {
    platform::qt::ApplyTheme(skin);
    for (QWidget* window : {&Open(), &OpenWizard()}) {
      for (const char* section : {"Frame1", "Frame2"}) EXPECT_TRUE(Child<QGroupBox>(*window, section).font().bold());
      for (const auto* label : window->findChildren<QLabel*>()) EXPECT_FALSE(label->font().bold());
      for (const auto* list : window->findChildren<QAbstractItemView*>()) EXPECT_FALSE(list->font().bold());
    }
    while (!windows->Loaded().empty()) windows->Unload(*windows->Loaded().back().second);
    eventLoop.RunEvent([] {});
  }
}

TEST_F(PassLook, EmptyListsSayWhatBelongsThere) {
  QWidget& window = Open();
  Shot(window, "empty");
  const QImage before = testing::Grab(Child<QWidget>(window, "LISTpasses"));
  Calculate(window, "NOAA 19", 16);
  Click(window, "BUTclearResults");
  HandleEvents();
  EXPECT_EQ(testing::Grab(Child<QWidget>(window, "LISTpasses")), before);
}

TEST_F(PassLook, TheWizardInBothLooks) {
  for (const bool skin : {true, false}) {
    settings.Set("Skin", skin ? "1" : "0");
    platform::qt::ApplyTheme(skin);
    QWidget& wizard = OpenWizard();
    Type(wizard, "Tname", "Stations at the weekend");
    Type(wizard, "Tnumofdays", "3");
    Choose(wizard, "COMgroup", "Space Stations");
    for (const char* satellite : {"ISS (ZARYA)", "TIANGONG-2"}) {
      Choose(wizard, "COMsatname", satellite);
      Click(wizard, "BUTadd");
    }
    ExpectNothingCutOff(wizard);
    Shot(wizard, std::string("wizard-") + (skin ? "skin" : "plain"));
    windows->Unload(*windows->Find(kWizardWindow));
    eventLoop.RunEvent([] {});
  }
}

TEST_F(PassLook, AWindowThatIsOpenFollowsTheLook) {
  QWidget& window = OpenWithPasses(true);
  auto& calc = Child<platform::qt::SkinButton>(window, "BUTcalc");
  const auto inTheSkin = calc.BackColour();
  platform::qt::ApplyTheme(false);
  HandleEvents();
  EXPECT_NE(calc.BackColour(), inTheSkin);
  auto& calendar = Child<QCalendarWidget>(window, "Calendar");
  EXPECT_GE(platform::qt::ContrastRatio(calendar.weekdayTextFormat(Qt::Sunday).foreground().color(),
                                        calendar.palette().color(QPalette::Base)),
            kLegible);
}

TEST_F(PassLook, TextsStandOutInBothLooks) {
  for (const bool skin : {true, false}) {
    QWidget& window = OpenWithPasses(skin);
    auto& calendar = Child<QCalendarWidget>(window, "Calendar");
    for (const Qt::DayOfWeek day : {Qt::Wednesday, Qt::Saturday, Qt::Sunday}) {
      EXPECT_GE(platform::qt::ContrastRatio(calendar.weekdayTextFormat(day).foreground().color(),
                                            calendar.palette().color(QPalette::Base)),
                kLegible);
    }
    auto& list = Child<QTableView>(window, "LISTpasses");
    for (int row = 0; row < list.model()->rowCount(); ++row) {
      const QVariant ink = list.model()->index(row, kVisibleCell).data(Qt::ForegroundRole);
      const QColor colour = ink.isValid() ? ink.value<QColor>() : list.palette().color(QPalette::Text);
      for (const QPalette::ColorRole ground : {QPalette::Base, QPalette::AlternateBase, QPalette::Highlight}) {
        if (!ink.isValid() && ground == QPalette::Highlight) continue;
        EXPECT_GE(platform::qt::ContrastRatio(colour, list.palette().color(ground)), kLegible) << row;
      }
    }
    CloseByUser(window);
  }
}

}  // namespace
}  // namespace kestrava::predict::ui
