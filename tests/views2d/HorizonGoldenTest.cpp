// The whole list of operations of a paint, with south and with north in the centre. The texts are frozen: see the
// README beside them. KESTRAVA_WRITE_GOLDEN=1 writes them anew.
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "HorizonFixture.h"

namespace kestrava::views2d {
namespace {

class HorizonGolden : public HorizonPainterFixture, public ::testing::WithParamInterface<const char*> {};

std::string GoldenPath(const std::string& name) {
  return std::string(KESTRAVA_TEST_DATA) + "golden/horizon/" + name + ".txt";
}

std::string ReadWhole(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

TEST_P(HorizonGolden, PaintsTheFrozenOperations) {
  const std::string centre = GetParam();
  state.CentreNorth = centre == "north";
  SetFavourites({"NOAA 15", kStation, "TIANGONG-2", "METEOSAT-8 (MSG", "SAUDISAT 1C (SO"});
  engine.SetObserver({30, 45, 0});
  GoPastRise("NOAA 15", 480);
  Paint();
  const std::string painted = log.GoldenText();
  if (std::getenv("KESTRAVA_WRITE_GOLDEN")) std::ofstream(GoldenPath(centre), std::ios::binary) << painted;
  EXPECT_EQ(painted, ReadWhole(GoldenPath(centre)));
}

INSTANTIATE_TEST_SUITE_P(EachCentre, HorizonGolden, ::testing::Values("south", "north"));

}  // namespace
}  // namespace kestrava::views2d
