// "Save Elements to Disk": copies the element files of all groups to a removable medium.
#pragma once

#include "orbit/Tables.h"

namespace kestrava::shell {

/// Asks, copies to the first mounted removable medium, and tells how many files went over and where: after No as well,
/// with 0. Without a medium (or when it goes away) it says so and stops. A file that cannot be copied for another
/// reason is passed over, not counted, and named with the reason.
void TransferElementsToFloppy(const orbit::Tables& tables);

}  // namespace kestrava::shell
