// The program ends in order and starts again in the same process.
#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "Program.h"
#include "support/TempFolder.h"

namespace kestrava::app {
namespace {

namespace fs = std::filesystem;

class StartAnew : public ::testing::Test {
 protected:
  const testing::TempFolder temp_;
  const fs::path home_ = temp_ / "home";
  const fs::path data_ = temp_ / "data";
};

std::string Content(const fs::path& file) {
  std::ostringstream content;
  content << std::ifstream(file, std::ios::binary).rdbuf();
  return content.str();
}

TEST_F(StartAnew, TheSecondStartFindsEverythingAsTheFirstDid) {
  Program program(home_, {"--data", data_.string()}, KESTRAVA_STARTS_ANEW_ONCE);
  const std::string first = program.LineBeginningWith("start: ");
  ASSERT_NE(first, "");
  const std::string second = program.LineBeginningWith("start: ");
  EXPECT_EQ(second, first);
  EXPECT_NE(first.find("--data " + data_.string()), std::string::npos) << first;
  EXPECT_TRUE(program.WaitForLineEndingIn("the launcher stands again"));
  program.Send(SIGTERM);
  EXPECT_EQ(program.End(), "code 0");
  EXPECT_NE(Content(home_ / "config/kestrava/settings.conf"), "");
  EXPECT_FALSE(fs::exists(data_ / "error.log")) << Content(data_ / "error.log");
}

TEST_F(StartAnew, TheToolkitsOwnArgumentsAreHandedOnToo) {
  Program program(home_, {"-platform", "offscreen", "--data", data_.string()}, KESTRAVA_STARTS_ANEW_ONCE);
  const std::string first = program.LineBeginningWith("start: ");
  EXPECT_NE(first.find(" -platform offscreen --data "), std::string::npos) << first;
  EXPECT_EQ(program.LineBeginningWith("start: "), first);
  EXPECT_TRUE(program.WaitForLineEndingIn("the launcher stands again"));
  program.Send(SIGTERM);
  EXPECT_EQ(program.End(), "code 0");
}

TEST_F(StartAnew, ATourEndsInsteadOfBeginningAgain) {
  Program program(home_, {"--data", data_.string(), "--tour", (home_ / "tour").string()}, KESTRAVA_STARTS_ANEW_ONCE);
  EXPECT_NE(program.LineBeginningWith("start: "), "");
  EXPECT_EQ(program.LineBeginningWith("start: "), "");
  EXPECT_EQ(program.End(), "code 1");  // a tour that is not complete
}

}  // namespace
}  // namespace kestrava::app
