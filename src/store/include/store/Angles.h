// The arithmetic of observing places: degrees and their parts, the signs of the store against the tick boxes of a
// window, and the numbers that a user types. A stored latitude is negative in the south; a stored longitude is west
// positive, 0 to 360, so that east is 360 minus what is shown. Called by the locations panel.
#pragma once

#include <string_view>

namespace kestrava::store {

/// An angle in parts. All are whole numbers when they come from DegToDMS.
struct DegreeParts {
  double degrees = 0;
  double minutes = 0;
  double seconds = 0;
  bool operator==(const DegreeParts&) const = default;
};

/// Whole degrees, minutes and seconds. Each is rounded down: to the parts and back can lose up to a second.
DegreeParts DegToDMS(double degrees);

/// degrees + minutes / 60 + seconds / 3600, kept to nine decimals. The parts are added as they stand, signs and all:
/// -33 degrees 30 minutes are -32.5.
double DMSToDeg(const DegreeParts& parts);

/// An angle as a window shows it: without a sign, beside a tick box that carries it.
struct ShownAngle {
  double degrees = 0;
  bool ticked = true;  ///< "North" of a latitude, "West" of a longitude
  bool operator==(const ShownAngle&) const = default;
};

ShownAngle ShownLatitude(double latitudeDeg);

/// @param longitudeDegWest  180 or more means east; a negative one, as other programs write it, is 360 more
ShownAngle ShownLongitude(double longitudeDegWest);

/// Back to what is stored: south negative.
double StoredLatitude(const ShownAngle& shown);

/// Back to what is stored: west as it stands, east as 360 minus it. 0 east is 360.
double StoredLongitude(const ShownAngle& shown);

/// A latitude or longitude of the settings or of the table of places, under the comma rule.
/// @throws platform::Fault "Type mismatch"
double ParseStoredDegrees(std::string_view stored);

/// A number that a user typed: digits with one decimal sign of either kind, no group signs, a sign in front.
/// @throws platform::Fault "Type mismatch" for anything else
double ParseTyped(std::string_view text);

}  // namespace kestrava::store
