#include "orbit/PassList.h"

#include <cmath>
#include <cstdint>

#include "orbit/Frames.h"
#include "platform/Format.h"
#include "platform/SerialDate.h"

namespace kestrava::orbit {
namespace {

void AppendDigits(std::string& text, int value, std::size_t width) {
  const std::string digits = std::to_string(value);
  if (digits.size() < width) text.append(width - digits.size(), '0');
  text += digits;
}

void AppendMoment(std::string& text, double utcSerial) {
  const platform::DateParts parts = platform::SplitSerial(utcSerial);
  AppendDigits(text, parts.year, 4);
  for (const int part : {parts.month, parts.day, parts.hour, parts.minute, parts.second}) AppendDigits(text, part, 2);
  text += ' ';
}

int64_t WholeSecond(double utcSerial) {
  return std::llround(utcSerial * platform::kSecondsPerDay);
}

}  // namespace

std::string PassListText(std::span<const Pass> passes) {
  std::string text;
  for (const Pass& pass : passes) {
    text += text.empty() ? "\"" : ",\"";
    AppendMoment(text, pass.riseSerial);
    AppendMoment(text, pass.setSerial);
    AppendMoment(text, pass.highestSerial);
    text += platform::PointText(std::round(pass.highestElevationRad / kRadPerDeg * 1e4) / 1e4);
    text += ' ';
    // between the written seconds, so that start and duration give the written end
    text += std::to_string(WholeSecond(pass.setSerial) - WholeSecond(pass.riseSerial));
    text += '"';
  }
  return text;
}

}  // namespace kestrava::orbit
