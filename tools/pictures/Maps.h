#pragma once
// The base maps. Each is a style (a few colours and weights) of one renderer.
#include <QImage>

#include "Earth.h"

namespace kestrava::tools {

QImage DefaultMap(const Earth& earth);  ///< natural colours over a deep ocean
QImage NightMap(const Earth& earth);    ///< dark and calm, for bright overlays
QImage ReliefMap(const Earth& earth);   ///< mountains and ocean floor, no lines but the coast
QImage ChartMap(const Earth& earth);    ///< flat land, clear borders, close graticule

}  // namespace kestrava::tools
