#include "platform/TextFile.h"

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Text.h"

namespace kestrava::platform {

std::vector<std::string> SplitLines(std::string_view bytes, bool* wasLatin1) {
  const std::string text = ToUtf8(bytes, wasLatin1);
  std::vector<std::string> lines;
  std::string_view rest = text;
  while (!rest.empty()) {
    const std::size_t end = rest.find_first_of("\r\n");
    lines.emplace_back(rest.substr(0, end));
    if (end == std::string_view::npos) break;
    rest.remove_prefix(end + (rest.substr(end, 2) == "\r\n" ? 2 : 1));
  }
  return lines;
}

TextReader::TextReader(const std::filesystem::path& file) {
  lines_ = SplitLines(TheFiles().Read(file), &wasLatin1_);
}

const std::string& TextReader::ReadLine() {
  if (AtEnd()) throw Fault::InputPastEnd();
  return lines_[next_++];
}

void TextWriter::WriteLine(std::string_view line) {
  content_.append(asLatin1_ ? ToLatin1(line) : line).append(kLineEnd);
}

void TextWriter::ReplaceFile(const std::filesystem::path& file) const {
  TheFiles().Replace(file, content_);
}

}  // namespace kestrava::platform
