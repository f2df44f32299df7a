#include "robot/RobotStation.h"

#include <QCoreApplication>
#include <utility>

#include "orbit/OrbitEngine.h"
#include "platform/Doors.h"
#include "shell/Shutdown.h"
#include "shell/ui/LauncherWindow.h"
#include "shell/ui/SplashWindow.h"

#include "RegisterWindows.h"
#include "support/StationFiles.h"

namespace kestrava::robot {

namespace {

constexpr const char* kDataFolder = "/house/";

shell::LauncherSetup Setup(RobotStation::SpeechMaker makeSpeech) {
  shell::LauncherSetup setup;
  setup.dataFolder = kDataFolder;
  setup.makeEngine = [] { return std::make_unique<orbit::OrbitEngine>(); };
  setup.makeSpeech = std::move(makeSpeech);
  if (!setup.makeSpeech) setup.makeSpeech = [] { return std::make_unique<platform::SilentSpeech>(); };
  setup.endProcess = [] { throw std::logic_error("the windows refused to close"); };
  return setup;
}

}  // namespace

void PumpingLoop::ProcessEvents() {
  SimulatedEventLoop::ProcessEvents();
  QCoreApplication::processEvents();
}

void AnsweringMessages::Show(std::string_view text, std::string_view, platform::MessageIcon) {
  texts.emplace_back(text);
}

bool AnsweringMessages::AskYesNo(std::string_view text, std::string_view) {
  texts.emplace_back(text);
  const bool yes = random_() % 2 == 0;
  if (text.find("Stay in this window") != std::string_view::npos) return true;  // the robot has one run
  return yes && text.find("Start Kestrava anew now?") == std::string_view::npos;
}

platform::Unstored AnsweringMessages::AskUnstored(std::string_view text, std::string_view) {
  texts.emplace_back(text);
  return static_cast<platform::Unstored>(unstoredAsked_++ % 3);
}

std::optional<std::filesystem::path> AnsweringFileChooser::ChooseSaveFile(std::string_view,
                                                                          const std::filesystem::path&) {
  if (++asked_ % 2 == 0) return std::nullopt;
  return "/documents/robot.txt";
}

RobotStation::RobotStation(SpeechMaker makeSpeech) {
  for (const auto& [name, content] : testing::StationFiles()) house_.Put(name, content);
  house_.Put("pass.dat",
             "Two days\r\nISS (ZARYA);\r\nNOAA 19;\r\n2\r\n0\r\n0\r\n"
             "Kept and printed\r\nHST;\r\n1\r\n1\r\n1\r\n");
  house_.clock.SetUtc({2026, 11, 15, 18, 0, 0});
  house_.clock.SetOffsetHours(1);
  house_.settings.Set("Latitude", "47.4");
  house_.settings.Set("Longitude", "351.5");
  platform::TheDoors().eventLoop = &loop_;
  platform::TheDoors().messages = &messages_;
  platform::TheDoors().fileChooser = &fileChooser_;
  platform::TheDoors().printing = &printing_;
  house_.files.MakeFolder("/documents");
  app::RegisterWindows(Windows(), Setup(std::move(makeSpeech)), {});
}

RobotStation::~RobotStation() {
  // What the windows handed over for later still needs the loop and the clock.
  loop_.RunEvent([] {});
}

void RobotStation::Start() {
  loop_.RunEvent([this] { Windows().Show(shell::ui::kSplashName); });
  loop_.Advance(2);
}

void RobotStation::Close() {
  loop_.RunEvent([this] {
    if (platform::Window* launcher = Windows().Find(shell::kLauncherName)) Windows().Unload(*launcher);
  });
  loop_.RunEvent([] { QCoreApplication::processEvents(); });
}

}  // namespace kestrava::robot
