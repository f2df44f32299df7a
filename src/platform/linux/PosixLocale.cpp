#include "platform/linux/PosixLocale.h"

#include <array>
#include <ctime>

#include <langinfo.h>
#include <locale.h>

#include "platform/SerialDate.h"

namespace kestrava::platform {

namespace {

locale_t LocaleOf(void* locale) {
  return static_cast<locale_t>(locale);
}

}  // namespace

PosixLocale::PosixLocale() : locale_(::newlocale(LC_ALL_MASK, "", nullptr)) {
  if (!locale_) locale_ = ::newlocale(LC_ALL_MASK, "C", nullptr);
  if (!locale_) return;
  const std::string decimalSign = ::nl_langinfo_l(RADIXCHAR, LocaleOf(locale_));
  const std::string groupSign = ::nl_langinfo_l(THOUSEP, LocaleOf(locale_));
  if (!decimalSign.empty()) decimalSign_ = decimalSign;
  if (!groupSign.empty() || decimalSign_ == ",") groupSign_ = groupSign;
}

PosixLocale::~PosixLocale() {
  if (locale_) ::freelocale(LocaleOf(locale_));
}

std::string PosixLocale::TextOf(SerialDate local, const char* pattern) const {
  const DateParts parts = SplitSerial(local);
  std::tm time{};
  time.tm_year = parts.year - 1900;
  time.tm_mon = parts.month - 1;
  time.tm_mday = parts.day;
  time.tm_hour = parts.hour;
  time.tm_min = parts.minute;
  time.tm_sec = parts.second;
  std::array<char, 100> text{};
  const std::size_t length = locale_ ? ::strftime_l(text.data(), text.size(), pattern, &time, LocaleOf(locale_))
                                     : std::strftime(text.data(), text.size(), pattern, &time);
  return {text.data(), length};
}

std::string PosixLocale::DateText(SerialDate local) const {
  return TextOf(local, "%x");
}

std::string PosixLocale::TimeText(SerialDate local) const {
  return TextOf(local, "%X");
}

}  // namespace kestrava::platform
