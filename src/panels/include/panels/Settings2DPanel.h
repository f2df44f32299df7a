// The behaviour of the 2D settings panel ("2D Controls"): what the map and the horizon view show. Every control writes
// its setting at once. Knows no toolkit: the window is a Settings2DView.
#pragma once

#include <span>
#include <string_view>

#include "panels/PanelControls.h"
#include "panels/SettingRows.h"
#include "platform/ChoiceControls.h"

namespace kestrava::panels {

inline constexpr std::string_view kSettings2DWindow = "frmCON2D";  ///< its name in the registry
inline constexpr std::string_view kSettings2DCaption = "2D Controls";

/// Rows of the tables below, in their order.
enum class MapCheck { kInfoPane, kAltWorld, kFootprints, kGroundTrack };
enum class MapSlider { kGroundTrackLen, kMapUpdate };
enum class MapPicture { kMap, kHorizon };

/// A box that offers the pictures of the data folder.
struct PictureRow {
  std::string_view objectName;
  std::string_view heading;
  std::string_view setting;
  std::string_view defaultValue;
};

std::span<const CheckRow> MapChecks();
std::span<const SliderRow> MapSliders();
std::span<const PictureRow> MapPictureRows();

class Settings2DView {
 public:
  virtual ~Settings2DView() = default;
  virtual void ApplySkin() = 0;
  virtual CheckControl& Check(MapCheck check) = 0;
  virtual SliderControl& Slider(MapSlider slider) = 0;
  virtual platform::ComboControl& Picture(MapPicture picture) = 0;
};

class Settings2DPanel {
 public:
  /// @param view  outlives this object
  explicit Settings2DPanel(Settings2DView& view) : view_(view) {}

  void Load();
  void CheckClicked(MapCheck check);
  /// While it is moved, and once at the end of a change.
  void SliderMoved(MapSlider slider);
  void SliderChanged(MapSlider slider);
  void PicturePicked(MapPicture picture);

 private:
  void FillPictures();

  Settings2DView& view_;
  bool loading_ = false;
};

}  // namespace kestrava::panels
