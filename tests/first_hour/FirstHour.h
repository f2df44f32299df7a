// A newcomer's first hour at the station, by the keyboard alone: his places, his favourites and groups, clocks, units,
// look, voice, pictures. Then he closes everything, starts again, and looks whether all is as he left it. Run on
// scripted doors over the real windows as the program registers them; the settings are a real file.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "first_hour/HourVoice.h"

namespace kestrava::first_hour {

/// Who sits at the keys: how his machine writes numbers, and so he.
struct User {
  const char* locale;  ///< "de_DE"
  char decimalSign;
};

/// What the map shows of the primary place, and what the engine computes for.
struct SeenPlace {
  bool marked = false;     ///< the green mark stands where the place lies
  bool oldMarked = false;  ///< one stands where the place before lay
  std::string name;        ///< printed beside the mark
  double latitudeDeg = 0;  ///< of the engine's observer
  double longitudeDegEast = 0;
  double heightM = 0;
};

/// Control to what it shows: ticks as 0 and 1, rows of a tick list with their tick in front.
using Shown = std::map<std::string, std::string>;

struct UserFiles {
  std::string faves;
  std::string groups;
  std::string locations;
  std::string settings;
  bool operator==(const UserFiles&) const = default;
};

struct HourRecord {
  std::string failure;  ///< what he could not do; the hour ended there
  SeenPlace firstPlace;
  SeenPlace primaryPlace;
  Shown placeTyped;                 ///< the boxes of the locations window before the first place was saved
  Shown cityPicked;                 ///< after the city was chosen
  std::vector<std::string> ticked;  ///< the ten, in his order
  std::string ownGroupLists;        ///< first satellite of his own group's list
  std::size_t heardBeforeSpeechOn = 0;
  VoiceRecord voice;
  VoiceRecord voiceAgain;
  std::vector<std::string> boxes;
  std::vector<std::string> faults;
  UserFiles left;
  UserFiles found;          ///< after the second start, in which he has only looked
  Shown launcherAtFirst;    ///< before the clocks were changed
  Shown launcherChanged;    ///< in the same run, behind the main settings
  bool skinChanged = true;  ///< still on there
  Shown launcher, map, mainSettings, settings2D, locations, groups;  ///< in the second start
  std::vector<std::string> tickedAgain;                              ///< of the same group
  SeenPlace placeAgain;
  std::string mapPicture;  ///< the shipped one that it looks most alike
  std::string horizonPicture;
  int keysPressed = 0;
};

inline constexpr const char* kFirstPlaceName = "Z\u00fcrich";
inline constexpr const char* kHandMadeFile = "mykeps.txt";
inline constexpr const char* kHandMadeSatellite = "KESTREL-1";

HourRecord LiveThrough(const User& user);

}  // namespace kestrava::first_hour
