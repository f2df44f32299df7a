#include "predict/QuickEta.h"

#include <array>
#include <cstdint>
#include <memory>
#include <utility>

#include "orbit/OrbitEngine.h"
#include "orbit/TextHelpers.h"
#include "orbit/TimeHelpers.h"
#include "platform/EventLoop.h"
#include "platform/Fault.h"
#include "platform/Format.h"
#include "platform/Settings.h"
#include "platform/Speech.h"
#include "platform/Text.h"

namespace kestrava::predict {

using platform::At;
using platform::SerialDate;

namespace {

constexpr std::size_t kNameCharacters = 14;
constexpr platform::FaultTrap kTrap{"Global UpdateQuickETA"};

/// A row that was never filled holds character 0 as its name.
struct EtaRow {
  std::string name = std::string(kNameCharacters, '\0');
  SerialDate riseLocal = 0;  ///< 0: up now
  SerialDate setLocal = 0;
};

/// The run under way. Its number tells a run that was forgotten during one of its yields that it is over: whatever it
/// worked on may be gone by then.
struct Watch {
  bool busy = false;
  std::uint64_t run = 0;
  const platform::ListControl* list = nullptr;
};

Watch& TheWatch() {
  static Watch watch;
  return watch;
}

/// Raised from the start to the end of a run, however it ends; a run that was forgotten leaves the flag alone, as it
/// may be a later run's by then.
class BusyFlag {
 public:
  explicit BusyFlag(const platform::ListControl& list) : run_(TheWatch().run + 1) { TheWatch() = {true, run_, &list}; }
  ~BusyFlag() {
    if (TheWatch().run == run_) ForgetQuickEta();
  }
  BusyFlag(const BusyFlag&) = delete;
  BusyFlag& operator=(const BusyFlag&) = delete;
  std::uint64_t Run() const { return run_; }

 private:
  std::uint64_t run_;
};

/// A text of exactly 14 characters.
std::string FixedName(std::string_view name) {
  std::string fixed = platform::Left(name, kNameCharacters);
  fixed.append(kNameCharacters - static_cast<std::size_t>(platform::LengthInCharacters(fixed)), ' ');
  return fixed;
}

std::string HourAndMinute(SerialDate date) {
  return platform::Format(platform::HourOf(date), "00") + ":" + platform::Format(platform::MinuteOf(date), "00");
}

class EtaRun {
 public:
  EtaRun(const orbit::Sky& sky, platform::ListControl& list, bool speak, std::uint64_t run)
      : tables_(sky.tables), engine_(sky.engine), list_(list), speak_(speak), run_(run) {}

  /// Each step is false if the run was forgotten on the way.
  void Go() { FillTable() && SortTable() && ShowTable(); }

 private:
  bool Forgotten() const { return TheWatch().run != run_; }

  bool FillTable() {
    SerialDate nowUtc = 0;
    kTrap([&] { nowUtc = orbit::LocalToUTC(orbit::NowLocal()); });
    for (int i = 1, count = tables_.FaveCount; i <= count; ++i) {
      bool blank = false;
      kTrap([&] {
        const orbit::FaveRec& fave = At(tables_.FaveList, i);
        blank = platform::Trim(fave.Name).empty();
        if (!blank) FillRow(At(rows_, i), fave, nowUtc);
      });
      if (blank) continue;
      platform::YieldOnce();
      if (Forgotten()) return false;
    }
    return true;
  }

  void FillRow(EtaRow& row, const orbit::FaveRec& fave, SerialDate nowUtc) {
    row.name = FixedName(fave.Name);
    if (fave.El >= 0) {
      row.riseLocal = 0;
      kTrap([&] {
        row.setLocal = orbit::UTCToLocal(engine_.NextLOSTime(fave.Name, orbit::LocalToUTC(orbit::NowLocal())));
      });
      return;
    }
    SerialDate rise = 0;
    SerialDate set = 0;
    const bool riseKnown = kTrap([&] { rise = engine_.NextAOSTime(fave.Name, nowUtc); });
    const bool setKnown = kTrap([&] { set = rise != -1.0 ? engine_.NextLOSTime(fave.Name, rise) : 0; });
    if (riseKnown) kTrap([&] { row.riseLocal = orbit::UTCToLocal(rise); });
    if (setKnown) kTrap([&] { row.setLocal = orbit::UTCToLocal(set); });
  }

  /// One pass for each favourite, each one row too long: the empty row behind the last takes part with its rise of 0.
  bool SortTable() {
    for (int pass = 1, passes = tables_.FaveCount; pass <= passes; ++pass) {
      for (int i = 2, last = tables_.FaveCount + 1; i <= last; ++i) {
        kTrap([&] {
          if (At(rows_, i).riseLocal < At(rows_, i - 1).riseLocal) std::swap(At(rows_, i), At(rows_, i - 1));
        });
        platform::YieldEvents(1);
        if (Forgotten()) return false;
      }
    }
    return true;
  }

  bool ShowTable() {
    kTrap([&] { list_.Clear(); });
    kTrap([&] { list_.AddRow({"SATELLITE", "AOS", "LOS"}); });
    for (int i = 1, count = tables_.FaveCount; i <= count; ++i) {
      kTrap([&] { ShowRow(At(rows_, i)); });
      platform::YieldEvents(100);
      if (Forgotten()) return false;
    }
    return true;
  }

  void ShowRow(const EtaRow& row) {
    const SerialDate now = orbit::NowLocal();
    std::string set;
    kTrap([&] { set = HourAndMinute(row.setLocal); });
    if (row.riseLocal > now) {
      if (speak_) kTrap([&] { Announce(row, row.riseLocal - now); });
      list_.AddRow({row.name, HourAndMinute(row.riseLocal), set});
    } else if (row.name[0] != '\0') {
      list_.AddRow({row.name, "NOW", set});
    }
  }

  /// Minutes are those of the time of day of the difference: a rise in a day and a minute counts as one minute ahead.
  static void Announce(const EtaRow& row, SerialDate ahead) {
    const long minutes = platform::HourOf(ahead) * 60L + platform::MinuteOf(ahead);
    // Both settings are read whatever the first says, so that both stand in the store from now on.
    const double start = platform::ReadNumberSetting("SpeechStart", "10");
    const double every = platform::ReadNumberSetting("SpeechEvery", "2");
    const bool onTheBeat = platform::Modulo(minutes, platform::ToInt32(every)) == 0;
    if (start < minutes || !onTheBeat) return;
    platform::SayText(orbit::SpokenName(row.name) + " will be in range in " + EtaText(minutes), true,
                      platform::SpeechKind::kAlarm);
  }

  const orbit::Tables& tables_;
  orbit::OrbitEngine& engine_;
  platform::ListControl& list_;
  bool speak_;
  std::uint64_t run_;
  std::array<EtaRow, orbit::kFaveRows + 1> rows_;
};

}  // namespace

void UpdateQuickETA(const orbit::Sky& sky, platform::ListControl& list, bool speak) {
  if (TheWatch().busy) return;
  const BusyFlag busy(list);
  std::make_unique<EtaRun>(sky, list, speak, busy.Run())->Go();
}

bool QuickEtaBusy() {
  return TheWatch().busy;
}

void ForgetQuickEta() {
  TheWatch() = {false, TheWatch().run + 1, nullptr};
}

void ForgetQuickEta(const platform::ListControl& list) {
  if (TheWatch().list == &list) ForgetQuickEta();
}

std::string EtaText(long minutes) {
  if (minutes < 0) return {};
  if (minutes == 0) return "Less than a minute";
  if (minutes == 1) return "1 minute";
  return std::to_string(minutes) + " minutes";
}

}  // namespace kestrava::predict
