#include "evening/Evening.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QTest>
#include <QWidget>
#include <array>
#include <cmath>
#include <stdexcept>

#include "platform/Doors.h"
#include "platform/Format.h"

#include "robot/RobotStation.h"

namespace kestrava::evening {

namespace {

// Small windows: the texts do not depend on their size, and the evening is sooner over.
constexpr const char* kWidthTwips = "5400";
constexpr const char* kHeightTwips = "4050";

struct DeedWords {
  Deed deed;
  std::string_view words;
};
constexpr std::array kWords{
    DeedWords{Deed::kOpenMap, "opens the map"},
    DeedWords{Deed::kOpenTable, "opens the table"},
    DeedWords{Deed::kOpenHorizon, "opens the horizon"},
    DeedWords{Deed::kExitTable, "leaves the table by its exit button"},
    DeedWords{Deed::kShowEta, "has the map show the quick ETA list"},
    DeedWords{Deed::kToggleSpeech, "chooses Speech in the map"},
    DeedWords{Deed::kClickHorizon, "clicks on the sky"},
    DeedWords{Deed::kClickGround, "clicks near the ground"},
    DeedWords{Deed::kToggleAnnouncer, "chooses Position Announcer"},
    DeedWords{Deed::kAnnounceInHorizon, "chooses Speech Announcment in the horizon"},
    DeedWords{Deed::kAnnounceInMap, "chooses Speech Announcement in the map"},
    DeedWords{Deed::kCentreNorth, "chooses Centered on North"},
    DeedWords{Deed::kEscapeInHorizon, "presses Escape in the horizon"},
    DeedWords{Deed::kEscapeInTable, "presses Escape in the table"},
};

/// The station in this evening, with the user at its controls.
class EveningStation {
 public:
  EveningStation(EveningRecord& record, std::string_view speechpack);

  void Start() { station_.Start(); }
  void Close() { station_.Close(); }
  void AdvanceTo(int atS) { station_.Loop().Advance(atS - NowS()); }
  void Do(const Plan& plan);
  void TakeFindings();

 private:
  double NowS() { return station_.House().clock.ElapsedMs() / 1000; }
  QWidget& WindowCalled(const char* name);
  template <class Control>
  Control& In(const char* window, const char* control);
  void ClickButton(const char* window, const char* button);
  void Choose(const char* window, const char* entry);
  void PressEscape(const char* window);
  void ClickThePicture(const Plan& plan);

  EveningRecord& record_;
  robot::RobotStation station_;
};

EveningStation::EveningStation(EveningRecord& record, std::string_view speechpack)
    : record_(record), station_([this] {
        return std::make_unique<EveningVoice>(record_.voice, station_.Loop(), station_.House().clock);
      }) {
  testing::ScriptedHouse& house = station_.House();
  house.clock.SetUtc(platform::MakeSerial(kStartLocal) - kOffsetHours / 24);
  house.clock.SetOffsetHours(kOffsetHours);
  house.settings.Set("Latitude", "47.4");
  house.settings.Set("Longitude", "351.5");
  house.settings.Set("Speechpack", speechpack);
  house.settings.Set("MapUpdate", std::to_string(kMapUpdateS));
  house.settings.Set("WinPosW", kWidthTwips);
  house.settings.Set("WinPosH", kHeightTwips);
}

QWidget& EveningStation::WindowCalled(const char* name) {
  auto* window = dynamic_cast<QWidget*>(station_.Windows().Find(name));
  if (!window) throw std::logic_error(std::string("there is no window ") + name);
  return *window;
}

template <class Control>
Control& EveningStation::In(const char* window, const char* control) {
  auto* found = WindowCalled(window).findChild<Control*>(control);
  if (!found) throw std::logic_error(std::string(window) + " has no " + control);
  return *found;
}

void EveningStation::ClickButton(const char* window, const char* button) {
  auto& clicked = In<QAbstractButton>(window, button);
  station_.Loop().RunEvent([&] { QTest::mouseClick(&clicked, Qt::LeftButton); });
}

void EveningStation::Choose(const char* window, const char* entry) {
  auto& chosen = In<QAction>(window, entry);
  if (!chosen.isEnabled()) throw std::logic_error(std::string(entry) + " cannot be chosen");
  station_.Loop().RunEvent([&] { chosen.trigger(); });
}

void EveningStation::PressEscape(const char* window) {
  QWidget& where = WindowCalled(window);
  station_.Loop().RunEvent([&] { QTest::keyClick(&where, Qt::Key_Escape); });
}

void EveningStation::ClickThePicture(const Plan& plan) {
  auto& final = In<QWidget>("Horizon", "Final");
  const QSize size = final.size();
  const QPoint at = plan.deed == Deed::kClickGround ? QPoint(size.width() * 5 / 6, size.height() - 3)
                                                    : QPoint(size.width() / 3, size.height() * 2 / 3);
  record_.clicks.push_back({plan.atS, at.x(), at.y(), size.width(), size.height()});
  station_.Loop().RunEvent([&] { QTest::mouseClick(&final, Qt::LeftButton, {}, at); });
}

void EveningStation::Do(const Plan& plan) {
  using What = VoiceEvent::What;
  record_.voice.events.push_back({NowS(), What::kDeed, std::string(WordsOf(plan.deed)), {}});
  switch (plan.deed) {
    case Deed::kOpenMap:
      ClickButton("frmLAUNCHER", "BUTmenu(6)");
      Choose("frmLAUNCHER", "mnu2Dworld");  // an open menu belongs to the window that it was opened from
      while (QWidget* menu = QApplication::activePopupWidget()) menu->close();
      break;
    case Deed::kOpenTable:
      ClickButton("frmLAUNCHER", "BUTmenu(9)");
      break;
    case Deed::kOpenHorizon:
      ClickButton("frmLAUNCHER", "BUTmenu(8)");
      break;
    case Deed::kExitTable:
      ClickButton("Tabular", "BUTexit");
      break;
    case Deed::kShowEta:
      ClickButton("WorldView", "BUTimode(1)");
      break;
    case Deed::kToggleSpeech:
      Choose("WorldView", "MspeechONoff");
      break;
    case Deed::kClickHorizon:
    case Deed::kClickGround:
      ClickThePicture(plan);
      break;
    case Deed::kToggleAnnouncer:
      Choose("Horizon", "Mposannounce");
      break;
    case Deed::kAnnounceInHorizon:
      Choose("Horizon", "mnuSpeechAnnouncment");
      break;
    case Deed::kAnnounceInMap:
      Choose("WorldView", "Mmakeannouncement");
      break;
    case Deed::kCentreNorth:
      Choose("Horizon", "Mnorth");
      break;
    case Deed::kEscapeInHorizon:
      PressEscape("Horizon");
      break;
    case Deed::kEscapeInTable:
      PressEscape("Tabular");
      break;
  }
}

void EveningStation::TakeFindings() {
  record_.faults = station_.TakeFaults();
  record_.messages = station_.Messages();
}

std::string_view SortOf(platform::SpeechKind kind) {
  using Kind = platform::SpeechKind;
  switch (kind) {
    case Kind::kPositionReport:
      return "report       ";
    case Kind::kAnnouncement:
      return "announcement ";
    case Kind::kSelection:
      return "selection    ";
    case Kind::kAlarm:
      return "alarm        ";
    case Kind::kSentence:
      break;
  }
  return "sentence     ";
}

std::string LineOf(const VoiceEvent& event) {
  using What = VoiceEvent::What;
  switch (event.what) {
    case What::kDeed:
      return "> the user " + event.text;
    case What::kSpeed:
      return "~ speed " + event.text;
    case What::kVoice:
      return "~ voice " + event.text;
    case What::kAnnouncementBegins:
      return "~ what is left of an earlier announcement goes";
    case What::kStopped:
      return "~ silence";
    case What::kSaid:
      break;
  }
  return std::string(SortOf(event.kind)) + "[" + event.text + "]";
}

}  // namespace

std::vector<int> TimesOf(Deed deed) {
  std::vector<int> times;
  for (const Plan& plan : ThePlan())
    if (plan.deed == deed) times.push_back(plan.atS);
  return times;
}

std::string_view WordsOf(Deed deed) {
  for (const DeedWords& each : kWords)
    if (each.deed == deed) return each.words;
  return {};
}

EveningRecord LiveThrough(int endS, std::string_view speechpack) {
  EveningRecord record;
  EveningStation station(record, speechpack);
  station.Start();
  for (const Plan& plan : ThePlan()) {
    if (plan.atS >= endS) break;
    station.AdvanceTo(plan.atS);
    station.Do(plan);
  }
  station.AdvanceTo(endS);
  record.endS = endS;
  station.Close();
  station.TakeFindings();
  return record;
}

std::string ClockOf(double atS) {
  return platform::Format(platform::MakeSerial(kStartLocal) + atS / platform::kSecondsPerDay, "hh:mm:ss");
}

std::string Transcript(const EveningRecord& evening) {
  std::string text;
  for (const VoiceEvent& event : evening.voice.events) text += ClockOf(event.atS) + " " + LineOf(event) + "\n";
  return text;
}

}  // namespace kestrava::evening
