// The file of jobs under kill -9: each change is killed at every one of its system calls.
#include <string>

#include <gtest/gtest.h>

#include "predict/PassJobs.h"

#include "support/KilledSaves.h"

namespace kestrava::predict {
namespace {

using KilledSaves = testing::KilledSaves;

constexpr const char* kTwoJobs =
    "Morning\r\nISS (ZARYA);\r\nNOAA 19;\r\n3\r\n1\r\n0\r\n"
    "Evening\r\nAO-7;\r\n1\r\n0\r\n1\r\n";

TEST_F(KilledSaves, AFileToWhichAJobIsAddedIsWhole) {
  ExpectWholeAfterEveryKill("pass.dat", kTwoJobs, [] {
    AppendJob({"Weekend", {"ISS (ZARYA)", "NOAA 15"}, "2", "1", "0"});
  });
}

TEST_F(KilledSaves, AFileFromWhichAJobIsTakenIsWhole) {
  ExpectWholeAfterEveryKill("pass.dat", kTwoJobs, [] { RemoveJob("Morning"); });
}

}  // namespace
}  // namespace kestrava::predict
