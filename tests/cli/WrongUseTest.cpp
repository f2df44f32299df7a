// What makes no sense, what nobody has, and what is told then.
#include <gtest/gtest.h>

#include "cli/Terminal.h"

namespace kestrava::cli {
namespace {

using WrongUse = Terminal;

TEST_F(WrongUse, BadValuesEndWithTwoAndSayWhy) {
  const std::vector<std::vector<std::string>> wrong{
      {},
      {"--nonsense"},
      {"-nonsense"},
      {"--data=x", "--colour", "red"},
      {"--data"},
      {"--data", "x", "--tour"},
      {"list", "--data", ""},
      {"list", "--data="},
      {"-"},
      {""},
      {"pases", "25544"},
      {"passes"},
      {"where"},
      {"job"},
      {"passes", ""},
      {"passes", "  "},
      {"passes", "25544", "--days", "0"},
      {"passes", "25544", "--days", "-3"},
      {"passes", "25544", "--days", "401"},
      {"passes", "25544", "--days", "1e300"},
      {"passes", "25544", "--days", "99999999999999999999"},
      {"passes", "25544", "--days", "nan"},
      {"passes", "25544", "--days", "1.5"},
      {"passes", "25544", "--days", "three"},
      {"passes", "25544", "--days", ""},
      {"passes", "25544", "--days"},
      {"passes", "25544", "--days", "1", "--days", "2"},
      {"passes", "25544", "--min-elevation", "nan"},
      {"passes", "25544", "--min-elevation", "inf"},
      {"passes", "25544", "--min-elevation", "91"},
      {"passes", "25544", "--min-elevation", ""},
      {"passes", "25544", "--min-elevation", "10,5"},
      {"passes", "25544", "--from", ""},
      {"passes", "25544", "--from", "2026-02-30"},
      {"passes", "25544", "--from", "2026-13-01"},
      {"passes", "25544", "--from", "2026-11-15T24:00"},
      {"passes", "25544", "--from", "2026-11-15T12:60"},
      {"passes", "25544", "--from", "2026-11-15T12:00+15:00"},
      {"passes", "25544", "--from", "2026-11-15junk"},
      {"passes", "25544", "--from", "1956-12-31"},
      {"passes", "25544", "--from", "2100-01-01"},
      {"passes", "25544", "--from", "99999-01-01"},
      {"passes", "25544", "--from", "NaN"},
      {"passes", "25544", "--at", ""},
      {"passes", "25544", "--at", "51.5"},
      {"passes", "25544", "--at", "JN4"},
      {"passes", "25544", "--at", "JN47p"},
      {"passes", "25544", "--at", "SN47"},
      {"passes", "25544", "--at", "JN47py"},
      {"passes", "25544", "--at", "47JN"},
      {"passes", "25544", "--at", "JN47phJN47"},
      {"passes", "25544", "--at", "51.5,0,0,0"},
      {"passes", "25544", "--at", "91,0,0"},
      {"passes", "25544", "--at", "51.5,361,0"},
      {"passes", "25544", "--at", "51.5,0,nan"},
      {"passes", "25544", "--at", "nan,nan,nan"},
      {"passes", "25544", "--at", "51.5,0,1e9"},
      {"passes", "25544", "--format", "xml"},
      {"passes", "25544", "--format", ""},
      {"passes", "25544", "--colour"},
      {"where", "25544", "--format", "ical"},
      {"where", "25544", "--at-time", "noon"},
      {"next", "--format", "ical"},
      {"list", "everything"},
      {"list", "groups", "satellites"},
      {"job", "one", "two"},
      {"list", "--days", "3"},
  };
  for (const auto& arguments : wrong) {
    std::string line;
    for (const std::string& argument : arguments) line += " '" + argument + "'";
    const Answer answer = Run(arguments);
    EXPECT_EQ(answer.code, 2) << line << "\n" << answer.out << answer.err;
    EXPECT_EQ(answer.out, "") << line;
    EXPECT_TRUE(answer.err.starts_with("kestrava: ") && answer.err.size() > 15 && answer.err.ends_with("\n"))
        << line << ": " << answer.err;
  }
}

TEST_F(WrongUse, AnUnknownCommandIsToldWithTheNearest) {
  EXPECT_NE(Run({"pases", "25544"}).err.find("Did you mean 'passes'?"), std::string::npos);
}

TEST_F(WrongUse, AnUnknownOptionIsToldBeforeAnyWindowIsTried) {
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{"--nonsense"},
                                                    {"-x"},
                                                    {"-"},
                                                    {"--data"},
                                                    {"--data", "x", "--tour"},
                                                    {"-platform", "offscreen", "--nonsense"},
                                                    {"-reverse", "--nonsense"}}) {
    EXPECT_TRUE(IsForTerminal(arguments)) << arguments.back();
  }
  EXPECT_EQ(Run({"--nonsense"}).err, "kestrava: there is no option '--nonsense'. kestrava --help names them all\n");
  EXPECT_NE(Run({"--tor"}).err.find("Did you mean '--tour'?"), std::string::npos);
  EXPECT_NE(Run({"--tuor"}).err.find("Did you mean '--tour'?"), std::string::npos) << "two letters swapped";
  EXPECT_EQ(Run({"--data"}).err, "kestrava: --data wants a folder\n");
}

TEST_F(WrongUse, ANamedFolderThatIsNoneIsToldWithItsPathAndNotAnsweredFromOtherData) {
  files.Put("/shipped/groups.dat", testing::StationFile("groups.dat"));
  files.Put("/shipped/stations.txt", testing::StationFile("stations.txt"));
  machine_.shippedData = "/shipped";
  const Answer missing = Run({"where", "25544", "--data", "/nowhere/here"});
  EXPECT_EQ(missing.code, 2);
  EXPECT_EQ(missing.out, "");
  EXPECT_EQ(missing.err, "kestrava: --data: /nowhere/here is not there\n");
  const Answer file = Run({"where", "25544", "--data", "/house/stations.txt"});
  EXPECT_EQ(file.code, 2);
  EXPECT_EQ(file.err, "kestrava: --data: /house/stations.txt is a file, not a folder\n");
}

TEST_F(WrongUse, AnOptionBeforeItsCommandIsToldToStandBehindIt) {
  const std::string err = Run({"--format", "json", "passes", "25544"}).err;
  EXPECT_EQ(err, "kestrava: --format stands behind the command, as in: kestrava passes ... --format\n");
  EXPECT_EQ(Run({"--at=51.5,0", "next"}).err,
            "kestrava: --at stands behind the command, as in: kestrava next ... --at=51.5,0\n");
  EXPECT_EQ(Run({"--data", "/house", "next"}).code, 0) << "the folder may stand before it";
}

TEST_F(WrongUse, WhatIsTooMuchIsNamed) {
  EXPECT_EQ(Run({"list", "groups", "7"}).err,
            "kestrava: '7' is one argument too many. kestrava list --help tells what there is\n");
  EXPECT_NE(Run({"list", "--days", "3"}).err.find("'--days' is no option of this command"), std::string::npos);
  const std::string four = Run({"passes", "25544", "--at", "51,5,0,1"}).err;
  EXPECT_NE(four.find("'51,5,0,1' has 4 numbers, and three are the most (the decimal sign is a point)"),
            std::string::npos)
      << four;
}

TEST_F(WrongUse, AnUnknownNameEndsWithOneAndNearNames) {
  const Answer part = Run({"passes", "iss"});
  EXPECT_EQ(part.code, 1);
  EXPECT_EQ(part.out, "");
  EXPECT_NE(part.err.find("no satellite is called 'iss'. Did you mean"), std::string::npos) << part.err;
  EXPECT_NE(part.err.find("'ISS (ZARYA)'"), std::string::npos) << part.err;
  EXPECT_NE(Run({"where", "NOAA15"}).err.find("'NOAA 15'"), std::string::npos);
  EXPECT_NE(Run({"where", "NAOA 15"}).err.find("'NOAA 15'"), std::string::npos);
}

TEST_F(WrongUse, EveryUnknownNameIsToldAndNoneIsAnswered) {
  const Answer answer = Run({"where", "25544", "Zyzzyva", "Qwertz"});
  EXPECT_EQ(answer.code, 1);
  EXPECT_EQ(answer.out, "");
  EXPECT_NE(answer.err.find("'Zyzzyva'"), std::string::npos);
  EXPECT_NE(answer.err.find("'Qwertz'"), std::string::npos);
}

TEST_F(WrongUse, ANumberThatNobodyHasEndsWithOne) {
  for (const auto* number : {"99999", "0", "123456789012345678901234567890", "-5"}) {
    const Answer answer = Run({"where", "--", number});
    EXPECT_EQ(answer.code, 1) << number << answer.err;
    EXPECT_NE(answer.err.find(number), std::string::npos);
  }
}

TEST_F(WrongUse, OddNamesDoNoHarm) {
  const std::string longName(100000, 'x');
  EXPECT_EQ(Run({"where", longName}).code, 1);
  EXPECT_EQ(Run({"where", "\xff\xfe\x80"}).code, 1);
  EXPECT_EQ(Run({"where", "\"; rm -rf"}).code, 1);
}

TEST_F(WrongUse, HelpAndVersionAnswerEverywhere) {
  const Answer version = Run({"--version"});
  EXPECT_EQ(version.code, 0);
  EXPECT_EQ(version.out, "Kestrava 2.0.2\n");
  for (const std::vector<std::string>& question :
       {std::vector<std::string>{"--help"}, {"-h"}, {"passes", "--help"}, {"where", "-h"}, {"list", "--help"}}) {
    const Answer help = Run(question);
    EXPECT_EQ(help.code, 0) << question[0];
    EXPECT_NE(help.out.find("North and east are positive"), std::string::npos) << help.out;
  }
  const Answer help = Run({"--help"});
  for (const auto* word : {"passes", "next", "where", "list", "job", "jobs", "--data", "--tour"})
    EXPECT_NE(help.out.find(word), std::string::npos) << word;
  EXPECT_NE(Run({"passes", "--help"}).out.find("--min-elevation"), std::string::npos);
  EXPECT_NE(Run({"job", "--help"}).out.find("saving and printing"), std::string::npos);
}

TEST_F(WrongUse, NoLineOfAnyHelpIsLongerThanATerminalIsWide) {
  for (const char* word : {"", "passes", "next", "where", "list", "job", "jobs"}) {
    const Answer help = *word == 0 ? Run({"--help"}) : Run({word, "--help"});
    EXPECT_GT(help.Lines().size(), 8u) << word;
    for (const std::string& line : help.Lines()) EXPECT_LE(line.size(), 80u) << line;
  }
  const std::string passes = Run({"passes", "--help"}).out;
  EXPECT_NE(passes.find("\n                              midnight), 2026-11-15T20:30 (local),\n"), std::string::npos)
      << "what goes on stands below its explanation\n"
      << passes;
}

TEST_F(WrongUse, WithoutAWordTheWindowsAreMeant) {
  EXPECT_FALSE(IsForTerminal({}));
  EXPECT_FALSE(IsForTerminal({"--data", "list"}));
  EXPECT_FALSE(IsForTerminal({"--data=x", "--tour", "next"}));
  EXPECT_FALSE(IsForTerminal({"-platform", "offscreen"}));
  EXPECT_FALSE(IsForTerminal({"--platform", "offscreen", "--style=fusion", "-reverse", "-session", "list"}));
  EXPECT_TRUE(IsForTerminal({"list"}));
  EXPECT_TRUE(IsForTerminal({"--data", "x", "list"}));
  EXPECT_TRUE(IsForTerminal({"pases"}));
  EXPECT_TRUE(IsForTerminal({"--help"}));
  EXPECT_TRUE(IsForTerminal({"--data", "x", "--version"}));
}

}  // namespace
}  // namespace kestrava::cli
