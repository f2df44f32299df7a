// What the four files must hold after the first hour, worked out from what the user did and from the shipped files by
// the rules alone: no code of the station's tables is used.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "first_hour/FirstHour.h"

namespace kestrava::first_hour {

using Lines = std::vector<std::string>;

/// The lines of a text, without their ends.
Lines LinesOf(const std::string& text);
/// A decimal number of a point machine, as this user's machine writes it.
std::string Number(const User& user, std::string number);

/// The ten that he ticked: the first of the group that were no favourites yet.
Lines TenTicked();
Lines ExpectedFaves();
Lines ExpectedGroups();
Lines ExpectedLocations(const User& user);
std::map<std::string, std::string> ExpectedSettings(const User& user);

}  // namespace kestrava::first_hour
