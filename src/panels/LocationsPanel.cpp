#include "panels/LocationsPanel.h"

#include <algorithm>
#include <cmath>

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Format.h"
#include "platform/Text.h"
#include "store/Locations.h"

namespace kestrava::panels {

using platform::Fault;
using platform::FaultTrap;
using platform::NumberText;
using store::ShownAngle;

namespace {

constexpr double kMostLatitudeDeg = 90;
constexpr double kMostLongitudeDeg = 360;  // some count all the way round
constexpr double kMinuteOrSecondEnd = 60;

/// The three boxes of an angle in parts.
struct PartBoxes {
  PlaceBox degrees, minutes, seconds;

  std::array<std::string, 3> TextsIn(const LocationsView& view) const {
    return {view.BoxText(degrees), view.BoxText(minutes), view.BoxText(seconds)};
  }
};
constexpr PartBoxes kLatitudeParts{PlaceBox::kLatDeg, PlaceBox::kLatMin, PlaceBox::kLatSec};
constexpr PartBoxes kLongitudeParts{PlaceBox::kLonDeg, PlaceBox::kLonMin, PlaceBox::kLonSec};

/// A content that a box does not take; the click ends.
class Refused : public Fault {
 public:
  Refused(PlaceBox box, int number, const std::string& why)
      : Fault(number, "the box \"" + std::string(NameOf(box)) + "\" " + why), box_(box) {}
  PlaceBox Box() const { return box_; }

 private:
  PlaceBox box_;
};

std::string Holds(std::string_view text) {
  return "holds \"" + std::string(text) + "\"";
}

/// A number with no more decimals than a click on a map can mean.
double SixDecimals(double degrees) {
  constexpr double kSixDecimals = 1e6;
  return std::round(degrees * kSixDecimals) / kSixDecimals;
}

/// The number in a box, whatever its size.
double NumberIn(const LocationsView& view, PlaceBox box) {
  const std::string text = view.BoxText(box);
  if (platform::Trim(text).empty()) throw Refused(box, 13, "is empty");
  try {
    return store::ParseTyped(text);
  } catch (const Fault& fault) {
    throw Refused(box, fault.Number(), Holds(text) + ", which is no number");
  }
}

double NumberWithin(const LocationsView& view, PlaceBox box, double least, double most) {
  const double value = NumberIn(view, box);
  if (value < least || value > most) {
    throw Refused(box, 6, Holds(view.BoxText(box)) + " and takes " + NumberText(least) + " to " + NumberText(most));
  }
  return value;
}

}  // namespace

std::string_view NameOf(PlaceBox box) {
  constexpr std::array<std::string_view, kPlaceBoxes> kNames{"Name of Location",   "Height Above Sea Level (metres)",
                                                             "Latitude, degrees",  "Latitude, minutes",
                                                             "Latitude, seconds",  "Longitude, degrees",
                                                             "Longitude, minutes", "Longitude, seconds",
                                                             "Latitude",           "Longitude"};
  return kNames.at(static_cast<std::size_t>(box));
}

/// A click without a handler of its own: a fault is said, and the keyboard goes to the box that it was about.
template <class Body>
void LocationsPanel::Click(std::string_view what, Body&& body) {
  std::optional<PlaceBox> refused;
  platform::RunUntrapped(what, [&] {
    try {
      body();
    } catch (const Refused& refusal) {
      refused = refusal.Box();
      throw;
    } catch (const store::LeftAsItIs&) {
      // he was asked, and has said so himself
    }
  });
  if (refused) view_.FocusBox(*refused);
}

/// Changes the table or the settings; where that cannot be stored all is as it was before.
template <class Change>
void LocationsPanel::ChangeOrUndo(Change&& change) {
  const auto before = tables_.LocationList;
  const store::PrimaryPlace primary = store::ReadPrimaryPlace();
  try {
    change();
  } catch (const Fault&) {
    tables_.LocationList = before;
    FaultTrap{"LocCON - Undo"}([&] { store::WritePrimaryPlace(primary); });
    throw;
  }
}

PlacePage LocationsPanel::Page() const {
  return view_.DecDeg().IsChecked() ? PlacePage::kDecimal : PlacePage::kParts;
}

LocationsPanel::Angles LocationsPanel::ReadParts() const {
  const auto minuteOrSecond = [&](PlaceBox box) {
    const double value = NumberIn(view_, box);
    if (value >= 0 && value < kMinuteOrSecondEnd) return value;
    throw Refused(box, 6, Holds(view_.BoxText(box)) + " and takes 0 to less than 60");
  };
  const auto angle = [&](const PartBoxes& boxes, const ShownParts& shown, double mostDeg, PlaceTick tick) {
    const bool ticked = view_.Tick(PlacePage::kParts, tick).IsChecked();
    const bool untouched = boxes.TextsIn(view_) == shown.texts && shown.degrees <= mostDeg;
    if (untouched) return ShownAngle{shown.degrees, ticked};
    const double degrees = NumberWithin(view_, boxes.degrees, -mostDeg, mostDeg);
    const double minutes = minuteOrSecond(boxes.minutes);
    const double value = store::DMSToDeg({degrees, minutes, minuteOrSecond(boxes.seconds)});
    if (std::abs(value) > mostDeg) {
      throw Refused(boxes.degrees, 6,
                    Holds(view_.BoxText(boxes.degrees)) + ", which with its minutes and seconds is beyond " +
                        NumberText(mostDeg));
    }
    return ShownAngle{std::abs(value), value >= 0 && ticked};
  };
  const ShownAngle latitude = angle(kLatitudeParts, shownLatitude_, kMostLatitudeDeg, PlaceTick::kNorth);
  return {latitude, angle(kLongitudeParts, shownLongitude_, kMostLongitudeDeg, PlaceTick::kWest)};
}

LocationsPanel::Angles LocationsPanel::ReadDecimal() const {
  return {{NumberWithin(view_, PlaceBox::kLatDec, 0, kMostLatitudeDeg),
           view_.Tick(PlacePage::kDecimal, PlaceTick::kNorth).IsChecked()},
          {NumberWithin(view_, PlaceBox::kLonDec, 0, kMostLongitudeDeg),
           view_.Tick(PlacePage::kDecimal, PlaceTick::kWest).IsChecked()}};
}

/// What the boxes say, all of it read and checked. The decimal page then shows what will be stored.
store::Place LocationsPanel::ReadPlace() {
  const std::string typedName = view_.BoxText(PlaceBox::kName);
  const std::string name(platform::Trim(typedName));
  if (name.empty()) throw Refused(PlaceBox::kName, 5, "is empty");
  if (name.find_first_of(store::kNotInPlaceNames) != std::string::npos) {
    throw Refused(PlaceBox::kName, 5, Holds(name) + " and takes no semicolon");
  }
  constexpr double kLeastHeightM = -32768;
  constexpr double kMostHeightM = 32767;
  const double heightM = NumberWithin(view_, PlaceBox::kHeight, kLeastHeightM, kMostHeightM);
  const Angles angles = Page() == PlacePage::kParts ? DMSPageToDec() : ReadDecimal();
  return {name, store::StoredLatitude(angles.latitude), store::StoredLongitude(angles.longitude),
          platform::ToInt16(heightM)};
}

void LocationsPanel::ShowTicks(const Angles& angles) {
  for (const PlacePage page : {PlacePage::kParts, PlacePage::kDecimal}) {
    view_.Tick(page, PlaceTick::kNorth).SetChecked(angles.latitude.ticked);
    view_.Tick(page, PlaceTick::kWest).SetChecked(angles.longitude.ticked);
  }
}

void LocationsPanel::ShowParts(const Angles& angles) {
  const auto show = [&](const PartBoxes& boxes, ShownParts& shown, double degrees) {
    const store::DegreeParts parts = store::DegToDMS(degrees);
    view_.SetBoxText(boxes.degrees, NumberText(parts.degrees));
    view_.SetBoxText(boxes.minutes, NumberText(parts.minutes));
    view_.SetBoxText(boxes.seconds, NumberText(parts.seconds));
    shown = {boxes.TextsIn(view_), degrees};
  };
  show(kLatitudeParts, shownLatitude_, angles.latitude.degrees);
  show(kLongitudeParts, shownLongitude_, angles.longitude.degrees);
}

void LocationsPanel::ShowDecimal(const Angles& angles) {
  view_.SetBoxText(PlaceBox::kLatDec, NumberText(angles.latitude.degrees));
  view_.SetBoxText(PlaceBox::kLonDec, NumberText(angles.longitude.degrees));
}

LocationsPanel::Angles LocationsPanel::DMSPageToDec() {
  const Angles angles = ReadParts();
  ShowTicks(angles);
  ShowDecimal(angles);
  return angles;
}

LocationsPanel::Angles LocationsPanel::DecPageToDMS() {
  const Angles angles = ReadDecimal();
  ShowTicks(angles);
  ShowParts(angles);
  return angles;
}

void LocationsPanel::ShowAngles(double latitudeDeg, double longitudeDegWest) {
  const Angles angles{store::ShownLatitude(latitudeDeg), store::ShownLongitude(longitudeDegWest)};
  ShowTicks(angles);
  ShowDecimal(angles);
  ShowParts(angles);
}

void LocationsPanel::ShowPrimary() {
  const FaultTrap trap{"LocCON - FormLoad"};
  const store::PrimaryPlace place = store::ReadPrimaryPlace();
  view_.SetBoxText(PlaceBox::kName, place.name);
  view_.SetBoxText(PlaceBox::kHeight, place.heightM);
  double latitudeDeg = 0;
  double longitudeDegWest = 0;
  trap([&] { latitudeDeg = store::ParseStoredDegrees(place.latitude); });
  trap([&] { longitudeDegWest = store::ParseStoredDegrees(place.longitude); });
  ShowAngles(latitudeDeg, longitudeDegWest);
  Settle();
}

void LocationsPanel::ShowRow(int row) {
  const orbit::LocationRec& place = platform::At(tables_.LocationList, row);
  const double latitudeDeg = store::ParseStoredDegrees(place.Latitude);
  const double longitudeDegWest = store::ParseStoredDegrees(place.Longitude);
  view_.SetBoxText(PlaceBox::kName, place.Name);
  view_.SetBoxText(PlaceBox::kHeight, std::to_string(place.HASL));
  ShowAngles(latitudeDeg, longitudeDegWest);
  Settle();
}

/// The list as it is after a load: the primary place, then the rows of the table.
void LocationsPanel::Rebuild(int selected) {
  rebuilding_ = true;
  TickListControl& list = view_.ListLocations();
  list.Clear();
  list.Add(store::ReadPrimaryPlace().name + std::string(kPrimaryMark));
  list.SetTicked(0, true);
  for (int row = 1; row <= store::PlaceCount(tables_); ++row) {
    const orbit::LocationRec& place = platform::At(tables_.LocationList, row);
    list.Add(platform::Trim(place.Name));
    list.SetTicked(row, place.OnMap == "1");
  }
  list.Select(selected);
  rebuilding_ = false;
}

void LocationsPanel::Load() {
  const FaultTrap trap{"LocCON - FormLoad"};
  trap([&] { view_.ApplySkin(); });
  trap([&] { store::LoadLocations(tables_); });
  trap([&] { Rebuild(0); });
  ShowPrimary();
  view_.ShowPage(Page());
}

void LocationsPanel::Unload() {
  Click("the saving of the locations", [&] { store::SaveLocations(tables_); });
  view_.RunActivation();
}

bool LocationsPanel::MayClose() {
  if (!IsEdited()) return true;
  const int item = std::max(0, view_.ListLocations().Selected());
  const std::string chosen = view_.ListLocations().Row(item);
  switch (platform::TheMessages().AskUnstored(
      "What you have typed is not stored yet.\n\nSave changes \"" + chosen + "\" to it. Discard leaves \"" + chosen +
          "\" as it was. Stay goes back to the window: \"Add Location\" makes a new place of it.",
      kLocationsCaption)) {
    case platform::Unstored::kSave:
      SaveClicked();
      return !IsEdited();  // where it could not be stored that has been said
    case platform::Unstored::kDiscard:
      return true;
    case platform::Unstored::kStay:
      break;
  }
  return false;
}

int LocationsPanel::ChosenItem() const {
  const int item = view_.ListLocations().Selected();
  if (item < 0) throw Fault::SubscriptOutOfRange();
  return item;
}

void LocationsPanel::ListClicked() {
  const int item = view_.ListLocations().Selected();
  if (item == 0) ShowPrimary();
  if (item > 0) Click("the showing of the location", [&] { ShowRow(item); });
}

void LocationsPanel::Ticked(int row, bool ticked) {
  if (rebuilding_ || !view_.IsVisible()) return;
  if (row > 0) {
    Click("the change of the map", [&] { store::SetPlaceOnMap(tables_, row, ticked); });
  } else if (!ticked) {
    view_.ListLocations().SetTicked(0, true);
  }
}

void LocationsPanel::DecDegClicked() {
  const bool toDecimal = view_.DecDeg().IsChecked();
  const bool wasEdited = IsEdited();
  bool converted = false;
  Click("the change of the page", [&] {
    toDecimal ? DMSPageToDec() : DecPageToDMS();
    converted = true;
  });
  if (!converted) view_.DecDeg().SetChecked(!toDecimal);
  if (!wasEdited) Settle();  // a change of the page alone changes nothing
  view_.ShowPage(Page());
}

void LocationsPanel::TickClicked(PlacePage page, PlaceTick tick) {
  const PlacePage twin = page == PlacePage::kParts ? PlacePage::kDecimal : PlacePage::kParts;
  view_.Tick(twin, tick).SetChecked(view_.Tick(page, tick).IsChecked());
}

void LocationsPanel::AddClicked() {
  Click("the adding of the location", [&] {
    const store::Place place = ReadPlace();
    int row = 0;
    ChangeOrUndo([&] {
      row = store::AddPlace(tables_, place);
      store::SaveLocations(tables_);
    });
    Rebuild(row);
    Settle();
  });
}

void LocationsPanel::SaveClicked() {
  Click("the saving of the location", [&] {
    const int item = ChosenItem();
    const store::Place place = ReadPlace();
    if (item == 0) {
      ChangeOrUndo([&] { store::WritePrimaryPlace(store::AsPrimary(place)); });
    } else {
      ChangeOrUndo([&] {
        store::OverwritePlace(tables_, item, place);
        store::SaveLocations(tables_);
      });
    }
    Rebuild(item);
    Settle();
  });
}

void LocationsPanel::SetPrimeClicked() {
  if (view_.ListLocations().Selected() == 0) {
    platform::TheMessages().Show("This is already the Primary Location");
    return;
  }
  Click("the change of the primary location", [&] {
    const int item = ChosenItem();
    const store::Place place = ReadPlace();
    ChangeOrUndo([&] {
      store::SwapWithPrimary(tables_, item, place);
      store::SaveLocations(tables_);
    });
    Rebuild(0);
    Settle();
  });
}

void LocationsPanel::RemoveClicked() {
  if (view_.ListLocations().Selected() == 0) {
    platform::TheMessages().Show("Can't Remove the Primary Location!", "Delete Location",
                                 platform::MessageIcon::kExclamation);
    return;
  }
  Click("the deleting of the location", [&] {
    const int item = ChosenItem();
    ChangeOrUndo([&] {
      store::RemovePlace(tables_, item);
      store::SaveLocations(tables_);
    });
    view_.ListLocations().Remove(item);
    view_.ListLocations().Select(0);
    ShowPrimary();
  });
}

void LocationsPanel::PlacePicked(const PickedPlace& place) {
  if (place.name) view_.SetBoxText(PlaceBox::kName, *place.name);
  if (place.heightM) view_.SetBoxText(PlaceBox::kHeight, std::to_string(*place.heightM));
  const double latitudeDeg = SixDecimals(place.latitudeDeg);
  const double eastDeg = SixDecimals(place.longitudeEastDeg);
  const Angles angles{{std::abs(latitudeDeg), latitudeDeg >= 0}, {std::abs(eastDeg), eastDeg < 0}};
  ShowTicks(angles);
  ShowDecimal(angles);
  ShowParts(angles);
}

/// The parts are added as they stand, so a minus in front of the degrees leaves minutes and seconds positive.
std::string LocationsPanel::MinusNote() const {
  const auto hasMinus = [&](const PartBoxes& boxes) {
    return platform::BeginsWith(platform::Trim(view_.BoxText(boxes.degrees)), "-");
  };
  const bool latitude = hasMinus(kLatitudeParts);
  const bool longitude = hasMinus(kLongitudeParts);
  if (!latitude && !longitude) return {};
  const std::string ticks = latitude && longitude ? "North and West" : latitude ? "North" : "West";
  return "; a minus counts for the degrees alone: untick " + ticks;
}

TypedPlace LocationsPanel::Typed() const {
  const bool parts = Page() == PlacePage::kParts;
  const AngleForm form = parts ? AngleForm::kParts : AngleForm::kDecimals;
  try {
    const Angles angles = parts ? ReadParts() : ReadDecimal();
    return {LatitudeInWords(angles.latitude, form) + ", " + LongitudeInWords(angles.longitude, form) +
                (parts ? MinusNote() : std::string()),
            PointOf(angles.latitude, angles.longitude)};
  } catch (const Fault& fault) {
    const std::string why = fault.what();
    return {platform::ToCapitals(why.substr(0, 1)) + why.substr(1) + ".", std::nullopt};
  }
}

LocationsPanel::BoxTexts LocationsPanel::Contents() const {
  BoxTexts texts;
  for (std::size_t i = 0; i < kPlaceBoxes; ++i) texts[i] = view_.BoxText(static_cast<PlaceBox>(i));
  const auto tick = [&](PlaceTick which) { return view_.Tick(Page(), which).IsChecked() ? "1" : "0"; };
  texts[kPlaceBoxes] = tick(PlaceTick::kNorth);
  texts[kPlaceBoxes + 1] = tick(PlaceTick::kWest);
  return texts;
}

}  // namespace kestrava::panels
