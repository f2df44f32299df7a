// The behaviour of the map window, driven through a window that only remembers.
#include <algorithm>

#include "WindowFixture.h"

namespace kestrava::views2d {
namespace {

TEST_F(MapWindowTest, ClocksOffHideTheClockAtLoad) {
  settings.Set("LEDclocks", "0");
  Open();
  EXPECT_FALSE(view.clock.visible);
}

TEST_F(MapWindowTest, ClocksTwoShowUniversalTimeAtLoad) {
  settings.Set("LEDclocks", "2");
  Open();
  EXPECT_TRUE(view.clock.visible);
  EXPECT_TRUE(view.clock.utc);
}

TEST_F(MapWindowTest, WithoutTheSpeechPackTheEntryIsUnmarkedAndDisabled) {
  Open();
  EXPECT_FALSE(view.IsMarked(MapMark::kSpeech));
  EXPECT_FALSE(view.IsMarkEnabled(MapMark::kSpeech));
}

TEST_F(MapWindowTest, WithSpeechTheEntryIsMarkedAndEnabled) {
  settings.Set("Speechpack", "1");
  Open();
  EXPECT_TRUE(view.IsMarked(MapMark::kSpeech));
  EXPECT_TRUE(view.IsMarkEnabled(MapMark::kSpeech));
}

TEST_F(MapWindowTest, OneMarkStandsForBothRecordingsAtLoad) {
  settings.Set("RecPrimary", "1");
  Open();
  EXPECT_TRUE(view.IsMarked(MapMark::kRecordWeather));
  EXPECT_FALSE(view.IsMarked(MapMark::kRecordPrimary));
}

TEST_F(MapWindowTest, AMissingMapPictureIsNoError) {
  Open();
  EXPECT_EQ(view.picture, "");
}

TEST_F(MapWindowTest, TheMapPictureIsTheOneThatTheSettingNames) {
  settings.Set("MapFile", "Night");
  Put("Night.jpg", "picture");
  Open();
  EXPECT_EQ(view.picture, "/house/Night.jpg");
}

TEST_F(MapWindowTest, ThePlaceComesFromTheSettingsInTwips) {
  settings.Set("WinPosX", "-300");
  settings.Set("WinPosW", "15000");
  Open();
  EXPECT_EQ(view.place, (std::vector<int>{-300, 200, 15000, 7920}));
}

TEST_F(MapWindowTest, APlaceThatIsNoNumberIsLoggedAndCostsOnlyItself) {
  settings.Set("WinPosX", "left");
  settings.Set("WinPosY", "450");
  Open();
  EXPECT_EQ(view.place, (std::vector<int>{200, 450, 12195, 7920}));
  EXPECT_EQ(TakeFaults(), std::vector<std::string>{"Type mismatch - map - Form_load"});
}

TEST_F(MapWindowTest, ThePrimaryFavouriteIsSelectedAtLoadAndDescribed) {
  Open();
  EXPECT_EQ(tables.SelSat, 1);
  EXPECT_EQ(tables.SelSatName, "ISS (ZARYA)");
  EXPECT_EQ(view.dataText, "Data for ISS (ZARYA)\r\n(International Space Station)\r\nNotes: Manned");
}

TEST_F(MapWindowTest, AnotherSatelliteInTheSelectedRowIsDescribedAtTheNextTick) {
  Open();
  eventLoop.Advance(2);
  const int before = view.dataTexts;
  std::swap(tables.FaveList[1].Name, tables.FaveList[2].Name);
  eventLoop.Advance(6);
  EXPECT_EQ(tables.SelSatName, "TIANGONG-2");
  EXPECT_EQ(view.dataText, "No Information available\r\n");
  EXPECT_EQ(view.dataTexts, before + 1) << "once, not at each tick";
}

TEST_F(MapWindowTest, ASatelliteWithoutABlockShowsThatThereIsNoInformation) {
  SetFavourites({"TIANGONG-2"});
  Open();
  EXPECT_EQ(view.dataText, "No Information available\r\n");
}

TEST_F(MapWindowTest, ActivationMakesOneMenuEntryForEachFavourite) {
  Open();
  EXPECT_EQ(view.captions, (std::map<int, std::string>{{1, "ISS (ZARYA)"}, {2, "TIANGONG-2"}}));
}

TEST_F(MapWindowTest, WhenTheListHasGrownEntriesThatExistAreLoggedAndPassedOver) {
  MapWindow& map = Open();
  SetFavourites({"A", "B", "C"});
  map.Activate();
  EXPECT_EQ(view.captions, (std::map<int, std::string>{{1, "A"}, {2, "B"}, {3, "C"}}));
  const std::vector<std::string> faults = TakeFaults();
  EXPECT_EQ(std::count(faults.begin(), faults.end(), "Object already loaded - map - Form_activate"), 2);
}

TEST_F(MapWindowTest, EntriesAboveAShrunkenListStay) {
  MapWindow& map = Open();
  SetFavourites({"TIANGONG-2"});
  map.Activate();
  EXPECT_EQ(view.captions.size(), 2u);
  EXPECT_EQ(view.captions[1], "TIANGONG-2");
  TakeFaults();
}

TEST_F(MapWindowTest, TheFirstPaintComesASecondAfterActivation) {
  Open();
  eventLoop.Advance(0.9);
  EXPECT_EQ(view.paints, 0);
  eventLoop.Advance(0.2);
  EXPECT_EQ(view.paints, 1);
}

TEST_F(MapWindowTest, ActivatedWhileHiddenTheTimerKeepsItsPace) {
  view.shown = false;
  MapWindow& map = Open();
  EXPECT_EQ(map.FastTimer().IntervalMs(), 2000);
}

TEST_F(MapWindowTest, TheFirstTickUndoesTheSecondOfTheActivation) {
  MapWindow& map = Open();
  EXPECT_EQ(map.FastTimer().IntervalMs(), 1000);
  eventLoop.Advance(1);
  EXPECT_EQ(map.FastTimer().IntervalMs(), 2000);
}

TEST_F(MapWindowTest, AChangeOfMapUpdateTakesHoldAtTheNextTick) {
  MapWindow& map = Open();
  settings.Set("MapUpdate", "5");
  eventLoop.Advance(1);
  EXPECT_EQ(map.FastTimer().IntervalMs(), 5000);
}

TEST_F(MapWindowTest, AnOpenPaneTakesTwoHundredPixels) {
  const MapLayout layout = LayOutMap(1000, 600, true);
  EXPECT_EQ(layout.finalWidth, 800);
  EXPECT_EQ(layout.finalHeight, 600);
  EXPECT_EQ(layout.expandLeft, 800);
  EXPECT_EQ(layout.contentLeft, 814);
  EXPECT_EQ(layout.textHeight, 280);
}

TEST_F(MapWindowTest, AClosedPaneLeavesTheButtonInView) {
  const MapLayout layout = LayOutMap(1000, 600, false);
  EXPECT_EQ(layout.finalWidth, 986);
  EXPECT_EQ(layout.expandLeft, 986);
  EXPECT_EQ(layout.contentLeft, 1000);
}

TEST_F(MapWindowTest, NarrowerThanThePaneTheMapGetsTheAbsoluteOfANegativeWidth) {
  EXPECT_EQ(LayOutMap(150, 300, true).finalWidth, 50);
  EXPECT_EQ(LayOutMap(150, 300, true).textHeight, 20);
}

TEST_F(MapWindowTest, AMinimisedWindowIsNotLaidOut) {
  MapWindow& map = Open();
  view.minimised = true;
  view.innerWidth = 160;
  map.Resize();
  EXPECT_EQ(view.layout.expandLeft, 800);
}

TEST_F(MapWindowTest, TheExpandButtonFlipsThePaneAndPaintsStraightAway) {
  MapWindow& map = Open();
  map.ExpandClicked();
  EXPECT_FALSE(map.State().InfoPaneShown);
  EXPECT_EQ(view.layout.finalWidth, 986);
  EXPECT_EQ(view.paints, 1);
  EXPECT_FALSE(settings.Has("ShowInfoPane") && settings.Get("ShowInfoPane") == "0") << "the toggle is not saved";
}

TEST_F(MapWindowTest, AHiddenClockComesBackWithTheTickUnlessClocksAreOff) {
  Open();
  view.clock.visible = false;
  eventLoop.Advance(1);
  EXPECT_TRUE(view.clock.visible);
  settings.Set("LEDclocks", "0");
  view.clock.visible = false;
  eventLoop.Advance(2);
  EXPECT_FALSE(view.clock.visible);
}

TEST_F(MapWindowTest, AVisibleTrackerGetsTheSelectedNameAtEachTick) {
  RememberingTracker tracker;
  Open();
  eventLoop.Advance(1);
  EXPECT_EQ(tracker.tag, "ISS (ZARYA)");
  EXPECT_EQ(tracker.updates, 1);
}

TEST_F(MapWindowTest, AnEmptyVisibleEtaListIsFilledAtATick) {
  MapWindow& map = Open();
  map.InfoModeClicked(1);
  eventLoop.Advance(1);
  ASSERT_FALSE(view.eta.rows.empty());
  EXPECT_EQ(view.eta.rows[0], (std::vector<std::string>{"SATELLITE", "AOS", "LOS"}));
}

TEST_F(MapWindowTest, AHiddenEtaListWaitsForTheMinute) {
  Open();
  eventLoop.Advance(30);
  EXPECT_TRUE(view.eta.rows.empty());
  eventLoop.Advance(31);
  EXPECT_FALSE(view.eta.rows.empty());
}

TEST_F(MapWindowTest, TheMinuteTickCountsFromNoughtToSix) {
  MapWindow& map = Open();
  std::vector<int> counts;
  for (int minute = 0; minute < 8; ++minute) {
    eventLoop.Advance(60);
    counts.push_back(map.State().SlowTick);
  }
  EXPECT_EQ(counts, (std::vector<int>{1, 2, 3, 4, 5, 6, 0, 1}));
}

TEST_F(MapWindowTest, TheTrackIsNewAtTheThirdMinuteOfSevenAndTheSunAtTheSeventh) {
  Open();
  std::vector<int> trackMinutes;
  std::vector<int> sunMinutes;
  for (int minute = 1; minute <= 14; ++minute) {
    StainTrack();
    StainSun();
    eventLoop.Advance(60);
    if (TrackIsFresh()) trackMinutes.push_back(minute);
    if (SunIsFresh()) sunMinutes.push_back(minute);
  }
  EXPECT_EQ(trackMinutes, (std::vector<int>{3, 10}));
  EXPECT_EQ(sunMinutes, (std::vector<int>{7, 14}));
}

TEST_F(MapWindowTest, TimeWarpStartsFromThePresentLocalTimeAtTheSlidersSpeed) {
  clock.SetOffsetHours(2);
  MapWindow& map = Open();
  view.slider = 30;
  map.TimeButtonClicked(1);
  EXPECT_EQ(map.State().warp.WarpSpeed, 30);
  EXPECT_EQ(map.State().warp.Parts(), (platform::DateParts{2026, 11, 15, 14, 0, 0}));
  EXPECT_TRUE(view.clock.given);
  EXPECT_EQ((view.lit[{MapButtons::kTime, 1}]), kLitButton);
  EXPECT_EQ((view.lit[{MapButtons::kTime, 0}]), kDarkButton);
  EXPECT_EQ(map.FastTimer().IntervalMs(), 1000);
}

TEST_F(MapWindowTest, SixtySecondsATickAtAMinutesIntervalIsRealSpeed) {
  settings.Set("MapUpdate", "60");
  MapWindow& map = Open();
  eventLoop.Advance(1);
  view.slider = 60;
  map.TimeButtonClicked(1);
  eventLoop.Advance(1);  // the tick that the click hastened
  const int minutes = map.State().warp.WarpMinute;
  eventLoop.Advance(600);
  EXPECT_EQ(map.State().warp.WarpMinute, minutes + 10);
}

TEST_F(MapWindowTest, TheSliderActsInWarpOnly) {
  MapWindow& map = Open();
  map.WarpSliderChanged(40);
  EXPECT_EQ(map.State().warp.WarpSpeed, 0);
  map.TimeButtonClicked(1);
  map.WarpSliderChanged(40);
  EXPECT_EQ(map.State().warp.WarpSpeed, 40);
}

TEST_F(MapWindowTest, RealTimeBringsTrackSunAndClockBack) {
  MapWindow& map = Open();
  map.TimeButtonClicked(1);
  view.clock.utc = true;
  StainTrack();
  StainSun();
  map.TimeButtonClicked(0);
  EXPECT_EQ(map.State().warp.WarpSpeed, 0);
  EXPECT_TRUE(TrackIsFresh());
  EXPECT_TRUE(SunIsFresh());
  EXPECT_FALSE(view.clock.given);
  EXPECT_FALSE(view.clock.utc);
}

TEST_F(MapWindowTest, InWarpTheSystemClocksSecondDecidesOnTrackAndSun) {
  settings.Set("MapUpdate", "1");
  MapWindow& map = Open();
  map.TimeButtonClicked(1);
  for (int second = 1; second <= 15; ++second) {
    StainTrack();
    StainSun();
    eventLoop.Advance(1);
    EXPECT_EQ(TrackIsFresh(), second % 3 == 0) << second;
    EXPECT_EQ(SunIsFresh(), second % 5 == 0) << second;
  }
}

TEST_F(MapWindowTest, TheHeadingOfTheMenuDoesNothing) {
  MapWindow& map = Open();
  map.FavouriteClicked(0);
  EXPECT_EQ(tables.SelSat, 1);
}

TEST_F(MapWindowTest, AMenuEntrySelectsTellsTheTrackerAndDrawsANewTrack) {
  RememberingTracker tracker;
  MapWindow& map = Open();
  StainTrack();
  map.FavouriteClicked(2);
  EXPECT_EQ(tables.SelSat, 2);
  EXPECT_EQ(tables.SelSatName, "TIANGONG-2");
  EXPECT_EQ(tracker.selected, "TIANGONG-2");
  EXPECT_EQ(tracker.updates, 1);
  EXPECT_TRUE(TrackIsFresh());
}

TEST_F(MapWindowTest, WithTheTrackSwitchedOffASelectionLeavesTheOldOne) {
  settings.Set("ShowGroundtrack", "0");
  MapWindow& map = Open();
  StainTrack();
  map.FavouriteClicked(2);
  EXPECT_FALSE(TrackIsFresh());
}

TEST_F(MapWindowTest, NextAfterTheLastIsTheFirst) {
  MapWindow& map = Open();
  map.NextSatellite();
  EXPECT_EQ(tables.SelSatName, "TIANGONG-2");
  map.NextSatellite();
  EXPECT_EQ(tables.SelSat, 1);
  EXPECT_EQ(tables.SelSatName, view.captions[1]);
}

TEST_F(MapWindowTest, PreviousOfTheFirstIsTheLast) {
  MapWindow& map = Open();
  map.PreviousSatellite();
  EXPECT_EQ(tables.SelSat, 2);
}

TEST_F(MapWindowTest, ARightClickOpensTheSatellitesMenu) {
  MapWindow& map = Open();
  map.FinalMousedown(true, 10, 10);
  EXPECT_EQ(view.popUps, 1);
  EXPECT_EQ(tables.SelSat, 1);
}

TEST_F(MapWindowTest, AClickSelectsTheNearestHoweverFar) {
  MapWindow& map = Open();
  tables.FaveList[1].Lon = 180;
  tables.FaveList[2].Lon = 10;
  map.FinalMousedown(false, 700, 590);
  EXPECT_EQ(tables.SelSat, 2);
}

TEST_F(MapWindowTest, OfTwoAtTheSamePixelTheLowerIndexWins) {
  MapWindow& map = Open();
  map.FavouriteClicked(2);
  map.FinalMousedown(false, 400, 300);
  EXPECT_EQ(tables.SelSat, 1);
}

TEST_F(MapWindowTest, AClickWithoutFavouritesSelectsNothing) {
  SetFavourites({});
  tables.FaveList[1].Name.clear();
  MapWindow& map = Open();
  TakeFaults();
  map.FinalMousedown(false, 400, 300);
  EXPECT_EQ(tables.SelSat, 0);
}

TEST_F(MapWindowTest, InARegionAClickCanSelectASatelliteOffTheQuarter) {
  MapWindow& map = Open();
  map.ChangeToRegion("NWQ");
  tables.FaveList[1] = {"ISS (ZARYA)", -60, 170, 0, 0, 0};
  tables.FaveList[2] = {"TIANGONG-2", 80, 300, 0, 0, 0};
  map.FinalMousedown(false, 799, 599);
  EXPECT_EQ(tables.SelSat, 2);
}

TEST_F(MapWindowTest, AnEtaRowSelectsTheEntryOfItsName) {
  MapWindow& map = Open();
  map.QuickEtaItemClicked(" TIANGONG-2 ");
  EXPECT_EQ(tables.SelSat, 2);
  map.QuickEtaItemClicked("SATELLITE");
  EXPECT_EQ(tables.SelSat, 2);
}

TEST_F(MapWindowTest, TheWorldIsTheAlternateOneIfTheSettingSaysSo) {
  MapWindow& map = Open();
  map.ChangeToRegion("SEQ");
  EXPECT_EQ(map.State().MapMode, "SEQ");
  map.ChangeToWorld();
  EXPECT_EQ(map.State().MapMode, "worldnormal");
  settings.Set("Altworld", "1");
  map.ChangeToWorld();
  EXPECT_EQ(map.State().MapMode, "worldalt");
}

TEST_F(MapWindowTest, TheMarksOfTheMenuAreSaved) {
  MapWindow& map = Open();
  map.ToggleAutoSelect();
  map.ToggleRecordWeather();
  map.ToggleRecordPrimary();
  map.ToggleSpeech();
  EXPECT_EQ(settings.Get("AutoSelect"), "1");
  EXPECT_EQ(settings.Get("RecWxsat"), "1");
  EXPECT_EQ(settings.Get("RecPrimary"), "1");
  EXPECT_EQ(settings.Get("Speech"), "1");
  EXPECT_EQ(tables.SpeechOn, -1);
  map.ToggleAutoSelect();
  EXPECT_EQ(settings.Get("AutoSelect"), "0");
}

TEST_F(MapWindowTest, TheAnnouncementSpeaksAllFavourites) {
  settings.Set("Speechpack", "1");
  MapWindow& map = Open();
  map.MakeAnnouncement();
  EXPECT_EQ(speech.said.size(), 2u);
}

TEST_F(MapWindowTest, AtItsEndTheTimersStopAndTheMapsShareOfTheTablesIsCleared) {
  MapWindow& map = Open();
  tables.GroundTrack[1440].lat = 5;
  tables.GroundTrack[1441].lat = 6;
  tables.FootPrint[360].lat = 7;
  tables.FootPrint[361].lat = 8;
  map.Unload();
  EXPECT_EQ(eventLoop.RunningTimers(), 0);
  EXPECT_EQ(tables.GroundTrack[1440].lat, 0);
  EXPECT_EQ(tables.GroundTrack[1441].lat, 6) << "the bound is fixed";
  EXPECT_EQ(tables.FootPrint[360].lat, 0);
  EXPECT_EQ(tables.FootPrint[361].lat, 8);
}

TEST_F(MapWindowTest, ClosedInTheMidstOfATickTheRestOfTheTickIsPassedOver) {
  MapWindow& map = Open();
  view.duringPaint = [&] { map.Unload(); };
  settings.ForgetAccesses();
  eventLoop.Advance(1);
  const auto& reads = settings.Reads();
  EXPECT_EQ(std::count(reads.begin(), reads.end(), "MapUpdate"), 0);
  EXPECT_EQ(eventLoop.RunningTimers(), 0);
}

TEST_F(MapWindowTest, AFaultInOneStatementOfTheTickCostsThatStatementAlone) {
  settings.Set("MapUpdate", "often");
  Open();
  eventLoop.Advance(1);
  EXPECT_EQ(view.paints, 1);
  EXPECT_EQ(TakeFaults(), std::vector<std::string>{"Type mismatch - map - Timer1"});
  eventLoop.Advance(1);
  EXPECT_EQ(view.paints, 2) << "the interval stays and the map goes on";
  TakeFaults();
}

TEST_F(MapWindowTest, TwoMapsShareTheSelectionButNotTheWarp) {
  MapWindow& first = Open();
  RememberingView secondView;
  MapWindow second(orbit::Sky{tables, engine}, secondView);
  secondView.window = &second;
  second.Load();
  second.Resize();
  second.Activate();
  second.ChangeToRegion("NEQ");
  second.TimeButtonClicked(1);
  eventLoop.Advance(120);
  EXPECT_EQ(first.State().MapMode, "worldnormal");
  EXPECT_EQ(first.State().warp.WarpSpeed, 0);
  EXPECT_FALSE(view.clock.given);
  first.FavouriteClicked(2);
  EXPECT_EQ(tables.SelSat, 2);
}

}  // namespace
}  // namespace kestrava::views2d
