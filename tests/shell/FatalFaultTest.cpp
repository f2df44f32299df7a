#include <gtest/gtest.h>

#include "platform/Fault.h"
#include "shell/FatalFault.h"

#include "support/House.h"

namespace kestrava::shell {
namespace {

class FakeShipped : public ShippedFiles {
 public:
  bool Has(const std::string& name) const override { return name == "amateur.txt"; }
  void PutBack(const std::string& name) override {
    if (broken) throw platform::Fault::DiskFull();
    putBack.push_back(name);
  }
  bool AreElements(const std::string&) const override { return false; }
  bool broken = false;
  std::vector<std::string> putBack;
};

const FatalReport kMissing{"File not found", "It is missing: /house/amateur.txt", "Put it back.", "amateur.txt"};

using FatalFault = testing::House;

TEST_F(FatalFault, OffersToPutTheShippedFileBack) {
  FakeShipped shipped;
  messages.ExpectQuestion("Shall the amateur.txt that came with Kestrava be put back?", true);
  ReportFatal(kMissing, &shipped);
  EXPECT_EQ(shipped.putBack, std::vector<std::string>{"amateur.txt"});
}

TEST_F(FatalFault, TheOfferNamesTheFaultAndTheFile) {
  FakeShipped shipped;
  messages.ExpectQuestion("File not found.\n\nIt is missing: /house/amateur.txt", false);
  ReportFatal(kMissing, &shipped);
  EXPECT_EQ(messages.Texts().size(), 1U);
  EXPECT_TRUE(shipped.putBack.empty());
}

TEST_F(FatalFault, AFileThatWasNeverShippedIsNotOffered) {
  FakeShipped shipped;
  FatalReport report = kMissing;
  report.missingFile = "mine.txt";
  messages.ExpectMessage("Put it back. Kestrava ends now.");
  ReportFatal(report, &shipped);
}

TEST_F(FatalFault, WithoutShippedFilesTheRemedyIsTold) {
  messages.ExpectMessage("Put it back. Kestrava ends now.");
  ReportFatal(kMissing, nullptr);
}

TEST_F(FatalFault, AFileThatCannotBePutBackIsSaidAndLogged) {
  FakeShipped shipped;
  shipped.broken = true;
  messages.ExpectQuestion("put back", true);
  messages.ExpectMessage("amateur.txt could not be put back: Disk full");
  ReportFatal(kMissing, &shipped);
  EXPECT_EQ(TakeFaults(), std::vector<std::string>{"Disk full - Put back amateur.txt"});
}

}  // namespace
}  // namespace kestrava::shell
