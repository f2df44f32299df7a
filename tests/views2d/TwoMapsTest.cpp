// Several maps at once, and a map beside other windows that select: each paints what it has worked out itself.
#include <algorithm>

#include "orbit/Angles.h"
#include "platform/Format.h"

#include "WindowFixture.h"

namespace kestrava::views2d {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kFirst = "ISS (ZARYA)";
constexpr const char* kSecond = "TIANGONG-2";

class TwoMaps : public MapWindowTest {
 protected:
  struct Place {
    double latDeg, lonDeg;
  };

  /// A second map beside the first one, loaded, laid out and activated.
  MapWindow& OpenAnother() {
    otherView.besideLatestMap = WindowPlace{680, 680, 12195, 7920};
    other = std::make_unique<MapWindow>(orbit::Sky{tables, engine}, otherView);
    otherView.window = other.get();
    other->Load();
    other->Resize();
    other->Activate();
    view.besideLatestMap = WindowPlace{};
    return *other;
  }
  /// The second map at a time of its own, and long enough for both to have worked out everything.
  void WarpAnother(int hoursAhead) {
    other->TimeButtonClicked(1);
    other->State().warp.WarpHour = static_cast<std::int16_t>(12 + hoursAhead);
    eventLoop.Advance(60);
  }
  Place PlaceOf(const std::string& object, platform::SerialDate utc) {
    const auto place = engine.PlaceOf(object, utc).subPoint;
    return {orbit::RadToDeg(place.latitudeRad), 360 - orbit::RadToDeg(place.longitudeRad)};
  }
  static void ExpectNear(double latDeg, double lonDeg, const Place& place, double toleranceDeg) {
    EXPECT_NEAR(latDeg, place.latDeg, toleranceDeg);
    EXPECT_NEAR(std::remainder(lonDeg - place.lonDeg, 360), 0, toleranceDeg);
  }
  /// As another view leaves the rows that works for another moment.
  void MisplaceRows() {
    for (int i = 1; i <= tables.FaveCount; ++i) {
      orbit::FaveRec& row = tables.FaveList[static_cast<std::size_t>(i)];
      std::swap(row.Lat, row.Lon);
      row.Az = 123;
      row.El = 45;
    }
  }
  MapWork& Work() { return window->State().work; }

  RememberingView otherView;
  std::unique_ptr<MapWindow> other;
};

TEST_F(TwoMaps, EachHasItsOwnSunMoonNightTrackAndFootprint) {
  MapWindow& first = Open();
  OpenAnother();
  WarpAnother(6);
  const MapWork& real = first.State().work;
  const MapWork& warped = other->State().work;
  const platform::SerialDate start = platform::MakeSerial({2026, 11, 15, 12, 0, 0});
  ExpectNear(real.SunLat, real.SunLon, PlaceOf("sun", start), 0.01);
  ExpectNear(real.MoonLat, real.MoonLon, PlaceOf("moon", start), 0.01);
  ExpectNear(real.GroundTrack[0].lat, real.GroundTrack[0].lon, PlaceOf(kFirst, start), 0.01);
  EXPECT_NEAR(std::remainder(warped.SunLon - real.SunLon, 360), 90, 1);
  EXPECT_NE(warped.SunCircle[10].lon, real.SunCircle[10].lon);
  EXPECT_NE(warped.SunSeeds[3].lon, real.SunSeeds[3].lon);
  EXPECT_NE(warped.GroundTrack[0].lat, real.GroundTrack[0].lat);
  EXPECT_NE(warped.FootPrint[0].lat, real.FootPrint[0].lat);
}

TEST_F(TwoMaps, TheNamesOfTheSystemAreThoseOfTheMapWorkedOutLast) {
  MapWindow& first = Open();
  OpenAnother();
  WarpAnother(6);
  EXPECT_EQ(tables.SunLon, other->State().work.SunLon);
  EXPECT_EQ(tables.GroundTrack[40].lon, other->State().work.GroundTrack[40].lon);
  first.Activate();
  EXPECT_EQ(tables.SunLon, first.State().work.SunLon);
  EXPECT_EQ(tables.SunCircle[90].lat, first.State().work.SunCircle[90].lat);
  EXPECT_EQ(tables.SunSeeds[5].lat, first.State().work.SunSeeds[5].lat);
  EXPECT_EQ(tables.MoonLat, first.State().work.MoonLat);
  EXPECT_EQ(tables.GroundTrack[40].lon, first.State().work.GroundTrack[40].lon);
}

TEST_F(TwoMaps, ClosingOneLeavesTheTablesAndTheLastOneClearsThem) {
  MapWindow& first = Open();
  OpenAnother();
  eventLoop.Advance(3);
  const orbit::TrackRec row = tables.GroundTrack[7];
  first.Unload();
  EXPECT_EQ(tables.GroundTrack[7].lat, row.lat);
  EXPECT_NE(tables.FootPrint[7].lat, 0);
  EXPECT_EQ(other->State().work.GroundTrack[7].lat, row.lat)
      << "nor does the other's own track become dots on the equator";
  otherView.besideLatestMap.reset();
  other->Unload();
  EXPECT_EQ(tables.GroundTrack[7].lat, 0);
  EXPECT_EQ(tables.FootPrint[7].lat, 0);
}

TEST_F(TwoMaps, AClickMeansWhatTheMapHasPainted) {
  MapWindow& first = Open();
  eventLoop.Advance(1);
  const orbit::FaveRec painted = tables.FaveList[2];
  std::swap(tables.FaveList[1].Lat, tables.FaveList[2].Lat);  // as another view leaves them
  std::swap(tables.FaveList[1].Lon, tables.FaveList[2].Lon);
  first.FavouriteClicked(1);
  first.FinalMousedown(false, 800 * std::fmod(540 - painted.Lon, 360) / 360, 600 * (90 - painted.Lat) / 180);
  EXPECT_EQ(tables.SelSat, 2);
}

TEST_F(TwoMaps, ASatelliteThatHasComeIntoARowIsWhereTheTableHasIt) {
  MapWindow& first = Open();
  eventLoop.Advance(1);
  SetFavourites({kSecond, kFirst});
  const auto& row = first.State().work.rows.Row(tables, 1);
  EXPECT_EQ(&row, &tables.FaveList[1]) << "until this map has worked it out";
  eventLoop.Advance(2);
  EXPECT_NE(&first.State().work.rows.Row(tables, 1), &tables.FaveList[1]);
}

TEST_F(TwoMaps, TheAnnouncementIsOfTheMomentThatTheMapShows) {
  settings.Set("Speechpack", "1");
  MapWindow& first = Open();
  eventLoop.Advance(1);
  MisplaceRows();
  first.MakeAnnouncement();
  const auto look = engine.PlaceOf(kFirst, clock.Read().utc).look;
  ASSERT_EQ(speech.said.size(), 2u);
  EXPECT_EQ(speech.said[0], "The International Space station, Azimuth " +
                                platform::FloorText(orbit::RadToDeg(look.azimuthRad)) + " Elevation " +
                                platform::FloorText(orbit::RadToDeg(look.elevationRad)) + ". ");
}

TEST_F(TwoMaps, AFurtherMapOpensBesideTheOneBeforeAndTellsItsRegion) {
  MapWindow& first = Open();
  OpenAnother();
  EXPECT_EQ(otherView.place, (std::vector<int>{680, 680, 12195, 7920}));
  first.ChangeToRegion("NEQ");
  EXPECT_EQ(first.Title(), "Kestrava - Map View");
  EXPECT_EQ(other->Title(), "Kestrava - Map View - World");
  const std::pair<const char*, const char*> regions[] = {
      {"NWQ", "North West"},    {"NCQ", "North Central"}, {"NEQ", "North East"}, {"SWQ", "South West"},
      {"SCQ", "South Central"}, {"SEQ", "South East"},    {"worldalt", "World"}};
  for (const auto& [mode, title] : regions) {
    other->ChangeToRegion(mode);
    EXPECT_EQ(otherView.titles.back(), std::string("Kestrava - Map View - ") + title);
  }
}

class SelectedElsewhere : public TwoMaps {};

TEST_F(SelectedElsewhere, TheTrackFollowsAtTheNextTick) {
  Open();
  eventLoop.Advance(1);
  tables.SelSat = 2;
  eventLoop.Advance(2);
  ExpectNear(Work().GroundTrack[0].lat, Work().GroundTrack[0].lon, PlaceOf(kSecond, clock.Read().utc), 0.001);
  EXPECT_EQ(Work().trackOf, (Selection{2, kSecond}));
}

TEST_F(SelectedElsewhere, TheTrackFollowsASwapOfTheSelectedRow) {
  Open();
  eventLoop.Advance(1);
  SetFavourites({kSecond, kFirst});
  eventLoop.Advance(2);
  ExpectNear(Work().GroundTrack[0].lat, Work().GroundTrack[0].lon, PlaceOf(kSecond, clock.Read().utc), 0.001);
}

TEST_F(SelectedElsewhere, TheNameThatOtherWindowsUseForThemselvesChangesNothing) {
  Open();
  eventLoop.Advance(1);
  StainTrack();
  const int texts = view.dataTexts;
  view.duringPaint = [&] { tables.SelSatName = "NOAA 15"; };
  eventLoop.Advance(10);
  EXPECT_FALSE(TrackIsFresh());
  EXPECT_EQ(view.dataTexts, texts);
}

TEST_F(SelectedElsewhere, WithoutATrackNoneIsWorkedOut) {
  settings.Set("ShowGroundtrack", "0");
  Open();
  StainTrack();
  tables.SelSat = 2;
  eventLoop.Advance(3);
  EXPECT_FALSE(TrackIsFresh());
  settings.Set("ShowGroundtrack", "1");
  eventLoop.Advance(2);
  EXPECT_TRUE(TrackIsFresh()) << "switched on again it is that of the selected one";
}

TEST_F(SelectedElsewhere, WithNothingSelectedThePaneSaysSo) {
  Open();
  eventLoop.Advance(1);
  ASSERT_EQ(window->State().RemoteStat[0], "Satellite : ISS (ZARYA)");
  tables.SelSat = 0;
  view.order.clear();
  eventLoop.Advance(2);
  const auto& lines = window->State().RemoteStat;
  EXPECT_EQ(lines[0], "Satellite : none selected");
  EXPECT_EQ(lines[1], "Latitude : --");
  EXPECT_EQ(lines[4], "Elevation : --");
  EXPECT_EQ(lines[7], "AOS : --");
  EXPECT_EQ(lines[17], "Phase(MA) : --");
  EXPECT_EQ(view.order, (Texts{"changed", "lines", "paint"})) << "shown with the same tick";
  EXPECT_EQ(view.dataText, "No Information available\r\n");
  EXPECT_TRUE(Work().nothingSelected);
  EXPECT_TRUE(TakeFaults().empty());
}

TEST_F(SelectedElsewhere, WithNothingSelectedTheNameInRowNoughtIsNoSelection) {
  Open();
  eventLoop.Advance(1);
  StainTrack();
  tables.FaveList[0].Name = kSecond;  // as a change of the primary favourite leaves it
  tables.SelSat = 0;
  eventLoop.Advance(2);
  EXPECT_TRUE(Work().nothingSelected);
  EXPECT_EQ(window->State().RemoteStat[0], "Satellite : none selected");
  EXPECT_EQ(view.dataText, "No Information available\r\n");
  EXPECT_FALSE(TrackIsFresh()) << "no track of it either";
}

TEST_F(SelectedElsewhere, TheSameOneSelectedAgainHasAFreshTrack) {
  Open();
  eventLoop.Advance(1);
  tables.SelSat = 0;
  eventLoop.Advance(120);
  tables.SelSat = 1;
  eventLoop.Advance(2);
  ExpectNear(Work().GroundTrack[0].lat, Work().GroundTrack[0].lon, PlaceOf(kFirst, clock.Read().utc), 0.001);
  EXPECT_FALSE(Work().nothingSelected);
  EXPECT_EQ(window->State().RemoteStat[0], "Satellite : ISS (ZARYA)");
  EXPECT_NE(view.dataText, "No Information available\r\n");
}

class MenuOfTheFavourites : public MapWindowTest {};

TEST_F(MenuOfTheFavourites, CaptionsFollowASwap) {
  MapWindow& map = Open();
  SetFavourites({kSecond, kFirst});
  map.Activate();
  EXPECT_EQ(view.captions, (std::map<int, std::string>{{1, kSecond}, {2, kFirst}}));
  SetFavourites({kFirst, kSecond});
  eventLoop.Advance(1);
  EXPECT_EQ(view.captions, (std::map<int, std::string>{{1, kFirst}, {2, kSecond}})) << "at a tick too";
  EXPECT_TRUE(TakeFaults().empty());
}

TEST_F(MenuOfTheFavourites, ASelectionRightAfterASwapTakesTheNameThatStandsThereNow) {
  MapWindow& map = Open();
  SetFavourites({kSecond, kFirst});
  map.FavouriteClicked(2);
  EXPECT_EQ(tables.SelSatName, kFirst);
}

TEST_F(MenuOfTheFavourites, AClickSelectsASatelliteThatWasAddedSince) {
  MapWindow& map = Open();
  SetFavourites({kFirst, kSecond, kFirst});
  map.FavouriteClicked(3);
  EXPECT_EQ(tables.SelSat, 3);
  EXPECT_EQ(tables.SelSatName, kFirst);
  EXPECT_EQ(view.captions[3], kFirst);
  EXPECT_TRUE(TakeFaults().empty());
}

TEST_F(MenuOfTheFavourites, AListThatShrankIsLoggedOnceAndNotAtEachActivation) {
  MapWindow& map = Open();
  SetFavourites({kSecond});
  map.Activate();
  EXPECT_EQ(TakeFaults(), Texts{"Object already loaded - map - Form_activate"});
  for (int i = 0; i < 3; ++i) map.Activate();
  EXPECT_EQ(TakeFaults(), Texts{});
  SetFavourites({kSecond, kFirst, kFirst});
  map.Activate();
  EXPECT_EQ(TakeFaults(), Texts(2, "Object already loaded - map - Form_activate")) << "the next change of the count";
  EXPECT_EQ(view.captions[3], kFirst);
}

}  // namespace
}  // namespace kestrava::views2d
