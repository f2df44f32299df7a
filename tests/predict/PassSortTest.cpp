// Sorting the pass list: the same order as the plain exchange loop over the cells gives, whatever they hold.

#include <algorithm>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "orbit/TimeHelpers.h"
#include "platform/Fault.h"
#include "predict/PassSort.h"
#include "predict/PassText.h"

#include "support/House.h"

namespace kestrava::predict {
namespace {

PassRow RowOf(const std::string& name, const std::string& date, const std::string& time) {
  return {name, date, time, "000", "00 (AZ 000)", "00:00:00", "000", "No ", "No "};
}

class PassSort : public testing::House {
 protected:
  void Add(const std::string& name, const std::string& date, const std::string& time) {
    table.Add(RowOf(name, date, time));
  }
  std::string Names() const {
    std::string names;
    for (const PassRow& row : table.Rows()) names += row[kSatelliteCell] + " ";
    return names;
  }
  bool Sort() {
    return SortChron(table,
                     {[this](int done, int rows) { progress.emplace_back(done, rows); }, [this] { return stop; }});
  }
  /// The loop as it would run on the list itself, every key parsed anew for each comparison.
  static std::vector<PassRow> ByExchange(std::vector<PassRow> rows) {
    double former = 0;
    double latter = 0;
    const auto key = [](const PassRow& row, double& value) {
      try {
        value = ParseDateCell(row[kDateCell]) + ParseTimeCell(row[kTimeCell]);
      } catch (const platform::Fault&) {
        return;  // the key keeps its earlier value
      }
    };
    for (std::size_t i = 1; i <= rows.size(); ++i) {
      for (std::size_t j = 1; j < rows.size(); ++j) {
        key(rows[j - 1], former);
        key(rows[j], latter);
        if (latter < former) std::swap(rows[j - 1], rows[j]);
      }
    }
    return rows;
  }
  std::vector<PassRow> RandomRows(std::mt19937& draws, int count, int badOutOfAHundred) {
    std::vector<PassRow> rows;
    for (int i = 0; i < count; ++i) {
      const auto pick = [&](int n) { return static_cast<std::int16_t>(draws() % static_cast<unsigned>(n)); };
      std::string date =
          orbit::DateText(static_cast<std::int16_t>(1 + pick(28)), static_cast<std::int16_t>(1 + pick(12)),
                          static_cast<std::int16_t>(2025 + pick(3)));
      std::string time = orbit::ClockText(pick(24), pick(3), 0);
      if (pick(100) < badOutOfAHundred) (pick(2) ? date : time) = "?";
      rows.push_back(RowOf(std::to_string(i), date, time));
    }
    return rows;
  }

  PassTable table;
  std::vector<std::pair<int, int>> progress;
  bool stop = false;
};

TEST_F(PassSort, OrdersByDateThenTime) {
  Add("c", "01 FEB 2026", "00:00:01");
  Add("d", "01 JAN 2027", "00:00:00");
  Add("b", "31 JAN 2026", "23:59:59");
  Add("a", "31 JAN 2026", "23:59:58");
  EXPECT_TRUE(Sort());
  EXPECT_EQ(Names(), "a b c d ");
}

TEST_F(PassSort, RowsOfTheSameSecondKeepTheirOrder) {
  Add("2a", "15 NOV 2026", "12:00:00");
  Add("1", "15 NOV 2026", "11:00:00");
  Add("2b", "15 NOV 2026", "12:00:00");
  Add("2c", "15 NOV 2026", "12:00:00");
  Sort();
  EXPECT_EQ(Names(), "1 2a 2b 2c ");
}

TEST_F(PassSort, AnAllDayRowStandsAheadOfItsDay) {
  Add("pass", "15 NOV 2026", "00:00:01");
  Add("geo", "15 NOV 2026", "00:00:00");
  Add("earlier", "14 NOV 2026", "23:59:59");
  Sort();
  EXPECT_EQ(Names(), "earlier geo pass ");
}

TEST_F(PassSort, MonthsAreEnglishInEveryLocale) {
  locale.UseComma();
  Add("may", "01 MAY 2026", "00:00:00");
  Add("mar", "01 MAR 2026", "00:00:00");
  Add("dec", "01 DEC 2025", "00:00:00");
  Add("oct", "01 OCT 2025", "00:00:00");
  Sort();
  EXPECT_EQ(Names(), "oct dec mar may ");
}

TEST_F(PassSort, GivesTheOrderOfTheExchangeLoop) {
  std::mt19937 draws(20261115);
  for (int round = 0; round < 20; ++round) {
    table.Clear();
    const std::vector<PassRow> rows = RandomRows(draws, 60, 0);
    for (const PassRow& row : rows) table.Add(row);
    Sort();
    EXPECT_EQ(table.Rows(), ByExchange(rows)) << "seed 20261115, round " << round;
  }
}

TEST_F(PassSort, GivesTheOrderOfTheExchangeLoopWhereCellsAreBad) {
  std::mt19937 draws(77);
  for (int round = 0; round < 20; ++round) {
    table.Clear();
    const std::vector<PassRow> rows = RandomRows(draws, 60, 10);
    for (const PassRow& row : rows) table.Add(row);
    Sort();
    EXPECT_EQ(table.Rows(), ByExchange(rows)) << "seed 77, round " << round;
    std::size_t bad = 0;
    for (const PassRow& row : rows) bad += (row[kDateCell] == "?") + (row[kTimeCell] == "?");
    EXPECT_EQ(TakeFaults(), std::vector<std::string>(bad, "Type mismatch - PassPred-SortChron"));
  }
}

TEST_F(PassSort, TellsHowFarItIsAndLetsEventsRun) {
  Add("b", "15 NOV 2026", "12:00:00");
  Add("x", "?", "12:00:00");
  Add("a", "15 NOV 2026", "11:00:00");
  const int before = eventLoop.YieldCount();
  Sort();
  EXPECT_EQ(progress.front(), std::make_pair(1, 3));
  EXPECT_EQ(progress.back(), std::make_pair(3, 3));
  EXPECT_GE(eventLoop.YieldCount() - before, 3) << "one for each round";
  TakeFaults();
}

TEST_F(PassSort, EndsWhereItIsStoppedAndLeavesTheRows) {
  Add("b", "15 NOV 2026", "12:00:00");
  Add("x", "?", "12:00:00");
  Add("a", "15 NOV 2026", "11:00:00");
  eventLoop.AtYield(1, [&] { stop = true; });
  EXPECT_FALSE(Sort());
  EXPECT_EQ(Names(), "b x a ");
  TakeFaults();
}

TEST_F(PassSort, RowsThatAreClearedMeanwhileAreGone) {
  Add("b", "15 NOV 2026", "12:00:00");
  Add("x", "?", "12:00:00");
  eventLoop.AtYield(1, [&] { table.Clear(); });
  EXPECT_TRUE(Sort());
  EXPECT_EQ(table.RowCount(), 0);
  EXPECT_EQ(TakeFaults().size(), 1U);
}

TEST_F(PassSort, RowsThatComeMeanwhileAreSortedIn) {
  Add("c", "15 NOV 2026", "12:00:00");
  Add("b", "15 NOV 2026", "11:00:00");
  Add("x", "16 NOV 2026", "?");
  eventLoop.AtYield(1, [&] { Add("a", "15 NOV 2026", "10:00:00"); });
  EXPECT_TRUE(Sort());
  EXPECT_EQ(table.RowCount(), 4);
  EXPECT_EQ(table.Rows()[0][kSatelliteCell], "a");
  EXPECT_EQ(TakeFaults().size(), 1U) << "a bad cell is told once";
}

TEST_F(PassSort, ASecondSortWithinAYieldIsHarmless) {
  Add("c", "15 NOV 2026", "12:00:00");
  Add("b", "15 NOV 2026", "11:00:00");
  Add("x", "14 NOV 2026", "?");
  eventLoop.AtYield(1, [&] { Sort(); });
  EXPECT_TRUE(Sort());
  EXPECT_EQ(table.RowCount(), 3);
  TakeFaults();
}

}  // namespace
}  // namespace kestrava::predict
