// The behaviour of the horizon window, driven through a window that only remembers. Its paints go to logged surfaces.
#include <algorithm>
#include <map>

#include "platform/Fault.h"
#include "platform/Format.h"

#include "HorizonFixture.h"
#include "RememberingTracker.h"

namespace kestrava::views2d {
namespace {

using Texts = std::vector<std::string>;
using platform::FloorText;
using platform::SpeechKind;

class RememberingHorizon : public HorizonWindowView {
 public:
  int innerWidth = 800;
  int innerHeight = 450;
  int skins = 0;
  std::vector<int> place;
  HorizonLayout layout;
  std::string picture;
  int paints = 0;
  std::string dataText;
  std::map<HorizonMark, bool> marks{{HorizonMark::kAnnouncePosition, true}, {HorizonMark::kSouth, true}};
  HorizonPainter* painter = nullptr;

  int InnerWidthPx() const override { return innerWidth; }
  int InnerHeightPx() const override { return innerHeight; }
  int TextWidthPx() const override { return 240; }
  int ExpandWidthPx() const override { return 14; }
  int FinalWidthPx() const override { return innerWidth; }
  int FinalHeightPx() const override { return innerHeight; }
  TextSize LabelSize(std::string_view text) const override { return {6.0 * static_cast<double>(text.size()), 12}; }
  void ApplySkin() override { ++skins; }
  void ApplyPlace(const WindowPlace& at) override {
    place = {at.leftTwips, at.topTwips, at.widthTwips, at.heightTwips};
  }
  void ApplyLayout(const HorizonLayout& l) override { layout = l; }
  void LoadBackDrop(const std::string& file) override { picture = file; }
  void RepaintHorizon() override {
    ++paints;
    if (painter) painter->PaintScreen();
  }
  void SetDataText(std::string_view text) override { dataText = text; }
  bool IsMarked(HorizonMark mark) const override { return marks.count(mark) > 0 && marks.at(mark); }
  void SetMarked(HorizonMark mark, bool on) override { marks[mark] = on; }
};

class HorizonWindowTest : public HorizonSky {
 protected:
  HorizonWindowTest() {
    settings.Set("Speechpack", "1");
    Put("satellite.dat", "ISS\r\nNAME   International Space Station\r\nNOTES  Manned\r\n***\r\n");
  }

  HorizonWindow& Open() {
    window = std::make_unique<HorizonWindow>(sky, view);
    window->Load();
    window->Resize();
    painter = std::make_unique<HorizonPainter>(sky, window->State(), set.Surfaces(), *window);
    view.painter = painter.get();
    return *window;
  }
  /// A row that stands at a place of the picture, as a paint would have left it.
  void PlaceRow(int index, const std::string& name, double azDeg, double elDeg) {
    Fave(index).Name = name;
    Fave(index).Az = azDeg;
    Fave(index).El = elDeg;
    tables.FaveCount = static_cast<std::int16_t>(std::max<int>(tables.FaveCount, index));
  }

  HorizonSurfaceSet set;
  RememberingHorizon view;
  std::unique_ptr<HorizonWindow> window;
  std::unique_ptr<HorizonPainter> painter;
};

TEST_F(HorizonWindowTest, ItsOwnEngineIsPrimedWithTheFolderAndTheObserverAndIsNeverAsked) {
  engine.SetObserver({12, 34, 560});
  const orbit::OrbitEngine* own = Open().OwnEngine();
  ASSERT_NE(own, nullptr);
  EXPECT_NE(own, &engine);
  EXPECT_EQ(own->DataFolder(), platform::AppDir);
  EXPECT_EQ(own->SatelliteCount(), engine.SatelliteCount());
  EXPECT_EQ(own->ObserverLatitude(), 12);
  EXPECT_EQ(own->ObserverLongitude(), 34);
  EXPECT_EQ(own->ObserverHeight(), 560);
  SetFavourites({kStation});
  eventLoop.Advance(2);
  EXPECT_EQ(own->OrbitNumber(), 0);
  EXPECT_NE(engine.OrbitNumber(), 0);
}

TEST_F(HorizonWindowTest, TheSceneryIsReadUnderAnotherSpellingOfTheSameKey) {
  settings.Set("horizonfile", "sea");
  Put("sea.jpg", "picture");
  settings.ForgetAccesses();
  Open();
  EXPECT_EQ(view.picture, "/house/sea.jpg");
  const Texts& reads = settings.Reads();
  EXPECT_NE(std::find(reads.begin(), reads.end(), "HorizonFile"), reads.end());
  EXPECT_NE(std::find(reads.begin(), reads.end(), "HorizonFIle"), reads.end());
}

TEST_F(HorizonWindowTest, WithoutASettingTheSceneryIsHdefault) {
  Put("hdefault.jpg", "picture");
  Open();
  EXPECT_EQ(view.picture, "/house/hdefault.jpg");
  EXPECT_EQ(settings.Get("HorizonFile"), "hdefault");
}

TEST_F(HorizonWindowTest, AMissingSceneryIsPassedOverWithoutAWord) {
  Open();
  EXPECT_EQ(view.picture, "");
}

TEST_F(HorizonWindowTest, ThePlaceIsTheMapsAndIsOnlyRead) {
  settings.Set("WinPosX", "-300");
  settings.Set("WinPosY", "450");
  settings.Set("WinPosW", "15000");
  settings.Set("WinPosH", "7000");
  settings.ForgetAccesses();
  Open();
  eventLoop.Advance(20);
  EXPECT_EQ(view.place, (std::vector<int>{-300, 450, 15000, 7000}));
  for (const auto& [key, value] : settings.Writes()) EXPECT_NE(key.substr(0, 6), "WinPos") << key;
}

TEST_F(HorizonWindowTest, AFirstStartHasTheMapsDefaultPlace) {
  Open();
  EXPECT_EQ(view.place, (std::vector<int>{200, 200, 12195, 7920}));
  EXPECT_EQ(view.skins, 1);
}

TEST_F(HorizonWindowTest, FaultsOfTheLoadAreLoggedAndCostOnlyTheirStatement) {
  settings.Set("WinPosX", "left");
  settings.Set("WinPosY", "450");
  Open();
  EXPECT_EQ(view.place, (std::vector<int>{200, 450, 12195, 7920}));
  EXPECT_EQ(TakeFaults(), Texts{"Type mismatch - Horizon - FormLoad"});
  eventLoop.Advance(1);
  EXPECT_EQ(view.paints, 1);
}

TEST_F(HorizonWindowTest, PaintsOnceASecond) {
  Open();
  EXPECT_EQ(view.paints, 0);
  eventLoop.Advance(5);
  EXPECT_EQ(view.paints, 5);
}

TEST_F(HorizonWindowTest, TheFirstReportComesAfterEightSecondsAndThenOneEveryNine) {
  SetFavourites({kStation});
  GoPastRise(kStation, 60);
  Open();
  tables.SelSat = 1;
  EXPECT_EQ(window->ReportTimer().IntervalMs(), 8000);
  eventLoop.Advance(7.9);
  EXPECT_TRUE(speech.said.empty());
  eventLoop.Advance(0.2);
  ASSERT_EQ(speech.said.size(), 1u);
  EXPECT_EQ(speech.said[0], "Heading " + FloorText(Fave(1).Az) + ", Elevation " + FloorText(Fave(1).El));
  EXPECT_EQ(speech.kinds[0], SpeechKind::kPositionReport);
  EXPECT_EQ(window->ReportTimer().IntervalMs(), 9000);
  eventLoop.Advance(8.8);
  EXPECT_EQ(speech.said.size(), 1u);
  eventLoop.Advance(0.2);
  EXPECT_EQ(speech.said.size(), 2u);
}

TEST_F(HorizonWindowTest, WholeDegreesOfTheReportAreRoundedDown) {
  Open();
  view.painter = nullptr;
  PlaceRow(1, kStation, 123.999, -0.5);
  tables.SelSat = 1;
  eventLoop.Advance(8);
  EXPECT_EQ(speech.said, Texts{"Heading 123, Elevation -1"});
}

TEST_F(HorizonWindowTest, NothingIsReportedWithoutASelectionOrWithoutTheMark) {
  Open();
  view.painter = nullptr;
  eventLoop.Advance(10);
  PlaceRow(1, kStation, 10, 20);
  tables.SelSat = 1;
  window->TogglePositionAnnouncer();
  EXPECT_FALSE(view.IsMarked(HorizonMark::kAnnouncePosition));
  eventLoop.Advance(30);
  EXPECT_TRUE(speech.said.empty());
  window->TogglePositionAnnouncer();
  eventLoop.Advance(9);
  EXPECT_EQ(speech.said.size(), 1u);
}

TEST_F(HorizonWindowTest, AReportOfARowBeyondTheTableIsLogged) {
  Open();
  view.painter = nullptr;
  tables.SelSat = 501;
  eventLoop.Advance(8);
  EXPECT_EQ(TakeFaults(), Texts{"Subscript out of range - Horizon - Timer5sec"});
}

TEST_F(HorizonWindowTest, ASatelliteTakenByItselfIsSaidAndDescribed) {
  SetFavourites({kStation});
  GoPastRise(kStation, 60);
  Open();
  eventLoop.Advance(1);
  EXPECT_EQ(speech.said, Texts{"Selected Satellite The International Space station"});
  EXPECT_EQ(speech.kinds, std::vector<SpeechKind>{SpeechKind::kSelection});
  EXPECT_EQ(view.dataText, "Data for ISS (ZARYA)\r\n(International Space Station)\r\nNotes: Manned");
}

TEST_F(HorizonWindowTest, ASatelliteWithoutABlockHasNoInformation) {
  Put("satellite.dat", "OTHER\r\nNAME   x\r\n***\r\n");
  SetFavourites({kStation});
  GoPastRise(kStation, 60);
  Open();
  eventLoop.Advance(1);
  EXPECT_EQ(view.dataText, "No Information available\r\n");
}

TEST_F(HorizonWindowTest, ClosedInTheMessageOfAMissingSatelliteFileThePaintEnds) {
  files.Remove(platform::InAppDir("satellite.dat"));
  SetFavourites({kStation, kStation});
  GoPastRise(kStation, 60);
  Open();
  messages.ExpectMessage("Satellite.dat file is missing", [&] { window->Unload(); });
  eventLoop.Advance(3);
  EXPECT_EQ(view.paints, 1);
  EXPECT_EQ(Fave(2).El, 0);
  EXPECT_EQ(eventLoop.RunningTimers(), 0);
  TakeFaults();
}

TEST_F(HorizonWindowTest, AFullAnnouncementPausesTheReportForAMinute) {
  Open();
  view.painter = nullptr;
  PlaceRow(1, kStation, 100.5, 20.9);
  PlaceRow(2, "NOAA 15", 200, -3);
  PlaceRow(3, "HST", 300.2, 0.5);
  tables.SelSat = 1;
  eventLoop.Advance(7);
  const int yields = eventLoop.YieldCount();
  window->MakeAnnouncement();
  EXPECT_EQ(eventLoop.YieldCount() - yields, 2);
  EXPECT_EQ(speech.said.size(), 2u) << "those that are up";
  EXPECT_EQ(speech.said[0], "The International Space station Azimuth 100 Elevation 20. ");
  EXPECT_EQ(speech.kinds[0], SpeechKind::kAnnouncement);
  EXPECT_EQ(speech.announcements, 1);
  EXPECT_EQ(window->ReportTimer().IntervalMs(), 60000);
  eventLoop.Advance(59.9);
  EXPECT_EQ(speech.said.size(), 2u);
  eventLoop.Advance(0.2);
  EXPECT_EQ(speech.said.size(), 3u);
  EXPECT_EQ(window->ReportTimer().IntervalMs(), 9000);
}

TEST_F(HorizonWindowTest, TheReportIsSilentInTheYieldsOfAnAnnouncement) {
  Open();
  view.painter = nullptr;
  PlaceRow(1, kStation, 100, 20);
  tables.SelSat = 1;
  eventLoop.AtYield(1, [&] { EXPECT_FALSE(window->ReportTimer().Enabled()); });
  eventLoop.AtYield(2, [&] { EXPECT_FALSE(window->ReportTimer().Enabled()); });
  window->MakeAnnouncement();
  EXPECT_TRUE(window->ReportTimer().Enabled());
}

TEST_F(HorizonWindowTest, ClosedInEitherYieldOfAnAnnouncementNothingGoesOn) {
  for (const int yield : {1, 2}) {
    speech.said.clear();
    Open();
    PlaceRow(1, kStation, 100, 20);
    eventLoop.AtYield(yield, [&] { window->Unload(); });
    window->MakeAnnouncement();
    EXPECT_EQ(speech.said.size(), static_cast<std::size_t>(yield - 1));
    EXPECT_EQ(eventLoop.RunningTimers(), 0);
  }
}

TEST_F(HorizonWindowTest, WhatIsReadClickedAndSpokenIsWhatThePictureShowsWhateverAnotherViewWritesIntoTheRows) {
  SetFavourites({kStation, "NOAA 15"});
  GoPastRise(kStation, 120);
  Open();
  tables.SelSat = 1;
  eventLoop.Advance(1);
  const orbit::FaveRec painted = Fave(1);
  ASSERT_GT(painted.El, 1);
  ASSERT_LT(Fave(2).El, 0);
  view.painter = nullptr;  // no paint comes between
  PlaceRow(1, kStation, std::fmod(painted.Az + 180, 360), -40);
  PlaceRow(2, "NOAA 15", painted.Az, painted.El);
  const double x = painted.Az * 800 / 360;
  const double y = (90 - painted.El) * 5;
  EXPECT_EQ(window->WhatLiesAt(x, y).substr(0, 20), "ISS (ZARYA): azimuth");
  window->FinalMousedown(x, y);
  EXPECT_EQ(tables.SelSat, 1);
  speech.said.clear();
  eventLoop.Advance(7);
  const std::string azimuth = FloorText(painted.Az);
  EXPECT_EQ(speech.said, Texts{"Heading " + azimuth + ", Elevation " + FloorText(painted.El)});
  speech.said.clear();
  window->MakeAnnouncement();
  EXPECT_EQ(speech.said,
            Texts{"The International Space station Azimuth " + azimuth + " Elevation " + FloorText(painted.El) + ". "});
}

TEST_F(HorizonWindowTest, AClickSelectsTheNearestRowEvenBelowTheHorizonAndFarAway) {
  Open();
  PlaceRow(1, "NOAA 15", 0, 45);
  PlaceRow(2, "HST", 180, -20);
  window->FinalMousedown(400, 449);
  EXPECT_EQ(tables.SelSat, 2);
  EXPECT_EQ(speech.said.back(), "Selected Satellite The Hubble space telescope");
  window->FinalMousedown(0, 0);
  EXPECT_EQ(tables.SelSat, 1);
}

TEST_F(HorizonWindowTest, TheDistanceOfAClickIsThatOfCityBlocks) {
  Open();
  PlaceRow(1, "DIAGONAL", 180 + 40 * 360 / 800.0, 45 + 40 / 5.0);  // 40 right, 40 above: 80 in blocks
  PlaceRow(2, "STRAIGHT", 180 + 70 * 360 / 800.0, 45);             // 70 right
  window->FinalMousedown(400, 225);
  EXPECT_EQ(tables.SelSat, 2);
}

TEST_F(HorizonWindowTest, OfTwoAtOnePlaceTheEarlierRowIsSelected) {
  Open();
  PlaceRow(1, "NOAA 15", 100, 45);
  PlaceRow(2, "HST", 100, 45);
  window->FinalMousedown(1, 1);
  EXPECT_EQ(tables.SelSat, 1);
}

TEST_F(HorizonWindowTest, TheBestDistanceIsRoundedSoThatALaterRowMayWinByLessThanHalfAPixel) {
  Open();
  PlaceRow(1, "NOAA 15", 180 + 10.5 * 360 / 800.0, 45);  // 10.5 pixels, kept as 10: to even
  PlaceRow(2, "HST", 180 + 10.2 * 360 / 800.0, 45);      // nearer, but not below 10
  window->FinalMousedown(400, 225);
  EXPECT_EQ(tables.SelSat, 1);
  PlaceRow(1, "NOAA 15", 180 + 10.6 * 360 / 800.0, 45);  // kept as 11
  PlaceRow(2, "HST", 180 + 10.8 * 360 / 800.0, 45);      // farther, and below 11
  window->FinalMousedown(400, 225);
  EXPECT_EQ(tables.SelSat, 2);
}

TEST_F(HorizonWindowTest, AClickIsMeasuredInTheDirectionThatStandsInTheCentre) {
  Open();
  PlaceRow(1, "NOAA 15", 0, 45);
  PlaceRow(2, "HST", 180, 45);
  window->NorthClicked();
  window->FinalMousedown(400, 225);
  EXPECT_EQ(tables.SelSat, 1);
}

TEST_F(HorizonWindowTest, AClickTellsTheTrackingWindowTheNameAndNoMore) {
  RememberingTracker tracker;
  Open();
  PlaceRow(1, "NOAA 15", 0, 45);
  window->FinalMousedown(0, 0);
  EXPECT_EQ(tracker.selected, "NOAA 15");
  EXPECT_EQ(tracker.updates, 0);
  tracker.visible = false;
  PlaceRow(1, "HST", 0, 45);
  window->FinalMousedown(0, 0);
  EXPECT_EQ(tracker.selected, "NOAA 15");
}

TEST_F(HorizonWindowTest, AClickPutsTheSatellitesDataIntoTheBox) {
  Open();
  PlaceRow(1, kStation, 0, 45);
  window->FinalMousedown(0, 0);
  EXPECT_EQ(view.dataText, "Data for ISS (ZARYA)\r\n(International Space Station)\r\nNotes: Manned");
}

TEST_F(HorizonWindowTest, AClickWithoutFavouritesSelectsNothing) {
  Open();
  tables.SelSat = 3;
  window->FinalMousedown(10, 10);
  EXPECT_EQ(tables.SelSat, 0);
}

TEST_F(HorizonWindowTest, AFaultInAClickIsLoggedWithItsName) {
  Open();
  PlaceRow(1, kStation, 0, 45);
  tables.FaveCount = 501;
  window->FinalMousedown(0, 0);
  EXPECT_EQ(TakeFaults(), Texts{"Subscript out of range - Horizon - FinalMousedown"});
  EXPECT_EQ(tables.SelSat, 1);
}

TEST_F(HorizonWindowTest, NorthAndSouthTurnTheView) {
  Open();
  EXPECT_FALSE(window->State().CentreNorth);
  window->NorthClicked();
  EXPECT_TRUE(window->State().CentreNorth);
  EXPECT_TRUE(view.IsMarked(HorizonMark::kNorth));
  EXPECT_FALSE(view.IsMarked(HorizonMark::kSouth));
  window->SouthClicked();
  EXPECT_FALSE(window->State().CentreNorth);
  EXPECT_TRUE(view.IsMarked(HorizonMark::kSouth));
}

TEST_F(HorizonWindowTest, RepeatedClicksOnOneEntryMakeTheMarksDisagreeWithTheViewBecauseEachInvertsBoth) {
  Open();
  window->SouthClicked();
  EXPECT_FALSE(window->State().CentreNorth);
  EXPECT_TRUE(view.IsMarked(HorizonMark::kNorth));
  EXPECT_FALSE(view.IsMarked(HorizonMark::kSouth));
  window->NorthClicked();
  window->NorthClicked();
  EXPECT_TRUE(window->State().CentreNorth);
  EXPECT_TRUE(view.IsMarked(HorizonMark::kNorth));
}

TEST_F(HorizonWindowTest, TheBoxStandsPastTheEdgeUntilItsButtonBringsItIn) {
  Open();
  EXPECT_EQ(view.layout.textLeft, 800);
  EXPECT_EQ(view.layout.expandLeft, 786);
  window->ExpandClicked();
  EXPECT_TRUE(window->State().SatInfoShown);
  EXPECT_EQ(view.layout.textLeft, 560);
  EXPECT_EQ(view.layout.expandLeft, 546);
  window->ExpandClicked();
  EXPECT_EQ(view.layout.textLeft, 800);
}

TEST_F(HorizonWindowTest, AResizeGivesThePictureTheWholeInsideAndMovesTheBox) {
  Open();
  window->ExpandClicked();
  view.innerWidth = 1600;
  view.innerHeight = 900;
  window->Resize();
  EXPECT_EQ(view.layout.finalWidth, 1600);
  EXPECT_EQ(view.layout.finalHeight, 900);
  EXPECT_EQ(view.layout.textLeft, 1360);
  EXPECT_EQ(view.layout.expandLeft, 1346);
}

TEST_F(HorizonWindowTest, WhatLiesUnderThePointerIsNamedWithItsWholeDegrees) {
  Open();
  PlaceRow(1, "NOAA 15", 90.7, 45.9);
  PlaceRow(2, "HST", 91, 45);
  PlaceRow(3, "DEEP", 90.7, -45);
  EXPECT_EQ(window->WhatLiesAt(202, 222),
            "NOAA 15: azimuth 90\u00b0, elevation 45\u00b0\nHST: azimuth 91\u00b0, elevation 45\u00b0");
  EXPECT_EQ(window->WhatLiesAt(600, 100), "");
}

TEST_F(HorizonWindowTest, ANameIsHitOnItsTextTooWhichMayReachFarFromItsSprite) {
  Open();
  PlaceRow(1, "SAUDISAT 1C (SO", 90, 45);
  EXPECT_NE(window->WhatLiesAt(270, 210), "");
  EXPECT_EQ(window->WhatLiesAt(270, 225), "") << "beside the sprite, under the text";
}

TEST_F(HorizonWindowTest, SunAndMoonAreNamedWhereThePaintDrewThem) {
  Open();
  window->State().sun = {true, 180.5, 45.2};
  window->State().moon = {true, 180.6, 45};
  EXPECT_EQ(window->WhatLiesAt(405, 230),
            "Sun: azimuth 180\u00b0, elevation 45\u00b0\nMoon: azimuth 180\u00b0, elevation 45\u00b0");
  window->State().sun.drawn = false;
  window->State().moon.drawn = false;
  EXPECT_EQ(window->WhatLiesAt(405, 230), "");
}

TEST_F(HorizonWindowTest, TheEndStopsBothTimersReleasesTheEngineAndYieldsOnce) {
  Open();
  const int yields = eventLoop.YieldCount();
  eventLoop.AtYield(1, [&] {
    EXPECT_EQ(window->OwnEngine(), nullptr);
    EXPECT_EQ(eventLoop.RunningTimers(), 0);
  });
  window->Unload();
  EXPECT_EQ(eventLoop.YieldCount() - yields, 1);
  EXPECT_FALSE(window->IsOpen());
  const int paints = view.paints;
  eventLoop.Advance(20);
  EXPECT_EQ(view.paints, paints);
}

TEST_F(HorizonWindowTest, WithoutSpeechNothingOfTheEngineIsTouched) {
  settings.Set("Speechpack", "0");
  speech.broken = platform::Fault::DeviceError();
  SetFavourites({kStation});
  GoPastRise(kStation, 60);
  Open();
  window->MakeAnnouncement();
  eventLoop.Advance(70);
  EXPECT_TRUE(speech.said.empty());
}

}  // namespace
}  // namespace kestrava::views2d
