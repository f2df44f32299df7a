// One evening at the station, from 18:00 local time of 15 November 2026 at 47.4 N 8.5 E, with the tests' station:
// the windows are opened through the launcher's own controls, the satellites rise and set in simulated time, and the
// user does now and then what a user does. What was said, and when, is the result. Times are seconds since 18:00.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/SerialDate.h"

#include "evening/EveningVoice.h"

namespace kestrava::evening {

inline constexpr platform::DateParts kStartLocal{2026, 11, 15, 18, 0, 0};
inline constexpr double kOffsetHours = 1;
inline constexpr double kLatitudeDeg = 47.4;
inline constexpr double kLongitudeWestDeg = 351.5;
inline constexpr int kMapUpdateS = 10;

enum class Deed {
  kOpenMap,
  kOpenTable,
  kOpenHorizon,
  kExitTable,
  kShowEta,
  kToggleSpeech,
  kClickHorizon,  ///< at the third and two thirds of the picture's sides
  kClickGround,   ///< far to the right, near the lower edge
  kToggleAnnouncer,
  kAnnounceInHorizon,
  kAnnounceInMap,
  kCentreNorth,
  kEscapeInHorizon,
  kEscapeInTable,
};

struct Plan {
  int atS;
  Deed deed;
};

/// What the user does in this evening.
const std::vector<Plan>& ThePlan();
/// Moments at which the plan has a deed.
std::vector<int> TimesOf(Deed deed);
/// How it stands in the transcript.
std::string_view WordsOf(Deed deed);

/// A click on the horizon picture, and the size that the picture had.
struct Click {
  int atS;
  int x, y;
  int width, height;
};

struct EveningRecord {
  VoiceRecord voice;
  std::vector<Click> clicks;
  std::vector<std::string> faults;
  std::vector<std::string> messages;
  int endS = 0;
};

/// Lives through the evening. @param speechpack  the setting of that name
EveningRecord LiveThrough(int endS, std::string_view speechpack);

/// "18:03:05" for a moment.
std::string ClockOf(double atS);

/// The texts said in an evening with what the user did between them, a line each.
std::string Transcript(const EveningRecord& evening);

}  // namespace kestrava::evening
