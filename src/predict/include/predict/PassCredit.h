// The line above a saved or printed list of passes: who made it, and what its numbers hold for.
#pragma once

#include <string>
#include <string_view>

#include "predict/PassTable.h"

namespace kestrava::orbit {
class OrbitEngine;
}

namespace kestrava::predict {

/// "for London, 51.50 N 0.12 W, UTC+01:00, elements 1 day old on 15 NOV 2026": the place of the engine's observer under
/// its name in the settings, the offset that the rows carry, and how old the elements of the listed satellites are
/// today.
std::string CreditFacts(const orbit::OrbitEngine& engine, const PassTable& table);

/// What begins the saved file, and what begins the print, without a line end.
std::string SaveCredit(std::string_view facts);
std::string PrintCredit(std::string_view facts);

}  // namespace kestrava::predict
