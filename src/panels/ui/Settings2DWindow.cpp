#include "Settings2DWindow.h"

#include <QGridLayout>
#include <QGroupBox>

#include "panels/ui/PanelWindows.h"
#include "platform/Messages.h"
#include "platform/qt/Widgets.h"

#include "PanelForm.h"

namespace kestrava::panels::ui {

using platform::RunUntrapped;
using platform::qt::Named;
using platform::qt::ToQt;

namespace {

template <class Which>
std::size_t PlaceOf(Which which) {
  return static_cast<std::size_t>(which);
}

}  // namespace

Settings2DWindow::Settings2DWindow() : StationWindow(kSettings2DWindow) {
  setWindowTitle(ToQt(kSettings2DCaption));
  BuildUi();
  ConnectSignals();
  behaviour_.Load();
}

void Settings2DWindow::BuildUi() {
  QWidget* page = MakePage(*this);
  LayOutPanel(*this, page, {BuildMap(page), BuildPictures(page)});
  checks_[PlaceOf(MapCheck::kInfoPane)]->setFocus();
}

QGroupBox* Settings2DWindow::BuildMap(QWidget* page) {
  QGroupBox* section = MakeSection("FrameMap", tr("Map"), page);
  QGridLayout& grid = *MakeGrid(*section);
  AddCheck(grid, MapCheck::kInfoPane, "Info");
  AddCheck(grid, MapCheck::kAltWorld, "Alternate");
  AddCheck(grid, MapCheck::kFootprints, "Footprints");
  AddCheck(grid, MapCheck::kGroundTrack, "Groundtrack");
  AddSlider(grid, MapSlider::kGroundTrackLen, "Length");
  AddSlider(grid, MapSlider::kMapUpdate, "Update");
  AddNote(grid, tr("The info pane follows when a map is opened, the alternate view when \"World\" is chosen again. "
                   "All else shows on open maps within a few ticks."));
  return section;
}

QGroupBox* Settings2DWindow::BuildPictures(QWidget* page) {
  QGroupBox* section = MakeSection("FramePictures", tr("Pictures"), page);
  QGridLayout& grid = *MakeGrid(*section);
  AddPicture(grid, MapPicture::kMap, "Map");
  AddPicture(grid, MapPicture::kHorizon, "Horizon");
  AddNote(grid,
          tr("A picture shows when its window is opened anew. Both lists hold every .jpg file of the data folder."));
  return section;
}

void Settings2DWindow::AddCheck(QGridLayout& grid, MapCheck check, std::string_view mnemonicAt) {
  checks_[PlaceOf(check)] = AddTickBox(grid, MapChecks()[PlaceOf(check)], mnemonicAt);
}

void Settings2DWindow::AddSlider(QGridLayout& grid, MapSlider slider, std::string_view mnemonicAt) {
  sliders_[PlaceOf(slider)] = AddValueSlider(grid, MapSliders()[PlaceOf(slider)], mnemonicAt);
}

void Settings2DWindow::AddPicture(QGridLayout& grid, MapPicture picture, std::string_view mnemonicAt) {
  const PictureRow& row = MapPictureRows()[PlaceOf(picture)];
  auto* box = Named(new platform::qt::ComboList(grid.parentWidget()), ToQt(row.objectName));
  pictures_[PlaceOf(picture)] = box;
  AddField(grid, WithMnemonic(row.heading, mnemonicAt), box);
}

void Settings2DWindow::ConnectSignals() {
  for (std::size_t i = 0; i < checks_.size(); ++i) {
    connect(checks_[i], &QCheckBox::clicked, this, [this, i] { behaviour_.CheckClicked(static_cast<MapCheck>(i)); });
  }
  for (std::size_t i = 0; i < sliders_.size(); ++i) {
    connect(sliders_[i], &ValueSlider::Moved, this, [this, i] { behaviour_.SliderMoved(static_cast<MapSlider>(i)); });
    connect(sliders_[i], &ValueSlider::Changed, this,
            [this, i] { behaviour_.SliderChanged(static_cast<MapSlider>(i)); });
  }
  for (std::size_t i = 0; i < pictures_.size(); ++i) {
    connect(pictures_[i], &QComboBox::activated, this,
            [this, i] { behaviour_.PicturePicked(static_cast<MapPicture>(i)); });
  }
}

std::unique_ptr<platform::Window> MakeSettings2DWindow() {
  return std::make_unique<Settings2DWindow>();
}

}  // namespace kestrava::panels::ui
