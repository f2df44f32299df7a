#include <gtest/gtest.h>

#include "platform/Text.h"
#include "store/ShippedElements.h"

#include "support/House.h"

namespace kestrava::store {
namespace {

const std::filesystem::path kShipped = "/usr/share/kestrava/sample";

class ShippedElements : public testing::House {
 protected:
  ShippedElements() {
    files.Put(kShipped / "amateur.txt", kFirst + kSecond);
    Put("amateur.txt", kFirst + kSecond);
  }
  bool AreThere() { return HoldsShippedElements(kShipped, "amateur.txt"); }

  const std::string kFirst =
      "OSCAR 7 (AO-7)          \r\n1 07530U 74089B   26318.92882759 -.00000031  00000-0  83259-4 0  9999\r\n"
      "2 07530 101.6660 350.5859 0011799 260.7489 115.8236 12.53630761975916\r\n";
  const std::string kSecond =
      "UOSAT 2 (UO-11)\r\n1 14781U 84021B   26318.70748358  .00000070  00000-0  14796-4 0  9996\r\n"
      "2 14781  97.6694  63.0532 0008022 197.3881 162.7059 14.82974769822584\r\n";
  const std::string kOwn =
      "MY OWN\n1 25544U 98067A   24153.50000000  .00016717  00000-0  10270-3 0  9007\n"
      "2 25544  51.6416 247.4627 0006703 130.5360 325.0288 15.50000000 10001\n";
};

TEST_F(ShippedElements, AreThereAsLongAsTheFileIsTheShippedOne) {
  EXPECT_TRUE(AreThere());
}

TEST_F(ShippedElements, AreThereWhateverTheUserAddsOrHowHisEditorEndsLines) {
  Put("amateur.txt", platform::ReplaceAll(kOwn + kSecond + kFirst, "\r\n", "\n"));
  EXPECT_TRUE(AreThere());
}

TEST_F(ShippedElements, AreGoneWithTheFirstSetThatIsNoLongerTheirs) {
  Put("amateur.txt", kFirst);
  EXPECT_FALSE(AreThere());
  Put("amateur.txt", kFirst + platform::ReplaceAll(kSecond, "26318.7", "26325.7"));
  EXPECT_FALSE(AreThere());
}

TEST_F(ShippedElements, AreNotThereWithoutAFileOnEitherSide) {
  EXPECT_FALSE(HoldsShippedElements(kShipped, "weather.txt"));
  EXPECT_FALSE(HoldsShippedElements(kShipped, ""));
  Put("mine.txt", kOwn);
  EXPECT_FALSE(HoldsShippedElements(kShipped, "mine.txt"));
  files.Put(kShipped / "empty.txt", "");
  Put("empty.txt", "");
  EXPECT_FALSE(HoldsShippedElements(kShipped, "empty.txt"));
}

}  // namespace
}  // namespace kestrava::store
