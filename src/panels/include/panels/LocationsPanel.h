// The behaviour of the locations panel ("Locations"): the list of observing places, the boxes of one place on two pages
// (degrees, minutes and seconds, or decimal degrees), and which place is the primary one. Knows no toolkit: the window
// is a LocationsView that shows what is decided here and hands every event on.
//
// A bad number in a box ends the click in the station's one form of an untrapped fault: a message that names the box
// and its value. All boxes are read and checked before anything is touched.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "orbit/Tables.h"
#include "panels/PanelControls.h"
#include "panels/PlacePicking.h"
#include "store/Angles.h"
#include "store/Places.h"

namespace kestrava::panels {

inline constexpr std::string_view kLocationsWindow = "frmCONlocations";  ///< its name in the registry
inline constexpr std::string_view kLocationsCaption = "Locations";
inline constexpr std::string_view kPrimaryMark = " (Primary Location)";

enum class PlaceBox { kName, kHeight, kLatDeg, kLatMin, kLatSec, kLonDeg, kLonMin, kLonSec, kLatDec, kLonDec };
enum class PlacePage { kParts, kDecimal };  ///< PageDMS, PageDEC
enum class PlaceTick { kNorth, kWest };     ///< CHns, CHew, of which each page has one
inline constexpr int kPlaceBoxes = 10;

/// What a box holds, as messages and screen readers call it.
std::string_view NameOf(PlaceBox box);

class LocationsView {
 public:
  virtual ~LocationsView() = default;
  virtual void ApplySkin() = 0;
  virtual bool IsVisible() const = 0;
  virtual TickListControl& ListLocations() = 0;
  virtual std::string BoxText(PlaceBox box) const = 0;
  virtual void SetBoxText(PlaceBox box, std::string_view text) = 0;
  virtual CheckControl& Tick(PlacePage page, PlaceTick tick) = 0;
  virtual CheckControl& DecDeg() = 0;  ///< CHdecDeg
  virtual void ShowPage(PlacePage page) = 0;
  /// Puts the keyboard into a box whose content has been refused.
  virtual void FocusBox(PlaceBox box) = 0;
  /// Runs the launcher's activation without raising its window, so that the views follow a new place. Not while the
  /// station ends.
  virtual void RunActivation() = 0;
};

/// A place that was picked on a map or in a list of cities.
struct PickedPlace {
  double latitudeDeg = 0;
  double longitudeEastDeg = 0;
  std::optional<std::string> name;
  std::optional<std::int16_t> heightM;  ///< where the list knows one
};

/// What the boxes of the page that is shown mean.
struct TypedPlace {
  std::string words;              ///< "51° 30' 00" north, 0° 07' 39" west", or which box holds no number
  std::optional<GeoPoint> point;  ///< nothing where a box holds no number
};

class LocationsPanel {
 public:
  /// @param view  outlives this object
  LocationsPanel(orbit::Tables& tables, LocationsView& view) : tables_(tables), view_(view) {}

  void Load();
  void Unload();
  /// The user asks to close. What he has typed and not stored is stored, dropped, or kept by staying, as he says.
  /// @return false to stay
  bool MayClose();

  void ListClicked();
  /// The tick event of a row, from the user or by code.
  void Ticked(int row, bool ticked);
  void DecDegClicked();
  void TickClicked(PlacePage page, PlaceTick tick);
  void AddClicked();
  void SaveClicked();
  void SetPrimeClicked();
  void RemoveClicked();
  /// Fills the boxes; nothing is stored.
  void PlacePicked(const PickedPlace& place);

  TypedPlace Typed() const;
  /// The boxes hold something else than the chosen place, as it was last shown or stored.
  bool IsEdited() const { return Contents() != settled_; }

 private:
  using BoxTexts = std::array<std::string, kPlaceBoxes + 2>;

  struct Angles {
    store::ShownAngle latitude;
    store::ShownAngle longitude;
  };
  /// An angle that is shown in parts. Those are cut to whole seconds, so as long as nobody types in them the angle
  /// itself counts.
  struct ShownParts {
    std::array<std::string, 3> texts;
    double degrees = 0;
  };

  PlacePage Page() const;
  Angles ReadParts() const;
  std::string MinusNote() const;
  Angles ReadDecimal() const;
  store::Place ReadPlace();
  Angles DMSPageToDec();
  Angles DecPageToDMS();
  void ShowParts(const Angles& angles);
  void ShowDecimal(const Angles& angles);
  void ShowTicks(const Angles& angles);
  void ShowAngles(double latitudeDeg, double longitudeDegWest);
  void ShowPrimary();
  void ShowRow(int row);
  void Rebuild(int selected);
  int ChosenItem() const;
  BoxTexts Contents() const;
  void Settle() { settled_ = Contents(); }
  template <class Body>
  void Click(std::string_view what, Body&& body);
  template <class Change>
  void ChangeOrUndo(Change&& change);

  orbit::Tables& tables_;
  LocationsView& view_;
  ShownParts shownLatitude_;
  ShownParts shownLongitude_;
  BoxTexts settled_;  ///< the boxes as the chosen place was last shown or stored
  bool rebuilding_ = false;
};

}  // namespace kestrava::panels
