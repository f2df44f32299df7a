// Texts of numbers and times: the only place of the station that depends on the machine's locale. Patterns are the
// classic ones. Everything that is stored or shown as a number passes through here.
#pragma once

#include <string>
#include <string_view>

#include "platform/SerialDate.h"

namespace kestrava::platform {

/// A number or serial date by a pattern.
/// Numbers: '0' digit or zero, '#' digit or nothing, '.' the locale's decimal sign, ',' between digit places the
/// locale's group sign; other characters stand as they are. Halves round away from zero; a value that rounds to zero
/// loses its sign. Times (pattern holds h, m or s): "hh:mm:ss", "hh:mm"; "dd", "mm" behind "hh" are minutes, else
/// month; "yyyy". Letters of a time pattern in either case.
/// @throws Fault "Overflow" for no finite number, or a time outside the years 100 to 9999
/// @code Format(1234.5, "#,##0.0") == "1,234.5"; Format(0.5, "hh:mm:ss") == "12:00:00" @endcode
std::string Format(double value, std::string_view pattern);

/// A whole text as a number in the machine's locale. Blanks around it are passed over, group signs between digits too.
/// A text with the other decimal sign alone in it ("51,5" on a point machine) is that number, never 515.
/// @throws Fault "Type mismatch" for an empty text or anything that is no number, "Overflow" beyond a 64-bit float
double ParseNumber(std::string_view text);

/// The leading number of a text with a decimal point, blanks passed over; 0 if it begins with none. Never fails,
/// and never looks at the locale.
double Val(std::string_view text);

/// The shortest text of up to 15 digits for a number, with the locale's decimal sign; plain digits for whole ones.
std::string NumberText(double value);

/// The same with a decimal point always: for file and wire formats that do not follow the locale.
std::string PointText(double value);

/// Whole degrees, rounded down, as plain digits.
std::string FloorText(double value);

/// True if the machine writes 1.2 as "1,2".
bool UsesDecimalComma();

/// A stored latitude or longitude made readable here: on a decimal-comma machine every "." becomes ",".
std::string ApplyCommaRule(std::string_view stored);

}  // namespace kestrava::platform
