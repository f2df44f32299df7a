#pragma once
// Ground below the sky: ridges of hills and mountains by azimuth, with the haze that lies between them.
#include <cstdint>
#include <functional>
#include <vector>

#include "Canvas.h"

namespace kestrava::tools {

struct RidgeForm {
  float lowDeg = 1;
  float highDeg = 4;
  float detail = 3;    ///< hills in a turn, about
  int octaves = 6;     ///< each halves the size of what stands out
  float peaked = 0;    ///< 0 rolling hills, 1 crests like those of mountains
  float treesDeg = 0;  ///< height of the treetops that roughen the line
  std::uint32_t seed = 1;
};

/// Elevation of the ridge in each column.
std::vector<float> Ridge(const Canvas& canvas, const RidgeForm& form);

/// Colour of the ground by azimuth, elevation, and depth below the ridge, all in degrees.
using GroundColour = std::function<Rgb(float azimuthDeg, float elevationDeg, float depthDeg)>;
void PaintGround(Canvas& canvas, const std::vector<float>& ridge, const GroundColour& colour);

/// Slopes of a mountain under a Moon at the left: 0 in the shade, 1 in full light.
float SlopeLight(float azimuthDeg, float depthDeg, std::uint32_t seed);

}  // namespace kestrava::tools
