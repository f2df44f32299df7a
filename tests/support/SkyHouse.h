// A house with a sky: the shipped element files of some groups in the data folder, an engine that has read them, fresh
// tables, and an observer in London. The time is noon of 15 November 2026, a day after the epochs of the elements.
#pragma once

#include <string>
#include <string_view>

#include "orbit/OrbitEngine.h"
#include "orbit/Satcalc.h"
#include "orbit/Tables.h"

#include "support/House.h"

namespace kestrava::testing {

class SkyHouse : public House {
 protected:
  SkyHouse();

  /// Takes a satellite into the next free row of the favourites.
  orbit::FaveRec& AddFavourite(std::string_view name, double elevationDeg);

  orbit::Tables tables;
  orbit::OrbitEngine engine;
  orbit::Sky sky{tables, engine};
};

}  // namespace kestrava::testing
