// The looks of the main and the 2D settings panel. Whole pictures for the eye are saved where KESTRAVA_SHOTS names a
// folder; what can be checked by rule is.
#include <QScrollArea>
#include <QScrollBar>

#include <gtest/gtest.h>

#include "panels/MainSettingsPanel.h"
#include "panels/Settings2DPanel.h"
#include "platform/qt/Theme.h"

#include "SettingsFixture.h"
#include "support_qt/Shots.h"

namespace kestrava::panels::ui {
namespace {

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

  static constexpr std::string_view kBoth[] = {kMainSettingsWindow, kSettings2DWindow};
};

TEST_F(SettingsLook, BothLooksInThreeSizes) {
  for (const bool skin : {true, false}) {
    for (const std::string_view name : kBoth) {
      UseLook(skin);
      QWidget& window = Open(name);
      const std::string look = std::string(name) + (skin ? "-skin" : "-plain");
      Shot(window, look);
      for (const QSize size : {QSize(1500, 1000), QSize(360, 300)}) {
        window.resize(size);
        Shot(window, look + "-" + std::to_string(size.width()));
      }
      CloseByUser(window);
    }
  }
}

TEST_F(SettingsLook, TheFocusIsSeen) {
  for (const bool skin : {true, false}) {
    UseLook(skin);
    QWidget& window = Open(kMainSettingsWindow);
    for (const char* name : {"VoiceSelect", "SLspeechspeed", "CBOevery", "BUTeditMixer", "OPclocks(1)", "LAWxWavDir"}) {
      PressKey(*window.focusWidget(), Qt::Key_Tab);  // from now on by keyboard
      Child<QWidget>(window, name).setFocus(Qt::TabFocusReason);
      Shot(window, std::string("focus-") + (skin ? "skin-" : "plain-") + name);
    }
    CloseByUser(window);
  }
}

TEST_F(SettingsLook, LongTexts) {
  for (const std::string_view name : kBoth) {
    QWidget& window = Open(name);
    Lengthen(window);
    Shot(window, std::string(name) + "-long");
    window.resize(800, 800);
    Shot(window, std::string(name) + "-long-800");
  }
}

}  // namespace
}  // namespace kestrava::panels::ui
