// The machine's way of writing a time of day, seconds and all.
#pragma once

#include <QString>

namespace kestrava::platform::qt {

/// A locale's short form of a time with the seconds that it leaves out: behind the minutes, parted from them by the
/// sign that parts these from the hours ("HH.mm" is "HH.mm.ss"). Where words stand between them ("HH 'h' mm") it is the
/// long form without its time zone.
QString WithSeconds(const QString& shortForm, const QString& longForm);

}  // namespace kestrava::platform::qt
