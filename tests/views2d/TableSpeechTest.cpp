// What the table says as satellites come into range.
#include <cmath>

#include <gtest/gtest.h>

#include "platform/Fault.h"

#include "TableFixture.h"

namespace kestrava::views2d {
namespace {

using Texts = std::vector<std::string>;

class TableVoice : public TableFixture {
 protected:
  double AzimuthDeg(const std::string& satellite) {
    return engine.PlaceOf(satellite, NowUtc()).look.azimuthRad * 180 / 3.14159265358979;
  }
  std::string WholeAzimuth(const std::string& satellite) {
    return std::to_string(static_cast<int>(std::floor(AzimuthDeg(satellite))));
  }
};

TEST_F(TableVoice, SaysWhoHasComeUpAndWhereWithoutABlankBeforeDegrees) {
  SetFavourites({kNoaa});
  SeeAt(kNoaa, 30);
  OpenTable();
  Second();
  EXPECT_EQ(speech.said, Texts{"NOAA 15 is now in range at heading " + WholeAzimuth(kNoaa) + "degrees."});
  EXPECT_EQ(speech.kinds, std::vector{platform::SpeechKind::kSentence}) << "none of them may be lost";
}

TEST_F(TableVoice, TheHeadingIsRoundedDown) {
  SetFavourites({kNoaa});
  SeeAt(kNoaa, 30);
  OpenTable();
  const auto fraction = [&] { return AzimuthDeg(kNoaa) - std::floor(AzimuthDeg(kNoaa)); };
  for (int i = 0; i < 500 && fraction() < 0.6; ++i) clock.AdvanceMs(1000);
  ASSERT_GE(fraction(), 0.6);
  ASSERT_GT(ElevationDeg(kNoaa), 0);
  table->MainLoop();
  EXPECT_EQ(speech.said, Texts{"NOAA 15 is now in range at heading " + WholeAzimuth(kNoaa) + "degrees."});
}

TEST_F(TableVoice, SpeaksTheNameInItsSpokenForm) {
  SetFavourites({kIss});
  SeeAt(kIss, 30);
  OpenTable();
  Second();
  EXPECT_EQ(speech.said,
            Texts{"The International Space station is now in range at heading " + WholeAzimuth(kIss) + "degrees."});
}

TEST_F(TableVoice, TheFirstTickAnnouncesAllThatAreUpInTheOrderOfTheList) {
  SetFavourites({kOscar, kMeteor, kIss, kNoaa});
  SeeAt(kIss, 20);
  while (ElevationDeg(kNoaa) <= 0 && ElevationDeg(kMeteor) <= 0 && ElevationDeg(kOscar) <= 0) {
    clock.AdvanceMs(60000);
    SeeAt(kIss, 20);
  }
  OpenTable();
  EXPECT_TRUE(speech.said.empty()) << "not before the first tick";
  Second();
  Texts expected;
  for (const char* name : {kOscar, kMeteor, kIss, kNoaa}) {
    if (ElevationDeg(name) <= 0) continue;
    const std::string spoken = name == kIss      ? "The International Space station"
                               : name == kMeteor ? "METEOR M 2"
                               : name == kOscar  ? "OSCAR 7 (AO 7)"
                                                 : name;
    expected.push_back(spoken + " is now in range at heading " + WholeAzimuth(name) + "degrees.");
  }
  ASSERT_GE(expected.size(), 2u);
  EXPECT_EQ(speech.said, expected);
}

TEST_F(TableVoice, SaysItOnceAPass) {
  SetFavourites({kIss});
  SeeAt(kIss, 10);
  OpenTable();
  eventLoop.Advance(30);
  EXPECT_EQ(speech.said.size(), 1u);
  WaitUntil(kIss, false);
  Second();
  EXPECT_EQ(speech.said.size(), 1u) << "a set is not spoken";
  WaitUntil(kIss, true);
  eventLoop.Advance(3);
  EXPECT_EQ(speech.said.size(), 2u);
}

TEST_F(TableVoice, AWindowOpenedAnewAnnouncesAgainWhoIsUpAlready) {
  SetFavourites({kIss});
  SeeAt(kIss, 40);
  OpenTable();
  Second();
  table->Unload();
  OpenTable();
  Second();
  EXPECT_EQ(speech.said.size(), 2u);
}

TEST_F(TableVoice, TheColourOfTheRowIsAllThatItKnows) {
  SetFavourites({kIss});
  SeeAt(kIss, 40);
  OpenTable();
  Second();
  table->RefreshTable();  // white again
  Second();
  EXPECT_EQ(speech.said.size(), 2u);
}

TEST_F(TableVoice, ARowThatIsNoFavouriteAnyMoreSaysNothing) {
  SetFavourites({kIss});
  SeeAt(kIss, 40);
  OpenTable();
  SetFavourites({});
  Second();
  EXPECT_TRUE(speech.said.empty());
}

TEST_F(TableVoice, WithoutSpeechTheRowTurnsRedInSilence) {
  settings.Set("Speechpack", "0");
  speech.broken = platform::Fault::Automation("touched");
  SetFavourites({kIss});
  SeeAt(kIss, 40);
  OpenTable();
  Second();
  EXPECT_TRUE(speech.said.empty());
  EXPECT_EQ(Row(0).colour, 0x0030FFu);
  settings.Set("Speechpack", "1");
  speech.broken.reset();
  Second();
  EXPECT_TRUE(speech.said.empty()) << "the row was red already";
}

TEST_F(TableVoice, AFaultOfTheEngineIsDroppedAndTheTickGoesOn) {
  speech.broken = platform::Fault::DeviceError();
  SetFavourites({kIss});
  SeeAt(kIss, 40);
  OpenTable();
  Second();
  EXPECT_EQ(Row(0).colour, 0x0030FFu);
  EXPECT_EQ(Label(TableLabel::kStatus), "1 out of 1 Satellites in range");
  EXPECT_TRUE(ErrorLog().empty());
}

}  // namespace
}  // namespace kestrava::views2d
