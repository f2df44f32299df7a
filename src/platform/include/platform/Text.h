// Text that is UTF-8 inside the station. Positions count characters, not bytes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrava::platform {

/// Blanks (spaces and tabs, and the CR a foreign line end left) taken off both ends.
std::string_view Trim(std::string_view text);

/// The first n characters.
std::string Left(std::string_view text, int n);

/// Characters from position `start`, counted from 1, `n` of them (or all the rest).
std::string Mid(std::string_view text, int start, int n = -1);

int LengthInCharacters(std::string_view text);

/// ASCII letters in capitals; the rest stays.
std::string ToCapitals(std::string_view text);

bool EqualsIgnoringCase(std::string_view a, std::string_view b);

std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to);

bool BeginsWith(std::string_view text, std::string_view start);
bool Contains(std::string_view text, std::string_view part);

std::vector<std::string> SplitAt(std::string_view text, char separator);

/// The satellite's name that a name line stands for: a leading "0 " of the published three-line form taken off,
/// first 15 characters, comma and double quote to blank, trimmed. The one rule of the whole system.
std::string SatelliteName(std::string_view nameLine);

/// True for well-formed UTF-8, the empty text too.
bool IsUtf8(std::string_view bytes);

/// Bytes of unknown origin as UTF-8: valid UTF-8 stands, anything else is read as Latin-1. A byte-order mark goes.
/// @param wasLatin1  set when given, so that a rewrite can go back to it
std::string ToUtf8(std::string_view bytes, bool* wasLatin1 = nullptr);

/// UTF-8 text as Latin-1 bytes; characters beyond it become "?".
std::string ToLatin1(std::string_view utf8);

}  // namespace kestrava::platform
