// The line reader and what it stands on: any bytes become lines of valid UTF-8.
#include "platform/Text.h"
#include "platform/TextFile.h"

#include "Fuzz.h"

namespace platform = kestrava::platform;
using kestrava::fuzz::Check;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes = kestrava::fuzz::TextOf(data, size);
  bool wasLatin1 = false;
  std::string joined;
  for (const std::string& line : platform::SplitLines(bytes, &wasLatin1)) {
    Check(line.find_first_of("\r\n") == std::string::npos, "no line end within a line");
    joined += line + "\n";
    platform::SatelliteName(line);
    Check(platform::LengthInCharacters(platform::Left(line, 15)) <= 15, "15 characters are 15 characters");
    Check(platform::Left(line, 7) + platform::Mid(line, 8) == line, "a line cut in two is the same line");
  }
  bool joinedIsLatin1 = true;
  const std::string text = platform::ToUtf8(joined, &joinedIsLatin1);
  Check(!joinedIsLatin1, "lines are UTF-8");
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  if (!platform::BeginsWith(joined, kMark)) Check(text == joined, "UTF-8 stands as it is");
  const std::string latin1 = platform::ToLatin1(text);
  if (wasLatin1 && !platform::BeginsWith(latin1, kMark) && !platform::IsUtf8(latin1))
    Check(platform::ToUtf8(latin1) == text, "Latin-1 goes back");
  return 0;
}
