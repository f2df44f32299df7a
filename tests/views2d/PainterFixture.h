// A painter over logged surfaces and tables of its own, in a scripted house. The design sizes: map 1400 x 704 from a
// world picture of the same size, mask 566 x 370.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "views2d/MapPainter.h"

#include "OperationLog.h"
#include "support/House.h"

namespace kestrava::views2d {

struct ScriptedPaintHost : PaintHost {
  MapWindowPlace PlaceToStore() const override { return place; }
  bool IsOpen() const override { return open; }

  MapWindowPlace place{300, 450, 12195, 7920, true, 528};
  bool open = true;
};

class PainterFixture : public testing::House {
 protected:
  PainterFixture();

  /// Paints once and keeps only that paint's operations.
  void Paint();
  void AddFavourite(const std::string& name, double latDeg, double lonDeg);
  void AddLocation(const std::string& name, const std::string& latitude, const std::string& longitude,
                   const std::string& onMap);
  /// Terminator and seeds of a Sun over this point.
  void SetSun(double latDeg, double lonDeg);

  /// The Print operations, without their quotes.
  std::vector<std::string> Printed() const;
  /// Sprite pairs (by the number of the mask) in the order of their painting.
  std::vector<std::string> SpritesPainted() const;
  /// The operations of the satellite layer: from the first satellite's sprite to the status line.
  std::vector<std::string> LayerOf(const std::string& firstOperation, const std::string& endOperation) const;

  OperationLog log;
  orbit::Tables tables;
  MapState map;
  ScriptedPaintHost host;
  LoggedSurface final{log, "Final", 1400, 704};
  LoggedSurface world{log, "WorldNormal", 1400, 704};
  LoggedSurface alpha{log, "Alpha", kAlphaWidth, kAlphaHeight};
  LoggedSurface sunMask{log, "SunMask", 30, 30};
  LoggedSurface sunPic{log, "SunPic", 30, 30};
  LoggedSurface moonMask{log, "MoonMask", 20, 20};
  LoggedSurface moonPic{log, "MoonPic", 20, 20};
  std::vector<std::unique_ptr<LoggedSurface>> sprites;
  std::unique_ptr<MapPainter> painter;
};

}  // namespace kestrava::views2d
