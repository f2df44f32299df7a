#include "shell/FloppyTransfer.h"
#include "shell/GpsNames.h"
#include "shell/Menus.h"

#include "LauncherRig.h"

namespace kestrava::shell {
namespace {

using Strings = std::vector<std::string>;

class ShellContract : public LauncherRig {
 protected:
  Launcher launcher{view, tables, NewSetup()};
};

TEST_F(ShellContract, TheLoadShowsItsTextsWordForWord) {
  launcher.Load();
  EXPECT_EQ(view.caption, "Kestrava v2.02");
  EXPECT_EQ(Label(LauncherLabel::kVersion), "Version 2.02 Pro");
  EXPECT_EQ(Label(LauncherLabel::kCredit).substr(0, 8), "\u00a9 2024 ");
  EXPECT_EQ(view.picture, "/house/cust1.dat");
  EXPECT_EQ(view.hint, "Our club");
}

TEST_F(ShellContract, TheWelcomeIsSaidWithTheVersionInWords) {
  settings.Set("Speechpack", "1");
  settings.Set("SpeechSpeed", "210");
  launcher.Load();
  EXPECT_EQ(made->said, Strings{"Welcome to Kes Trava. version 2 point 0 2"});
  EXPECT_EQ(made->speed, 210);
  EXPECT_EQ(made->voice, 1);
}

TEST_F(ShellContract, TheMessageOfAMissingGroupsFileNamesTheFolder) {
  files.Remove("/house/groups.dat");
  messages.ExpectMessage("groups.dat");
  launcher.Load();
  EXPECT_EQ(messages.Texts().at(0), "Problem finding 'groups.dat' (a file used by kestrava) in the folder: /house/");
  EXPECT_EQ(view.unloads, 1);
  EXPECT_EQ(view.hint, "Our club") << "the load carries on to its end";
  TakeFaults();
}

TEST_F(ShellContract, AMissingFileOfFavouritesLogsOneLineAndIsNotMade) {
  files.Remove("/house/faves.dat");
  files.Remove("/house/Locations.dat");
  launcher.Load();
  EXPECT_EQ(TakeFaults(),
            (Strings{"File not found - LauncherLoadAllSettings", "File not found - LauncherLoadAllSettings"}));
  EXPECT_FALSE(files.Exists("/house/faves.dat"));
  EXPECT_EQ(tables.FaveCount, 0);
  EXPECT_EQ(tables.GroupCount, 1);
}

TEST_F(ShellContract, TheVoiceIsAskedForByItsOwnRule) {
  settings.Set("Speechpack", "-1");  // not "0", so there is a voice; not above 0, so none is chosen
  settings.Set("Voice", "2");
  launcher.Load();
  EXPECT_EQ(made->voice, 0);
  EXPECT_EQ(made->speed, 180);
}

TEST_F(ShellContract, TheActivationWritesItsDefaultsAtTheirFirstRead) {
  launcher.Load();
  launcher.Activate();
  for (const auto& [key, value] : std::vector<std::pair<std::string, std::string>>{{"Location Name", "Default"},
                                                                                   {"Latitude", "0"},
                                                                                   {"Longitude", "0"},
                                                                                   {"HASL", "0"},
                                                                                   {"LEDclocks", "1"},
                                                                                   {"Voice", "1"},
                                                                                   {"Speechpack", "0"},
                                                                                   {"DDEstartup", "0"}}) {
    EXPECT_EQ(settings.Get(key), value) << key;
  }
  EXPECT_FALSE(settings.Has("SpeechSpeed")) << "not asked for while speech is off";
}

TEST_F(ShellContract, TheFloppyTellsItsCountInItsOwnWords) {
  tables.GroupList[1].Address = "celestrak.org/NORAD/elements/amateur.txt";
  tables.GroupList[40].Address = "missing.txt";
  files.MakeFolder("/media/stick");
  files.SetRemovableMedia({"/media/stick"});
  messages.ExpectQuestion("Copy ALL Keplerian element files onto a Floppy disk ?", true);
  messages.ExpectMessage("1 Keplerian files copied to Floppy disk");
  messages.ExpectMessage("Not copied:\nmissing.txt (File not found)");
  TransferElementsToFloppy(tables);
  EXPECT_EQ(messages.Titles().at(0), "Keplerian Data Transfer");
  EXPECT_EQ(messages.Texts().at(1), "1 Keplerian files copied to Floppy disk");
  EXPECT_EQ(files.Content("/media/stick/amateur.txt"), kOneSet);
}

TEST_F(ShellContract, GpsNamesTakeWhatStandsBetweenTheBrackets) {
  Put("gps-ops.txt", "header (PRN 1)\nGPS BIIA-10 (PRN 32) (x)\n1 a\n2 b\nGPS(PRN 9)\n");
  Put("gps-ops.new", "a stray");
  MAIN_FIXGPSKEPS();
  EXPECT_EQ(Content("gps-ops.txt"), "header (PRN 1)\nGPS PRN 32\n1 a\n2 b\nGPS(PRN 9)\n");
  EXPECT_FALSE(files.Exists("/house/gps-ops.new"));
}

TEST_F(ShellContract, WithoutAGpsFileAStrayNewOneStays) {
  Put("gps-ops.new", "a stray");
  MAIN_FIXGPSKEPS();
  EXPECT_EQ(Content("gps-ops.new"), "a stray");
}

}  // namespace
}  // namespace kestrava::shell
