// The whole list of operations of a paint in each of the eight modes. The texts are frozen: see the README beside them.
// KESTRAVA_WRITE_GOLDEN=1 writes them anew.
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "PainterFixture.h"

namespace kestrava::views2d {
namespace {

class MapPainterGolden : public PainterFixture, public ::testing::WithParamInterface<const char*> {};

std::string GoldenPath(const std::string& mode) {
  return std::string(KESTRAVA_TEST_DATA) + "golden/map/" + mode + ".txt";
}

std::string ReadWhole(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

TEST_P(MapPainterGolden, PaintsTheFrozenOperations) {
  const std::string mode = GetParam();
  map.MapMode = mode;
  settings.Set("Latitude", "51.5");
  settings.Set("Longitude", "0.1");
  tables.LocationName = "Home";
  AddLocation("Quito", "-0.2", "78.5", "1");
  AddLocation("Hidden", "10", "10", "0");
  AddLocation("Perth", "-31.9", "244.1", "1");
  AddFavourite("ISS (ZARYA)", 30, 100);
  AddFavourite("NOAA 15", -60, 200.5);
  AddFavourite("AO-07", 0, 0);
  for (std::size_t i = 0; i < 5; ++i) {
    map.work.GroundTrack[i] = {30 + 1.5 * static_cast<double>(i), 100 - 2.0 * static_cast<double>(i),
                               i < 3 ? 0x0000FFU : 0xFFFFFFU};
  }
  for (std::size_t i = 0; i <= 360; ++i) {
    const double angle = static_cast<double>(i / 2 * 2) * 3.14159265358979 / 180;
    map.work.FootPrint[i] = {30 + 20 * std::cos(angle), 100 + 22 * std::sin(angle)};
  }
  Paint();
  const std::string painted = log.GoldenText();
  if (std::getenv("KESTRAVA_WRITE_GOLDEN")) std::ofstream(GoldenPath(mode), std::ios::binary) << painted;
  EXPECT_EQ(painted, ReadWhole(GoldenPath(mode)));
}

INSTANTIATE_TEST_SUITE_P(EachMode, MapPainterGolden,
                         ::testing::Values("worldnormal", "worldalt", "NWQ", "NCQ", "NEQ", "SWQ", "SCQ", "SEQ"));

}  // namespace
}  // namespace kestrava::views2d
