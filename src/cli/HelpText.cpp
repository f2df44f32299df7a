#include "HelpText.h"

#include <cstddef>

namespace kestrava::cli {

namespace {

constexpr std::size_t kColumns = 80;
constexpr std::size_t kWidestIndent = 40;

/// Where the explanation of an entry begins: behind the first run of blanks within the line.
std::size_t IndentOf(std::string_view line) {
  const std::size_t name = line.find_first_not_of(' ');
  if (name == 0 || name == std::string_view::npos) return 0;
  const std::size_t gap = line.find("  ", name);
  const std::size_t text = gap == std::string_view::npos ? gap : line.find_first_not_of(' ', gap);
  return text == std::string_view::npos || text > kWidestIndent ? name : text;
}

void AppendWrapped(std::string& wrapped, std::string_view line) {
  const std::size_t indent = IndentOf(line);
  std::size_t written = 0;  // blanks in front of what is left of the line
  while (written + line.size() > kColumns) {
    const std::size_t cut = line.rfind(' ', kColumns - written);
    const bool isWordsGap = cut != std::string_view::npos && cut + written > indent;
    if (!isWordsGap) break;  // a word too long to be broken
    wrapped.append(line.substr(0, line.find_last_not_of(' ', cut) + 1)).append("\n").append(indent, ' ');
    line.remove_prefix(cut + 1);
    written = indent;
  }
  wrapped.append(line) += '\n';
}

}  // namespace

std::string WrappedHelp(std::string_view help) {
  std::string wrapped;
  while (!help.empty()) {
    const std::size_t end = help.find('\n');
    AppendWrapped(wrapped, help.substr(0, end));
    if (end == std::string_view::npos) break;
    help.remove_prefix(end + 1);
  }
  return wrapped;
}

}  // namespace kestrava::cli
