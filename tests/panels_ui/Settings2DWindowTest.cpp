// The 2D settings panel through its real controls.
#include <gtest/gtest.h>

#include "panels/Settings2DPanel.h"

#include "SettingsFixture.h"

namespace kestrava::panels::ui {
namespace {

using Texts = std::vector<std::string>;

class Settings2DWindowTest : public SettingsFixture {
 protected:
  static std::string Shown(QWidget& window, const char* combo) {
    const auto& box = Child<QComboBox>(window, combo);
    return (box.currentIndex() < 0 ? box.placeholderText() : box.currentText()).toStdString();
  }
  static Texts Entries(QWidget& window, const char* combo) {
    const auto& box = Child<QComboBox>(window, combo);
    Texts entries;
    for (int i = 0; i < box.count(); ++i) entries.push_back(box.itemText(i).toStdString());
    return entries;
  }

  static constexpr std::pair<const char*, const char*> kTicks[] = {{"CHshowinfopane", "ShowInfoPane"},
                                                                   {"CHaltworld", "Altworld"},
                                                                   {"CHfootprints", "ShowFootprints"},
                                                                   {"CHgroundtrack", "ShowGroundtrack"}};
};

TEST_F(Settings2DWindowTest, ANewStationShowsTheDefaults) {
  QWidget& window = Open2D();
  EXPECT_EQ(window.windowTitle(), "2D Controls");
  for (const auto& [name, key] : kTicks) EXPECT_EQ(Ticked(window, name), std::string(name) != "CHaltworld") << name;
  EXPECT_EQ(Label(window, "LABgroundtrackLen"), "90 Minutes");
  EXPECT_EQ(Label(window, "LABmapUpdate"), "2 Seconds");
  EXPECT_EQ(Shown(window, "COMmap"), "Default");
  EXPECT_EQ(Shown(window, "COMhormap"), "hdefault");
}

TEST_F(Settings2DWindowTest, TheLoadWritesNothingBack) {
  settings.Set("Skin", "1");
  for (const auto& [name, key] : kTicks) settings.Set(key, "1");
  for (const auto& [key, value] : std::vector<std::pair<const char*, const char*>>{
           {"GroundTrackLen", "5000"}, {"MapUpdate", "1"}, {"MapFile", "ocean"}, {"HorizonFile", "gone"}})
    settings.Set(key, value);
  Put("ocean.jpg", "x");
  settings.ForgetAccesses();
  Open2D();
  EXPECT_TRUE(settings.Writes().empty());
  TakeFaults();
}

TEST_F(Settings2DWindowTest, EachTickIsStoredAtOnceByClickAndByKey) {
  QWidget& window = Open2D();
  for (const auto& [name, key] : kTicks) {
    const std::string before = settings.Get(key);
    Click(window, name);
    EXPECT_EQ(settings.Get(key), before == "1" ? "0" : "1") << name;
    KeyAt(window, name, Qt::Key_Space);
    EXPECT_EQ(settings.Get(key), before) << name;
  }
}

TEST_F(Settings2DWindowTest, ASliderWritesItsValueAndRenewsItsLabel) {
  QWidget& window = Open2D();
  KeyAt(window, "SLgroundTrackLen", Qt::Key_Right);
  EXPECT_EQ(settings.Get("GroundTrackLen"), "91");
  KeyAt(window, "SLgroundTrackLen", Qt::Key_PageUp);
  EXPECT_EQ(settings.Get("GroundTrackLen"), "151");
  EXPECT_EQ(Label(window, "LABgroundtrackLen"), "151 Minutes");
  KeyAt(window, "SLgroundTrackLen", Qt::Key_Home);
  EXPECT_EQ(settings.Get("GroundTrackLen"), "5");
  KeyAt(window, "SLMapUpdate", Qt::Key_PageUp);
  EXPECT_EQ(settings.Get("MapUpdate"), "60") << "the large step is as long as the range";
  EXPECT_EQ(Label(window, "LABmapUpdate"), "60 Seconds");
}

TEST_F(Settings2DWindowTest, ADraggedSliderIsStoredWhenItIsLetGo) {
  QWidget& window = Open2D();
  auto& slider = Child<QSlider>(window, "SLgroundTrackLen");
  slider.setSliderDown(true);
  slider.setSliderPosition(300);
  EXPECT_EQ(Label(window, "LABgroundtrackLen"), "300 Minutes");
  EXPECT_EQ(settings.Get("GroundTrackLen"), "90");
  slider.setSliderDown(false);
  EXPECT_EQ(settings.Get("GroundTrackLen"), "300");
}

TEST_F(Settings2DWindowTest, AValueBeyondTheRangeIsLoggedShownClampedAndKeptUntilItIsMoved) {
  settings.Set("GroundTrackLen", "5000");
  settings.Set("HorizonFile", "hsea");
  QWidget& window = Open2D();
  EXPECT_EQ(TakeFaults(), Texts{"Invalid property value: GroundTrackLen 5000 - 2Dcon - FormLoad"});
  EXPECT_EQ(Label(window, "LABgroundtrackLen"), "1440 Minutes");
  EXPECT_EQ(Shown(window, "COMhormap"), "hsea") << "the load goes on";
  auto& slider = Child<QSlider>(window, "SLgroundTrackLen");
  slider.setSliderDown(true);
  slider.setSliderDown(false);
  EXPECT_EQ(settings.Get("GroundTrackLen"), "5000");
  KeyAt(window, "SLgroundTrackLen", Qt::Key_Left);
  EXPECT_EQ(settings.Get("GroundTrackLen"), "1439");
}

TEST_F(Settings2DWindowTest, BothBoxesOfferEveryPictureAndStoreTheChosenOne) {
  for (const char* name : {"Default.jpg", "hsea.jpg", "Loud.JPG", "notes.txt"}) Put(name, "x");
  QWidget& window = Open2D();
  EXPECT_EQ(Entries(window, "COMmap").size(), 3u);
  EXPECT_EQ(Entries(window, "COMhormap"), Entries(window, "COMmap"));
  Choose(window, "COMmap", "Loud");
  EXPECT_EQ(settings.Get("MapFile"), "Loud");
  KeyAt(window, "COMhormap", Qt::Key_Down);
  EXPECT_EQ(settings.Get("HorizonFile"), Entries(window, "COMhormap").front()) << "the stored one is none of them";
  EXPECT_EQ(settings.Get("MapFile"), "Loud");
}

TEST_F(Settings2DWindowTest, WithoutPicturesTheBoxesStayEmptyAndShowTheStoredNames) {
  settings.Set("MapFile", "gone");
  QWidget& window = Open2D();
  EXPECT_TRUE(Entries(window, "COMmap").empty());
  EXPECT_TRUE(Entries(window, "COMhormap").empty());
  EXPECT_EQ(Shown(window, "COMmap"), "gone");
  EXPECT_EQ(Shown(window, "COMhormap"), "hdefault");
  KeyAt(window, "COMmap", Qt::Key_Down);
  EXPECT_EQ(settings.Get("MapFile"), "gone");
}

TEST_F(Settings2DWindowTest, AFileNameWithSeveralDotsIsCutAtTheLastOnly) {
  Put("blue.marble.2004.jpg", "x");
  QWidget& window = Open2D();
  EXPECT_EQ(Entries(window, "COMmap"), Texts{"blue.marble.2004"});
  Choose(window, "COMmap", "blue.marble.2004");
  EXPECT_EQ(settings.Get("MapFile"), "blue.marble.2004");
}

TEST_F(Settings2DWindowTest, AStoreThatTakesNothingIsSaidAndTheWindowStays) {
  QWidget& window = Open2D();
  settings.FailWrites(platform::Fault::DiskFull());
  messages.ExpectMessage("Disk full");
  Click(window, "CHfootprints");
  EXPECT_TRUE(window.isVisible());
  settings.Mend();
}

TEST_F(Settings2DWindowTest, WhatWasChosenIsThereWhenItIsOpenedAgain) {
  Put("ocean.jpg", "x");
  QWidget& window = Open2D();
  Click(window, "CHaltworld");
  KeyAt(window, "SLMapUpdate", Qt::Key_Right);
  Choose(window, "COMmap", "ocean");
  CloseByUser(window);
  QWidget& again = Open2D();
  EXPECT_TRUE(Ticked(again, "CHaltworld"));
  EXPECT_EQ(Label(again, "LABmapUpdate"), "3 Seconds");
  EXPECT_EQ(Shown(again, "COMmap"), "ocean");
}

TEST_F(Settings2DWindowTest, TheWheelOverAControlWithoutTheFocusChangesNothing) {
  for (const char* name : {"Default.jpg", "hdefault.jpg"}) Put(name, "x");
  QWidget& window = Open2D();
  settings.ForgetAccesses();
  for (const char* name : {"SLgroundTrackLen", "SLMapUpdate", "COMmap", "COMhormap"})
    TurnWheel(Child<QWidget>(window, name));
  EXPECT_TRUE(settings.Writes().empty());
  EXPECT_EQ(Shown(window, "COMhormap"), "hdefault");
}

TEST_F(Settings2DWindowTest, EscapeMakesTheStationSilentAndTheWindowStays) {
  settings.Set("Speechpack", "1");
  QWidget& window = Open2D();
  int stops = 0;
  for (const std::string& name : TabOrder(window)) {
    KeyAt(window, QString::fromStdString(name), Qt::Key_Escape);
    EXPECT_EQ(speech.stops, ++stops) << name;
  }
  EXPECT_TRUE(window.isVisible());
}

TEST_F(Settings2DWindowTest, TheKeyboardAloneReachesEveryControlFromTopToBottom) {
  QWidget& window = Open2D();
  EXPECT_EQ(TabOrder(window), (Texts{"CHshowinfopane", "CHaltworld", "CHfootprints", "CHgroundtrack",
                                     "SLgroundTrackLen", "SLMapUpdate", "COMmap", "COMhormap"}));
}

TEST_F(Settings2DWindowTest, MnemonicsDifferAndLabelsLeadToTheirFields) {
  QWidget& window = Open2D();
  EXPECT_EQ(MnemonicClashes(window), Texts{});
  EXPECT_EQ(LabelsWithoutField(window), Texts{});
  EXPECT_EQ(ControlsWithoutName(window), Texts{});
}

}  // namespace
}  // namespace kestrava::panels::ui
