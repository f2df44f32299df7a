// What screen readers are told of our own windows and widgets, about which the toolkit knows nothing: it would call
// them all mere containers.
#pragma once

namespace kestrava::platform::qt {

/// From here on every object that is asked for is described. Once, before the first window.
void DescribeToScreenReaders();

}  // namespace kestrava::platform::qt
