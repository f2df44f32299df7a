#include "platform/Fault.h"
#include "views2d/MapPainter.h"

#include "PainterFixture.h"

namespace kestrava::views2d {
namespace {

using Texts = std::vector<std::string>;

class MapPainterTest : public PainterFixture {};

TEST_F(MapPainterTest, AnUnknownModePaintsLikeTheWorld) {
  AddFavourite("AO-07", 10, 200);
  Paint();
  const std::string known = log.GoldenText();
  map.MapMode = "globe";
  Paint();
  EXPECT_EQ(log.GoldenText(), known);
}

TEST_F(MapPainterTest, LayersComeInTheirFixedOrder) {
  AddFavourite("AO-07", 10, 200);
  AddLocation("Quito", "0", "78", "1");
  Paint();
  int last = -1;
  for (const char* layer :
       {"Final SetFont Small fonts 7 bold", "Final StretchBlt", "Final DrawCircle", "Final Print \"Quito\"",
        "Final BitBlt 452,259 30x30 from SunMask", "Alpha Clear", "Alpha LineTo", "Alpha FloodFill", "Final AlphaBlend",
        "Final BitBlt 1118,381 20x20 from MoonMask", "Final SetPen #000000", "Final SetPen #0080ff",
        "Final BitBlt 1308,299 32x32 from SatMask(0)", "Final Print \"AO-07\"", "Final SetFont Arial 11 bold",
        "Final SetFont Arial 8 bold"}) {
    const int index = log.IndexOf(layer, last + 1);
    ASSERT_GT(index, last) << layer << "\n" << log.GoldenText();
    last = index;
  }
}

TEST_F(MapPainterTest, TheSunGoesDownBeforeTheMaskSoThatItIsTinted) {
  Paint();
  EXPECT_LT(log.IndexOf("Final BitBlt 452,259 30x30 from SunPic 0,0 paint"), log.IndexOf("Final AlphaBlend"));
  EXPECT_GT(log.IndexOf("Final BitBlt 1118,381 20x20 from MoonPic 0,0 paint"), log.IndexOf("Final AlphaBlend"));
}

TEST_F(MapPainterTest, TheHomeDotStandsThreePixelsRightOfAndAboveThePlace) {
  settings.Set("Latitude", "45");
  settings.Set("Longitude", "90");
  tables.LocationName = "Home";
  Paint();
  EXPECT_EQ(LayerOf("Final SetPen #00ff00", "Final BitBlt"),
            (Texts{"Final SetPen #00ff00", "Final DrawCircle (353,173) radius 1", "Final Print \"Home\""}));
}

TEST_F(MapPainterTest, TheFirstPaintStoresAPlaceOfZeroForAHomeWithoutSettings) {
  Paint();
  EXPECT_EQ(settings.Get("Latitude"), "0");
  EXPECT_EQ(settings.Get("Longitude"), "0");
  EXPECT_EQ(log.Of("Final DrawCircle"), Texts{"Final DrawCircle (703,349) radius 1"});
}

TEST_F(MapPainterTest, LocationsOfTheMapAreDrawnInTheHomesGreenAtTheirTruePlace) {
  AddLocation("Quito", "0", "90", "1");
  AddLocation("Hidden", "0", "90", "0");
  AddLocation("Ticked", "0", "90", "-1");
  AddLocation("Perth", "-45", "270", "1");
  Paint();
  EXPECT_EQ(LayerOf("Final DrawPoint", "Final BitBlt"), (Texts{"Final DrawPoint (350,352)", "Final Print \"Quito\"",
                                                               "Final DrawPoint (1050,528)", "Final Print \"Perth\""}));
}

TEST_F(MapPainterTest, TheLastRowOfTheLocationsIsDrawnToo) {
  tables.LocationList[100] = {"Last", "0", "0", 0, "1"};
  Paint();
  EXPECT_EQ(Printed().at(1), "Last");
}

TEST_F(MapPainterTest, OnADecimalCommaMachineSettingsAndLocationsWithAPointStillParse) {
  locale.UseComma();
  settings.Set("Latitude", "51.75");
  settings.Set("Longitude", "0.25");
  AddLocation("Quito", "-0.5", "78.5", "1");
  AddLocation("Bonn", "50,7", "352,9", "1");
  Paint();
  EXPECT_EQ(log.Of("Final DrawCircle"), Texts{"Final DrawCircle (702.028,146.6) radius 1"});
  EXPECT_EQ(LayerOf("Final DrawPoint", "Final BitBlt"),
            (Texts{"Final DrawPoint (394.722,353.956)", "Final Print \"Quito\"", "Final DrawPoint (727.611,153.707)",
                   "Final Print \"Bonn\""}));
}

TEST_F(MapPainterTest, AnUnreadableHomePlaceCostsOnlyTheHomeDot) {
  settings.Set("Latitude", "north");
  AddLocation("Quito", "0", "90", "1");
  Paint();
  EXPECT_EQ(TakeFaults(), Texts{"Type mismatch - mapview RepaintMapScreen"});
  ASSERT_EQ(ErrorLog().size(), 1U);
  EXPECT_NE(ErrorLog()[0].find(" - Type mismatch - mapview RepaintMapScreen"), std::string::npos) << ErrorLog()[0];
  EXPECT_TRUE(log.Of("Final DrawCircle").empty());
  EXPECT_EQ(Printed().at(0), "Quito");
  EXPECT_EQ(LayerOf("Final SetPen", "Final DrawPoint"), Texts{"Final SetPen #00ff00"});
}

TEST_F(MapPainterTest, ALocationWithoutANumberCostsOnlyItsRow) {
  AddLocation("Nowhere", "", "90", "1");
  AddLocation("Quito", "0", "90", "1");
  Paint();
  EXPECT_EQ(TakeFaults(), Texts{"Type mismatch - mapview RepaintMapScreen"});
  EXPECT_EQ(Printed().at(1), "Quito");
  EXPECT_EQ(log.Of("Final Print \"Nowhere\"").size(), 0U);
}

TEST_F(MapPainterTest, AnEmptyWorldPictureIsLoggedAndPaintingGoesOn) {
  final.stretchResult = 0;
  Paint();
  EXPECT_EQ(TakeFaults(), Texts{"World Normal BLiTter - StretchBlt error"});
  ASSERT_EQ(ErrorLog().size(), 1U);
  EXPECT_NE(ErrorLog()[0].find(" - World Normal BLiTter - StretchBlt error"), std::string::npos) << ErrorLog()[0];
  EXPECT_GE(log.IndexOf("Final SetFont Arial 8 bold"), 0);
}

TEST_F(MapPainterTest, TheResultsOfAllOtherBaseBlitsAreNotTested) {
  final.stretchResult = 0;
  for (const char* mode : {"worldalt", "NWQ", "NCQ", "NEQ", "SWQ", "SCQ", "SEQ"}) {
    map.MapMode = mode;
    Paint();
    EXPECT_EQ(TakeFaults(), Texts{}) << mode;
  }
}

TEST_F(MapPainterTest, ABrokenBaseBlitCostsOnlyTheBaseLayer) {
  final.fail = [](std::string_view operation) {
    if (operation == "StretchBlt") throw platform::Fault::InvalidPicture();
  };
  Paint();
  EXPECT_EQ(TakeFaults(), Texts{"Invalid picture - mapview RepaintMapScreen"});
  EXPECT_GE(log.IndexOf("Final DrawCircle"), 0);
}

TEST_F(MapPainterTest, EveryRegionTakesItsQuarterOfTheWorldPicture) {
  world.Resize(2801, 1405);  // odd: 1400.5 and 702.5 go to the even neighbours, 700.25 down
  final.Resize(800, 400);
  const std::pair<const char*, const char*> expected[] = {{"NWQ", "0,0"},   {"NCQ", "700,0"},   {"NEQ", "1400,0"},
                                                          {"SWQ", "0,702"}, {"SCQ", "700,702"}, {"SEQ", "1400,702"}};
  for (const auto& [mode, corner] : expected) {
    map.MapMode = mode;
    Paint();
    EXPECT_EQ(log.Of("Final StretchBlt"),
              (Texts{std::string("Final StretchBlt 0,0 800x400 from WorldNormal ") + corner + " 1400x702 copy"}));
  }
}

TEST_F(MapPainterTest, TheSwappedWorldIsTwoBlits) {
  map.MapMode = "worldalt";
  Paint();
  EXPECT_EQ(log.Of("Final StretchBlt"), (Texts{"Final StretchBlt 0,0 700x704 from WorldNormal 700,0 700x704 copy",
                                               "Final StretchBlt 700,0 700x704 from WorldNormal 0,0 700x704 copy"}));
}

TEST_F(MapPainterTest, HalvesOfOddSizesGoToTheEvenNumber) {
  final.Resize(1401, 703);
  alpha.Resize(567, 371);
  Paint();
  EXPECT_EQ(log.Of("Final AlphaBlend"), (Texts{"Final AlphaBlend 0,0 700x352 from Alpha 0,0 284x186 #280000",
                                               "Final AlphaBlend 700,0 700x352 from Alpha 284,0 284x186 #280000",
                                               "Final AlphaBlend 0,352 700x352 from Alpha 0,186 284x186 #280000",
                                               "Final AlphaBlend 700,352 700x352 from Alpha 284,186 284x186 #280000"}));
}

TEST_F(MapPainterTest, TheBlendFunctionIsTheWeightShiftedLeftBySixteenBits) {
  for (const auto& [weight, text] :
       {std::pair{0, "#000000"}, {5, "#050000"}, {16, "#100000"}, {40, "#280000"}, {255, "#ff0000"}}) {
    log.operations.clear();
    AlphaBlendPercent(final, {1, 2, 3, 4}, alpha, {5, 6, 7, 8}, static_cast<std::uint8_t>(weight));
    EXPECT_EQ(log.Of("Final AlphaBlend"), Texts{std::string("Final AlphaBlend 1,2 3x4 from Alpha 5,6 7x8 ") + text});
  }
}

TEST_F(MapPainterTest, AJumpOfMoreThanFiveHundredPixelsToTheLeftLeavesThroughTheEastEdge) {
  map.work.SunCircle.fill({10, 100});
  map.work.SunCircle[1] = {10, 181};  // 438 pixels to the right: still a plain line
  map.work.SunCircle[2] = {10, 179};  // 562 to the left
  Paint();
  EXPECT_EQ(LayerOf("Alpha Clear", "Alpha FloodFill").size(), 4U + 360 + 2);
  const Texts first = log.Between(log.IndexOf("Alpha Clear"), log.IndexOf("Alpha Clear") + 10);
  EXPECT_EQ(first, (Texts{"Alpha Clear #000000", "Alpha SetLineWidth 2", "Alpha DrawPoint (125.778,164.444)",
                          "Alpha SetPen #ffffff", "Alpha LineTo (564.428,164.444)", "Alpha LineTo (10000,164.444)",
                          "Alpha DrawPoint (-10,164.444)", "Alpha LineTo (1.572,164.444)",
                          "Alpha LineTo (125.778,164.444)", "Alpha LineTo (125.778,164.444)"}));
}

TEST_F(MapPainterTest, AJumpOfMoreThanFiveHundredPixelsToTheRightLeavesThroughTheWestEdge) {
  map.work.SunCircle.fill({10, 179});
  map.work.SunCircle[1] = {10, 181};
  Paint();
  const int first = log.IndexOf("Alpha LineTo");
  EXPECT_EQ(log.Between(first, first + 3),
            (Texts{"Alpha LineTo (-10,164.444)", "Alpha DrawPoint (576,164.444)", "Alpha LineTo (564.428,164.444)"}));
}

TEST_F(MapPainterTest, AJumpOfExactlyFiveHundredPixelsIsStillAStrokeAcross) {
  alpha.Resize(720, 360);  // two pixels to a degree: no rounding
  map.work.SunCircle.fill({10, 180});
  map.work.SunCircle[1] = {10, 290};  // 0 to 500
  Paint();
  const int first = log.IndexOf("Alpha LineTo");
  EXPECT_EQ(log.Between(first, first + 1), Texts{"Alpha LineTo (500,160)"});
  EXPECT_EQ(log.Of("Alpha DrawPoint").size(), 1U);
}

TEST_F(MapPainterTest, TheThresholdDoesNotScaleSoASmallMaskNeverSeesAnEdge) {
  alpha.Resize(400, 300);
  SetSun(0, 60);
  Paint();
  EXPECT_EQ(log.Of("Alpha DrawPoint").size(), 1U);
}

TEST_F(MapPainterTest, WithTheSunNearTheEquatorTheTerminatorCrossesTheMapEdgeOnce) {
  for (double lonDeg = 0.3; lonDeg < 360; lonDeg += 5) {
    SetSun(2, lonDeg);
    Paint();
    EXPECT_EQ(log.Of("Alpha DrawPoint").size(), 2U) << lonDeg;  // the start and one way back in
  }
}

TEST_F(MapPainterTest, WithTheSunOnTheEquatorTheStepsAcrossThePolesStayBelowTheThreshold) {
  // From the Sun's meridian to the terminator's in one row: 90 degrees, at most 425 pixels, along the map's top.
  SetSun(0, 120);
  Paint();
  EXPECT_EQ(log.Of("Alpha DrawPoint").size(), 1U);
}

TEST_F(MapPainterTest, SixteenSeedsAreFilledUpToWhite) {
  Paint();
  const Texts fills = log.Of("Alpha FloodFill");
  ASSERT_EQ(fills.size(), 16U);
  for (const std::string& fill : fills) EXPECT_NE(fill.find("border #ffffff"), std::string::npos) << fill;
  EXPECT_EQ(fills[0], fills[15]);
}

TEST_F(MapPainterTest, TheTrackTakesTwoDotsAMinuteInTheRowsColours) {
  map.work.GroundTrack[0] = {0, 90, 0x0000FF};
  map.work.GroundTrack[1] = {0, 45, 0xFFFFFF};
  settings.Set("GroundTrackLen", "1");
  Paint();
  EXPECT_EQ(LayerOf("Final SetPen #0000ff", "Final SetPen #0080ff"),
            (Texts{"Final SetPen #0000ff", "Final DrawPoint (350,352)", "Final SetPen #ffffff",
                   "Final DrawPoint (525,352)", "Final SetPen #000000", "Final DrawPoint (700,352)"}));
}

TEST_F(MapPainterTest, ALengthJustRaisedShowsZeroRowsAsDotsAtZeroZero) {
  for (std::size_t i = 0; i <= 4; ++i) map.work.GroundTrack[i] = {45, 90, 0xFFFFFF};
  Paint();
  EXPECT_EQ(log.Of("Final SetPen #000000").size(), 1U);  // the status line's
  settings.Set("GroundTrackLen", "3");
  Paint();
  EXPECT_EQ(LayerOf("Final SetPen #000000", "Final SetPen #0080ff"),
            (Texts{"Final SetPen #000000", "Final DrawPoint (700,352)", "Final SetPen #000000",
                   "Final DrawPoint (700,352)"}));
}

TEST_F(MapPainterTest, TheLongestTrackOfThePanelFitsItsTable) {
  settings.Set("GroundTrackLen", "1440");
  Paint();
  EXPECT_EQ(TakeFaults(), Texts{});
}

TEST_F(MapPainterTest, AnUnreadableTrackLengthCostsOnlyTheTrack) {
  settings.Set("GroundTrackLen", "long");
  Paint();
  EXPECT_EQ(TakeFaults(), Texts{"Type mismatch - mapview RepaintMapScreen"});
  EXPECT_GE(log.IndexOf("Final SetPen #0080ff"), 0);
}

TEST_F(MapPainterTest, ATrackBeyondItsTableIsLoggedOnceAPaint) {
  settings.Set("GroundTrackLen", "16000");
  Paint();
  EXPECT_EQ(TakeFaults(), Texts{"Subscript out of range - mapview RepaintMapScreen"});
  EXPECT_FALSE(log.Of("Final SetPen #0080ff").empty()) << "the layers behind it are there";
}

TEST_F(MapPainterTest, TrackAndFootprintAreHiddenByTheirSettings) {
  settings.Set("ShowGroundtrack", "0");
  settings.Set("ShowFootprints", "0");
  Paint();
  EXPECT_EQ(log.IndexOf("Final SetPen #0080ff"), -1);
  EXPECT_TRUE(log.Of("Final DrawPoint (700,352)").empty());
  EXPECT_EQ(LayerOf("Final BitBlt 1118,381 20x20 from MoonPic", "Final SetDrawMode").size(), 1U);
}

TEST_F(MapPainterTest, TheFootprintIsTheEvenRowsInOrangeDots) {
  for (std::size_t i = 0; i < map.work.FootPrint.size(); ++i) map.work.FootPrint[i] = {0, static_cast<double>(i) / 2};
  settings.Set("ShowGroundtrack", "0");
  Paint();
  const Texts layer = LayerOf("Final SetPen #0080ff", "Final SetDrawMode");
  ASSERT_EQ(layer.size(), 182U);
  EXPECT_EQ(layer[1], "Final DrawPoint (700,352)");
  EXPECT_EQ(layer[2], "Final DrawPoint (696.111,352)");  // row 2, one degree on; row 1 is passed over
  EXPECT_EQ(layer[181], "Final DrawPoint (0,352)");
}

}  // namespace
}  // namespace kestrava::views2d
