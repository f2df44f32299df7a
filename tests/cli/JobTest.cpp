// "kestrava job": the saved jobs of the pass window.
#include <set>

#include <gtest/gtest.h>

#include "cli/Terminal.h"
#include "orbit/OrbitEngine.h"
#include "platform/Settings.h"
#include "predict/PassCalc.h"
#include "predict/PassText.h"

namespace kestrava::cli {
namespace {

class Job : public Terminal {
 protected:
  Job() {
    Put("pass.dat",
        "Morning\r\nISS (ZARYA);\r\nNOAA 15;\r\n2\r\n1\r\n1\r\nGone\r\nNOBODY;\r\n1\r\n0\r\n0\r\nNone\r\nISS (ZARYA);"
        "\r\n0\r\n0\r\n0\r\n");
  }

  /// The rows that the window makes of a job on this house.
  std::vector<std::string> WindowRows(const std::vector<std::string>& satellites, int firstDay, int days) {
    orbit::Tables tables;
    orbit::OrbitEngine engine;
    engine.SetDataFolder("/house/");
    engine.SetObserver({51.5, 360, 30});
    predict::PassTable table;
    for (int day = firstDay; day < firstDay + days; ++day) {
      for (const std::string& name : satellites)
        predict::CalcResults({tables, engine}, table, name, static_cast<std::int16_t>(day), 11, 2026, false);
    }
    std::vector<std::string> rows{kLondonLine, std::string(predict::kPassHeading)};
    for (const predict::PassRow& row : table.Rows()) rows.push_back(predict::RowText(row));
    return rows;
  }
};

TEST_F(Job, TextIsTheRowsOfTheWindow) {
  settings.Set("WxEL", "0");
  const Answer answer = Run({"job", "Morning"});
  EXPECT_EQ(answer.code, 0) << answer.err;
  EXPECT_EQ(answer.Lines(), WindowRows({"ISS (ZARYA)", "NOAA 15"}, 15, 2));
  EXPECT_GT(answer.Lines().size(), 10u);
}

TEST_F(Job, DataHoldThePassesThatEndOnItsDays) {
  const Json json = Run({"job", "Morning", "--format", "json"}).OutAsJson();
  EXPECT_EQ(json["job"], "Morning");
  EXPECT_EQ(json["from"], "2026-11-15T00:00:00.000+00:00");
  EXPECT_EQ(json["to"], "2026-11-17T00:00:00.000+00:00");
  EXPECT_EQ(json["passes"].size() + 2, WindowRows({"ISS (ZARYA)", "NOAA 15"}, 15, 2).size());
}

TEST_F(Job, TheEndSaysWhatWasWorkedOut) {
  const Answer answer = Run({"job", "Morning"});
  EXPECT_EQ(answer.err, "kestrava: " + std::to_string(answer.Lines().size() - 2) +
                            " passes of the job 'Morning' from 15 NOV 2026 to 16 NOV 2026.\n");
}

TEST_F(Job, JobsListsTheSavedOnes) {
  const Answer text = Run({"jobs"});
  EXPECT_EQ(text.code, 0) << text.err;
  EXPECT_EQ(text.Lines(), (std::vector<std::string>{
                              "Job      Days  Satellites  Saves  Prints", "Morning     2           2  Yes    Yes",
                              "Gone        1           1  No     No", "None        0           1  No     No"}));
  const Json json = Run({"jobs", "--format", "json"}).OutAsJson()["jobs"];
  EXPECT_EQ(json[0]["satellites"], (Json{"ISS (ZARYA)", "NOAA 15"}));
  EXPECT_EQ(Run({"jobs", "--format", "csv"}).Lines()[1], "Morning,2,2,ISS (ZARYA);NOAA 15,true,true");
  files.Remove("/house/pass.dat");
  EXPECT_EQ(Run({"jobs"}).code, 1);
  EXPECT_EQ(Run({"jobs"}).err, "kestrava: there are no saved jobs in /house/\n");
}

TEST_F(Job, OneThatARunLeftInItsWizardIsThere) {
  Put("pass.edit", "Evening\r\nISS (ZARYA);\r\n1\r\n0\r\n0\r\n");
  const int changes = files.ChangeCount();
  EXPECT_EQ(Run({"jobs"}).Lines().size(), 5u);
  EXPECT_EQ(Run({"job", "Evening"}).code, 0);
  EXPECT_EQ(files.ChangeCount(), changes);
}

TEST_F(Job, MoreSatellitesThanAJobTakesAreSaidInOneSentence) {
  std::string job = "Many\r\n";
  for (int i = 0; i < 80; ++i) job += "ISS (ZARYA);\r\n";
  Put("pass.dat", job + "1\r\n0\r\n0\r\n");
  const std::string err = Run({"job", "Many"}).err;
  EXPECT_NE(err.find("the job names 80 satellites, of which the first 50 are used\n"), std::string::npos) << err;
  EXPECT_EQ(err.find("Subscript"), std::string::npos) << err;
}

TEST_F(Job, AnotherDayAndElevationMayBeAskedFor) {
  EXPECT_EQ(Run({"job", "Morning", "--from", "2026-11-20"}).Lines(), WindowRows({"ISS (ZARYA)", "NOAA 15"}, 20, 2));
  EXPECT_LT(Run({"job", "Morning", "--min-elevation", "50"}).Lines().size(), Run({"job", "Morning"}).Lines().size());
  EXPECT_LT(Run({"job", "Morning", "--visible"}).Lines().size(), Run({"job", "Morning"}).Lines().size());
}

TEST_F(Job, SavingAndPrintingAreNotActedUpon) {
  const int changes = files.ChangeCount();
  Run({"job", "Morning"});
  EXPECT_EQ(files.ChangeCount(), changes);
}

TEST_F(Job, AnUnknownJobIsToldWithNearOnes) {
  const Answer answer = Run({"job", "mornin"});
  EXPECT_EQ(answer.code, 1);
  EXPECT_NE(answer.err.find("no job is called 'mornin'. Did you mean 'Morning'?"), std::string::npos) << answer.err;
  EXPECT_NE(Run({"job", "Zyzzyva"}).err.find("kestrava jobs lists them all"), std::string::npos);
  files.Remove("/house/pass.dat");
  EXPECT_NE(Run({"job", "Morning"}).err.find("there are no saved jobs"), std::string::npos);
}

TEST_F(Job, SatellitesThatAreGoneAreToldAndTheRestGoesOn) {
  const Answer answer = Run({"job", "Gone"});
  EXPECT_EQ(answer.code, 1);
  EXPECT_NE(answer.err.find("no satellite is called 'NOBODY'"), std::string::npos) << answer.err;
}

TEST_F(Job, AJobOfNoDaysFindsNothing) {
  EXPECT_EQ(Run({"job", "None"}).code, 1);
  EXPECT_EQ(Run({"job", "None", "--format", "json"}).code, 1);
}

TEST_F(Job, ASatelliteThatStandsThereTwiceHasItsRowsTwiceAndItsPassesOnce) {
  Put("pass.dat", "Twice\r\nISS (ZARYA);\r\nISS (ZARYA);\r\n1\r\n0\r\n0\r\n");
  EXPECT_EQ(Run({"job", "Twice"}).Lines(), WindowRows({"ISS (ZARYA)", "ISS (ZARYA)"}, 15, 1));
  EXPECT_EQ(Run({"job", "Twice", "--format", "json"}).OutAsJson()["passes"].size() + 2,
            WindowRows({"ISS (ZARYA)"}, 15, 1).size());
}

TEST_F(Job, ACommandWordMayBeAName) {
  Put("pass.dat", "next\r\nISS (ZARYA);\r\n1\r\n0\r\n0\r\n");
  EXPECT_EQ(Run({"job", "next"}).code, 0) << Run({"job", "next"}).err;
}

}  // namespace
}  // namespace kestrava::cli
