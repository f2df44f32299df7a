// The age of the element files, as the launcher tells it.
#pragma once

#include <optional>
#include <string>

#include "platform/SerialDate.h"

namespace kestrava::shell {

/// Whole days, rounded down, from a file's date to now, both local. A file date that lies in the future is taken for a
/// mix-up of day and month: the age is then that of the swapped date at noon, which may still lie in the future.
/// @return days; negative when even the swapped date lies ahead
int ElementAgeDays(platform::SerialDate nowLocal, platform::SerialDate fileLocal);

/// The text for an age; none for a negative one, as the label then keeps what it shows.
std::optional<std::string> KepAgeText(int days);

}  // namespace kestrava::shell
