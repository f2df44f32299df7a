#include "speech/PulseServer.h"

#include <array>
#include <cmath>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <sstream>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kestrava::speech {

namespace {

namespace fs = std::filesystem;

constexpr int kStartMs = 20000;
constexpr int kDataMs = 10000;
constexpr double kLongestSilenceS = 15;

std::vector<char*> Pointers(const std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (const std::string& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
  pointers.push_back(nullptr);
  return pointers;
}

std::string PathVariable() {
  const char* path = std::getenv("PATH");
  return path ? path : "/usr/bin:/bin";
}

}  // namespace

Process::Process(const std::vector<std::string>& command, const std::vector<std::string>& environment, Speaks what) {
  std::array<int, 2> ends{-1, -1};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) return;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  const int spoken = what == Speaks::kOutput ? STDOUT_FILENO : STDERR_FILENO;
  const int other = what == Speaks::kOutput ? STDERR_FILENO : STDOUT_FILENO;
  posix_spawn_file_actions_adddup2(&actions, ends[1], spoken);
  posix_spawn_file_actions_addopen(&actions, other, "/dev/null", O_WRONLY, 0);
  if (::posix_spawnp(&id_, command[0].c_str(), &actions, nullptr, Pointers(command).data(),
                     Pointers(environment).data()) != 0) {
    id_ = -1;
  }
  posix_spawn_file_actions_destroy(&actions);
  ::close(ends[1]);
  out_ = ends[0];
}

Process::~Process() {
  if (id_ > 0) {
    ::kill(id_, SIGKILL);
    ::waitpid(id_, nullptr, 0);
  }
  if (out_ >= 0) ::close(out_);
}

void Process::Signal(int signal) const {
  if (id_ > 0) ::kill(id_, signal);
}

std::string Process::Read(int atMostMs) const {
  pollfd ready{out_, POLLIN, 0};
  if (::poll(&ready, 1, atMostMs) <= 0) return {};
  std::array<char, 4096> block;
  const ssize_t got = ::read(out_, block.data(), block.size());
  return got > 0 ? std::string(block.data(), static_cast<std::size_t>(got)) : std::string();
}

bool PulseServer::IsInstalled() {
  std::istringstream folders(PathVariable());
  for (std::string folder; std::getline(folders, folder, ':');) {
    if (::access((fs::path(folder) / "pulseaudio").c_str(), X_OK) == 0) return true;
  }
  return false;
}

PulseServer::PulseServer() {
  Start();
}

std::vector<std::string> PulseServer::Environment() const {
  const std::string folder = folder_.Path().string();
  return {"PATH=" + PathVariable(), "HOME=" + folder, "XDG_RUNTIME_DIR=" + folder, "XDG_CONFIG_HOME=" + folder,
          "LC_ALL=C"};
}

void PulseServer::Start() {
  started_ = false;
  std::error_code none;
  fs::remove(folder_ / "native", none);  // left there by one that was killed
  process_ = std::make_unique<Process>(
      std::vector<std::string>{
          "pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--disallow-exit", "--use-pid-file=no",
          "--log-target=stderr", "--log-level=info", "-L",
          "module-native-protocol-unix socket=" + (folder_ / "native").string() + " auth-anonymous=1", "-L",
          "module-null-sink sink_name=vout rate=44100 channels=2 format=s16le"},
      Environment(), Process::Speaks::kErrors);
  std::string log;
  while (log.find("Daemon startup complete") == std::string::npos) {
    const std::string more = process_->Read(kStartMs);
    if (more.empty()) return;
    log += more;
  }
  started_ = true;
}

void PulseServer::Freeze() const {
  process_->Signal(SIGSTOP);
}

void PulseServer::Thaw() const {
  process_->Signal(SIGCONT);
}

Ear::Ear(const PulseServer& server)
    : process_({"parec", "--server=" + server.Address(), "--device=vout.monitor", "--latency-msec=20", "--raw",
                "--rate=" + std::to_string(kRateHz), "--channels=1", "--format=s16le"},
               server.Environment(), Process::Speaks::kOutput) {
  listening_ = Window() >= 0;
}

double Ear::Window() {
  constexpr std::size_t kSamples = kRateHz / 100;
  while (bytes_.size() < kSamples * sizeof(std::int16_t)) {
    const std::string more = process_.Read(kDataMs);
    if (more.empty()) return -1;
    bytes_ += more;
  }
  std::array<std::int16_t, kSamples> samples;
  std::memcpy(samples.data(), bytes_.data(), sizeof(samples));
  bytes_.erase(0, sizeof(samples));
  double sum = 0;
  for (const std::int16_t sample : samples) sum += static_cast<double>(sample) * sample;
  return std::sqrt(sum / kSamples);
}

bool Ear::Begins() {
  for (int window = 0; window < kLongestSilenceS * 100; ++window) {
    const double loudness = Window();
    if (loudness < 0) return false;
    if (loudness >= kLoud) return true;
  }
  return false;
}

Ear::Heard Ear::Sentence() {
  if (!Begins()) return {};
  int windows = 1;
  int loudTo = 1;
  double sum = 0;
  double sumToLoud = 0;
  while (windows - loudTo < 100) {
    const double loudness = Window();
    if (loudness < 0) break;
    ++windows;
    sum += loudness * loudness;
    if (loudness < kLoud) continue;
    loudTo = windows;
    sumToLoud = sum;
  }
  return {loudTo / 100.0, std::sqrt(sumToLoud / loudTo)};
}

double Ear::SoundWithin(double seconds) {
  int loud = 0;
  for (int window = 0; window < seconds * 100; ++window) {
    if (Window() >= kLoud) ++loud;
  }
  return loud / 100.0;
}

}  // namespace kestrava::speech
