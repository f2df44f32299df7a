#include "platform/Fault.h"
#include "platform/Format.h"
#include "platform/Settings.h"
#include "platform/Skin.h"

#include "support/House.h"

namespace kestrava::platform {
namespace {

using Lines = std::vector<std::string>;
using SettingsRules = testing::House;
using SkinRules = testing::House;
using SpeechGate = testing::House;

TEST_F(SettingsRules, TheFirstReadWritesItsDefault) {
  EXPECT_FALSE(settings.Has("Miles"));
  EXPECT_EQ(ReadSetting("Miles", "0"), "0");
  EXPECT_EQ(settings.Get("Miles"), "0");
}

TEST_F(SettingsRules, TheFirstReaderDecidesTheDefaultForGood) {
  EXPECT_EQ(ReadSetting("SpeechStart", "10"), "10");
  EXPECT_EQ(ReadSetting("SpeechStart", "15"), "10") << "the settings window shows the quick ETA's default";
  settings.Clear();
  EXPECT_EQ(ReadSetting("SpeechStart", "15"), "15");
  EXPECT_EQ(ReadSetting("SpeechStart", "10"), "15");
}

TEST_F(SettingsRules, BlanksAreNoValueAndAreOverwritten) {
  WriteSetting("MapFile", "   ");
  EXPECT_EQ(ReadSetting("MapFile", "Default"), "Default");
  EXPECT_EQ(settings.Get("MapFile"), "Default");
}

TEST_F(SettingsRules, KeysCompareWithoutRegardToCase) {
  WriteSetting("FqOffset", "5000");
  EXPECT_EQ(ReadSetting("FQoffset", "0"), "5000");
  WriteSetting("HorizonFIle", "hills");
  EXPECT_EQ(ReadSetting("HorizonFile", "hdefault"), "hills");
  WriteSetting("ShowFootPrints", "0");
  EXPECT_EQ(ReadSetting("ShowFootprints", "1"), "0");
}

TEST_F(SettingsRules, AnEmptyDefaultLeavesABlankKey) {
  EXPECT_EQ(ReadSetting("ProxyHost", ""), "");
  EXPECT_TRUE(settings.Has("ProxyHost"));
  EXPECT_EQ(ReadSetting("ProxyHost", ""), "");
}

TEST_F(SettingsRules, AValueIsReturnedAsStoredNotTrimmed) {
  WriteSetting("Location Name", " Home ");
  EXPECT_EQ(ReadSetting("Location Name", "Default"), " Home ");
}

TEST_F(SettingsRules, AWriteReachesTheNextReader) {
  EXPECT_EQ(ReadSetting("MapUpdate", "2"), "2");
  WriteSetting("MapUpdate", "5");
  EXPECT_EQ(ReadSetting("MapUpdate", "2"), "5");
}

TEST_F(SettingsRules, AStoredLatitudeIsReadableOnBothKindsOfMachine) {
  WriteSetting("Latitude", "51.5");
  EXPECT_EQ(ParseNumber(ApplyCommaRule(ReadSetting("Latitude", "0"))), 51.5);
  locale.UseComma();
  EXPECT_EQ(ParseNumber(ApplyCommaRule(ReadSetting("Latitude", "0"))), 51.5);
  WriteSetting("Latitude", "51,5");
  EXPECT_EQ(ParseNumber(ApplyCommaRule(ReadSetting("Latitude", "0"))), 51.5);
  locale.UsePoint();
  EXPECT_EQ(ParseNumber(ApplyCommaRule(ReadSetting("Latitude", "0"))), 51.5) << "never 515, never a fault";
}

TEST_F(SettingsRules, AValueThatIsNoNumberIsTheCallersFault) {
  WriteSetting("GroundTrackLen", "ninety");
  EXPECT_THROW(ReadNumberSetting("GroundTrackLen", "90"), Fault);
  WriteSetting("GroundTrackLen", "");
  EXPECT_EQ(ReadNumberSetting("GroundTrackLen", "90"), 90);
}

TEST_F(SettingsRules, ASwitchIsOnForExactlyOne) {
  for (const char* value : {"0", "2", "True", "1 "}) {
    WriteSetting("Skin", value);
    EXPECT_FALSE(ReadSwitch("Skin", "1")) << value;
  }
  WriteSetting("Skin", "1");
  EXPECT_TRUE(ReadSwitch("Skin", "0"));
}

TEST_F(SettingsRules, AStoreThatTakesNothingStillGivesDefaultsButTellsTheWriter) {
  settings.FailWrites(Fault::DiskFull());
  EXPECT_EQ(ReadSetting("Miles", "0"), "0");
  EXPECT_THROW(WriteSetting("Miles", "1"), Fault);
}

class RecordedSkin : public SkinObject, public SkinnedWindow {
 public:
  void SetFirstFlag(bool on) override { calls.push_back(on ? "first on" : "first off"); }
  void SetColour(Colour colour) override { calls.push_back("colour " + std::to_string(colour)); }
  void SetColours(Colour a, Colour b, Colour c) override {
    calls.push_back("colours " + std::to_string(a) + " " + std::to_string(b) + " " + std::to_string(c));
  }
  void SetSecondFlag(bool on) override { calls.push_back(on ? "second on" : "second off"); }
  void SetFontsFromWindow() override { calls.push_back("fonts"); }
  void Apply(const SkinLayout& layout) override {
    std::string call = "apply " + std::to_string(layout.sourceWidth) + " " + std::to_string(layout.sourceHeight);
    for (const int piece : layout.pieces) call += " " + std::to_string(piece);
    calls.push_back(call);
  }
  Colour BackgroundColour() const override { return 0x123456; }
  void SetBackgroundColour(Colour colour) override { calls.push_back("background " + std::to_string(colour)); }

  Lines calls;
};

TEST_F(SkinRules, AWindowGetsItsSkinInTheGivenOrder) {
  RecordedSkin skin;
  LoadSkin(skin, skin);
  EXPECT_EQ(skin.calls, (Lines{"first on", "colour 14540253", "colours 53206 16777215 8421504", "second off", "fonts",
                               "apply 371 241 142 90 23 18", "background 1193046"}));
  EXPECT_EQ(settings.Get("Skin"), "1") << "the default is written at the first read";
}

TEST_F(SkinRules, WithSkinOffNoLookChanges) {
  WriteSetting("Skin", "0");
  RecordedSkin skin;
  LoadSkin(skin, skin);
  EXPECT_TRUE(skin.calls.empty());
}

TEST_F(SpeechGate, SaysNothingAndTouchesNothingWhileSpeechIsOff) {
  speech.broken = Fault::Automation("no engine");
  SayText("hello");
  EXPECT_TRUE(speech.said.empty());
  EXPECT_EQ(settings.Get("Speechpack"), "0");
}

TEST_F(SpeechGate, SaysTheTextForAnyOtherValue) {
  for (const char* value : {"1", "2", "yes"}) {
    WriteSetting("Speechpack", value);
    SayText("hello", false);
  }
  EXPECT_EQ(speech.said, (Lines{"hello", "hello", "hello"}));
}

TEST_F(SpeechGate, DropsAFaultOfTheEngineWithoutAWord) {
  WriteSetting("Speechpack", "1");
  speech.broken = Fault::Automation("engine gone");
  SayText("hello");
  EXPECT_TRUE(TakeFaults().empty());
}

TEST_F(SpeechGate, TheMapsOwnSwitchDoesNotReachIt) {
  WriteSetting("Speechpack", "1");
  WriteSetting("Speech", "0");
  SayText("hello");
  EXPECT_EQ(speech.said, Lines{"hello"});
}

}  // namespace
}  // namespace kestrava::platform
