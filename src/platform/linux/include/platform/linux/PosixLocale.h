// The machine's way of writing numbers and dates, from the C library: for a run without the toolkit. The process's own
// locale is not touched.
#pragma once

#include <string>

#include "platform/MachineLocale.h"

namespace kestrava::platform {

class PosixLocale : public MachineLocale {
 public:
  PosixLocale();
  ~PosixLocale() override;
  PosixLocale(const PosixLocale&) = delete;
  PosixLocale& operator=(const PosixLocale&) = delete;

  std::string DecimalSign() const override { return decimalSign_; }
  std::string GroupSign() const override { return groupSign_; }
  std::string DateText(SerialDate local) const override;
  std::string TimeText(SerialDate local) const override;

 private:
  std::string TextOf(SerialDate local, const char* pattern) const;

  void* locale_;  ///< the user's, or none where it is not installed
  std::string decimalSign_ = ".";
  std::string groupSign_ = ",";
};

}  // namespace kestrava::platform
