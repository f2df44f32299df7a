#include "LauncherStart.h"

#include <chrono>
#include <csignal>
#include <fstream>
#include <stdexcept>
#include <string>

#include <unistd.h>

#include "app/Program.h"

namespace kestrava::bench {

namespace {

constexpr const char* kLeftOver = "gps-ops.new";

}  // namespace

LauncherStart::LauncherStart()
    : folder_(std::filesystem::temp_directory_path() / ("kestrava-start-bench-" + std::to_string(getpid()))) {
  std::filesystem::create_directories(folder_);
  std::filesystem::copy(KESTRAVA_DATA "sample", folder_ / "data");
}

LauncherStart::~LauncherStart() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

double LauncherStart::SecondsToActivation() {
  std::ofstream(folder_ / "data" / kLeftOver) << "left over";
  app::FolderWatch removed(folder_ / "data", app::FileEvent::kRemoved);
  const auto start = std::chrono::steady_clock::now();
  app::Program program(folder_ / "home", {"--data", (folder_ / "data").string()});
  if (!removed.WaitFor(kLeftOver)) throw std::runtime_error("the launcher is never activated");
  const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
  program.Send(SIGTERM);
  if (const std::string end = program.End(); end != "code 0") throw std::runtime_error("the program ends with " + end);
  return elapsed.count();
}

}  // namespace kestrava::bench
