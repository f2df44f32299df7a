#include "orbit/PassList.h"

#include <cmath>

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
    const double durationS = (pass.setSerial - pass.riseSerial) * platform::kSecondsPerDay;
    text += std::to_string(std::lround(durationS));
    text += '"';
  }
  return text;
}

}  // namespace kestrava::orbit
