// Small routines for text, names and paths that many windows share.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "orbit/Tables.h"

namespace kestrava::orbit {

/// Word number n, counted from 1. A number past the end starts again from the beginning of the text: never empty.
std::string GetDelimitedWord(std::string_view text, int n, std::string_view delimiter);

/// What the search for a word gives. A fault in it is shown ("DelimitedWord Error: ", its number and its text) and the
/// answer is empty: trying the same search again would never end.
std::string WordOrMessage(const std::function<std::string()>& search);

/// True if a row of the favourites has exactly this name.
bool IsFavourite(const Tables& tables, std::string_view name);

/// The form of a satellite's name that a voice can pronounce.
std::string SpokenName(std::string_view name);

/// The path in the short form of the file system; a file that does not exist is made empty for the question and
/// removed.
std::string ShortName(std::string_view path);

bool HasBlank(std::string_view text);

}  // namespace kestrava::orbit
