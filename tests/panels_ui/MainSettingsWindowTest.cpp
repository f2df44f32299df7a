// The main settings panel through its real controls.
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>
#include <algorithm>

#include <gtest/gtest.h>

#include "panels/MainSettingsPanel.h"
#include "panels/Settings2DPanel.h"
#include "platform/qt/StationWindow.h"
#include "platform/qt/Theme.h"
#include "station/Hub.h"

#include "SettingsFixture.h"
#include "support_qt/Shots.h"

namespace kestrava::panels::ui {
namespace {

using Texts = std::vector<std::string>;

class CountingHub : public station::Hub {
 public:
  CountingHub() { station::UseHub(this); }
  ~CountingHub() override { station::UseHub(nullptr); }
  void Refresh() override { ++refreshes; }
  int refreshes = 0;
};

class MainSettingsWindowTest : public SettingsFixture {
 protected:
  static QSlider& Slider(QWidget& window, const char* name) { return Child<QSlider>(window, name); }
  static std::string Text(QWidget& window, const char* combo) {
    return Child<QComboBox>(window, combo).currentText().toStdString();
  }
  static std::string Folder(QWidget& window) { return Child<QLineEdit>(window, "LAWxWavDir").text().toStdString(); }

  static constexpr std::pair<const char*, const char*> kTicks[] = {
      {"CHdde", "DDEstartup"},    {"CHautoSelect", "AutoSelect"}, {"CHmiles", "Miles"},          {"CHskin", "Skin"},
      {"CHrecwxsat", "RecWxsat"}, {"CHrecPrimary", "RecPrimary"}, {"CHspeechpack", "Speechpack"}};

  CountingHub hub;
};

TEST_F(MainSettingsWindowTest, ANewStationShowsTheDefaults) {
  QWidget& window = OpenMain();
  EXPECT_EQ(window.windowTitle(), "Kestrava Main Settings");
  for (const auto& [name, key] : kTicks) EXPECT_EQ(Ticked(window, name), std::string(name) == "CHskin") << name;
  EXPECT_TRUE(Ticked(window, "OPclocks(1)"));
  EXPECT_EQ(Label(window, "LAspeechspeed"), "180 WPM");
  EXPECT_EQ(Label(window, "LAminEl"), "0 Degrees");
  EXPECT_EQ(Text(window, "CBOstart"), "15");
  EXPECT_EQ(Text(window, "CBOevery"), "2");
  EXPECT_EQ(Child<QComboBox>(window, "CBOevery").count(), 60);
  EXPECT_EQ(Child<QComboBox>(window, "VoiceSelect").count(), 0);
  EXPECT_EQ(Folder(window), "/house/");
}

TEST_F(MainSettingsWindowTest, TheTextsOfThePanelAreThere) {
  QWidget& window = OpenMain();
  std::vector<QString> texts;
  for (const auto* label : window.findChildren<QLabel*>()) texts.push_back(QString(label->text()).remove('&'));
  for (const auto* button : window.findChildren<QAbstractButton*>())
    texts.push_back(QString(button->text()).remove('&'));
  for (const char* text : {"Off",
                           "Local Time",
                           "UTC/GMT",
                           "LED Clocks :",
                           "Rotor/Radio Tracking DDE Auto Start up",
                           "Auto Select Satellite in Range",
                           "Display Miles instead of Kilometres",
                           "Kestrava \"Skinning\" Effect",
                           "Record Weather Satellite Passes",
                           "Record Primary Satellite Passes",
                           "Speech On",
                           "Voice Name",
                           "Make Announcments every",
                           "Minutes...",
                           "...Starting",
                           "Minute(s) Before AOS",
                           "Speed of Speech (in words per minute)",
                           "Minimum Elevation for Recording",
                           "Path to save Recorded WAVs",
                           "Browse",
                           "Edit Sound Settings"})
    EXPECT_NE(std::find(texts.begin(), texts.end(), QString(text)), texts.end()) << text;
}

TEST_F(MainSettingsWindowTest, TheLoadWritesNothingBack) {
  for (const auto& [name, key] : kTicks) settings.Set(key, "1");
  for (const auto& [key, value] : std::vector<std::pair<const char*, const char*>>{{"LEDclocks", "2"},
                                                                                   {"Voice", "2"},
                                                                                   {"SpeechStart", "7 or so"},
                                                                                   {"SpeechEvery", "61"},
                                                                                   {"SpeechSpeed", "400"},
                                                                                   {"WxEL", "12.5"},
                                                                                   {"WxWavDir", "/gone/"}})
    settings.Set(key, value);
  settings.ForgetAccesses();
  QWidget& window = OpenMain();
  EXPECT_TRUE(settings.Writes().empty());
  EXPECT_TRUE(speech.said.empty());
  EXPECT_EQ(Text(window, "CBOstart"), "7 or so");
  EXPECT_EQ(Text(window, "CBOevery"), "61");
  EXPECT_EQ(Text(window, "VoiceSelect"), "Scottish");
  EXPECT_TRUE(Ticked(window, "OPclocks(2)"));
  EXPECT_EQ(Label(window, "LAminEl"), "12 Degrees");
  EXPECT_EQ(TakeFaults(), Texts{"Invalid property value: SpeechSpeed 400 - mainCON - FormLoad"});
}

TEST_F(MainSettingsWindowTest, EachTickIsStoredAtOnceByClickAndByKey) {
  QWidget& window = OpenMain();
  for (const auto& [name, key] : kTicks) {
    const std::string before = settings.Get(key);
    Click(window, name);
    EXPECT_EQ(settings.Get(key), before == "1" ? "0" : "1") << name;
    KeyAt(window, name, Qt::Key_Space);
    EXPECT_EQ(settings.Get(key), before) << name;
  }
}

class WithoutDevices : public SettingsFixture {
 protected:
  WithoutDevices() : SettingsFixture(false) {}
};

TEST_F(WithoutDevices, SettingsOfRecorderAndRotorAreGreyedAndSayWhy) {
  QWidget& window = OpenMain();
  for (const char* name : {"CHdde", "CHrecwxsat", "CHrecPrimary", "BUTwxWavDir"}) {
    const auto& control = Child<QWidget>(window, name);
    EXPECT_FALSE(control.isEnabled()) << name;
    EXPECT_EQ(control.toolTip(), "comes with a later version") << name;
    EXPECT_EQ(control.accessibleDescription(), "comes with a later version") << name;
  }
  EXPECT_FALSE(Child<QLineEdit>(window, "LAWxWavDir").isEnabled());
  Click(window, "CHrecwxsat");
  EXPECT_EQ(settings.Get("RecWxsat"), "0");
}

TEST_F(WithoutDevices, AllOtherSettingsStayAndTheLeastElevationSaysThatPassListsObeyIt) {
  QWidget& window = OpenMain();
  for (const char* name : {"CHautoSelect", "CHmiles", "CHskin", "CHspeechpack", "SLspeechspeed", "SLminEl"})
    EXPECT_TRUE(Child<QWidget>(window, name).isEnabled()) << name;
  EXPECT_NE(Child<QWidget>(window, "SLminEl").parentWidget()->toolTip().indexOf("pass lists"), -1);
}

TEST_F(MainSettingsWindowTest, TheClocksAreStoredByTheirIndexByClickAndByArrows) {
  QWidget& window = OpenMain();
  for (const int index : {2, 0}) {
    Click(window, "OPclocks(" + QString::number(index) + ")");
    EXPECT_EQ(settings.Get("LEDclocks"), std::to_string(index));
  }
  KeyAt(window, "OPclocks(0)", Qt::Key_Right);
  EXPECT_EQ(settings.Get("LEDclocks"), "1");
}

TEST_F(MainSettingsWindowTest, AStoredClockThatIsNoneIsLoggedAndAnyCanBeChosen) {
  settings.Set("LEDclocks", "7");
  QWidget& window = OpenMain();
  EXPECT_EQ(TakeFaults(), Texts{"Subscript out of range - mainCON - FormLoad"});
  for (const char* name : {"OPclocks(0)", "OPclocks(1)", "OPclocks(2)"}) EXPECT_FALSE(Ticked(window, name));
  KeyAt(window, "OPclocks(1)", Qt::Key_Space);
  EXPECT_EQ(settings.Get("LEDclocks"), "1");
}

TEST_F(MainSettingsWindowTest, SpeechOnOffersTheVoicesAndAChosenOneIsHeard) {
  QWidget& window = OpenMain();
  Click(window, "CHspeechpack");
  EXPECT_EQ(Text(window, "VoiceSelect"), "English");
  EXPECT_TRUE(speech.said.empty()) << "nobody chose";
  KeyAt(window, "VoiceSelect", Qt::Key_Down);
  EXPECT_EQ(speech.voice, 2);
  EXPECT_EQ(speech.said, Texts{"Changed Voice to Scottish"});
  CloseByUser(window);
  EXPECT_EQ(settings.Get("Voice"), "2");
  EXPECT_EQ(Text(OpenMain(), "VoiceSelect"), "Scottish");
}

TEST_F(MainSettingsWindowTest, TheTestSpeaksOrSaysInTheSameLineWhyNot) {
  QWidget& window = OpenMain();
  EXPECT_EQ(Label(window, "LAspeech"), "");
  Click(window, "BUTtestSpeech");
  EXPECT_EQ(Label(window, "LAspeech"), "Speech is off: tick \"Speech On\" first.");
  EXPECT_TRUE(speech.said.empty());
  speech.condition = {platform::SpeechCondition::Stage::kNoSound, "no sound server (Connection refused)"};
  Click(window, "CHspeechpack");
  Click(window, "BUTtestSpeech");
  EXPECT_EQ(Label(window, "LAspeech"), "Silent: no sound server (Connection refused).");
  const auto* line = window.findChild<QLabel*>("LAspeech");
  const auto* tick = window.findChild<QCheckBox*>("CHspeechpack");
  EXPECT_LT(std::abs(line->geometry().center().y() - tick->geometry().center().y()), tick->height())
      << "beside the tick";
  speech.condition = {};
  Click(window, "BUTtestSpeech");
  EXPECT_EQ(Label(window, "LAspeech"), "The voice is ready.");
  EXPECT_EQ(speech.said.back(), "This is the voice of Kestrava.");
}

TEST_F(MainSettingsWindowTest, SpeechOnWithoutVoicesIsSaidAndStaysStoredAsOn) {
  speech.voices.clear();
  QWidget& window = OpenMain();
  messages.ExpectMessage("No Speech Engines Found");
  Click(window, "CHspeechpack");
  EXPECT_EQ(settings.Get("Speechpack"), "1");
  EXPECT_TRUE(Ticked(window, "CHspeechpack"));
  CloseByUser(window);
  messages.ExpectMessage("No Speech Engines Found");
  EXPECT_TRUE(OpenMain().isVisible()) << "the load says it, too, and the window comes";
}

TEST_F(MainSettingsWindowTest, AWindowThatIsUnloadedWhileItsFirstMessageStandsGoes) {
  settings.Set("Speechpack", "1");
  speech.voices.clear();
  messages.ExpectMessage("No Speech Engines Found", [&] {
    ASSERT_NE(windows->Find(kMainSettingsWindow), nullptr);
    windows->Unload(*windows->Find(kMainSettingsWindow));
  });
  eventLoop.RunEvent([&] { windows->Show(kMainSettingsWindow); });
  HandleEvents();
  EXPECT_EQ(windows->Find(kMainSettingsWindow), nullptr);
}

TEST_F(MainSettingsWindowTest, AWindowThatWasNeverSeenStoresNothing) {
  settings.Set("Voice", "2");
  eventLoop.RunEvent([&] { EXPECT_FALSE(windows->IsVisible(kMainSettingsWindow)); });
  settings.ForgetAccesses();
  eventLoop.RunEvent([&] { windows->Unload(*windows->Find(kMainSettingsWindow)); });
  EXPECT_EQ(settings.Get("Voice"), "2");
}

TEST_F(MainSettingsWindowTest, AVoiceThatCannotBeTakenIsSaid) {
  settings.Set("Speechpack", "1");
  QWidget& window = OpenMain();
  speech.broken = platform::Fault::Automation("gone");
  messages.ExpectMessage("Error changing voice, select another voice or re-install speech");
  Choose(window, "VoiceSelect", "Scottish");
}

TEST_F(MainSettingsWindowTest, WithSpeechOffTheUnloadStoresAVoiceOfNought) {
  settings.Set("Voice", "2");
  CloseByUser(OpenMain());
  EXPECT_EQ(settings.Get("Voice"), "0");
}

TEST_F(MainSettingsWindowTest, TheSpeedActsOnTheRunningEngineAtOnce) {
  settings.Set("Speechpack", "1");
  QWidget& window = OpenMain();
  KeyAt(window, "SLspeechspeed", Qt::Key_Right);
  EXPECT_EQ(speech.speed, 181);
  EXPECT_EQ(settings.Get("SpeechSpeed"), "181");
  KeyAt(window, "SLspeechspeed", Qt::Key_PageUp);
  EXPECT_EQ(settings.Get("SpeechSpeed"), "191") << "the large step";
  KeyAt(window, "SLspeechspeed", Qt::Key_End);
  EXPECT_EQ(Label(window, "LAspeechspeed"), "250 WPM");
  KeyAt(window, "SLspeechspeed", Qt::Key_Home);
  EXPECT_EQ(speech.speed, 80);
}

TEST_F(MainSettingsWindowTest, ADraggedSliderTellsItsValueAndStoresItWhenItIsLetGo) {
  QWidget& window = OpenMain();
  QSlider& slider = Slider(window, "SLspeechspeed");
  slider.setSliderDown(true);
  slider.setSliderPosition(200);
  EXPECT_EQ(Label(window, "LAspeechspeed"), "200 WPM");
  EXPECT_EQ(settings.Get("SpeechSpeed"), "180");
  slider.setSliderDown(false);
  EXPECT_EQ(settings.Get("SpeechSpeed"), "200");
}

TEST_F(MainSettingsWindowTest, TheMinimumElevationAtFortyIsForty) {
  QWidget& window = OpenMain();
  KeyAt(window, "SLminEl", Qt::Key_End);
  EXPECT_EQ(settings.Get("WxEL"), "40");
  EXPECT_EQ(Label(window, "LAminEl"), "40 Degrees");
  KeyAt(window, "SLminEl", Qt::Key_PageDown);
  EXPECT_EQ(settings.Get("WxEL"), "35");
}

TEST_F(MainSettingsWindowTest, AValueBeyondTheRangeIsLoggedShownClampedAndKeptUntilItIsMoved) {
  settings.Set("WxEL", "55");
  QWidget& window = OpenMain();
  EXPECT_EQ(TakeFaults(), Texts{"Invalid property value: WxEL 55 - mainCON - FormLoad"});
  EXPECT_EQ(Label(window, "LAminEl"), "40 Degrees");
  QSlider& slider = Slider(window, "SLminEl");
  slider.setSliderDown(true);  // taken hold of, not moved
  slider.setSliderDown(false);
  KeyAt(window, "SLminEl", Qt::Key_Right);
  EXPECT_EQ(settings.Get("WxEL"), "55") << "it stands at its end already";
  CloseByUser(window);
  EXPECT_EQ(settings.Get("WxEL"), "55");
  QWidget& again = OpenMain();
  TakeFaults();
  KeyAt(again, "SLminEl", Qt::Key_Left);
  EXPECT_EQ(settings.Get("WxEL"), "39");
}

TEST_F(MainSettingsWindowTest, MinutesAreChosenOrTypedAndTheUnloadStoresTheirLeadingNumber) {
  const std::tuple<const char*, const char*> typed[] = {
      {"12 minutes", "12"}, {"often", "0"}, {"90", "90"}, {"", "0"}, {"3", "3"}};
  for (const auto& [text, stored] : typed) {
    QWidget& window = OpenMain();
    TypeInto(window, "CBOevery", text);
    EXPECT_EQ(Text(window, "CBOevery"), text) << "nothing is added to what was typed";
    Choose(window, "CBOstart", "20");
    CloseByUser(window);
    EXPECT_EQ(settings.Get("SpeechEvery"), stored) << text;
    EXPECT_EQ(settings.Get("SpeechStart"), "20");
    EXPECT_EQ(Text(OpenMain(), "CBOevery"), stored);
    CloseByUser(OpenMain());
  }
}

TEST_F(MainSettingsWindowTest, TheFolderIsChosenInTheSaveDialogAndStoredAtTheEnd) {
  files.MakeFolder("/sounds");
  QWidget& window = OpenMain();
  fileChooser.ExpectSave("/sounds/Select a Folder then Click SAVE >>>>");
  Click(window, "BUTwxWavDir");
  EXPECT_EQ(fileChooser.suggestions.back(), "/house/Select a Folder then Click SAVE >>>>");
  EXPECT_EQ(Folder(window), "/sounds/");
  EXPECT_EQ(settings.Get("WxWavDir"), "/house/");
  fileChooser.ExpectSave("/sounds/Select a Folder then Click SAVE >>>>");
  KeyAt(window, "BUTwxWavDir", Qt::Key_Return);
  EXPECT_EQ(fileChooser.suggestions.back(), "/sounds/Select a Folder then Click SAVE >>>>") << "the present folder";
  CloseByUser(window);
  EXPECT_EQ(settings.Get("WxWavDir"), "/sounds/");
}

TEST_F(MainSettingsWindowTest, ACancelledChoiceAndANameThatIsNoFolderAreSaid) {
  QWidget& window = OpenMain();
  fileChooser.ExpectSave(std::nullopt);
  messages.ExpectMessage("Invalid Folder name, try again");
  Click(window, "BUTwxWavDir");
  fileChooser.ExpectSave("/house/my.wav");
  messages.ExpectMessage("There was a problem, the filename was '/house/my.wav'");
  Click(window, "BUTwxWavDir");
  EXPECT_EQ(Folder(window), "/house/");
}

TEST_F(MainSettingsWindowTest, AFolderThatCannotBeWrittenIsSaidAtOnce) {
  files.MakeFolder("/sounds");
  QWidget& window = OpenMain();
  files.BreakWriteAfter(0, platform::Fault::PermissionDenied());
  fileChooser.ExpectSave("/sounds/Select a Folder then Click SAVE >>>>");
  messages.ExpectMessage("Recordings cannot be saved in the folder /sounds/: ");
  Click(window, "BUTwxWavDir");
  files.Mend();
  EXPECT_EQ(Folder(window), "/house/");
}

TEST_F(MainSettingsWindowTest, AWindowThatClosesBehindItsDialogIsLeftAlone) {
  QWidget& window = OpenMain();
  fileChooser.ExpectSave("/house/Select a Folder then Click SAVE >>>>", [&] { window.close(); });
  Click(window, "BUTwxWavDir");
  EXPECT_EQ(windows->Find(kMainSettingsWindow), nullptr);
}

TEST_F(MainSettingsWindowTest, ALongFolderIsShortenedInItsMiddleAndCanBeReadAndCopiedWhole) {
  const std::string folder = "/home/somebody/" + std::string(120, 'w') + "/recordings/";
  settings.Set("WxWavDir", folder);
  QWidget& window = OpenMain();
  auto& field = Child<QLineEdit>(window, "LAWxWavDir");
  EXPECT_EQ(field.toolTip().toStdString(), folder);
  EXPECT_TRUE(field.isReadOnly());
  const QImage shortened = testing::Grab(field);
  field.setFocus(Qt::TabFocusReason);
  PressKey(field, Qt::Key_A, Qt::ControlModifier);
  PressKey(field, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), folder);
  PressKey(field, Qt::Key_X);
  EXPECT_EQ(Folder(window), folder) << "nothing can be typed";
  EXPECT_NE(testing::Grab(field), shortened);
}

TEST_F(MainSettingsWindowTest, TheSoundSettingsAreOpenedOrItIsSaidWhatToInstall) {
  QWidget& window = OpenMain();
  Click(window, "BUTeditMixer");
  EXPECT_EQ(opener.run, Texts{"pavucontrol"});
  opener.canRun = false;
  messages.ExpectMessage("pavucontrol");
  Click(window, "BUTeditMixer");
}

TEST_F(MainSettingsWindowTest, ItsEndRefreshesTheLauncher) {
  QWidget& window = OpenMain();
  EXPECT_EQ(hub.refreshes, 0);
  CloseByUser(window);
  EXPECT_EQ(hub.refreshes, 1);
}

TEST_F(MainSettingsWindowTest, AStoreThatTakesNothingIsSaidAndTheWindowStays) {
  QWidget& window = OpenMain();
  settings.FailWrites(platform::Fault::DiskFull());
  messages.ExpectMessage("Disk full");
  Click(window, "CHmiles");
  messages.ExpectMessage("Disk full");
  Click(window, "OPclocks(0)");
  EXPECT_TRUE(window.isVisible());
  settings.Mend();
}

TEST_F(MainSettingsWindowTest, EscapeMakesTheStationSilentAndTheWindowStays) {
  settings.Set("Speechpack", "1");
  QWidget& window = OpenMain();
  int stops = 0;
  for (const std::string& name : TabOrder(window)) {
    KeyAt(window, QString::fromStdString(name), Qt::Key_Escape);
    EXPECT_EQ(speech.stops, ++stops) << name;
  }
  EXPECT_TRUE(window.isVisible());
}

TEST_F(MainSettingsWindowTest, TheWheelOverAControlWithoutTheFocusChangesNothing) {
  settings.Set("Speechpack", "1");
  QWidget& window = OpenMain();
  Child<QWidget>(window, "CHmiles").setFocus();
  settings.ForgetAccesses();
  for (const char* name : {"SLspeechspeed", "SLminEl", "VoiceSelect", "CBOstart", "CBOevery"}) {
    TurnWheel(Child<QWidget>(window, name));
    EXPECT_FALSE(Child<QWidget>(window, name).hasFocus()) << name;
  }
  TurnWheel(*Child<QComboBox>(window, "CBOevery").lineEdit());
  EXPECT_TRUE(settings.Writes().empty());
  EXPECT_EQ(Label(window, "LAspeechspeed"), "180 WPM");
  EXPECT_EQ(Text(window, "CBOevery"), "2");
  EXPECT_EQ(Text(window, "CBOstart"), "15");
  EXPECT_EQ(Text(window, "VoiceSelect"), "English");
  Child<QWidget>(window, "SLminEl").setFocus();
  TurnWheel(Child<QWidget>(window, "SLminEl"));
  EXPECT_NE(settings.Get("WxEL"), "0") << "with the focus it does";
}

TEST_F(MainSettingsWindowTest, TheWheelOverAControlWithoutTheFocusScrollsThePage) {
  QWidget& window = OpenMain();
  Child<QWidget>(window, "CHmiles").setFocus();
  window.resize(400, 300);
  HandleEvents();
  auto& box = Child<QWidget>(window, "VoiceSelect");
  const int before = box.mapTo(&window, QPoint()).y();
  Child<QWidget>(window, "LAWxWavDir").setFocus();
  HandleEvents();
  const int scrolled = box.mapTo(&window, QPoint()).y();
  EXPECT_LT(scrolled, before) << "the page follows the keyboard";
  TurnWheel(Child<QWidget>(window, "SLminEl"));
  EXPECT_GT(box.mapTo(&window, QPoint()).y(), scrolled);
}

TEST_F(MainSettingsWindowTest, TheSkinShowsAtOnceInAllOpenWindows) {
  const auto pictures = [this] {
    Child<QWidget>(OpenMain(), "CHskin").setFocus();
    HandleEvents();
    return std::pair(testing::Grab(OpenMain()), testing::Grab(Open2D()));
  };
  settings.Set("Skin", "0");
  platform::qt::ApplyTheme(false);
  Open2D();
  const auto plain = pictures();
  Click(OpenMain(), "CHskin");
  const auto skinned = pictures();
  EXPECT_TRUE(platform::qt::SkinIsOn());
  EXPECT_NE(skinned.second, plain.second) << "the other window, too";
  Click(OpenMain(), "CHskin");
  EXPECT_FALSE(platform::qt::SkinIsOn());
  const auto back = pictures();
  EXPECT_EQ(back.first, plain.first);
  EXPECT_EQ(back.second, plain.second);
}

TEST_F(MainSettingsWindowTest, AWindowThatIsOpenLooksAsOneOpenedInTheNewLook) {
  QWidget& main = OpenMain();
  QWidget& open = Open2D();
  for (const bool skin : {false, true}) {
    Click(main, "CHskin");
    ASSERT_EQ(platform::qt::SkinIsOn(), skin);
    const auto picture = [](QWidget& window) {
      window.resize(700, 500);
      window.activateWindow();
      Child<QWidget>(window, "CHfootprints").setFocus();
      HandleEvents();
      return testing::Grab(window);
    };
    const QImage turned = picture(open);
    eventLoop.RunEvent([&] { windows->ShowNew(kSettings2DWindow); });
    const QImage fresh = picture(dynamic_cast<QWidget&>(*windows->Loaded().back().second));
    EXPECT_EQ(turned, fresh) << skin;
  }
}

TEST_F(MainSettingsWindowTest, TheKeyboardAloneReachesEveryControlFromTopToBottom) {
  settings.Set("Speechpack", "1");
  QWidget& window = OpenMain();
  EXPECT_EQ(window.focusWidget()->objectName(), "CHspeechpack");
  EXPECT_EQ(TabOrder(window),
            (Texts{"CHspeechpack", "BUTtestSpeech", "VoiceSelect", "SLspeechspeed", "CBOevery", "CBOstart",
                   "BUTeditMixer", "OPclocks(1)", "CHmiles", "CHskin", "CHdde", "CHautoSelect", "CHrecwxsat",
                   "CHrecPrimary", "SLminEl", "LAWxWavDir", "BUTwxWavDir"}))
      << "one of the clocks: the arrows lead to the others";
}

TEST_F(MainSettingsWindowTest, MnemonicsDifferAndLabelsLeadToTheirFields) {
  QWidget& window = OpenMain();
  EXPECT_EQ(MnemonicClashes(window), Texts{});
  EXPECT_EQ(LabelsWithoutField(window), Texts{});
  EXPECT_EQ(ControlsWithoutName(window), Texts{});
  EXPECT_EQ(Child<QWidget>(window, "CBOevery").accessibleName(), "Make Announcments every, in minutes");
}

}  // namespace
}  // namespace kestrava::panels::ui
