// Two copies of the station on one folder write their jobs into one file.
#include <algorithm>
#include <stdexcept>
#include <string>

#include "predict/PassJobs.h"

#include "support/SharedFolder.h"

namespace kestrava::predict {
namespace {

using JobsOfTwoCopies = testing::SharedFolder;

TEST_F(JobsOfTwoCopies, AreAllThereAndNoneOfThoseThatWereRemoved) {
  const auto work = [](const std::string& whose) {
    return [whose] {
      for (int i = 0; i < 40; ++i) {
        AppendJob({whose + std::to_string(i), {"ISS (ZARYA)"}, "3", "0", "0"});
        if (i % 2 == 1 && !RemoveJob(whose + std::to_string(i))) throw std::runtime_error("not there");
      }
    };
  };
  const pid_t one = Start(work("A")), two = Start(work("B"));
  EXPECT_TRUE(EndsWell(one));
  EXPECT_TRUE(EndsWell(two));
  const std::vector<std::string> jobs = ListJobs();
  EXPECT_EQ(jobs.size(), 40U);
  for (int i = 0; i < 40; i += 2) {
    for (const auto* whose : {"A", "B"}) {
      EXPECT_EQ(std::count(jobs.begin(), jobs.end(), whose + std::to_string(i)), 1) << whose << i;
    }
  }
}

}  // namespace
}  // namespace kestrava::predict
