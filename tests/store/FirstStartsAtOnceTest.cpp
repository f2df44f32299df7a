#include <array>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "platform/Fault.h"
#include "store/FirstStart.h"

#include "SteppedFiles.h"
#include "support/House.h"
#include "support/MemoryFolders.h"

namespace kestrava::store {
namespace {

/// Lets two runs go on by turns: the first does so many steps, then the second so many, then the first to its end.
class Turns {
 public:
  Turns(int stepsOfFirst, int stepsOfSecond) : left_{stepsOfFirst, stepsOfSecond} {}

  /// Runs both, one at a time.
  template <class Work>
  void Run(Work&& work) {
    std::thread second([&] { Whole(1, work); });
    Whole(0, work);
    second.join();
  }

  /// Before each step of whoever has the turn.
  void Step() {
    std::unique_lock lock(mutex_);
    const std::size_t me = turn_;
    if (left_[me]-- == 0) {
      Hand();
      WaitFor(me, lock);
    }
  }

 private:
  template <class Work>
  void Whole(std::size_t me, Work&& work) {
    {
      std::unique_lock lock(mutex_);
      WaitFor(me, lock);
    }
    work(me);
    const std::unique_lock lock(mutex_);
    over_[me] = true;
    Hand();
  }
  void Hand() {
    if (!over_[1 - turn_]) turn_ = 1 - turn_;
    changed_.notify_all();
  }
  void WaitFor(std::size_t me, std::unique_lock<std::mutex>& lock) {
    changed_.wait(lock, [&] { return turn_ == me; });
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  std::size_t turn_ = 0;
  std::array<int, 2> left_;
  std::array<bool, 2> over_{};
};

struct Killed {};

class FirstStartsAtOnce : public testing::House {
 protected:
  FirstStartsAtOnce() {
    for (const std::string& name : kAll) files.Put(kShipped + "/" + name, "shipped " + name);
    files.MakeFolder(kParent);
    platform::Doors doors = platform::TheDoors();
    doors.files = &stepped;
    doors_ = std::make_unique<platform::ScopedDoors>(doors);
  }

  void AtEachStep(const std::function<void()>& act) { stepped.beforeEach = folders.beforeEach = act; }
  void Start() { PrepareFirstStart(kShipped, kTarget, {}, folders); }

  /// Dies before that step. @return false if it had come to its end before
  bool StartAndKillAt(int step) {
    AtEachStep([&] {
      if (step-- == 0) throw Killed();
    });
    bool killed = false;
    try {
      Start();
    } catch (const Killed&) {
      killed = true;
    }
    AtEachStep([] {});
    return killed;
  }
  int StepsOfOneStart() {
    int steps = 0;
    while (StartAndKillAt(steps)) {
      ++steps;
      Clear();
    }
    Clear();
    return steps;
  }
  void Clear() {
    for (const std::string& name : Beside()) files.RemoveFolder(kParent + "/" + name);
    files.RemoveFolder(kTarget);
  }
  std::vector<std::string> Beside() {
    std::vector<std::string> names = folders.List(kParent);
    std::erase(names, "kestrava");
    return names;
  }
  void ExpectWholeFolder(const std::string& when) {
    EXPECT_EQ(files.List(kTarget), kAll) << when;
    for (const std::string& name : kAll) EXPECT_EQ(files.Content(kTarget + "/" + name), "shipped " + name) << when;
  }

  const std::string kShipped = "/usr/share/kestrava/sample";
  const std::string kParent = "/home/user/.local/share";
  const std::string kTarget = kParent + "/kestrava";
  const std::vector<std::string> kAll{"Default.jpg", "faves.dat", "groups.dat"};
  SteppedFiles stepped{files};
  testing::MemoryFolders folders{files};
  std::unique_ptr<platform::ScopedDoors> doors_;
};

TEST_F(FirstStartsAtOnce, TwoInterleavedAtEveryStepFillOneFolder) {
  random.Set({0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7});
  const int steps = StepsOfOneStart();
  ASSERT_GE(steps, 10);
  for (int first = 0; first <= steps; ++first) {
    for (int second = 0; second <= steps; ++second) {
      Turns turns(first, second);
      AtEachStep([&] { turns.Step(); });
      turns.Run([&](std::size_t) { EXPECT_NO_THROW(Start()); });
      AtEachStep([] {});
      const std::string when = std::to_string(first) + " steps, then " + std::to_string(second) + " of the other";
      ExpectWholeFolder(when);
      EXPECT_TRUE(Beside().empty()) << when;
      if (HasFailure()) return;
      Clear();
    }
  }
}

TEST_F(FirstStartsAtOnce, WhatTheFasterOneFilledAndItsUserChangedIsKept) {
  const int steps = StepsOfOneStart();
  for (int step = 1; step < steps; ++step) {  // before the first step nothing has begun
    int left = step;
    AtEachStep([&] {
      if (left-- != 0) return;
      files.Put(kTarget + "/faves.dat", "MINE\n");
    });
    EXPECT_NO_THROW(Start()) << step;
    AtEachStep([] {});
    EXPECT_EQ(files.Content(kTarget + "/faves.dat"), "MINE\n") << step;
    EXPECT_TRUE(Beside().empty()) << step;
    Clear();
  }
}

TEST_F(FirstStartsAtOnce, OneKilledAtAnyStepIsClearedAwayByTheNext) {
  for (int step = 0; StartAndKillAt(step); ++step) {
    EXPECT_TRUE(IsNewFolder(kTarget) || files.List(kTarget) == kAll) << step;
    Start();
    ExpectWholeFolder("killed at step " + std::to_string(step));
    EXPECT_TRUE(Beside().empty()) << step;
    Clear();
  }
}

TEST_F(FirstStartsAtOnce, AKilledOnesFolderGoesAlsoWhereTheTargetIsNotNewAnyMore) {
  random.Set({0.1});
  Start();
  ASSERT_TRUE(folders.Make(kParent + "/kestrava.new-0123456789ab"));
  files.Put(kParent + "/kestrava.new-0123456789ab/faves.dat", "half");
  Start();
  EXPECT_TRUE(Beside().empty());
}

TEST_F(FirstStartsAtOnce, TheFolderOfALivingOneStays) {
  const std::string living = kParent + "/kestrava.new-0123456789ab";
  ASSERT_TRUE(folders.Make(living));
  files.Put(living + "/faves.dat", "half");
  const auto hold = folders.TryHold(living);
  Start();
  ExpectWholeFolder("beside a living one");
  EXPECT_EQ(files.Content(living + "/faves.dat"), "half");
}

TEST_F(FirstStartsAtOnce, FoldersOfOtherNamesStay) {
  const std::vector<std::string> others{"kestrava.new",
                                        "kestrava.new-",
                                        "kestrava.new-0123456789a",
                                        "kestrava.new-0123456789aX",
                                        "kestrava.new-0123456789abc",
                                        "other.new-0123456789ab"};
  for (const std::string& name : others) ASSERT_TRUE(folders.Make(kParent + "/" + name));
  Start();
  EXPECT_EQ(Beside(), others);
}

TEST_F(FirstStartsAtOnce, ANameThatIsTakenIsNotUsed) {
  const std::string taken = kParent + "/kestrava.new-111111111111";
  ASSERT_TRUE(folders.Make(taken));
  const auto hold = folders.TryHold(taken);
  std::vector<double> numbers(12, 0.1);
  numbers.insert(numbers.end(), 12, 0.2);
  random.Set(numbers);
  Start();
  ExpectWholeFolder("the first name taken");
  EXPECT_TRUE(files.List(taken).empty());
}

TEST_F(FirstStartsAtOnce, AFullDiskInTheMiddleOfOneLeavesNothingBesideAndTheOtherAlone) {
  const std::string living = kParent + "/kestrava.new-0123456789ab";
  ASSERT_TRUE(folders.Make(living));
  const auto hold = folders.TryHold(living);
  for (std::size_t bytes = 0; bytes < 40; ++bytes) {
    files.BreakWriteAfter(bytes);
    EXPECT_THROW(Start(), platform::Fault) << bytes;
    files.Mend();
    EXPECT_TRUE(IsNewFolder(kTarget)) << bytes;
    EXPECT_EQ(Beside(), std::vector<std::string>{"kestrava.new-0123456789ab"}) << bytes;
  }
  Start();
  ExpectWholeFolder("with room on the disk again");
}

TEST_F(FirstStartsAtOnce, ARefusedRenameFillsInPlaceAndLeavesNothingBeside) {
  files.MakeFolder(kTarget);
  files.BreakFile(kTarget, platform::Fault::PathFileAccess());
  Start();
  ExpectWholeFolder("in place");
  EXPECT_TRUE(Beside().empty());
}

TEST_F(FirstStartsAtOnce, ARefusedRenameOfAnAbsentFolderIsToldAndLeavesNothingBeside) {
  files.BreakFile(kTarget, platform::Fault::PathFileAccess());
  EXPECT_THROW(Start(), platform::Fault);
  EXPECT_TRUE(IsNewFolder(kTarget));
  EXPECT_TRUE(Beside().empty());
}

TEST_F(FirstStartsAtOnce, TwoInPlaceInterleavedAtEveryStepFillOneFolder) {
  files.MakeFolder(kTarget);
  files.BreakFile(kTarget, platform::Fault::PathFileAccess());
  random.Set({0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7});
  constexpr int kMoreThanOneStartHas = 60;
  for (int first = 0; first <= kMoreThanOneStartHas; ++first) {
    files.MakeFolder(kTarget);
    Turns turns(first, kMoreThanOneStartHas);
    AtEachStep([&] { turns.Step(); });
    turns.Run([&](std::size_t) { EXPECT_NO_THROW(Start()); });
    AtEachStep([] {});
    ExpectWholeFolder(std::to_string(first));
    Clear();
  }
}

TEST_F(FirstStartsAtOnce, AMediumWithoutHoldsIsFilledAndNothingIsClearedAwayThere) {
  ASSERT_TRUE(folders.Make(kParent + "/kestrava.new-0123456789ab"));
  folders.knowsNoHolds = true;
  Start();
  ExpectWholeFolder("without holds");
  EXPECT_EQ(Beside(), std::vector<std::string>{"kestrava.new-0123456789ab"});
}

}  // namespace
}  // namespace kestrava::store
