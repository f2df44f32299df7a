// Reads the source tree for the house rules: its files by folder, their lines, the functions in them.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace kestrava::house {

struct SourceFile {
  std::string path;  ///< relative to the root, with '/'
  std::vector<std::string> lines;
};

struct FunctionSpan {
  std::string head;
  int firstLine = 0;
  int lineCount = 0;
};

/// All .h and .cpp files below the given folders of the source tree.
std::vector<SourceFile> ReadSources(const std::vector<std::string>& folders);

/// The functions of a file laid out by clang-format: from the line with the opening brace's head to the closing one.
std::vector<FunctionSpan> FunctionsOf(const SourceFile& file);

/// The line without its // comment and without the contents of its string literals.
std::string CodeOf(const std::string& line);

}  // namespace kestrava::house
