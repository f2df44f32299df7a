// A whole station of scripted doors with an empty data folder "/house/", for as long as a test runs. The time is noon
// of 1 June 2024, Universal and local, on a point machine. A message that no script expects, a scripted answer that
// nobody asked for, and a trapped fault that the test did not take (TakeFaults) fail the test.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "platform/Doors.h"

#include "support/MemoryFiles.h"
#include "support/MemorySettings.h"
#include "support/RecordingSurface.h"
#include "support/ScriptedClock.h"
#include "support/ScriptedDialogs.h"
#include "support/ScriptedMessages.h"
#include "support/SimulatedEventLoop.h"
#include "support/SmallDoors.h"

namespace kestrava::testing {

/// The house by itself, for a test program that has a fixture of its own.
class ScriptedHouse {
 public:
  ScriptedHouse();
  ~ScriptedHouse();
  ScriptedHouse(const ScriptedHouse&) = delete;
  ScriptedHouse& operator=(const ScriptedHouse&) = delete;

  /// Faults trapped since the last call, each as "message - trap name".
  std::vector<std::string> TakeFaults();
  /// The lines of error.log.
  std::vector<std::string> ErrorLog();
  /// Puts a data file into the data folder.
  void Put(std::string_view name, std::string_view content);
  /// The content of a data file; empty if there is none.
  std::string Content(std::string_view name);

  ScriptedClock clock;
  FixedLocale locale;
  MemorySettings settings;
  MemoryFiles files{clock};
  SimulatedEventLoop eventLoop{clock};
  ScriptedMessages messages;
  RecordingOpener opener;
  FixedRandom random;
  RecordingSpeech speech;
  ScriptedFileChooser fileChooser;
  ScriptedPrinting printing;
  std::unique_ptr<platform::Windows> windows = platform::MakeWindows();

 private:
  platform::Doors AllDoors();

  platform::ScopedDoors doors_{AllDoors()};
  std::string earlierAppDir_;
  std::vector<std::string> faults_;
};

/// The house as a fixture: TEST_F(MyTests, ...) with `using MyTests = testing::House;` or a class derived from it.
class House : public ::testing::Test, public ScriptedHouse {};

}  // namespace kestrava::testing
