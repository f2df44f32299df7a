// pass.dat: any bytes are listed, read and changed; what is listed can be run; a job that is appended can be read and
// taken out again, and then every other line is what it was.
#include "platform/Text.h"
#include "platform/TextFile.h"
#include "predict/PassJobs.h"

#include "DataFile.h"
#include "Fuzz.h"

using kestrava::fuzz::Check;

namespace {

std::vector<std::string> LinesWithText(const std::string& content) {
  std::vector<std::string> lines = kestrava::platform::SplitLines(content);
  std::erase_if(lines, [](const std::string& line) { return kestrava::platform::Trim(line).empty(); });
  return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::string_view kOwn = "A job of the fuzzer";
  const std::string_view input = kestrava::fuzz::TextOf(data, size);
  kestrava::fuzz::DataFile file("pass.dat", input);
  for (const std::string& name : kestrava::predict::ListJobs()) {
    const auto job = kestrava::predict::ReadJob(name);
    Check(job.has_value(), "what is listed can be run");
    Check(job->satelliteCount >= 0, "satellites are counted up");
    kestrava::fuzz::Survives([&] { kestrava::predict::ReadJobRecord(name); });
  }
  Check(file.Content() == input, "reading changes nothing");
  if (kestrava::platform::Contains(kestrava::platform::ToUtf8(input), kOwn)) return 0;
  const std::vector<std::string> before = LinesWithText(file.Content());
  kestrava::predict::AppendJob({std::string(kOwn), {"ISS (ZARYA)", "NOAA 19"}, "3", "1", "0"});
  const auto record = kestrava::predict::ReadJobRecord(kOwn);
  Check(record && record->satellites.size() == 2 && record->days == "3", "an appended job comes back");
  Check(kestrava::predict::RemoveJob(kOwn), "and can be taken out");
  Check(LinesWithText(file.Content()) == before, "every other line is what it was");
  const std::string rewritten = file.Content();
  Check(!kestrava::predict::RemoveJob(kOwn) && file.Content() == rewritten, "a second time there is nothing to do");
  return 0;
}
