// When a tick of the map changes the selected satellite by itself.
#include <algorithm>
#include <cmath>

#include "PlotFixture.h"

namespace kestrava::views2d {
namespace {

using Numbers = std::vector<int>;
using Texts = std::vector<std::string>;

class AutomaticSelection : public PlotFixture {};

TEST_F(AutomaticSelection, OffLeavesTheSelectionAlone) {
  SetFavourites({kIss, kNoaa});
  SeeAt(kNoaa, 60);
  Tick();
  EXPECT_EQ(settings.Get("AutoSelect"), "0");
  EXPECT_TRUE(host.selected.empty());
  EXPECT_EQ(tables.SelSat, 1);
}

TEST_F(AutomaticSelection, TakesTheHighestWhenTheSelectedOneIsLow) {
  SetFavourites({kIss, kOscar, kNoaa});
  settings.Set("AutoSelect", "1");
  SeeWithout(kIss, kNoaa, 60);
  Tick();
  EXPECT_EQ(host.selected, Numbers{3});
  EXPECT_EQ(tables.SelSat, 3);
}

TEST_F(AutomaticSelection, KeepsASatelliteAtThreeDegreesHoweverHighAnotherStands) {
  SetFavourites({kIss, kNoaa});
  settings.Set("AutoSelect", "1");
  SeeAt(kNoaa, 60);
  eventLoop.AtYield(2, [&] { Fave(1).El = 3.0; });
  Tick();
  EXPECT_TRUE(host.selected.empty());
  eventLoop.AtYield(2, [&] { Fave(1).El = std::nextafter(3.0, 0.0); });
  Tick();
  EXPECT_EQ(host.selected, Numbers{2});
}

TEST_F(AutomaticSelection, AtTwoPointNineWithAllOthersLowerTheSelectionStays) {
  SetFavourites({kIss, kNoaa, kOscar});
  settings.Set("AutoSelect", "1");
  SeeAt(kIss, 2.9);
  ASSERT_LT(ElevationDeg(kNoaa), 2.9);
  ASSERT_LT(ElevationDeg(kOscar), 2.9);
  Tick();
  EXPECT_TRUE(host.selected.empty());
  EXPECT_EQ(tables.SelSat, 1);
}

TEST_F(AutomaticSelection, WithNoneInViewTheHighestBelowTheHorizonIsTakenAllTheSame) {
  SetFavourites({kIss, kNoaa});
  settings.Set("AutoSelect", "1");
  SeeWithout(kIss, kNoaa, -1);
  Tick();
  EXPECT_EQ(host.selected, Numbers{2});
}

TEST_F(AutomaticSelection, ATieKeepsTheEarlierRow) {
  SetFavourites({kIss, kNoaa, kNoaa});
  settings.Set("AutoSelect", "1");
  SeeWithout(kIss, kNoaa, 60);
  Tick();
  EXPECT_EQ(host.selected, Numbers{2});
}

TEST_F(AutomaticSelection, TheSettingIsReadOncePerFavouriteAndOnceForTheSwitch) {
  SetFavourites({kIss, kNoaa});
  settings.Set("AutoSelect", "1");
  settings.ForgetAccesses();
  Tick();
  const auto& reads = settings.Reads();
  EXPECT_EQ(std::count(reads.begin(), reads.end(), "AutoSelect"), 3);
}

TEST_F(AutomaticSelection, AFailingSelectionHandlerIsLogged) {
  SetFavourites({kIss, kNoaa});
  settings.Set("AutoSelect", "1");
  tables.SelSat = 501;
  SeeAt(kNoaa, 60);
  Tick();
  EXPECT_EQ(TakeFaults(),
            (Texts{"Subscript out of range - Mapview Gsatroutine", "Subscript out of range - Mapview Gsatroutine"}));
  EXPECT_TRUE(host.selected.empty());
}

}  // namespace
}  // namespace kestrava::views2d
