// The looks of the main and the 2D settings panel. Whole pictures for the eye are saved where KESTRAVA_SHOTS names a
// folder; what can be checked by rule is.
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>

#include <gtest/gtest.h>

#include "panels/MainSettingsPanel.h"
#include "panels/Settings2DPanel.h"
#include "platform/qt/Theme.h"

#include "SettingsFixture.h"
#include "support_qt/Shots.h"

namespace kestrava::panels::ui {
namespace {

constexpr int kLargeScreenPx = 700;

class SettingsLook : public SettingsFixture {
 protected:
  SettingsLook() {
    for (const char* name : {"Default.jpg", "hdefault.jpg", "hmoonlit.jpg"}) Put(name, "x");
    settings.Set("Speechpack", "1");
    settings.Set("WxWavDir", "/home/somebody/Recordings of weather satellites/since the year 2026/spring/");
  }

  static void Shot(QWidget& window, const std::string& name) {
    HandleEvents();
    const std::string scale = qEnvironmentVariable("KESTRAVA_TEST_SCALE", "1").toStdString();
    testing::SaveShot(window, ("settings-" + name + "-x" + scale).c_str());
  }

  void UseLook(bool skin) {
    settings.Set("Skin", skin ? "1" : "0");
    platform::qt::ApplyTheme(skin);
  }

  /// Makes every text about as long as a German one.
  static void Lengthen(QWidget& window) {
    for (auto* label : window.findChildren<QLabel*>()) label->setText(label->text() + " verlaengert");
    for (auto* button : window.findChildren<QAbstractButton*>())
      if (!button->text().isEmpty()) button->setText(button->text() + " verlaengert");
  }

  /// Nothing is cut off: every text has the room that it asks for, and what lies beyond the window can be scrolled to.
  static void ExpectNothingCutOff(QWidget& window) {
    const auto& area = *window.findChild<QScrollArea*>();
    const QWidget& page = *area.widget();
    for (const auto* control : page.findChildren<QWidget*>()) {
      const bool written = qobject_cast<const QLabel*>(control) || qobject_cast<const QAbstractButton*>(control);
      if (!written || !control->isVisible()) continue;
      const auto* label = qobject_cast<const QLabel*>(control);
      if (!label || !label->wordWrap()) {
        EXPECT_GE(control->width(), control->sizeHint().width()) << control->objectName().toStdString();
      }
      EXPECT_TRUE(page.rect().contains(QRect(control->mapTo(&page, QPoint()), control->size())))
          << control->objectName().toStdString();
    }
    const auto hidden = [&](const QScrollBar* bar, int whole, int seen) { return whole > seen && bar->maximum() == 0; };
    EXPECT_FALSE(hidden(area.verticalScrollBar(), page.height(), area.viewport()->height()));
    EXPECT_FALSE(hidden(area.horizontalScrollBar(), page.width(), area.viewport()->width()));
  }

  static constexpr std::string_view kBoth[] = {kMainSettingsWindow, kSettings2DWindow};
};

TEST_F(SettingsLook, BothLooksInThreeSizes) {
  for (const bool skin : {true, false}) {
    for (const std::string_view name : kBoth) {
      UseLook(skin);
      QWidget& window = Open(name);
      const std::string look = std::string(name) + (skin ? "-skin" : "-plain");
      Shot(window, look);
      ExpectNothingCutOff(window);
      if (window.screen()->availableSize().height() > kLargeScreenPx) {
        EXPECT_EQ(window.findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0) << "opens whole";
      }
      for (const QSize size : {QSize(1500, 1000), QSize(360, 300)}) {
        window.resize(size);
        HandleEvents();
        EXPECT_EQ(window.size(), size);
        ExpectNothingCutOff(window);
        Shot(window, look + "-" + std::to_string(size.width()));
      }
      CloseByUser(window);
      files.Remove("/house/windows.txt");  // the small size that the user left it in
    }
  }
}

TEST_F(SettingsLook, ALargeWindowStretchesNoButtonAndKeepsThePageReadable) {
  for (const std::string_view name : kBoth) {
    QWidget& window = Open(name);
    window.resize(1500, 1000);
    HandleEvents();
    const QWidget& page = *window.findChild<QScrollArea*>()->widget();
    EXPECT_LT(page.width(), 1000);
    EXPECT_NEAR(page.mapTo(&window, page.rect().center()).x(), window.width() / 2, 2) << "in the middle";
    for (const auto* button : page.findChildren<QAbstractButton*>())
      EXPECT_LT(button->height(), 40) << button->objectName().toStdString();
  }
}

TEST_F(SettingsLook, FieldsOfAllSectionsBeginAtOnePlaceAndSlidersEndAtOne) {
  QWidget& main = Open(kMainSettingsWindow);
  const auto left = [](QWidget& window, const char* name) {
    return Child<QWidget>(window, name).mapTo(&window, QPoint()).x();
  };
  for (const char* name : {"CBOevery", "OPclocks(0)", "SLminEl", "LAWxWavDir"})
    EXPECT_NEAR(left(main, name), left(main, "VoiceSelect"), 2) << name;
  QWidget& map = Open(kSettings2DWindow);
  EXPECT_EQ(Child<QSlider>(map, "SLMapUpdate").width(), Child<QSlider>(map, "SLgroundTrackLen").width());
}

/// The difference that a control's edge makes to its ground, by the pixels of its frame.
TEST_F(SettingsLook, EdgesOfControlsStandOutInTheSkin) {
  UseLook(true);
  QWidget& window = Open(kMainSettingsWindow);
  Child<QWidget>(window, "BUTwxWavDir").setFocus();
  HandleEvents();
  for (const char* name : {"OPclocks(0)", "SLspeechspeed", "CHmiles"}) {
    const QImage picture = testing::Grab(Child<QWidget>(window, name));
    double best = 1;
    for (int x = 0; x < std::min(picture.width(), picture.height()); ++x)
      best = std::max(
          best, platform::qt::ContrastRatio(picture.pixelColor(x, picture.height() / 2), platform::qt::Tones().window));
    for (int x = 0; std::string_view(name) == "SLspeechspeed" && x < picture.width(); ++x)
      best = std::max(best, platform::qt::ContrastRatio(picture.pixelColor(x, 10), platform::qt::Tones().window));
    EXPECT_GE(best, 3.0) << name;
  }
}

TEST_F(SettingsLook, AListWithoutAChoiceSaysSoReadably) {
  settings.Set("Speechpack", "0");
  for (const bool skin : {true, false}) {
    UseLook(skin);
    QWidget& window = Open(kMainSettingsWindow);
    EXPECT_EQ(Child<QComboBox>(window, "VoiceSelect").placeholderText(), "No voice chosen");
    const QImage picture = testing::Grab(Child<QWidget>(window, "VoiceSelect"));
    const QColor ground = picture.pixelColor(picture.width() / 2, picture.height() / 2);
    double best = 1;
    for (int x = 3; x < picture.width() / 3; ++x) {
      for (int y = 4; y < picture.height() - 4; ++y)
        best = std::max(best, platform::qt::ContrastRatio(picture.pixelColor(x, y), ground));
    }
    EXPECT_GE(best, 4.5) << skin;
    CloseByUser(window);
  }
}

TEST_F(SettingsLook, TheFocusIsSeen) {
  for (const bool skin : {true, false}) {
    UseLook(skin);
    QWidget& window = Open(kMainSettingsWindow);
    for (const char* name : {"VoiceSelect", "SLspeechspeed", "CBOevery", "BUTeditMixer", "OPclocks(1)", "LAWxWavDir"}) {
      PressKey(*window.focusWidget(), Qt::Key_Tab);  // from now on by keyboard
      auto& control = Child<QWidget>(window, name);
      Child<QWidget>(window, "CHdde").setFocus(Qt::TabFocusReason);
      HandleEvents();
      const QImage before = testing::Grab(control);
      control.setFocus(Qt::TabFocusReason);
      HandleEvents();
      EXPECT_NE(testing::Grab(control), before) << name << skin;
      Shot(window, std::string("focus-") + (skin ? "skin-" : "plain-") + name);
    }
    CloseByUser(window);
  }
}

TEST_F(SettingsLook, LongTexts) {
  for (const std::string_view name : kBoth) {
    QWidget& window = Open(name);
    Lengthen(window);
    HandleEvents();
    ExpectNothingCutOff(window);
    Shot(window, std::string(name) + "-long");
    window.resize(800, 800);
    HandleEvents();
    ExpectNothingCutOff(window);
    Shot(window, std::string(name) + "-long-800");
  }
}

}  // namespace
}  // namespace kestrava::panels::ui
