#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "panels/Settings2DPanel.h"
#include "platform/Settings.h"

#include "PanelDoubles.h"
#include "support/House.h"

namespace kestrava::panels {
namespace {

class View : public Settings2DView {
 public:
  void ApplySkin() override { ++skins; }
  CheckControl& Check(MapCheck check) override { return checks[check]; }
  SliderControl& Slider(MapSlider slider) override { return sliders[slider]; }
  platform::ComboControl& Picture(MapPicture picture) override { return pictures[picture]; }

  std::map<MapCheck, RecordingCheck> checks;
  std::map<MapSlider, RecordingSlider> sliders;
  std::map<MapPicture, RecordingCombo> pictures;
  int skins = 0;
};

using Texts = std::vector<std::string>;

class Settings2DPanelTest : public testing::House {
 protected:
  Settings2DPanelTest() {
    for (const MapSlider slider : {MapSlider::kGroundTrackLen, MapSlider::kMapUpdate}) {
      view.sliders[slider].onChange = [this, slider] { panel.SliderChanged(slider); };
    }
    for (const MapCheck check : kAllChecks) view.checks[check].onChange = [this, check] { panel.CheckClicked(check); };
  }
  void Move(MapSlider slider, int value) { view.sliders[slider].SetValue(value); }

  static constexpr MapCheck kAllChecks[] = {MapCheck::kInfoPane, MapCheck::kAltWorld, MapCheck::kFootprints,
                                            MapCheck::kGroundTrack};
  View view;
  Settings2DPanel panel{view};
};

TEST_F(Settings2DPanelTest, ANewStationShowsTheDefaults) {
  panel.Load();
  EXPECT_EQ(view.skins, 1);
  EXPECT_TRUE(view.checks[MapCheck::kInfoPane].checked);
  EXPECT_FALSE(view.checks[MapCheck::kAltWorld].checked);
  EXPECT_TRUE(view.checks[MapCheck::kFootprints].checked);
  EXPECT_TRUE(view.checks[MapCheck::kGroundTrack].checked);
  EXPECT_EQ(view.sliders[MapSlider::kGroundTrackLen].value, 90);
  EXPECT_EQ(view.sliders[MapSlider::kGroundTrackLen].label, "90 Minutes");
  EXPECT_EQ(view.sliders[MapSlider::kMapUpdate].value, 2);
  EXPECT_EQ(view.sliders[MapSlider::kMapUpdate].label, "2 Seconds");
  EXPECT_EQ(view.pictures[MapPicture::kMap].text, "Default");
  EXPECT_EQ(view.pictures[MapPicture::kHorizon].text, "hdefault");
}

TEST_F(Settings2DPanelTest, LoadingWritesNothingBackThoughControlsTellOfEveryChange) {
  for (const auto& [key, value] : std::map<std::string, std::string>{{"ShowInfoPane", "0"},
                                                                     {"Altworld", "1"},
                                                                     {"ShowFootprints", "0"},
                                                                     {"ShowGroundtrack", "0"},
                                                                     {"GroundTrackLen", "5000"},
                                                                     {"MapUpdate", "7.5"},
                                                                     {"MapFile", "mine"},
                                                                     {"HorizonFile", "view"}}) {
    platform::WriteSetting(key, value);
  }
  settings.ForgetAccesses();
  panel.Load();
  EXPECT_TRUE(settings.Writes().empty());
  EXPECT_TRUE(view.checks[MapCheck::kAltWorld].checked);
  EXPECT_FALSE(view.checks[MapCheck::kFootprints].checked);
  TakeFaults();
}

TEST_F(Settings2DPanelTest, AValueBeyondTheSlidersRangeIsLoggedShownClampedAndKeptUntilTheUserMovesIt) {
  platform::WriteSetting("GroundTrackLen", "5000");
  platform::WriteSetting("MapUpdate", "1");
  panel.Load();
  EXPECT_EQ(TakeFaults(), (Texts{"Invalid property value: GroundTrackLen 5000 - 2Dcon - FormLoad",
                                 "Invalid property value: MapUpdate 1 - 2Dcon - FormLoad"}));
  EXPECT_EQ(view.sliders[MapSlider::kGroundTrackLen].value, 1440);
  EXPECT_EQ(view.sliders[MapSlider::kGroundTrackLen].label, "1440 Minutes");
  EXPECT_EQ(view.sliders[MapSlider::kMapUpdate].value, 2);
  EXPECT_EQ(settings.Get("GroundTrackLen"), "5000");
  EXPECT_EQ(settings.Get("MapUpdate"), "1");
  EXPECT_EQ(view.pictures[MapPicture::kMap].text, "Default") << "the load goes on";
  Move(MapSlider::kGroundTrackLen, 1439);
  EXPECT_EQ(settings.Get("GroundTrackLen"), "1439");
}

TEST_F(Settings2DPanelTest, AHugeValueIsShownClampedToo) {
  platform::WriteSetting("GroundTrackLen", "1e300");
  platform::WriteSetting("MapUpdate", "-1e300");
  panel.Load();
  EXPECT_EQ(TakeFaults().size(), 2u);
  EXPECT_EQ(view.sliders[MapSlider::kGroundTrackLen].value, 1440);
  EXPECT_EQ(view.sliders[MapSlider::kMapUpdate].value, 2);
}

TEST_F(Settings2DPanelTest, AValueThatIsNoNumberIsLoggedAndTheDefaultShown) {
  platform::WriteSetting("MapUpdate", "often");
  panel.Load();
  EXPECT_EQ(TakeFaults(), Texts{"Type mismatch - 2Dcon - FormLoad"});
  EXPECT_EQ(view.sliders[MapSlider::kMapUpdate].value, 2);
  EXPECT_EQ(settings.Get("MapUpdate"), "often");
}

TEST_F(Settings2DPanelTest, EveryControlWritesItsSettingAtOnce) {
  panel.Load();
  for (const MapCheck check : kAllChecks) view.checks[check].SetChecked(!view.checks[check].checked);
  EXPECT_EQ(settings.Get("ShowInfoPane"), "0");
  EXPECT_EQ(settings.Get("Altworld"), "1");
  EXPECT_EQ(settings.Get("ShowFootprints"), "0");
  EXPECT_EQ(settings.Get("ShowGroundtrack"), "0");
  view.checks[MapCheck::kInfoPane].SetChecked(true);
  EXPECT_EQ(settings.Get("ShowInfoPane"), "1");
  Move(MapSlider::kGroundTrackLen, 120);
  EXPECT_EQ(settings.Get("GroundTrackLen"), "120");
  EXPECT_EQ(view.sliders[MapSlider::kGroundTrackLen].label, "120 Minutes");
  Move(MapSlider::kMapUpdate, 60);
  EXPECT_EQ(settings.Get("MapUpdate"), "60");
  EXPECT_EQ(view.sliders[MapSlider::kMapUpdate].label, "60 Seconds");
  view.pictures[MapPicture::kMap].text = "ocean";
  panel.PicturePicked(MapPicture::kMap);
  view.pictures[MapPicture::kHorizon].text = "hsea";
  panel.PicturePicked(MapPicture::kHorizon);
  EXPECT_EQ(settings.Get("MapFile"), "ocean");
  EXPECT_EQ(settings.Get("HorizonFile"), "hsea");
}

TEST_F(Settings2DPanelTest, ASliderOnItsWayTellsItsValueAndStoresItAtTheEnd) {
  panel.Load();
  view.sliders[MapSlider::kMapUpdate].value = 30;
  panel.SliderMoved(MapSlider::kMapUpdate);
  EXPECT_EQ(view.sliders[MapSlider::kMapUpdate].label, "30 Seconds");
  EXPECT_EQ(settings.Get("MapUpdate"), "2");
  panel.SliderChanged(MapSlider::kMapUpdate);
  EXPECT_EQ(settings.Get("MapUpdate"), "30");
}

TEST_F(Settings2DPanelTest, BothBoxesOfferAllPicturesOfTheFolder) {
  for (const char* name : {"Default.jpg", "hsea.jpg", "Loud.JPG", "notes.txt", "a.jpeg", ".jpg", "jpg"}) Put(name, "x");
  panel.Load();
  std::vector<std::string> offered = view.pictures[MapPicture::kMap].entries;
  std::sort(offered.begin(), offered.end());
  EXPECT_EQ(offered, (Texts{"", "Default", "Loud", "hsea"}));
  EXPECT_EQ(view.pictures[MapPicture::kHorizon].entries, view.pictures[MapPicture::kMap].entries);
}

TEST_F(Settings2DPanelTest, AFileNameWithSeveralDotsIsCutAtTheLastOnly) {
  Put("blue.marble.2004.jpg", "x");
  panel.Load();
  EXPECT_EQ(view.pictures[MapPicture::kMap].entries, Texts{"blue.marble.2004"});
}

TEST_F(Settings2DPanelTest, WithoutPicturesTheBoxesStayEmptyAndShowTheStoredNames) {
  platform::WriteSetting("MapFile", "gone");
  panel.Load();
  EXPECT_TRUE(view.pictures[MapPicture::kMap].entries.empty());
  EXPECT_EQ(view.pictures[MapPicture::kMap].text, "gone");
  EXPECT_EQ(view.pictures[MapPicture::kHorizon].text, "hdefault");
}

TEST_F(Settings2DPanelTest, AStoreThatTakesNothingIsSaid) {
  panel.Load();
  settings.FailWrites(platform::Fault::DiskFull());
  messages.ExpectMessage("The storing of a setting could not be done: Disk full");
  view.checks[MapCheck::kInfoPane].SetChecked(false);
  messages.ExpectMessage("Disk full");
  Move(MapSlider::kMapUpdate, 3);
  settings.Mend();
}

TEST_F(Settings2DPanelTest, TheTablesHaveARowForEveryControl) {
  EXPECT_EQ(MapChecks().size(), 4u);
  EXPECT_EQ(MapChecks()[1].caption, "Alternate World View (Ideal for Australia/New Zealand)");
  ASSERT_EQ(MapSliders().size(), 2u);
  EXPECT_EQ(MapSliders()[0].minimum, 5);
  EXPECT_EQ(MapSliders()[0].maximum, 1440);
  EXPECT_EQ(MapSliders()[0].largeStep, 60);
  EXPECT_EQ(MapSliders()[1].minimum, 2);
  EXPECT_EQ(MapSliders()[1].maximum, 60);
  EXPECT_EQ(MapPictureRows().size(), 2u);
}

}  // namespace
}  // namespace kestrava::panels
