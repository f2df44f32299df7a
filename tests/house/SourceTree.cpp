#include "house/SourceTree.h"

#include <algorithm>
#include <fstream>
#include <regex>

namespace kestrava::house {

namespace fs = std::filesystem;

namespace {

bool IsSource(const fs::path& path) {
  return path.extension() == ".h" || path.extension() == ".cpp";
}

SourceFile ReadFile(const fs::path& path) {
  SourceFile file{fs::relative(path, KESTRAVA_SOURCE_DIR).generic_string(), {}};
  std::ifstream in(path);
  for (std::string line; std::getline(in, line);) file.lines.push_back(line);
  return file;
}

bool OpensFunction(const std::string& line) {
  static const std::regex control{
      R"(^\s*(if|for|while|switch|else|do|try|catch|namespace|class|struct|enum|return|case)\b)"};
  static const std::regex head{R"(\)( const)?( noexcept)?( override)?( final)?( ->.*)? \{$)"};
  return std::regex_search(line, head) && !std::regex_search(line, control) && line.find("= [") == std::string::npos &&
         line.find("([") == std::string::npos;
}

}  // namespace

std::vector<SourceFile> ReadSources(const std::vector<std::string>& folders) {
  std::vector<SourceFile> files;
  for (const std::string& folder : folders) {
    if (!fs::exists(fs::path(KESTRAVA_SOURCE_DIR) / folder)) continue;
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(KESTRAVA_SOURCE_DIR) / folder))
      if (entry.is_regular_file() && IsSource(entry.path())) files.push_back(ReadFile(entry.path()));
  }
  std::sort(files.begin(), files.end(), [](const auto& a, const auto& b) { return a.path < b.path; });
  return files;
}

std::vector<FunctionSpan> FunctionsOf(const SourceFile& file) {
  std::vector<FunctionSpan> spans;
  for (std::size_t i = 0; i < file.lines.size(); ++i) {
    const std::string& line = file.lines[i];
    if (!OpensFunction(line)) continue;
    const std::size_t indent = line.find_first_not_of(' ');
    if (indent > 2) continue;  // a lambda or the tail of a wrapped head
    const std::string closing = std::string(indent, ' ') + "}";
    const auto end = std::find_if(file.lines.begin() + static_cast<long>(i), file.lines.end(),
                                  [&](const std::string& l) { return l == closing; });
    spans.push_back(
        {line, static_cast<int>(i) + 1, static_cast<int>(end - file.lines.begin() - static_cast<long>(i)) + 1});
  }
  return spans;
}

std::string CodeOf(const std::string& line) {
  std::string code;
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '\\' && quoted) {
      ++i;
      continue;
    }
    if (line[i] == '"') quoted = !quoted;
    if (!quoted && line.compare(i, 2, "//") == 0) break;
    if (!quoted || line[i] == '"') code += line[i];
  }
  return code;
}

}  // namespace kestrava::house
