// A walk through the whole station as a user without a mouse, with a screen reader or with weak eyes goes it.
#include <iostream>

#include <gtest/gtest.h>

#include "Rules.h"
#include "StationWalk.h"

namespace kestrava::accessibility {
namespace {

using Rule = Count (*)(const Visit&, Findings&);

/// Goes through all windows with one rule. @param least  so much there is to look at in the windows of today
void WalkWith(Rule rule, bool skinOn, Count least) {
  SCOPED_TRACE(skinOn ? "skin on" : "skin off");
  Findings findings(KnownExceptions());
  StationWalk walk(skinOn);
  Count looked = 0;
  const auto windows = walk.EachWindow([&](const Visit& visit) { looked += rule(visit, findings); });
  std::cout << "[ walk     ] " << looked << " looked at in " << windows.size() << " windows\n";
  for (const std::string& line : findings.Lines()) ADD_FAILURE() << line;
  EXPECT_GE(looked, least);
}

TEST(AccessibilityWalk, EveryControlHasANameAndARole) {
  WalkWith(CheckNames, true, 60);
}

TEST(AccessibilityWalk, EveryMenuEntryHasAName) {
  WalkWith(CheckMenus, true, 50);
}

TEST(AccessibilityWalk, EveryRowOfAListCanBeRead) {
  WalkWith(CheckRows, true, 40);
}

TEST(AccessibilityWalk, LettersAndLabelsLeadToOneControlEach) {
  WalkWith(CheckMnemonics, true, 20);
}

TEST(AccessibilityWalk, EveryControlIsReachedByKeys) {
  WalkWith(CheckKeyboard, true, 50);
}

class WalkInBothLooks : public ::testing::TestWithParam<bool> {};
INSTANTIATE_TEST_SUITE_P(SkinOnAndOff, WalkInBothLooks, ::testing::Bool(),
                         [](const auto& look) { return look.param ? "Skin" : "Plain"; });

TEST_P(WalkInBothLooks, TheFocusIsSeen) {
  WalkWith(CheckFocusIsSeen, GetParam(), 50);
}

TEST_P(WalkInBothLooks, TextsStandOut) {
  WalkWith(CheckTexts, GetParam(), 200);
}

TEST_P(WalkInBothLooks, EdgesStandOut) {
  WalkWith(CheckEdges, GetParam(), 8);
}

TEST_P(WalkInBothLooks, WhatIsDisabledLooksSo) {
  WalkWith(CheckDisabled, GetParam(), 3);
}

}  // namespace
}  // namespace kestrava::accessibility
