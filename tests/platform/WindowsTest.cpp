#include "platform/Fault.h"
#include "platform/Messages.h"
#include "platform/Windows.h"

#include "support/House.h"

namespace kestrava::platform {
namespace {

using Lines = std::vector<std::string>;
using UntrappedFaults = testing::House;

class PlainWindow : public Window {
 public:
  PlainWindow(Lines& events, int number) : events_(events), number_(number) { Note("made"); }
  ~PlainWindow() override { Note("gone"); }
  void SetTag(std::string_view tag) override { Note("tag " + std::string(tag)); }
  void Show() override {
    Note("show");
    visible_ = true;
  }
  void Hide() override {
    Note("hide");
    visible_ = false;
  }
  bool IsVisible() const override { return visible_; }
  void OnUnload() override {
    Note("unload");
    if (onUnload) onUnload();
  }

  std::function<void()> onUnload;

 private:
  void Note(const std::string& event) { events_.push_back(std::to_string(number_) + " " + event); }

  Lines& events_;
  int number_;
  bool visible_ = false;
};

class Registry : public testing::House {
 public:
  Registry() {
    windows->Register("WorldView", [this] {
      auto window = std::make_unique<PlainWindow>(events, ++made);
      last = window.get();
      return window;
    });
  }
  ~Registry() override { windows = MakeWindows(); }  // windows note their end while the list is there

  Lines TakeEvents() { return std::exchange(events, {}); }

  Lines events;
  int made = 0;
  PlainWindow* last = nullptr;
};

TEST_F(Registry, ASingleWindowIsMadeOnceAndShownAgain) {
  windows->Show("WorldView", "worldnormal");
  windows->Show("WorldView", "worldalt");
  EXPECT_EQ(TakeEvents(), (Lines{"1 made", "1 tag worldnormal", "1 show", "1 tag worldalt", "1 show"}));
  EXPECT_EQ(windows->Loaded().size(), 1U);
}

TEST_F(Registry, ANewWindowIsMadeEachTime) {
  windows->ShowNew("WorldView", "NWQ");
  windows->ShowNew("WorldView", "NWQ");
  EXPECT_EQ(windows->VisibleCount(), 2);
  EXPECT_EQ(windows->Find("WorldView"), nullptr) << "neither is the single one";
  windows->Show("WorldView");
  EXPECT_EQ(windows->Loaded().size(), 3U);
  EXPECT_EQ(windows->Loaded()[2].second, windows->Find("WorldView"));
}

TEST_F(Registry, AskingWhetherAWindowIsVisibleMakesItHidden) {
  EXPECT_FALSE(windows->IsVisible("WorldView"));
  EXPECT_EQ(TakeEvents(), Lines{"1 made"});
  EXPECT_EQ(windows->Loaded().size(), 1U);
  EXPECT_EQ(windows->VisibleCount(), 0);
  windows->Show("WorldView");
  EXPECT_TRUE(windows->IsVisible("WorldView"));
  EXPECT_EQ(made, 1);
}

TEST_F(Registry, AnUnknownWindowIsNotVisibleAndCannotBeShown) {
  EXPECT_FALSE(windows->Knows("Horizon"));
  EXPECT_FALSE(windows->IsVisible("Horizon"));
  EXPECT_EQ(windows->Find("Horizon"), nullptr);
  EXPECT_THROW(windows->Show("Horizon"), Fault);
  EXPECT_THROW(windows->ShowNew("Horizon"), Fault);
  EXPECT_TRUE(windows->Loaded().empty());
}

TEST_F(Registry, AWindowThatEndsInItsOwnEventLeavesAtOnceAndGoesAfterIt) {
  windows->Show("WorldView");
  TakeEvents();
  eventLoop.RunEvent([&] {
    windows->Unload(*last);
    EXPECT_TRUE(windows->Loaded().empty());
    EXPECT_EQ(windows->Find("WorldView"), nullptr);
    YieldEvents(2);
    EXPECT_EQ(TakeEvents(), (Lines{"1 hide", "1 unload"})) << "its object outlives the event, yields and all";
  });
  EXPECT_EQ(TakeEvents(), Lines{"1 gone"});
}

TEST_F(Registry, AWindowIsUnloadedOnceEvenIfItAsksAgain) {
  windows->Show("WorldView");
  TakeEvents();
  last->onUnload = [&] { windows->Unload(*last); };
  eventLoop.RunEvent([&] { windows->Unload(*last); });
  EXPECT_EQ(TakeEvents(), (Lines{"1 hide", "1 unload", "1 gone"}));
}

TEST_F(Registry, AFaultAtTheEndOfAWindowDoesNotKeepIt) {
  windows->Show("WorldView");
  TakeEvents();
  last->onUnload = [] { throw Fault::ObjectNotSet(); };
  eventLoop.RunEvent([&] { EXPECT_THROW(windows->Unload(*last), Fault); });
  EXPECT_EQ(TakeEvents(), (Lines{"1 hide", "1 unload", "1 gone"}));
}

TEST_F(Registry, AClosedWindowIsMadeAnewWhenItIsShown) {
  windows->Show("WorldView");
  eventLoop.RunEvent([&] { windows->Unload(*last); });
  windows->Show("WorldView");
  EXPECT_EQ(made, 2);
  EXPECT_TRUE(windows->IsVisible("WorldView"));
}

TEST_F(Registry, AWindowThatAsksForItselfWhileItIsMadeIsMadeOnce) {
  windows->Register("Launcher", [this] {
    EXPECT_FALSE(windows->IsVisible("Launcher"));
    windows->Show("Launcher");
    return std::make_unique<PlainWindow>(events, ++made);
  });
  windows->Show("Launcher");
  EXPECT_EQ(made, 1);
}

TEST_F(Registry, SpeechMakesTheLauncherExist) {
  windows->Register("frmLAUNCHER", [this] { return std::make_unique<PlainWindow>(events, ++made); });
  SayText("nothing");
  EXPECT_EQ(made, 0) << "not while speech is off";
  WriteSetting("Speechpack", "1");
  SayText("hello");
  EXPECT_EQ(made, 1);
  EXPECT_EQ(speech.said, Lines{"hello"});
  EXPECT_EQ(windows->VisibleCount(), 0);
}

TEST_F(Registry, SpeechGoesOnWhereTheLauncherCannotBeMade) {
  windows->Register("frmLAUNCHER", []() -> std::unique_ptr<Window> { throw Fault::ObjectNotSet(); });
  WriteSetting("Speechpack", "1");
  SayText("hello");
  EXPECT_EQ(speech.said, Lines{"hello"});
}

TEST_F(UntrappedFaults, AClickTellsItsFaultEachTime) {
  messages.ExpectMessage("The listing of groups could not be done: Overflow (fault 6)");
  messages.ExpectMessage("Overflow");
  const auto click = [] { return RunUntrapped("the listing of groups", [] { throw Fault::Overflow(); }); };
  EXPECT_FALSE(click());
  EXPECT_FALSE(click());
  EXPECT_TRUE(RunUntrapped("The listing of groups", [] {}));
}

TEST_F(UntrappedFaults, ATickThatFailsAgainAndAgainTellsEachFaultOnce) {
  messages.ExpectMessage("Type mismatch");
  messages.ExpectMessage("Overflow");
  const auto tick = [](const Fault& fault) {
    return RunUntrapped(
        "The map's clock", [&] { throw fault; }, Untrapped::kTick);
  };
  EXPECT_FALSE(tick(Fault::TypeMismatch()));
  EXPECT_FALSE(tick(Fault::TypeMismatch()));
  EXPECT_FALSE(tick(Fault::Overflow()));
  EXPECT_FALSE(tick(Fault::TypeMismatch()));
}

TEST_F(UntrappedFaults, NoSecondMessageOfItsKindWhileOneStands) {
  const auto fail = [] { RunUntrapped("The click", [] { throw Fault::Overflow(); }); };
  messages.ExpectMessage("Overflow", fail);
  fail();
  EXPECT_EQ(messages.Texts().size(), 1U);
}

TEST_F(UntrappedFaults, AnythingThatIsThrownIsToldAndNothingEndsTheProcess) {
  messages.ExpectMessage("a mistake of ours");
  EXPECT_FALSE(RunUntrapped("The click", [] { throw std::runtime_error("a mistake of ours"); }));
}

TEST(DoorRules, ADoorThatWasNeverPutInIsALogicError) {
  const ScopedDoors none{Doors{}};
  EXPECT_THROW(TheClock(), std::logic_error);
  EXPECT_THROW(TheFiles(), std::logic_error);
}

}  // namespace
}  // namespace kestrava::platform
