// A house whose data folder lies on the real disk, and saves in it that are killed at each of their system calls. For
// test programs that link the real file door.
#pragma once

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "platform/Files.h"
#include "platform/linux/PosixFiles.h"

#include "support/House.h"
#include "support/KilledWork.h"
#include "support/TempFolder.h"

namespace kestrava::testing {

class KilledSaves : public House {
 protected:
  KilledSaves() : earlier_(std::exchange(platform::AppDir, temp_.Path().string() + "/")), doors_(OnDisk()) {}
  ~KilledSaves() override { platform::AppDir = earlier_; }

  void SetUp() override {
    if (RunKilledAt(1, [] {}) == WorkEnd::kRefused) GTEST_SKIP() << "this machine lets nobody trace a process";
  }

  /// Kills `save` at each of its system calls: the file must then be whole, as it was or as it is to become, a save
  /// done anew must come to the same, and nothing else may lie in the folder for good.
  /// @param backup  whether the save keeps the old file as NAME.bak, before it is lost
  void ExpectWholeAfterEveryKill(const std::string& file, const std::string& before, const std::function<void()>& save,
                                 bool backup = false) {
    Fill(file, before);
    RunApart(save);
    const std::string after = OnDisk(file);
    const std::set<std::string> usual = Names();
    ASSERT_NE(after, before);
    int old = 0;
    for (int call = 1;; ++call) {
      SCOPED_TRACE("killed at call " + std::to_string(call));
      Fill(file, before);
      if (RunKilledAt(call, save) == WorkEnd::kDone) {
        EXPECT_GT(old, 0);
        EXPECT_GT(call - 1, old) << "the new file is there before the save's last call";
        return;
      }
      const std::string left = OnDisk(file);
      ASSERT_TRUE(left == before || left == after) << left;
      if (backup && left == after) {
        ASSERT_EQ(OnDisk(file + ".bak"), before);
      }
      platform::RemoveUnfinished(temp_.Path());
      if (left == before) {
        ++old;
        RunApart(save);
      }
      ASSERT_EQ(OnDisk(file), after);
      ASSERT_EQ(Names(), usual);
    }
  }

 private:
  platform::Doors OnDisk() {
    platform::Doors doors = platform::TheDoors();
    doors.files = &disk_;
    return doors;
  }
  std::string OnDisk(const std::string& file) const {
    std::ifstream stream(temp_ / file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  /// Leaves one file in the folder.
  void Fill(const std::string& file, const std::string& content) {
    for (const std::string& name : Names()) std::filesystem::remove(temp_ / name);
    std::ofstream(temp_ / file, std::ios::binary) << content;
  }
  std::set<std::string> Names() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(temp_.Path())) {
      names.insert(entry.path().filename().string());
    }
    return names;
  }

  TempFolder temp_;
  platform::PosixFiles disk_;
  std::string earlier_;
  platform::ScopedDoors doors_;
};

}  // namespace kestrava::testing
