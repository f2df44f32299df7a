// Texts made alike for a search: what a user types on any keyboard against names as they are written.
#pragma once

#include <string>
#include <string_view>

namespace kestrava::store {

/// Small letters without accents, words parted by one blank: "São Tomé-Príncipe" and "sao tome principe" become one.
/// Latin letters lose their marks (ß becomes "ss", æ "ae"), apostrophes and full stops go, all other signs part words.
/// Letters of other scripts stay as they are.
std::string FoldForSearch(std::string_view utf8);

}  // namespace kestrava::store
