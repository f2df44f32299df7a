// The started program, asked over the accessibility bus of a desktop, as a screen reader asks it.
#include <QCoreApplication>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "platform/Version.h"

#include "AccessibleBus.h"

namespace kestrava::screen_reader {

void PrintTo(const Wanted& wanted, std::ostream* out) {
  *out << wanted.role.toStdString() << " \"" << wanted.name.toStdString() << '"';
}

namespace {

constexpr int kLooks = 200;
constexpr int kBetweenLooksMs = 100;
constexpr int kEndMs = 20000;

Wanted Launcher() {
  return {"frame", QString("Kestrava v%1").arg(platform::ShortVersion().c_str())};
}

class ScreenReader : public ::testing::Test {
 protected:
  ScreenReader() {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "xcb");
    environment.insert("XDG_CONFIG_HOME", folder_.filePath("config"));
    environment.insert("XDG_DATA_HOME", folder_.filePath("share"));
    program_.setProcessEnvironment(environment);
    program_.setProcessChannelMode(QProcess::ForwardedChannels);
    program_.start(KESTRAVA_PROGRAM, {"--data", folder_.filePath("data")});
  }
  ~ScreenReader() override {
    program_.terminate();
    if (!program_.waitForFinished(kEndMs)) program_.kill();
    program_.waitForFinished(kEndMs);
  }

  /// Looks below something until it is there. @return none, said, if it does not come
  std::optional<Shown> Await(const Wanted& wanted, const Shown& below, int generations = kAnything) {
    for (int look = 0; look < kLooks; ++look) {
      if (auto found = bus_.Find(below, wanted, generations)) return found;
      if (program_.waitForFinished(kBetweenLooksMs)) break;
    }
    ADD_FAILURE() << ::testing::PrintToString(wanted) << " is not told of. What is told:\n"
                  << bus_.Page(below).toStdString();
    return std::nullopt;
  }
  std::optional<Shown> AwaitWindow(const Wanted& wanted) { return Await(wanted, bus_.Desktop(), kWindows); }

  /// @return false, said, if it does not come
  bool Press(const Wanted& window, const Wanted& control) {
    const auto frame = AwaitWindow(window);
    const auto found = frame ? Await(control, *frame) : std::nullopt;
    if (found) bus_.Press(*found);
    return found.has_value();
  }

  AccessibleBus bus_;
  QTemporaryDir folder_;
  QProcess program_;
};

TEST_F(ScreenReader, IsToldOfTheLauncherByItsTitleAndOfItsClock) {
  const auto launcher = AwaitWindow(Launcher());
  ASSERT_TRUE(launcher);
  EXPECT_TRUE(Await({"clock", "Clock"}, *launcher));
  EXPECT_EQ(bus_.RoleOf(*launcher), "frame");
}

TEST_F(ScreenReader, IsToldOfTheOpenMenuOfTheLauncherAndOfTheMapThatItOpens) {
  ASSERT_TRUE(Press(Launcher(), {"push button", "2D View"}));
  const auto launcher = AwaitWindow(Launcher());
  ASSERT_TRUE(launcher);
  const auto menu = Await({"popup menu", "2DViews"}, *launcher);
  ASSERT_TRUE(menu);
  const auto entry = Await({"menu item", "World"}, *menu);
  ASSERT_TRUE(entry);
  bus_.Press(*entry);
  const auto map = AwaitWindow({"frame", "Kestrava - Map View"});
  ASSERT_TRUE(map);
  EXPECT_TRUE(Await({"graphic", "Map"}, *map));
  EXPECT_TRUE(Await({"clock", "Clock"}, *map));
  EXPECT_FALSE(bus_.Find(*launcher, {"popup menu", "2DViews"}, kAnything)) << "it is closed";
}

TEST_F(ScreenReader, IsToldOfAQuestionAndOfADialogByTheirTitles) {
  ASSERT_TRUE(Press(Launcher(), {"push button", "Settings"}));
  ASSERT_TRUE(Press(Launcher(), {"menu item", "Groups and Favourites"}));
  ASSERT_TRUE(Press({"frame", "Kestrava - Satellite Groups and Favourites"}, {"push button", "Add New Group"}));
  ASSERT_TRUE(Press({"alert message", "Update"}, {"push button", "No"}));
  EXPECT_TRUE(AwaitWindow({"dialog", "Display name"}));
}

}  // namespace
}  // namespace kestrava::screen_reader

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  const QCoreApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
