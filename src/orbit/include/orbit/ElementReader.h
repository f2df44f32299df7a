#pragma once

// Reads element files: sets of a name line and two lines of elements, as published. The engine loads its database
// through it; the quality check after a download may use it too. Whatever stands in the file, the reader ends, says
// what it left out, and never throws for it.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "orbit/ElementSet.h"

namespace kestrava::orbit {

/// How strict the reader is where published files are known to err.
struct ReaderRules {
  bool insistOnChecksums = true;  ///< the last digit of a line must be right
  bool insistOnLength = true;     ///< a line has 69 characters; without it, what stands behind them is ignored
};

/// A set that was left out.
struct RefusedSet {
  std::string name;    ///< as the engine would have called it
  std::string reason;  ///< a few words for the log
};

struct ElementFile {
  std::vector<ElementSet> sets;     ///< in file order
  std::vector<RefusedSet> refused;  ///< in file order, each once
};

/// All element sets of a text.
/// @param text  any bytes; CR LF, LF or CR end a line, a byte-order mark in front is skipped, a tab counts as a blank.
///   Bytes that are not valid UTF-8 are read as Latin-1.
/// @return the sets that are whole and right, and the names of those that are not. Other lines (headers, remarks,
///   blank ones) are passed over. A set without a name line gets its catalogue number as name.
/// @note epoch years 57 to 99 are 1957 to 1999; catalogue numbers may have a letter in front (Alpha-5, without I and
///   O). Time is linear in the text: 10 MB of any bytes take less than a second.
/// Source: the format as CelesTrak documents it; Alpha-5 as Space-Track documents it.
ElementFile ReadElementSets(std::string_view text, const ReaderRules& rules = {});

/// Catalogue number of its five characters: digits with blanks in front, or a capital letter but I and O and four
/// digits.
/// @return the number, or -1
int CatalogueNumberFrom(std::string_view fiveCharacters);

}  // namespace kestrava::orbit
