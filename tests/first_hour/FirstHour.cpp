#include "first_hour/FirstHour.h"

#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QSlider>
#include <exception>

#include "platform/qt/Theme.h"

#include "first_hour/HourStation.h"
#include "support/TempFolder.h"

namespace kestrava::first_hour {

namespace {

constexpr const char* kSettingsButton = "BUTmenu(0)";
constexpr const char* kMapButton = "BUTmenu(6)";
constexpr const char* kHorizonButton = "BUTmenu(8)";
constexpr const char* kLocations = "frmCONlocations";
constexpr const char* kGroups = "frmCONGroups";
constexpr const char* kMain = "frmCONmain";
constexpr const char* k2D = "frmCON2D";
constexpr const char* kMap = "WorldView";
constexpr const char* kHorizon = "Horizon";
constexpr double kMapIsPaintedS = 6;  // three of its ticks
constexpr int kFavouritesToTick = 10;
constexpr int kWeatherRow = 2;

const std::vector<std::string> kMaps{"Default", "Chart", "Large", "Night", "Relief"};
const std::vector<std::string> kSceneries{"hdefault", "hmoonlit", "hsea"};

// Where the places lie, as an atlas has them.
constexpr double kBerlinLat = 52.5, kBerlinLon = 13.3667;
constexpr double kFirstLat = 47.3778, kFirstLon = 8.5417;
constexpr double kLondonLat = 51.5, kLondonLon = -0.1278;

/// Elements as a user may have got them from anywhere.
std::string HandMadeElements(const DataFolder& files) {
  const std::string& stations = files.at("stations.txt");
  const std::size_t lines = stations.find('\n') + 1;
  const std::size_t end = stations.find('\n', stations.find('\n', lines) + 1) + 1;
  return std::string(kHandMadeSatellite) + "\n" + stations.substr(lines, end - lines);
}

class FirstRun {
 public:
  FirstRun(HourStation& station, HourRecord& record) : station_(station), keys_(station.Keys()), record_(record) {}

  void EnterPlace();
  void SeeItOnTheMap();
  void AddAnotherPlace();
  void MakeItPrimary();
  void PickACity();
  void TickFavourites();
  void MakeOnePrimary();
  void AddGroups();
  void TurnSpeechOn();
  void ChooseClocksUnitsAndLook();
  void ChoosePictures();
  void CloseEverything();

 private:
  HourStation& station_;
  Keyboard& keys_;
  HourRecord& record_;
};

void FirstRun::EnterPlace() {
  keys_.Begin("enters his place in degrees, minutes and seconds");
  keys_.OpenFromLauncher(kSettingsButton, "mnuLocations", kLocations);
  keys_.TypeInto("Tlocation", kFirstPlaceName);
  keys_.TypeInto("tHASL", "408");
  keys_.TypeInto("tLAT1(0)", "47");
  keys_.TypeInto("tLAT1(1)", "22");
  keys_.TypeInto("tLAT1(2)", "40");
  keys_.Tick("CHns(0)", true);
  keys_.TypeInto("tLON1(0)", "8");
  keys_.TypeInto("tLON1(1)", "32");
  keys_.TypeInto("tLON1(2)", "30");
  keys_.Tick("CHew(0)", false);
  record_.placeTyped = station_.Read(kLocations);
  keys_.Alt(Qt::Key_S);
  keys_.CloseWindow(kLocations);
}

void FirstRun::SeeItOnTheMap() {
  keys_.Begin("sees his place on the map");
  keys_.OpenFromLauncher(kMapButton, "mnu2Dworld", kMap);
  keys_.Wait(kMapIsPaintedS);
  record_.firstPlace = station_.SeePlace(kFirstLat, kFirstLon, kBerlinLat, kBerlinLon);
}

void FirstRun::AddAnotherPlace() {
  keys_.Begin("adds another place, in decimal degrees");
  keys_.OpenFromLauncher(kSettingsButton, "mnuLocations", kLocations);
  keys_.TypeInto("Tlocation", "London");
  keys_.TypeInto("tHASL", "11");
  keys_.Tick("CHdecDeg", true);
  keys_.TypeInto("tLAT2", station_.Typed("51.5"));
  keys_.Tick("CHns(2)", true);
  keys_.TypeInto("TLON2", station_.Typed("0.1278"));
  keys_.Tick("CHew(2)", true);
  keys_.Alt(Qt::Key_A);
}

/// The place just added is the selected one.
void FirstRun::MakeItPrimary() {
  keys_.Begin("makes it his primary location");
  keys_.Alt(Qt::Key_P);
  keys_.CloseWindow(kLocations);
  keys_.Wait(kMapIsPaintedS);
  record_.primaryPlace = station_.SeePlace(kLondonLat, kLondonLon, kBerlinLat, kBerlinLon);
}

/// Of a town he knows neither the place nor the signs; the list has no height of it. And one of the shipped places he
/// does not want to see on the map.
void FirstRun::PickACity() {
  keys_.Begin("picks a place by the name of a city");
  keys_.OpenFromLauncher(kSettingsButton, "mnuLocations", kLocations);
  keys_.Alt(Qt::Key_F);
  keys_.Type("quito");
  keys_.Press(Qt::Key_Return);
  record_.cityPicked = station_.Read(kLocations);
  keys_.TypeInto("tHASL", "2850");
  keys_.Alt(Qt::Key_A);
  keys_.TabTo("ListLocations");
  keys_.Press(Qt::Key_Home);
  keys_.PressTimes(2, Qt::Key_Down);
  keys_.Press(Qt::Key_Space);
  keys_.CloseWindow(kLocations);
}

void FirstRun::TickFavourites() {
  keys_.Begin("opens a group and ticks ten favourites");
  keys_.OpenFromLauncher(kSettingsButton, "mnuGroupsFaves", kGroups);
  keys_.TabTo("GroupList");
  keys_.Press(Qt::Key_Home);
  keys_.PressTimes(kWeatherRow, Qt::Key_Down);
  keys_.TabTo("SatelliteList");
  keys_.Press(Qt::Key_Home);
  auto& list = keys_.Focused<QListWidget>();
  for (int row = 0; row < list.count() && record_.ticked.size() < kFavouritesToTick; ++row) {
    if (row > 0) keys_.Press(Qt::Key_Down);
    if (list.item(row)->checkState() == Qt::Checked) continue;
    keys_.Press(Qt::Key_Space);
    if (list.item(row)->checkState() == Qt::Checked) record_.ticked.push_back(list.item(row)->text().toStdString());
  }
}

void FirstRun::MakeOnePrimary() {
  keys_.Begin("searches one of them and makes it the primary favourite");
  keys_.TabTo("FilterBox");
  keys_.Type("fm3");
  keys_.Press(Qt::Key_Down);
  keys_.Expect({"Primary Favourite Satellite changed from ISS (ZARYA) to FORMOSAT-3 FM3", {}});
  keys_.Alt(Qt::Key_P);
  keys_.CheckAllBoxesCame();
}

void FirstRun::AddGroups() {
  keys_.Begin("adds a group of the element server");
  keys_.ChooseIn("COMCelestrak", "Search and Rescue");
  keys_.TabTo("BUTaddCelestrak");
  keys_.Press(Qt::Key_Space);
  keys_.Begin("adds a group of his own");
  keys_.Expect({"Is this new group updated via the Internet?", {}, Qt::Key_N, Qt::AltModifier});
  keys_.Expect({"Type a Display name for this group", "My own"});
  keys_.Expect({"Type the name of the file containing the keps", kHandMadeFile});
  keys_.Alt(Qt::Key_N);
  keys_.CheckAllBoxesCame();
  keys_.TabTo("GroupList");
  keys_.Press(Qt::Key_End);
  record_.ownGroupLists = station_.Read(kGroups)["SatelliteList"];
  keys_.CloseWindow(kGroups);
}

void FirstRun::TurnSpeechOn() {
  keys_.Begin("turns speech on and chooses voice and speed");
  record_.launcherAtFirst = station_.Read("frmLAUNCHER");
  keys_.OpenFromLauncher(kSettingsButton, "mnuMainSettings", kMain);
  record_.heardBeforeSpeechOn = record_.voice.heard.size();
  keys_.Tick("CHspeechpack", true);
  keys_.TabTo("VoiceSelect");
  keys_.Press(Qt::Key_Down);
  keys_.TabTo("SLspeechspeed");
  keys_.PressTimes(2, Qt::Key_PageUp);
  keys_.Press(Qt::Key_Right);
  keys_.BackTabTo("VoiceSelect");
  keys_.Press(Qt::Key_Down);
  keys_.TypeOver("CBOevery", "5");
  keys_.TypeOver("CBOstart", "20");
}

void FirstRun::ChooseClocksUnitsAndLook() {
  keys_.Begin("chooses clocks, miles and the look");
  keys_.TabTo("OPclocks(1)");  // the chosen one of the three has the keyboard
  keys_.Press(Qt::Key_Right);
  keys_.Tick("CHmiles", true);
  keys_.Tick("CHskin", false);
  record_.skinChanged = platform::qt::SkinIsOn();
  keys_.CloseWindow(kMain);
  record_.launcherChanged = station_.Read("frmLAUNCHER");
}

void FirstRun::ChoosePictures() {
  keys_.Begin("chooses another map and another scenery");
  keys_.OpenFromLauncher(kSettingsButton, "mnu2Dsettings", k2D);
  keys_.ChooseIn("COMmap", "Relief");
  keys_.ChooseIn("COMhormap", "hsea");
  keys_.CloseWindow(k2D);
}

void FirstRun::CloseEverything() {
  keys_.Begin("closes everything");
  keys_.CloseWindow(kMap);
  keys_.CloseWindow("frmLAUNCHER");
}

DataFolder LiveTheFirstRun(const User& user, const testing::TempFolder& settings, HourRecord& record) {
  HourStation station(user, settings.Path(), record.voice, {});
  station.Station().House().Put(kHandMadeFile, HandMadeElements(station.Files()));
  station.Start();
  FirstRun run(station, record);
  run.EnterPlace();
  run.SeeItOnTheMap();
  run.AddAnotherPlace();
  run.MakeItPrimary();
  run.PickACity();
  run.TickFavourites();
  run.MakeOnePrimary();
  run.AddGroups();
  run.TurnSpeechOn();
  run.ChooseClocksUnitsAndLook();
  run.ChoosePictures();
  run.CloseEverything();
  record.boxes = station.Keys().Boxes();
  record.keysPressed = station.Keys().KeysPressed();
  record.faults = station.Station().TakeFaults();
  record.left = station.FilesOfTheUser();
  return station.Files();
}

/// The ticked satellites of the group in which he ticked.
std::vector<std::string> TickedOf(QListWidget& list) {
  std::vector<std::string> names;
  for (int row = 0; row < list.count(); ++row)
    if (list.item(row)->checkState() == Qt::Checked) names.push_back(list.item(row)->text().toStdString());
  return names;
}

void LookAtThePanels(HourStation& station, HourRecord& record) {
  Keyboard& keys = station.Keys();
  keys.Begin("looks at his settings after the new start");
  keys.OpenFromLauncher(kSettingsButton, "mnuMainSettings", kMain);
  record.mainSettings = station.Read(kMain);
  keys.CloseWindow(kMain);
  keys.OpenFromLauncher(kSettingsButton, "mnu2Dsettings", k2D);
  record.settings2D = station.Read(k2D);
  keys.CloseWindow(k2D);
  keys.OpenFromLauncher(kSettingsButton, "mnuLocations", kLocations);
  record.locations = station.Read(kLocations);
  keys.CloseWindow(kLocations);
  keys.OpenFromLauncher(kSettingsButton, "mnuGroupsFaves", kGroups);
  keys.TabTo("GroupList");
  keys.Press(Qt::Key_Home);
  keys.PressTimes(kWeatherRow, Qt::Key_Down);
  record.groups = station.Read(kGroups);
  record.tickedAgain = TickedOf(keys.In<QListWidget>(kGroups, "SatelliteList"));
  keys.CloseWindow(kGroups);
}

void LookAtTheViews(HourStation& station, HourRecord& record) {
  Keyboard& keys = station.Keys();
  keys.Begin("looks at his views after the new start");
  keys.OpenFromLauncher(kMapButton, "mnu2Dworld", kMap);
  keys.Wait(kMapIsPaintedS);
  record.placeAgain = station.SeePlace(kLondonLat, kLondonLon, kBerlinLat, kBerlinLon);
  record.map = station.Read(kMap);
  record.mapPicture = station.PictureOf(kMap, kMaps);
  keys.OpenFromLauncher(kHorizonButton, {}, kHorizon);
  keys.Wait(kMapIsPaintedS);
  record.horizonPicture = station.PictureOf(kHorizon, kSceneries);
  keys.CloseWindow(kHorizon);
  keys.CloseWindow(kMap);
}

void LiveTheSecondRun(const User& user, const testing::TempFolder& settings, const DataFolder& files,
                      HourRecord& record) {
  HourStation station(user, settings.Path(), record.voiceAgain, files);
  station.Start();
  record.launcher = station.Read("frmLAUNCHER");
  LookAtThePanels(station, record);
  LookAtTheViews(station, record);
  station.Keys().Begin("closes everything again");
  station.Keys().CloseWindow("frmLAUNCHER");
  for (const std::string& fault : station.Station().TakeFaults()) record.faults.push_back(fault);
  record.found = station.FilesOfTheUser();
}

}  // namespace

HourRecord LiveThrough(const User& user) {
  HourRecord record;
  const testing::TempFolder settings;
  try {
    const DataFolder files = LiveTheFirstRun(user, settings, record);
    LiveTheSecondRun(user, settings, files, record);
  } catch (const std::exception& failure) {
    record.failure = failure.what();
  }
  return record;
}

}  // namespace kestrava::first_hour
