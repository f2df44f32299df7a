// Texts of numbers: any text is a number or "Type mismatch" or "Overflow"; any pattern gives a text.
#include <cmath>

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Format.h"

#include "Fuzz.h"

namespace platform = kestrava::platform;
using kestrava::fuzz::Check;

namespace {

class Locale : public platform::MachineLocale {
 public:
  explicit Locale(bool comma) : comma_(comma) {}
  std::string DecimalSign() const override { return comma_ ? "," : "."; }
  std::string GroupSign() const override { return comma_ ? "." : ","; }
  std::string DateText(platform::SerialDate) const override { return {}; }
  std::string TimeText(platform::SerialDate) const override { return {}; }

 private:
  bool comma_;
};

void CheckNumber(double value) {
  Check(std::isfinite(value), "a number is finite");
  // A number that is 15 digits from the largest may round beyond it.
  if (std::fabs(value) > 1e307) return;
  const double again = platform::ParseNumber(platform::NumberText(value));
  Check(std::fabs(again - value) <= std::fabs(value) * 1e-14, "a number's own text is that number");
  Check(platform::Val(platform::PointText(value)) == again, "both readers agree");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = kestrava::fuzz::TextOf(data, size);
  for (const bool comma : {false, true}) {
    Locale locale(comma);
    platform::Doors doors;
    doors.locale = &locale;
    const platform::ScopedDoors scoped(doors);
    double value = platform::Val(text);
    CheckNumber(value);
    try {
      value = platform::ParseNumber(text);
      CheckNumber(value);
    } catch (const platform::Fault&) {
    }
    for (const double number : {value, 0.0, 45000.123456, -1234567.895}) {
      try {
        platform::Format(number, text);
      } catch (const platform::Fault& fault) {
        Check(fault.Number() == platform::Fault::Overflow().Number(), "a pattern has one fault only");
      }
    }
  }
  return 0;
}
