// The behaviour of the groups panel ("Kestrava - Satellite Groups and Favourites"): choosing groups, ticking
// favourites. It works on the tables directly, so that the map shows a new favourite at its next tick; both files are
// written when the window closes. Knows no toolkit: the window is a GroupsView.
//
// A flag tells a user's tick from one made by code: it is up while a mouse button is down on SatelliteList, for a key's
// own event, and while the buttons "Select All" and "Deselect All" work. After a mouse or a key the window lowers it
// when its toolkit has toggled the row.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "orbit/Tables.h"
#include "panels/PanelControls.h"
#include "platform/ChoiceControls.h"
#include "platform/Endpoints.h"

namespace kestrava::orbit {
class OrbitEngine;
}

namespace kestrava::panels {

inline constexpr std::string_view kGroupsWindow = "frmCONGroups";  ///< its name in the registry
inline constexpr std::string_view kGroupsCaption = "Kestrava - Satellite Groups and Favourites";

class GroupsView {
 public:
  virtual ~GroupsView() = default;
  virtual void ApplySkin() = 0;
  virtual platform::ListBoxControl& GroupList() = 0;
  virtual TickListControl& SatelliteList() = 0;
  virtual platform::ComboControl& COMCelestrak() = 0;
  virtual void SetDetails(std::string_view text) = 0;
  /// The line below SatelliteList. @param tooMany  it is a warning
  virtual void ShowFavouriteCount(std::string_view text, bool tooMany) = 0;
  virtual std::string FilterText() const = 0;
  /// An input box. @param refused  characters that it does not take
  /// @return nothing if it was cancelled
  virtual std::optional<std::string> AskText(std::string_view prompt, std::string_view title,
                                             std::string_view defaultText, std::string_view refused) = 0;
  /// Ends the station and starts it again, when the present event is over.
  virtual void StartStationAnew() = 0;
};

class GroupsPanel {
 public:
  /// The address of a letter with this subject to the maker; empty while he has none.
  using LetterAddress = std::function<std::string(std::string_view subject)>;

  /// @param engine  the running one; may answer null
  /// @param view  outlives this object
  GroupsPanel(
      orbit::Tables& tables, std::function<const orbit::OrbitEngine*()> engine, GroupsView& view,
      LetterAddress letter = [](std::string_view subject) { return platform::endpoints::MailAddress(subject); })
      : tables_(tables), engine_(std::move(engine)), view_(view), letter_(std::move(letter)) {}

  void Load();
  /// The window's end, whoever ends it: writes both files, or says why it could not.
  void Unload();
  /// The user asks to close. Where the station could not go on with these groups he is told so, and may stay.
  /// @return false to stay
  bool MayClose();
  /// The user has closed the window, and Unload has run: tells of favourites that the running engine does not know.
  void UserClosed();

  void GroupListClicked();
  void SatelliteClicked();
  void DetailsClicked();
  /// Details offers a request by mail: a click on it does something.
  bool DetailsOffer() const;
  void FilterChanged();

  void BeginUserTick() { userTicks_ = true; }
  void EndUserTick() { userTicks_ = false; }
  /// The tick event of a row, from the user or by code.
  void SatelliteTicked(int row, bool ticked);

  void SelectAllClicked() { TickShownRows(true); }
  void DeselectAllClicked() { TickShownRows(false); }
  void MakePrimeClicked();
  void FindInfoClicked();
  void AddServerGroupClicked();
  void AddGroupClicked();
  void DeleteGroupClicked();

 private:
  void ListGroup(const orbit::GroupRec& group);
  void TickShownRows(bool ticked);
  void ShowTicks();
  void ShowCount();
  void AppendGroup(const orbit::GroupRec& group);
  std::optional<std::string> Ask(std::string_view prompt, std::string_view title, std::string_view defaultText);
  std::string ChosenSatellite();

  orbit::Tables& tables_;
  std::function<const orbit::OrbitEngine*()> engine_;
  GroupsView& view_;
  LetterAddress letter_;
  std::string details_;
  std::string detailsOf_;  ///< the satellite that they tell of, whatever is chosen later
  bool userTicks_ = false;
  bool ticksMany_ = false;
  bool open_ = true;
  std::uint64_t listings_ = 0;  ///< grows with every listing: an earlier one that still reads ends
};

}  // namespace kestrava::panels
