#include "panels/Settings2DPanel.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Text.h"

namespace kestrava::panels {

namespace {

constexpr std::string_view kLoadTrap = "2Dcon - FormLoad";
constexpr std::string_view kPictureEnding = ".JPG";

constexpr std::array<CheckRow, 4> kChecks{
    {{"CHshowinfopane", "Show Info Pane", "ShowInfoPane", "1"},
     {"CHaltworld", "Alternate World View (Ideal for Australia/New Zealand)", "Altworld", "0"},
     {"CHfootprints", "Show Footprints", "ShowFootprints", "1"},
     {"CHgroundtrack", "Show Groundtrack", "ShowGroundtrack", "1"}}};

constexpr std::array<SliderRow, 2> kSliders{
    {{"SLgroundTrackLen", "LABgroundtrackLen", "Groundtrack Length (in Minutes)", "GroundTrackLen", "90", 5, 1440, 1,
      60, 0, "Minutes"},
     {"SLMapUpdate", "LABmapUpdate", "Map Update (in Seconds)", "MapUpdate", "2", 2, 60, 1, 60, 0, "Seconds"}}};

constexpr std::array<PictureRow, 2> kPictures{
    {{"COMmap", "2D Map Image File", "MapFile", "Default"},
     {"COMhormap", "Panoramic Horizon View Image File", "HorizonFile", "hdefault"}}};

template <class Rows, class Which>
const auto& RowOf(const Rows& rows, Which which) {
  return platform::At(rows, static_cast<int>(which));
}

/// The pictures of the data folder, each by its name up to the last point. Maps and sceneries are not told apart.
std::vector<std::string> PictureStems() {
  std::vector<std::string> stems;
  for (const std::string& name : platform::TheFiles().List(platform::AppDir)) {
    if (name.size() < kPictureEnding.size()) continue;
    const std::size_t stemLength = name.size() - kPictureEnding.size();
    if (platform::ToCapitals(name.substr(stemLength)) == kPictureEnding) stems.push_back(name.substr(0, stemLength));
  }
  return stems;
}

}  // namespace

std::span<const CheckRow> MapChecks() {
  return kChecks;
}

std::span<const SliderRow> MapSliders() {
  return kSliders;
}

std::span<const PictureRow> MapPictureRows() {
  return kPictures;
}

void Settings2DPanel::Load() {
  const platform::FaultTrap trap{kLoadTrap};
  loading_ = true;
  trap([&] { view_.ApplySkin(); });
  for (const MapSlider slider : {MapSlider::kGroundTrackLen, MapSlider::kMapUpdate}) {
    ShowSetting(RowOf(kSliders, slider), view_.Slider(slider), kLoadTrap);
  }
  for (const MapCheck check :
       {MapCheck::kInfoPane, MapCheck::kAltWorld, MapCheck::kFootprints, MapCheck::kGroundTrack}) {
    ShowSetting(RowOf(kChecks, check), view_.Check(check));
  }
  FillPictures();
  loading_ = false;
}

void Settings2DPanel::FillPictures() {
  const platform::FaultTrap trap{kLoadTrap};
  std::vector<std::string> stems;
  trap([&] { stems = PictureStems(); });
  for (const MapPicture picture : {MapPicture::kMap, MapPicture::kHorizon}) {
    platform::ComboControl& box = view_.Picture(picture);
    const PictureRow& row = RowOf(kPictures, picture);
    box.Clear();
    for (const std::string& stem : stems) box.Add(stem);
    box.SetText(platform::ReadSetting(row.setting, row.defaultValue));
  }
}

void Settings2DPanel::CheckClicked(MapCheck check) {
  if (!loading_) StoreSetting(RowOf(kChecks, check), view_.Check(check));
}

void Settings2DPanel::SliderMoved(MapSlider slider) {
  if (!loading_) ShowValue(RowOf(kSliders, slider), view_.Slider(slider));
}

void Settings2DPanel::SliderChanged(MapSlider slider) {
  if (loading_) return;
  StoreSetting(RowOf(kSliders, slider), view_.Slider(slider));
  ShowValue(RowOf(kSliders, slider), view_.Slider(slider));
}

void Settings2DPanel::PicturePicked(MapPicture picture) {
  if (!loading_) StoreByClick(RowOf(kPictures, picture).setting, view_.Picture(picture).Text());
}

}  // namespace kestrava::panels
