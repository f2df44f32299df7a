// Words of a command line, one a line: any bytes are answered or refused with an exit code, and a refusal prints
// nothing.
#include <sstream>
#include <string>
#include <vector>

#include "cli/Command.h"

#include "DataFile.h"
#include "Fuzz.h"

using kestrava::fuzz::Check;

namespace {

constexpr std::string_view kElements =
    "ISS (ZARYA)\n"
    "1 25544U 98067A   26318.89808844  .00002078  00000-0  38550-4 0  9991\n"
    "2 25544  51.6424  32.9776 0003646  28.7227  39.5332 15.54190080 95614\n";

std::vector<std::string> WordsOf(std::string_view text) {
  std::vector<std::string> words;
  std::istringstream lines{std::string(text)};
  for (std::string line; std::getline(lines, line);) words.push_back(line);
  return words;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::vector<std::string> words = WordsOf(kestrava::fuzz::TextOf(data, size));
  kestrava::fuzz::DataFile file("groups.dat", "Stations,stations.txt,1\n");
  file.files.contents["/data/stations.txt"] = kElements;
  file.files.contents["/data/pass.dat"] = "Mine\r\nISS (ZARYA);\r\n2\r\n0\r\n0\r\n";
  const kestrava::cli::Machine machine{[](const std::string&) { return std::string("/new/"); }, "/settings", "/data",
                                       [] { return std::optional<kestrava::store::ZonePlace>(); }};
  kestrava::cli::IsForTerminal(words);
  std::ostringstream out;
  std::ostringstream err;
  const int code = kestrava::cli::RunCommand(words, machine, out, err);
  Check(code >= 0 && code <= 2, "there are three exit codes");
  Check(code != kestrava::cli::kWrongUse || out.str().empty(), "wrong use prints nothing");
  Check(code == kestrava::cli::kAnswered || !err.str().empty(), "a failure is told");
  Check(file.files.contents.size() == 3, "nothing is written");
  return 0;
}
