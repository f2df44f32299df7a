// The painter's last layers: the satellites with their labels, the status line, the yields and the window's place.
#include <limits>

#include "platform/Fault.h"

#include "PainterFixture.h"

namespace kestrava::views2d {
namespace {

using Texts = std::vector<std::string>;

class MapPainterLabels : public PainterFixture {};

struct LookRow {
  const char* name;
  const char* sprite;
  int labelRisePx;
};

TEST_F(MapPainterLabels, TheNameDecidesTheSpriteAndTheRiseOfTheLabel) {
  for (const LookRow& row :
       {LookRow{"AO-07", "0", 14}, LookRow{"ISS (ZARYA)", "1", 24}, LookRow{"STS-114", "3", 24},
        LookRow{"AMSAT P3D", "4", 16}, LookRow{"OSCAR AO-40", "4", 16}, LookRow{"NOAA 15", "5", 21},
        LookRow{"iss", "0", 14}, LookRow{"THE ISS", "0", 14}, LookRow{"noaa 15", "0", 14}, LookRow{"", "0", 14},
        LookRow{"ISS P3D", "4", 16}, LookRow{"NOAA AO-40", "5", 21}, LookRow{"STS P3D AO-40", "4", 16}}) {
    tables.FaveCount = 0;
    AddFavourite(row.name, 0, 0);
    Paint();
    EXPECT_EQ(SpritesPainted(), Texts{row.sprite}) << row.name;
    const std::string label = "Final DrawPoint (684," + std::to_string(352 - row.labelRisePx) + ")";
    const int mode = log.IndexOf("Final SetDrawMode no operation");
    EXPECT_EQ(log.Between(mode + 1, mode + 2), Texts{label}) << row.name;
  }
}

TEST_F(MapPainterLabels, TheSpriteIsOffCentreByDesignAndTheLabelMarksNothingButItsText) {
  AddFavourite("AO-07", 45, 90);
  Paint();
  EXPECT_EQ(
      LayerOf("Final BitBlt 336,162", "Final SetPen #ff0000"),
      (Texts{"Final BitBlt 336,162 32x32 from SatMask(0) 0,0 and",
             "Final BitBlt 336,162 32x32 from SatPic(0) 0,0 paint", "Final SetDrawMode no operation",
             "Final DrawPoint (334,162)", "Final SetDrawMode copy", "Final SetPen #ffffff", "Final Print \"AO-07\"",
             "Final SetDrawMode no operation", "Final DrawPoint (0,0)", "Final SetDrawMode copy"}));
}

TEST_F(MapPainterLabels, SpritesGoToTheNearestPixelAndTiesToTheEvenOne) {
  final.Resize(720, 360);  // two pixels to a degree
  AddFavourite("A", 0, 180 - 50.25);
  AddFavourite("B", 0, 180 - 50.75);
  Paint();
  const Texts masks = log.Of("Final BitBlt");
  EXPECT_NE(masks[4].find("Final BitBlt 86,166"), std::string::npos) << masks[4];  // 86.5
  EXPECT_NE(masks[6].find("Final BitBlt 88,166"), std::string::npos) << masks[6];  // 87.5
}

TEST_F(MapPainterLabels, ASatelliteWithoutAPlaceCostsOnlyItself) {
  AddFavourite("LOST", 0, std::numeric_limits<double>::quiet_NaN());
  AddFavourite("AO-07", 45, 90);
  Paint();
  EXPECT_EQ(TakeFaults(), Texts{"Overflow - mapview RepaintMapScreen"});
  EXPECT_EQ(Printed().at(1), "AO-07");
}

TEST_F(MapPainterLabels, FivehundredFavouritesAreAllDrawnAndNothingMarksTheSelectedOne) {
  for (int i = 0; i < orbit::kFaveRows; ++i) AddFavourite("AO-07", 45, 90);
  tables.SelSat = 7;
  Paint();
  EXPECT_EQ(SpritesPainted().size(), 500U);
  EXPECT_EQ(Printed().size(), 502U);  // home, 500 names, status line
}

TEST_F(MapPainterLabels, WithoutFavouritesTheStatusLineStillPrints) {
  Paint();
  EXPECT_TRUE(SpritesPainted().empty());
  EXPECT_EQ(Printed().back(),
            " ISS (ZARYA)  Latitude : 10.00 Deg  Longitude : 020.000 W Deg  Azimuth : 1.0 Deg  "
            "Elevation : -2.0 Deg   AOS : 12:34:56");
}

TEST_F(MapPainterLabels, TheStatusLineOfAFreshWindowIsBlanksAndTheTailOfPleaseWait) {
  map.RemoteStat.fill("");
  map.RemoteStat[0] = "Please Wait.....";
  Paint();
  EXPECT_EQ(Printed().back(), " ....           ");
}

TEST_F(MapPainterLabels, TheStatusLineStandsTwentyPixelsAboveTheInnerEdge) {
  Paint();
  EXPECT_EQ(LayerOf("Final DrawPoint (0,508)", "Final Print \" ISS"),
            (Texts{"Final DrawPoint (0,508)", "Final SetDrawMode copy", "Final SetPen #000000",
                   "Final SetFont Arial 8 bold"}));
}

TEST_F(MapPainterLabels, TheStatusLineIsWhiteOverTheNorthernRegionsElseBlack) {
  for (const auto& [mode, pen] : {std::pair{"NWQ", "ffffff"},
                                  {"NEQ", "ffffff"},
                                  {"NCQ", "ffffff"},
                                  {"SWQ", "000000"},
                                  {"SEQ", "000000"},
                                  {"SCQ", "000000"},
                                  {"worldnormal", "000000"},
                                  {"worldalt", "000000"},
                                  {"globe", "000000"}}) {
    map.MapMode = mode;
    Paint();
    const int font = log.IndexOf("Final SetFont Arial 8 bold");
    EXPECT_EQ(log.Between(font - 1, font), Texts{std::string("Final SetPen #") + pen}) << mode;
  }
}

TEST_F(MapPainterLabels, ThePaintEndsWithTheSmallFontAsItBegan) {
  Paint();
  EXPECT_EQ(log.operations.front().Text(), "Final SetFont Small fonts 7 bold");
  EXPECT_EQ(log.operations.back().Text(), "Final SetFont Small fonts 7 bold");
}

TEST_F(MapPainterLabels, TheLabelsLeaveTheBluePenAndTheSmallFontBehind) {
  Paint();
  const int pen = log.IndexOf("Final SetPen #ff0000");
  EXPECT_EQ(log.Between(pen - 3, pen + 3),
            (Texts{"Final SetDrawMode no operation", "Final DrawPoint (0,0)", "Final SetDrawMode copy",
                   "Final SetPen #ff0000", "Final SetFont Arial 11 bold", "Final SetFont Small fonts 7 bold"}));
}

TEST_F(MapPainterLabels, ThePlaceOfTheWindowIsWrittenOnEveryPaint) {
  Paint();
  EXPECT_EQ(settings.Get("WinPosX"), "300");
  EXPECT_EQ(settings.Get("WinPosY"), "450");
  EXPECT_EQ(settings.Get("WinPosW"), "12195");
  EXPECT_EQ(settings.Get("WinPosH"), "7920");
  host.place.leftTwips = -15;
  Paint();
  EXPECT_EQ(settings.Get("WinPosX"), "-15");
}

TEST_F(MapPainterLabels, APlaceThatThisWindowStoredLastIsNotWrittenOverThatOfAnotherMap) {
  Paint();
  settings.Set("WinPosX", "9000");  // another map, at a place of its own
  Paint();
  EXPECT_EQ(settings.Get("WinPosX"), "9000");
  host.place.leftTwips = 315;
  Paint();
  EXPECT_EQ(settings.Get("WinPosX"), "315") << "moved, it is stored again";
}

TEST_F(MapPainterLabels, APlaceThatCouldNotBeStoredIsTriedAgain) {
  settings.FailWrites(platform::Fault::DiskFull());
  Paint();
  EXPECT_EQ(TakeFaults().size(), 4U);
  settings.Mend();
  Paint();
  EXPECT_EQ(settings.Get("WinPosH"), "7920");
}

TEST_F(MapPainterLabels, WithNothingSelectedNeitherTrackNorFootprintStandsThere) {
  map.work.GroundTrack[0] = {10, 20, 0xFFFFFF};
  map.work.nothingSelected = true;
  Paint();
  EXPECT_EQ(log.IndexOf("Final SetPen #0080ff"), -1);
  const std::size_t without = log.Of("Final DrawPoint").size();
  map.work.nothingSelected = false;
  Paint();
  EXPECT_EQ(log.Of("Final DrawPoint").size() - without, 181u + 5u);
}

TEST_F(MapPainterLabels, AMinimisedOrHiddenWindowWritesNoPlace) {
  host.place.storable = false;
  Paint();
  EXPECT_FALSE(settings.Has("WinPosX"));
  EXPECT_FALSE(settings.Has("WinPosH"));
}

TEST_F(MapPainterLabels, AStoreThatTakesNothingCostsThePlaceAndIsLogged) {
  Paint();
  host.place.widthTwips = 1;
  settings.FailWrites(platform::Fault::DiskFull());
  Paint();
  EXPECT_EQ(TakeFaults().size(), 4U);
  settings.Mend();
}

TEST_F(MapPainterLabels, APaintYieldsTwiceAfterTheBaseLayerAndAfterTheStatusLine) {
  std::size_t atFirst = 0;
  std::size_t atSecond = 0;
  eventLoop.AtYield(1, [&] { atFirst = log.operations.size(); });
  eventLoop.AtYield(2, [&] { atSecond = log.operations.size(); });
  const int before = eventLoop.YieldCount();
  Paint();
  EXPECT_EQ(eventLoop.YieldCount() - before, 2);
  EXPECT_EQ(log.operations[atFirst - 1].what, "Final StretchBlt");
  EXPECT_EQ(atSecond, log.operations.size());
}

TEST_F(MapPainterLabels, AWindowThatClosesInTheFirstYieldIsPaintedNoFurther) {
  eventLoop.AtYield(1, [&] { host.open = false; });
  Paint();
  EXPECT_EQ(log.operations.back().what, "Final StretchBlt");
  EXPECT_FALSE(settings.Has("WinPosX"));
}

TEST_F(MapPainterLabels, AWindowThatClosesInTheSecondYieldWritesNoPlace) {
  eventLoop.AtYield(2, [&] { host.open = false; });
  Paint();
  EXPECT_FALSE(settings.Has("WinPosX"));
}

TEST_F(MapPainterLabels, TheTablesAreReadLiveSoARowChangedInAYieldIsSeen) {
  AddFavourite("AO-07", 45, 90);
  eventLoop.AtYield(1, [&] { tables.FaveList[1].Name = "RS-44"; });
  Paint();
  EXPECT_EQ(Printed().at(1), "RS-44");
}

TEST_F(MapPainterLabels, BrokenSurfacesCostTheirLayersAndNothingElse) {
  for (const char* broken : {"BitBlt", "AlphaBlend", "DrawPoint", "Print", "SetFont"}) {
    final.fail = [&](std::string_view operation) {
      if (operation == broken) throw platform::Fault::InvalidPicture();
    };
    Paint();
    for (const std::string& fault : TakeFaults()) {
      EXPECT_EQ(fault, "Invalid picture - mapview RepaintMapScreen") << broken;
    }
    EXPECT_EQ(log.Of("Alpha FloodFill").size(), 16U) << broken;
  }
}

TEST_F(MapPainterLabels, ABrokenMaskIsLoggedForEachOfItsStatements) {
  alpha.fail = [](std::string_view operation) {
    if (operation == "FloodFill") throw platform::Fault::InvalidPicture();
  };
  Paint();
  EXPECT_EQ(TakeFaults().size(), 16U);
  EXPECT_EQ(log.Of("Final AlphaBlend").size(), 4U);
}

TEST_F(MapPainterLabels, MappingsFollowTheSizesOfTheirSurfaces) {
  final.Resize(720, 360);
  EXPECT_DOUBLE_EQ(painter->LonToMapX(90), 180);
  EXPECT_DOUBLE_EQ(painter->LatToMapY(45), 90);
  EXPECT_DOUBLE_EQ(painter->LonToMaskX(180), 0);
  EXPECT_DOUBLE_EQ(painter->LatToMaskY(-90), 370);
  map.MapMode = "NEQ";
  EXPECT_DOUBLE_EQ(painter->LonToMapX(270), 360);
}

}  // namespace
}  // namespace kestrava::views2d
