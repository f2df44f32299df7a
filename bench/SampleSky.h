#pragma once

// The satellites that are measured: the sets that the station ships, whole for the engine, and an element file of 2000
// sets made of them.

#include <string>
#include <vector>

#include "orbit/ElementSet.h"
#include "orbit/OrbitEngine.h"
#include "orbit/Sgp4.h"

#include "yardstick/Yardstick.h"

namespace kestrava::bench {

/// Noon of 15 November 2026, beside the epochs of the shipped sets.
inline constexpr double kStartSerial = 46341.5;

const std::vector<orbit::ElementSet>& AllSets();
std::vector<orbit::ElementSet> NearEarthSets();
std::vector<orbit::ElementSet> DeepSpaceSets();

YardstickElements ForYardstick(const orbit::ElementSet& set);

/// An element file of so many sets, with names and catalogue numbers of their own.
std::string ElementFileOf(int sets);

/// An engine over the shipped folder, observing from 47.4 N 8.5 E.
orbit::OrbitEngine& SampleEngine();

/// Ends the program unless the yardstick and the model agree on all sets to a millimetre: a ratio of two things that
/// compute different numbers means nothing.
void RequireAgreement();

}  // namespace kestrava::bench
