#include <algorithm>
#include <map>
#include <set>
#include <vector>

#include <gtest/gtest.h>

#include "shell/Menus.h"

namespace kestrava::shell {
namespace {

TEST(Menus, EveryEntryHasANameOfItsOwn) {
  std::set<std::string_view> names;
  for (const MenuEntry& entry : MenuEntries()) EXPECT_TRUE(names.insert(entry.objectName).second) << entry.objectName;
}

TEST(Menus, EveryEntryStandsInAMenuThatExists) {
  for (const MenuEntry& entry : MenuEntries()) {
    EXPECT_TRUE(std::ranges::any_of(Menus(), [&](const Menu& menu) { return menu.objectName == entry.menu; }))
        << entry.objectName;
  }
}

TEST(Menus, EveryEntryLeadsSomewhere) {
  for (const MenuEntry& entry : MenuEntries()) {
    const bool needsWindow = entry.action == EntryAction::kShow || entry.action == EntryAction::kShowNew ||
                             entry.action == EntryAction::kShowWorld || entry.action == EntryAction::kGraphicsReport;
    EXPECT_EQ(entry.window.empty(), !needsWindow) << entry.objectName;
  }
}

TEST(Menus, CaptionsStandInTheOrderThatTheUserKnows) {
  std::map<std::string_view, std::vector<std::string_view>> captions;
  for (const MenuEntry& entry : MenuEntries()) captions[entry.menu].push_back(entry.caption);
  EXPECT_EQ(captions["mnu1"], (std::vector<std::string_view>{"Main Settings", "Groups and Favourites", "Locations",
                                                             "2D Settings", "3D Settings", "Internet Update"}));
  EXPECT_EQ(captions["mnu2"],
            (std::vector<std::string_view>{"World", "North West (USA+Canada)", "North Central (Europe)",
                                           "North East (Asia)", "South West (South America)",
                                           "South Central (South Africa)", "South East (Australia)"}));
  EXPECT_EQ(captions["mnu3"],
            (std::vector<std::string_view>{"Information About Kestrava", "View Help (Built-in)",
                                           "View Help and FAQ (online)", "View History", "DirectX Diagnostic"}));
}

TEST(Menus, EachQuadrantHasItsTag) {
  std::vector<std::string_view> tags;
  for (const MenuEntry& entry : MenuEntries()) {
    if (entry.action == EntryAction::kShowNew) tags.push_back(entry.tag);
  }
  EXPECT_EQ(tags, (std::vector<std::string_view>{"NWQ", "NCQ", "NEQ", "SWQ", "SCQ", "SEQ"}));
}

TEST(LauncherColumn, HasTenButtonsWithoutOneToFourAndSeven) {
  std::vector<int> indexes;
  for (const LauncherButton& button : LauncherButtons()) indexes.push_back(button.index);
  EXPECT_EQ(indexes, (std::vector<int>{0, 5, 6, 8, 9, 10, 11, 12, 13, 14}));
}

TEST(LauncherColumn, CaptionsAreThoseOfTheColumn) {
  std::vector<std::string_view> captions;
  for (const LauncherButton& button : LauncherButtons()) captions.push_back(button.caption);
  EXPECT_EQ(captions, (std::vector<std::string_view>{"Settings", "3D View", "2D View", "Horizon View",
                                                     "Tabular Data View", "Pass Predictions", "Iridium Flares",
                                                     "Rotor/Radio Control", "Save Elements to Disk", "Help"}));
}

TEST(LauncherColumn, ButtonsStandOneBelowTheOther) {
  EXPECT_EQ(PlaceOfButton(0).top, 1380);
  EXPECT_EQ(PlaceOfButton(9).top, 1380 + 9 * 330);
  EXPECT_EQ(PlaceOfButton(3).left, 60);
  EXPECT_EQ(PlaceOfButton(3).width, 2295);
  EXPECT_EQ(PlaceOfButton(3).height, 300);
}

TEST(LauncherColumn, MenusPopUpAtTheirHeights) {
  ASSERT_EQ(Menus().size(), 3U);
  EXPECT_EQ(Menus()[0].raiseTwips, 450);
  EXPECT_EQ(Menus()[1].raiseTwips, 408);
  EXPECT_EQ(Menus()[2].raiseTwips, 252);
}

}  // namespace
}  // namespace kestrava::shell
