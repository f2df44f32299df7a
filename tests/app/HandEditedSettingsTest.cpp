// What users and backup programs do to the settings while the station runs, on the real program.
#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Program.h"
#include "support/TempFolder.h"

namespace kestrava::app {
namespace {

namespace fs = std::filesystem;

std::string Content(const fs::path& file) {
  std::ostringstream content;
  content << std::ifstream(file, std::ios::binary).rdbuf();
  return content.str();
}

class SettingsOfAUser : public ::testing::Test {
 protected:
  SettingsOfAUser() { fs::create_directories(settings_); }

  testing::TempFolder temp_;
  const fs::path home_ = temp_ / "home";
  const fs::path data_ = temp_ / "data";
  const fs::path settings_ = home_ / "config/kestrava";
  const std::vector<std::string> onTour_{"--data", data_.string(), "--tour", (temp_ / "tour").string()};
};

TEST_F(SettingsOfAUser, ALockFileThatIsCutAgainAndAgainEndsNoRunningStation) {
  std::ofstream(settings_ / "settings.lock") << "12345678";
  Program program(home_, onTour_);
  while (!program.LineBeginningWith("saved ").empty()) fs::resize_file(settings_ / "settings.lock", 0);
  EXPECT_EQ(program.End(), "code 0");
}

TEST_F(SettingsOfAUser, ALineThatSaysNothingIsNamedInTheLogOnceAndKept) {
  const std::string remarks = "# the balcony\nLatitude 47\n";
  std::ofstream(settings_ / "settings.conf") << remarks << "Skin = 0\n";
  Program program(home_, onTour_);
  EXPECT_TRUE(program.WaitForLineEndingIn("frmLAUNCHER.png"));
  program.Send(SIGTERM);
  EXPECT_EQ(program.End(), "code 1");  // a tour that is not complete
  const std::string log = Content(data_ / "error.log");
  const std::string told = "settings.conf: line 2 is no setting: 'Latitude 47' - Settings\n";
  EXPECT_NE(log.find(told), std::string::npos) << log;
  EXPECT_EQ(log.find(told), log.rfind(told)) << log;
  const std::string text = Content(settings_ / "settings.conf");
  EXPECT_EQ(text.rfind(remarks + "Skin = 0\n", 0), 0U) << text;
}

}  // namespace
}  // namespace kestrava::app
