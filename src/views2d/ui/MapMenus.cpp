#include "MapMenus.h"

#include <array>

#include "platform/Fault.h"
#include "platform/qt/LaterWindows.h"
#include "platform/qt/Widgets.h"

#include "MenuEntries.h"

namespace kestrava::views2d::ui {

namespace {

constexpr int kNoMark = -1;
constexpr int Mark(MapMark mark) {
  return static_cast<int>(mark);
}
constexpr MapMenuRow kSeparator{nullptr, nullptr, nullptr, nullptr, nullptr, kNoMark, nullptr};

constexpr auto kOptions = std::to_array<MapMenuRow>({
    {"MrecordONoffP", "Record Primary Satellite", "Ctrl+Shift+P", &MapWindow::ToggleRecordPrimary, nullptr,
     Mark(MapMark::kRecordPrimary), "Record"},
    {"MrecordONoff", "Record Weather Satellite Passes", "Ctrl+Shift+W", &MapWindow::ToggleRecordWeather, nullptr,
     Mark(MapMark::kRecordWeather), "Record"},
    {"MspeechONoff", "Speech", "Ctrl+Shift+S", &MapWindow::ToggleSpeech, nullptr, Mark(MapMark::kSpeech), nullptr},
    {"mnuAutoSelect", "Auto Select Satellite in range", "Ctrl+Shift+A", &MapWindow::ToggleAutoSelect, nullptr,
     Mark(MapMark::kAutoSelect), nullptr},
});

constexpr auto kControls = std::to_array<MapMenuRow>({
    {"Mnextsat", "Next Satellite", "Ctrl+Right", &MapWindow::NextSatellite, nullptr, kNoMark, nullptr},
    {"Mprevsat", "Previous Satellite", "Ctrl+Left", &MapWindow::PreviousSatellite, nullptr, kNoMark, nullptr},
    kSeparator,
    {"Mworld", "Change to World View", "Ctrl+0", &MapWindow::ChangeToWorld, nullptr, kNoMark, nullptr},
    {"Mnwq", "Change to North West Region", "Ctrl+1", nullptr, "NWQ", kNoMark, nullptr},
    {"Mncq", "Change to North Central Region", "Ctrl+2", nullptr, "NCQ", kNoMark, nullptr},
    {"Mneq", "Change to North East Region", "Ctrl+3", nullptr, "NEQ", kNoMark, nullptr},
    {"Mswq", "Change to South West Region", "Ctrl+4", nullptr, "SWQ", kNoMark, nullptr},
    {"Mscq", "Change to South Central Region", "Ctrl+5", nullptr, "SCQ", kNoMark, nullptr},
    {"Mseq", "Change to South East Region", "Ctrl+6", nullptr, "SEQ", kNoMark, nullptr},
    kSeparator,
    {"Mmakeannouncement", "Speech Announcement", "Ctrl+Shift+N", &MapWindow::MakeAnnouncement, nullptr, kNoMark,
     nullptr},
    kSeparator,
    {"mnu2Dcontrols", "2D View Control Panel", "Ctrl+Shift+C", &MapWindow::ShowControlPanel, nullptr, kNoMark,
     "frmCON2D"},
});

QString EntryName(int index) {
  return platform::qt::ArrayName("MFaveList", index);
}

}  // namespace

std::span<const MapMenuRow> OptionRows() {
  return kOptions;
}
std::span<const MapMenuRow> ControlRows() {
  return kControls;
}

MapMenus::MapMenus(QMenuBar& bar, MapWindow& window) : window_(window), satellites_(bar.addMenu("&Satellite")) {
  platform::qt::Named(satellites_, "M1", "Satellite");
  QAction* heading = satellites_->addAction("-Select a Satellite-");
  heading->setObjectName(EntryName(0));
  favourites_.push_back(heading);
  QObject::connect(heading, &QAction::triggered, heading, [this] { window_.FavouriteClicked(0); });
  QMenu* options = bar.addMenu("&Options");
  platform::qt::Named(options, "M2", "Options");
  AddRows(*options, kOptions);
  QMenu* controls = bar.addMenu("&Controls");
  platform::qt::Named(controls, "M3", "Controls");
  AddRows(*controls, kControls);
}

void MapMenus::AddRows(QMenu& menu, std::span<const MapMenuRow> rows) {
  for (const MapMenuRow& row : rows) {
    if (row.objectName) {
      AddEntry(menu, row);
    } else {
      menu.addSeparator();
    }
  }
}

void MapMenus::AddEntry(QMenu& menu, const MapMenuRow& row) {
  const EntryKind kind = row.mark == kNoMark ? EntryKind::kPlain : EntryKind::kMarked;
  QAction* entry = AddMenuEntry(menu, row.objectName, row.text, row.key, kind, [this, row] {
    row.action ? (window_.*row.action)() : window_.ChangeToRegion(row.region);
  });
  if (row.needsWindow) platform::qt::EnableByWindow(*entry, row.needsWindow);
  if (row.mark != kNoMark) marked_[static_cast<std::size_t>(row.mark)] = entry;
}

void MapMenus::CreateFavouriteEntry(int index) {
  if (index < static_cast<int>(favourites_.size())) throw platform::Fault::ControlAlreadyLoaded();
  QAction* action = satellites_->addAction(QString());
  action->setObjectName(EntryName(index));
  QObject::connect(action, &QAction::triggered, action, [this, index] { window_.FavouriteClicked(index); });
  favourites_.push_back(action);
}

void MapMenus::SetFavouriteCaption(int index, const std::string& caption) {
  QString text = platform::qt::ToQt(caption);
  platform::At(favourites_, index)->setText(text.replace("&", "&&"));
}

}  // namespace kestrava::views2d::ui
