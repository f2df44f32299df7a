// When a tick of the map starts and stops the pass recorder.
#include <algorithm>

#include "PlotFixture.h"

namespace kestrava::views2d {
namespace {

using Texts = std::vector<std::string>;

class RecordingTrigger : public PlotFixture {
 protected:
  void TickAt(const std::string& satellite, double elevationDeg) {
    SeeAt(satellite, elevationDeg);
    Tick();
  }

  ScriptedRecorder recorder{tables};
};

TEST_F(RecordingTrigger, IsOffByDefaultAndThenNotEvenAsksForTheThreshold) {
  SetFavourites({kNoaa});
  TickAt(kNoaa, 40);
  EXPECT_EQ(recorder.calls, Texts{});
  EXPECT_EQ(settings.Get("RecWxsat"), "0");
  EXPECT_EQ(settings.Get("RecPrimary"), "0");
  EXPECT_FALSE(settings.Has("WxEL"));
}

TEST_F(RecordingTrigger, AWeatherSatelliteInViewIsRecorded) {
  settings.Set("RecWxsat", "1");
  SetFavourites({kIss, kNoaa});
  TickAt(kNoaa, 40);
  EXPECT_EQ(recorder.calls, (Texts{"show", "start NOAA 15"}));
  EXPECT_EQ(tables.RecordActive, -1);
}

TEST_F(RecordingTrigger, AllFourSeriesCountAsWeatherInCapitalsOnly) {
  // Unknown names: the failed call leaves an elevation of 0, which is the default threshold.
  settings.Set("RecWxsat", "1");
  for (const char* name : {"OLD NOAA 3", "METEOR-M 9", "RESURS-O1", "FENGYUN 1D"}) {
    tables.RecordActive = 0;
    recorder.calls.clear();
    SetFavourites({name});
    Tick();
    EXPECT_EQ(recorder.calls, (Texts{"show", std::string("start ") + name}));
  }
  for (const char* name : {"noaa 3", "Meteor-M 9", "Resurs", "Fengyun"}) {
    tables.RecordActive = 0;
    recorder.calls.clear();
    SetFavourites({name});
    Tick();
    EXPECT_EQ(recorder.calls, Texts{}) << name;
  }
  TakeFaults();
}

TEST_F(RecordingTrigger, ThePrimaryIsAnyNameThatHoldsTheNameOfTheFirstFavourite) {
  settings.Set("RecPrimary", "1");
  SetFavourites({"UNKNOWN", "UNKNOWN 2"});
  Tick();
  TakeFaults();
  EXPECT_EQ(recorder.calls, (Texts{"show", "start UNKNOWN"}));
  recorder.calls.clear();
  tables.RecordActive = 0;
  Fave(1).Name = kIss;  // below the horizon, at the equator's far side
  Fave(2).Name = "MY ISS (ZARYA)";
  SeeAt(kIss, -30);
  Tick();
  TakeFaults();
  EXPECT_EQ(recorder.calls, (Texts{"show", "start MY ISS (ZARYA)"}));
}

TEST_F(RecordingTrigger, AWeatherSatelliteThatIsAlsoThePrimaryIsStartedTwice) {
  settings.Set("RecWxsat", "1");
  settings.Set("RecPrimary", "1");
  SetFavourites({kNoaa});
  TickAt(kNoaa, 40);
  EXPECT_EQ(recorder.calls, (Texts{"show", "start NOAA 15", "show", "start NOAA 15"}));
}

TEST_F(RecordingTrigger, AtFourTenthsOfADegreeTheDefaultThresholdOfZeroIsReached) {
  settings.Set("RecWxsat", "1");
  SetFavourites({kNoaa});
  TickAt(kNoaa, 0.4);
  EXPECT_EQ(recorder.calls, (Texts{"show", "start NOAA 15"}));
  EXPECT_EQ(settings.Get("WxEL"), "0");
}

TEST_F(RecordingTrigger, JustBelowTheHorizonIsMinusOneWholeDegree) {
  settings.Set("RecWxsat", "1");
  SetFavourites({kNoaa});
  TickAt(kNoaa, -0.4);
  EXPECT_EQ(recorder.calls, Texts{});
}

TEST_F(RecordingTrigger, TheThresholdIsComparedWithWholeDegreesRoundedDown) {
  settings.Set("RecWxsat", "1");
  settings.Set("WxEL", "10");
  SetFavourites({kNoaa});
  TickAt(kNoaa, 9.9);
  EXPECT_EQ(recorder.calls, Texts{});
  TickAt(kNoaa, 10.1);
  EXPECT_EQ(recorder.calls, (Texts{"show", "start NOAA 15"}));
}

TEST_F(RecordingTrigger, AThresholdOfHalfADegreeIsNotReachedAtNineTenthsWhichCountAsZero) {
  settings.Set("RecWxsat", "1");
  settings.Set("WxEL", "0.5");
  SetFavourites({kNoaa});
  TickAt(kNoaa, 0.9);
  EXPECT_EQ(recorder.calls, Texts{});
  TickAt(kNoaa, 1.1);
  EXPECT_EQ(recorder.calls, (Texts{"show", "start NOAA 15"}));
  TickAt(kNoaa, 0.9);
  EXPECT_EQ(recorder.calls.back(), "stop");
}

TEST_F(RecordingTrigger, WhileOneRecordingRunsNoOtherStarts) {
  settings.Set("RecWxsat", "1");
  SetFavourites({kNoaa});
  tables.RecordActive = -1;
  tables.RecordSatName = kMeteor;
  TickAt(kNoaa, 40);
  EXPECT_EQ(recorder.calls, Texts{});
}

TEST_F(RecordingTrigger, TheRecordingEndsWhenItsSatelliteFallsBelowTheThresholdThatStartedIt) {
  settings.Set("RecWxsat", "1");
  settings.Set("WxEL", "10");
  SetFavourites({kNoaa});
  TickAt(kNoaa, 10.1);
  TickAt(kNoaa, 10.0001);
  EXPECT_EQ(recorder.calls.size(), 2U);
  TickAt(kNoaa, 9.9);
  EXPECT_EQ(recorder.calls, (Texts{"show", "start NOAA 15", "stop"}));
  EXPECT_EQ(tables.RecordActive, 0);
}

TEST_F(RecordingTrigger, AnotherSatelliteBelowTheThresholdDoesNotEndIt) {
  settings.Set("RecWxsat", "1");
  SetFavourites({kIss});
  tables.RecordActive = -1;
  tables.RecordSatName = kNoaa;
  TickAt(kIss, -20);
  EXPECT_EQ(recorder.calls, Texts{});
}

TEST_F(RecordingTrigger, InWarpNothingStartsAndNothingStopsWhateverTheElevation) {
  settings.Set("RecWxsat", "1");
  SetFavourites({kNoaa});
  StartWarp({2026, 11, 15, 11, 59, 59}, 1);
  TickAt(kNoaa, 40);
  EXPECT_EQ(recorder.calls, Texts{});
  tables.RecordActive = -1;
  tables.RecordSatName = kNoaa;
  TickAt(kNoaa, -20);
  EXPECT_EQ(recorder.calls, Texts{});
}

TEST_F(RecordingTrigger, AnUnreadableThresholdIsLoggedAndNothingStarts) {
  settings.Set("RecWxsat", "1");
  settings.Set("WxEL", "low");
  SetFavourites({kNoaa});
  TickAt(kNoaa, 40);
  EXPECT_EQ(TakeFaults(), Texts{"Type mismatch - Mapview Gsatroutine"});
  EXPECT_EQ(recorder.calls, Texts{});
}

class BrokenRecorder : public station::Recorder {
 public:
  BrokenRecorder() { station::UseRecorder(this); }
  ~BrokenRecorder() override { station::UseRecorder(nullptr); }
  void Start(std::string_view) override { throw platform::Fault::DeviceError(); }
};

TEST_F(RecordingTrigger, ABrokenRecorderIsLoggedForEachStartAndTheTickGoesOn) {
  const BrokenRecorder broken;
  settings.Set("RecWxsat", "1");
  settings.Set("RecPrimary", "1");
  SetFavourites({kNoaa, kIss});
  TickAt(kNoaa, 40);
  EXPECT_EQ(TakeFaults(), (Texts{"Device I/O error - Mapview Gsatroutine", "Device I/O error - Mapview Gsatroutine"}));
  EXPECT_NE(Fave(2).Lat, 0);
}

TEST_F(RecordingTrigger, WithoutARecorderItsAbsenceIsHarmless) {
  station::UseRecorder(nullptr);
  settings.Set("RecWxsat", "1");
  SetFavourites({kNoaa});
  TickAt(kNoaa, 40);
  TickAt(kNoaa, -20);
  EXPECT_EQ(recorder.calls, Texts{});
}

}  // namespace
}  // namespace kestrava::views2d
