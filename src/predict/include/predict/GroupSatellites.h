// The satellites of a group for the selection lists of the pass window and of its job wizard.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "orbit/Tables.h"
#include "platform/ChoiceControls.h"

namespace kestrava::predict {

/// Adds the names of all groups to a list, in order.
void AddGroupNames(const orbit::Tables& tables, platform::ComboControl& combo);

/// The element file of the group of that name (of several, the last); empty where there is none.
std::string ElementFileOfGroup(const orbit::Tables& tables, std::string_view groupName);

enum class GroupRead { kDone, kMissing, kStopped };

/// Adds the satellites of a group to a list: of each three lines the first, cut to 16 characters and trimmed. A file
/// that is not there is said in a message. Yields between the sets.
/// @param stopped  asked after each yield: true ends the reading, and nothing is touched any more
/// @throws platform::Fault  the file cannot be read
GroupRead AddSatellitesOfGroup(const orbit::Tables& tables, std::string_view groupName, platform::ComboControl& combo,
                               const std::function<bool()>& stopped);

}  // namespace kestrava::predict
