// What the map owes its user beyond the plain way: settings spoilt by hand, the order in which settings are read, the
// small rules of the selection, the list and the lines of the pane.
#include <algorithm>
#include <limits>

#include "predict/QuickEta.h"

#include "PainterFixture.h"
#include "PlotFixture.h"
#include "WindowFixture.h"

namespace kestrava::views2d {
namespace {

using Texts = std::vector<std::string>;

class PaintContract : public PainterFixture {
 protected:
  Texts FaultsOfAPaintWith(const std::string& key, const std::string& value) {
    settings.Set(key, value);
    Paint();
    return TakeFaults();
  }
};

TEST_F(PaintContract, SettingsAreReadAsTheLayersReachThem) {
  Paint();
  EXPECT_EQ(settings.Reads(), (Texts{"Latitude", "Longitude", "ShowGroundtrack", "GroundTrackLen", "ShowFootprints"}));
}

TEST_F(PaintContract, SettingsAreReadAfreshAtEachPaint) {
  Paint();
  settings.Set("ShowFootprints", "0");
  settings.Set("Latitude", "45");
  settings.Set("Longitude", "-90");
  Paint();
  EXPECT_EQ(log.IndexOf("Final SetPen #0080ff"), -1);
  EXPECT_EQ(log.Of("Final DrawCircle"), Texts{"Final DrawCircle (1053,173) radius 1"});
}

TEST_F(PaintContract, ATrackLengthSpoiltByHandCostsTheTrackAndOneLine) {
  const Texts overflow{"Overflow - mapview RepaintMapScreen"};
  EXPECT_EQ(FaultsOfAPaintWith("GroundTrackLen", "100000"), overflow);
  EXPECT_EQ(FaultsOfAPaintWith("GroundTrackLen", "1e400"), overflow);
  EXPECT_EQ(FaultsOfAPaintWith("GroundTrackLen", "-100000"), overflow);
  EXPECT_EQ(FaultsOfAPaintWith("GroundTrackLen", "ninety"), Texts{"Type mismatch - mapview RepaintMapScreen"});
  EXPECT_EQ(FaultsOfAPaintWith("GroundTrackLen", "-5"), Texts{});
  EXPECT_EQ(log.Of("Final DrawPoint (700,352)").size(), 181u) << "the dots of the footprint alone";
}

TEST_F(PaintContract, AHomeOutsideTheWorldIsDrawnOffTheMapAndAnImpossibleOneIsLogged) {
  EXPECT_EQ(FaultsOfAPaintWith("Latitude", "999"), Texts{});
  EXPECT_EQ(log.Of("Final DrawCircle").size(), 1u);
  for (const auto& [value, fault] :
       {std::pair{"abc", "Type mismatch"}, {"1e400", "Overflow"}, {"nan", "Type mismatch"}}) {
    EXPECT_EQ(FaultsOfAPaintWith("Latitude", value), Texts{std::string(fault) + " - mapview RepaintMapScreen"});
    EXPECT_TRUE(log.Of("Final DrawCircle").empty()) << value;
    EXPECT_FALSE(log.Of("Final Print \"   ").empty() && log.Of("Final Print \" ").empty()) << "the rest is painted";
  }
}

TEST_F(PaintContract, TheWeightOfABlendOfOneHexadecimalDigitIsRead) {
  AlphaBlendPercent(final, {0, 0, 1, 1}, alpha, {0, 0, 1, 1}, 0);
  AlphaBlendPercent(final, {0, 0, 1, 1}, alpha, {0, 0, 1, 1}, 15);
  AlphaBlendPercent(final, {0, 0, 1, 1}, alpha, {0, 0, 1, 1}, 255);
  EXPECT_EQ(log.Of("Final AlphaBlend"), (Texts{"Final AlphaBlend 0,0 1x1 from Alpha 0,0 1x1 #000000",
                                               "Final AlphaBlend 0,0 1x1 from Alpha 0,0 1x1 #0f0000",
                                               "Final AlphaBlend 0,0 1x1 from Alpha 0,0 1x1 #ff0000"}));
}

class TickContract : public PlotFixture {};

TEST_F(TickContract, ATrackLengthSpoiltByHandCalculatesNothingBeyondTheTableAndSaysSoOnce) {
  SetFavourites({kIss});
  for (const auto& [value, fault] :
       {std::pair{"100000", "Overflow"}, {"-100000", "Overflow"}, {"1e400", "Overflow"}, {"long", "Type mismatch"}}) {
    settings.Set("GroundTrackLen", value);
    CalcGroundTrack(sky, map);
    EXPECT_EQ(TakeFaults(), Texts{std::string(fault) + " - Mapview CalcGroundTrack"}) << value;
    EXPECT_EQ(tables.GroundTrack[0].colour, 0U) << value;
  }
  settings.Set("GroundTrackLen", "-1");
  CalcGroundTrack(sky, map);
  EXPECT_EQ(tables.GroundTrack[0].colour, 0U);
}

TEST_F(TickContract, TheTrackLengthIsAskedOnceForEachCalculation) {
  SetFavourites({kIss});
  settings.ForgetAccesses();
  CalcGroundTrack(sky, map);
  const auto& reads = settings.Reads();
  EXPECT_EQ(std::count(reads.begin(), reads.end(), "GroundTrackLen"), 1);
}

/// A recorder whose window cannot be shown.
class HiddenRecorder : public station::Recorder {
 public:
  HiddenRecorder() { station::UseRecorder(this); }
  ~HiddenRecorder() override { station::UseRecorder(nullptr); }
  void Show() override { throw platform::Fault::ObjectNotSet(); }
  void Start(std::string_view name) override { started = name; }
  std::string started;
};

TEST_F(TickContract, ARecorderThatCannotBeShownRecordsAllTheSame) {
  HiddenRecorder recorder;
  settings.Set("RecWxsat", "1");
  SetFavourites({kNoaa});
  SeeAt(kNoaa, 40);
  Tick();
  EXPECT_EQ(TakeFaults(), Texts{"Object variable not set - Mapview Gsatroutine"});
  EXPECT_EQ(recorder.started, kNoaa);
}

class WindowContract : public MapWindowTest {
 protected:
  bool Runs() { return window->FastTimer().Enabled() && window->FastTimer().IntervalMs() > 0; }
};

TEST_F(WindowContract, AnUpdateIntervalOfZeroOrLessStopsTheMapUntilItIsActivatedAgain) {
  for (const char* interval : {"0", "-1"}) {
    settings.Set("MapUpdate", interval);
    Open();
    view.paints = 0;
    eventLoop.Advance(30);
    EXPECT_EQ(view.paints, 1) << interval;
    EXPECT_FALSE(Runs());
    window->Activate();
    eventLoop.Advance(30);
    EXPECT_EQ(view.paints, 2) << interval;
    window->Unload();
    view.captions.clear();
  }
}

TEST_F(WindowContract, AnUpdateIntervalTooLargeForTheTimerIsLoggedAtEachTickAndTheOldOneStays) {
  for (const auto& [interval, fault] :
       {std::pair{"1000000000", "Overflow"}, {"1e400", "Overflow"}, {"abc", "Type mismatch"}}) {
    settings.Set("MapUpdate", interval);
    Open();
    view.paints = 0;
    eventLoop.Advance(3);
    EXPECT_EQ(view.paints, 3) << interval;
    EXPECT_EQ(TakeFaults(), Texts(3, std::string(fault) + " - map - Timer1")) << interval;
    EXPECT_TRUE(Runs());
    window->Unload();
    view.captions.clear();
  }
}

TEST_F(WindowContract, APlaceTooFarForANumberIsTheUsualOne) {
  settings.Set("WinPosX", "99999999999");
  settings.Set("WinPosY", "-2000000000");
  settings.Set("WinPosW", "wide");
  settings.Set("WinPosH", "0.4");
  Open();
  EXPECT_EQ(view.place, (std::vector<int>{200, -2000000000, 12195, 0}));
  EXPECT_EQ(TakeFaults(), (Texts{"Overflow - map - Form_load", "Type mismatch - map - Form_load"}));
}

TEST_F(WindowContract, AMapFileWithFoldersIsLookedForAsItStands) {
  files.MakeFolder("/house/maps");
  Put("maps/Old.jpg", "x");
  settings.Set("MapFile", "maps/Old");
  Open();
  EXPECT_EQ(view.picture, "/house/maps/Old.jpg");
  window->Unload();
  view.captions.clear();
  view.picture.clear();
  settings.Set("MapFile", "../../nowhere/Old");
  Open();
  EXPECT_EQ(view.picture, "");
}

TEST_F(WindowContract, TheLinesOfATickAreShownInOneGoBeforeThePaint) {
  Open();
  view.order.clear();
  eventLoop.Advance(1);
  EXPECT_EQ(view.order, (Texts{"changed", "lines", "paint"}));
}

TEST_F(WindowContract, TheLinesOfSunAndMoonAreShownWheneverTheyAreCalculated) {
  MapWindow& map = Open();
  EXPECT_EQ(view.order.back(), "lines");
  map.TimeButtonClicked(1);
  clock.AdvanceMs(86400000);
  view.order.clear();
  map.TimeButtonClicked(0);
  EXPECT_EQ(view.order, (Texts{"changed", "lines"}));
}

TEST_F(WindowContract, ASatelliteWithoutAPlaceIsNotTheNearest) {
  MapWindow& map = Open();
  tables.FaveList[2].Lon = std::numeric_limits<double>::quiet_NaN();
  map.FinalMousedown(false, 10, 10);
  EXPECT_EQ(tables.SelSat, 1);
}

TEST_F(WindowContract, ADistanceIsCountedInWholePixelsOnceItIsTheBest) {
  MapWindow& map = Open();  // the map is 800 x 600: a degree of longitude is 2.222 pixels
  const auto atX = [](double x) { return 180 - x * 360 / 800; };
  tables.FaveList[1] = {"ISS (ZARYA)", 0, atX(110.4), 0, 0, 0};
  tables.FaveList[2] = {"TIANGONG-2", 0, atX(110.2), 0, 0, 0};
  map.FinalMousedown(false, 100, 300);
  EXPECT_EQ(tables.SelSat, 1) << "10.4 was kept as 10, and 10.2 is not below it";
}

TEST_F(WindowContract, AnEtaRowOfFourteenCharactersSelectsItsTrimmedNameOnly) {
  SetFavourites({"FIFTEEN LETTERS", "FOURTEEN CHARS", "SHORT"});
  MapWindow& map = Open();
  TakeFaults();  // the engine does not know them
  map.QuickEtaItemClicked("FIFTEEN LETTER");
  EXPECT_EQ(tables.SelSat, 1) << "as it was: the list cut the name";
  tables.SelSat = 3;
  map.QuickEtaItemClicked("FIFTEEN LETTER");
  EXPECT_EQ(tables.SelSat, 3);
  map.QuickEtaItemClicked("FOURTEEN CHARS");
  EXPECT_EQ(tables.SelSat, 2);
  map.QuickEtaItemClicked("SHORT         ");
  EXPECT_EQ(tables.SelSat, 3);
  TakeFaults();
}

TEST_F(WindowContract, TheFastTickSpeaksByTheMarkAndTheSlowOneByWhetherItCanBeUsed) {
  settings.Set("Speechpack", "1");
  settings.Set("SpeechStart", "2000");
  settings.Set("SpeechEvery", "1");
  MapWindow& map = Open();
  map.ToggleSpeech();  // unmarked, but still enabled
  view.ShowQuickEta(true);
  eventLoop.Advance(1);
  ASSERT_GT(view.eta.RowCount(), 1);
  EXPECT_TRUE(speech.said.empty());
  eventLoop.Advance(60);
  EXPECT_FALSE(speech.said.empty());
}

TEST_F(WindowContract, TheModesOfTheInfoAreaLightTheirButtons) {
  MapWindow& map = Open();
  map.InfoModeClicked(1);
  EXPECT_TRUE(view.etaVisible);
  EXPECT_EQ((view.lit[{MapButtons::kInfoMode, 1}]), 0xFFFFC0u);
  EXPECT_EQ((view.lit[{MapButtons::kInfoMode, 0}]), 0xC0C000u);
  map.InfoModeClicked(0);
  EXPECT_FALSE(view.etaVisible);
  EXPECT_EQ((view.lit[{MapButtons::kInfoMode, 1}]), 0xC0C000u);
  EXPECT_EQ((view.lit[{MapButtons::kInfoMode, 0}]), 0xFFFFC0u);
}

TEST_F(WindowContract, TimeWarpTicksOnceASecondUntilTheFirstTick) {
  settings.Set("MapUpdate", "5");
  MapWindow& map = Open();
  eventLoop.Advance(1);
  EXPECT_EQ(map.FastTimer().IntervalMs(), 5000);
  map.TimeButtonClicked(1);
  EXPECT_EQ(map.FastTimer().IntervalMs(), 1000);
  eventLoop.Advance(1);
  EXPECT_EQ(map.FastTimer().IntervalMs(), 5000);
}

TEST_F(WindowContract, RealTimeDrawsTheTrackAlsoWhereItIsNotShown) {
  settings.Set("ShowGroundtrack", "0");
  MapWindow& map = Open();
  StainTrack();
  map.TimeButtonClicked(0);
  EXPECT_TRUE(TrackIsFresh());
}

TEST_F(WindowContract, NextWithoutFavouritesNamesTheMissingEntryInTheLog) {
  SetFavourites({});
  MapWindow& map = Open();
  TakeFaults();
  map.PreviousSatellite();  // to entry 0, which does nothing
  EXPECT_EQ(tables.SelSat, 1);
  EXPECT_EQ(TakeFaults(), Texts{});
  settings.Set("ShowGroundtrack", "0");
  map.NextSatellite();
  EXPECT_EQ(TakeFaults(), Texts{"Subscript out of range - map - menu favelist_Click"});
}

TEST_F(WindowContract, TheAutomaticSelectionGoesThroughTheMenusHandler) {
  settings.Set("AutoSelect", "1");
  MapWindow& map = Open();
  RememberingTracker tracker;
  const double first = engine.PlaceOf("ISS (ZARYA)", clock.Read().utc).look.elevationRad;
  const double second = engine.PlaceOf("TIANGONG-2", clock.Read().utc).look.elevationRad;
  map.FavouriteClicked(first > second ? 2 : 1);  // the lower one, out of sight
  ASSERT_LT(std::min(first, second), 0);
  StainTrack();
  eventLoop.Advance(1);
  EXPECT_EQ(tables.SelSat, first > second ? 1 : 2);
  EXPECT_EQ(tracker.selected, first > second ? "ISS (ZARYA)" : "TIANGONG-2");
  EXPECT_TRUE(TrackIsFresh());
}

TEST_F(WindowContract, ClosingOneMapLeavesTheListThatAnotherIsFilling) {
  MapWindow& first = Open();
  RememberingView secondView;
  MapWindow second(orbit::Sky{tables, engine}, secondView);
  secondView.window = &second;
  second.Load();
  eventLoop.AtYield(1, [&] { second.Unload(); });
  predict::UpdateQuickETA(orbit::Sky{tables, engine}, view.eta, false);
  EXPECT_EQ(view.eta.RowCount(), 3);
  eventLoop.AtYield(1, [&] { first.Unload(); });
  view.eta.Clear();
  predict::UpdateQuickETA(orbit::Sky{tables, engine}, view.eta, false);
  EXPECT_EQ(view.eta.RowCount(), 0) << "its own list is filled no further";
  EXPECT_FALSE(predict::QuickEtaBusy());
}

TEST_F(WindowContract, TheEndLeavesLongitudesAndColoursOfTheTrack) {
  MapWindow& map = Open();
  tables.GroundTrack[7] = {1, 2, 0xFFFFFF};
  tables.FootPrint[7] = {1, 2};
  map.Unload();
  EXPECT_EQ(tables.GroundTrack[7].lat, 0);
  EXPECT_EQ(tables.GroundTrack[7].lon, 2);
  EXPECT_EQ(tables.GroundTrack[7].colour, 0xFFFFFFu);
  EXPECT_EQ(tables.FootPrint[7].lat, 0);
  EXPECT_EQ(tables.FootPrint[7].lon, 2);
}

}  // namespace
}  // namespace kestrava::views2d
