#include "panels/GroupsPanel.h"

#include <algorithm>
#include <vector>

#include "orbit/OrbitEngine.h"
#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Files.h"
#include "platform/Quote.h"
#include "platform/Text.h"
#include "store/ElementFiles.h"
#include "store/FavouriteTable.h"
#include "store/Favourites.h"
#include "store/GroupTable.h"
#include "store/Groups.h"
#include "store/SatelliteData.h"

#include "FirstGroup.h"

namespace kestrava::panels {

using platform::Fault;
using platform::FaultTrap;
using platform::TheMessages;

namespace {

constexpr std::string_view kListTrap = "CONgroups  - grouplist_click";
constexpr std::string_view kUnloadTrap = "CONgroups - Unload";
constexpr std::string_view kPrompt = "Select a Celestrak Group";
constexpr std::string_view kNoDetails =
    "You can still track the position of this Satellite, but No further Information is Available, To send a request "
    "for information to be added to the database for this object CLICK HERE. Information if found will be added within "
    "a week or so.";
constexpr std::string_view kNoDetailsStart = "You can st";
constexpr std::string_view kRequest =
    "A Request will now be sent via your email program for information about this satellite. When information is "
    "found, it will be added to the Kestrava database file, and you can update that file from the 'Internet Updates' "
    "window, but you already have the keps, so you can go ahead and start tracking it now.";
constexpr std::string_view kSorry = "Sorry, this feature is not available for this version of windows";
constexpr std::string_view kChooseSatellite = "Select a satellite first, then click this button";
constexpr std::size_t kUnknownNamed = 10;  // the rest is counted

/// Runs the steps to another program; where one of them fails that is said.
template <class Body>
void OrSorry(Body&& body) {
  try {
    body();
  } catch (const Fault&) {
    TheMessages().Show(kSorry);
  }
}

/// An address that nobody owns yet is empty: there is nothing to open then.
void CheckOwned(const std::string& address) {
  if (address.empty()) throw Fault::InvalidCall();
}

void OpenOutside(const std::string& address) {
  CheckOwned(address);
  if (!platform::TheOpener().Open(address)) throw Fault::InvalidCall();
}

/// The reason in words, beside the run-time's own.
std::string InWords(const Fault& fault) {
  const std::string text = fault.what();
  if (fault.Number() == Fault::DiskFull().Number()) return "the disk has no room (" + text + ")";
  if (text == Fault::PathFileAccess().what()) return "it may not be written there (" + text + ")";
  return text;
}

/// Runs a save. @return why it failed; empty if it did not
template <class Save>
std::string TrySave(std::string_view file, Save&& save) {
  try {
    save();
    return {};
  } catch (const Fault& fault) {
    platform::ErrorTrap(fault.what(), kUnloadTrap);
    return "\n" + std::string(file) + ": " + InWords(fault);
  }
}

std::string NotSavedText(const std::string& reasons) {
  return "Your groups and favourites could not all be saved in " + platform::AppDir + "\n" + reasons +
         "\n\nThey hold until Kestrava ends; the files stay as they were.";
}

std::string UnknownText(const std::vector<std::string>& names) {
  std::string text = "These favourites are not known yet, as their file came after the start: ";
  for (std::size_t i = 0; i < std::min(names.size(), kUnknownNamed); ++i)
    text += (i > 0 ? ", " : "") + platform::QuoteOf(names[i]);
  if (names.size() > kUnknownNamed) text += " and " + std::to_string(names.size() - kUnknownNamed) + " more";
  return text + ". They are tracked from the next start on.\n\nStart Kestrava anew now?";
}

}  // namespace

void GroupsPanel::Load() {
  const FaultTrap trap{"CONgroups - FormLoad"};
  trap([&] { view_.ApplySkin(); });
  trap([&] {
    for (int row = 1; row <= tables_.GroupCount; ++row) {
      view_.GroupList().Add(platform::At(tables_.GroupList, row).Name);
    }
  });
  for (const store::ServerGroup& group : store::ServerGroups()) view_.COMCelestrak().Add(store::OfferedText(group));
  view_.COMCelestrak().SetText(kPrompt);
  details_ = "No Information.";
  view_.SetDetails(details_);
  ShowCount();
  if (view_.GroupList().Count() == 0) return;
  view_.GroupList().Select(0);
  GroupListClicked();
}

void GroupsPanel::Unload() {
  open_ = false;
  std::string reasons = TrySave("faves.dat", [&] { store::SaveFaves(tables_); });
  reasons += TrySave("groups.dat", [&] { store::SaveGroups(tables_); });
  if (!reasons.empty()) TheMessages().Show(NotSavedText(reasons));
}

bool GroupsPanel::MayClose() {
  const std::string trouble = FirstGroupTrouble(tables_);
  return trouble.empty() || !TheMessages().AskYesNo(trouble);
}

void GroupsPanel::UserClosed() {
  if (!FirstGroupTrouble(tables_).empty()) return;  // this run ends, and a new one would, too
  const orbit::OrbitEngine* engine = engine_();
  if (engine == nullptr) return;
  const std::vector<std::string> unknown = store::FavouritesUnknownTo(tables_, *engine);
  if (!unknown.empty() && TheMessages().AskYesNo(UnknownText(unknown))) view_.StartStationAnew();
}

void GroupsPanel::GroupListClicked() {
  FaultTrap{kListTrap}([&] {
    const int item = view_.GroupList().Selected();
    if (item < 0) throw Fault::SubscriptOutOfRange();
    ListGroup(platform::At(tables_.GroupList, item + 1));
  });
}

void GroupsPanel::ListGroup(const orbit::GroupRec& group) {
  const std::string file = store::ElementFileOf(group);
  const std::uint64_t listing = ++listings_;
  if (!platform::FileExists(platform::InAppDir(file))) {
    TheMessages().Show(platform::QuoteOf(group.Name) +
                       " satellite group keps are not updated yet, the keplerian file doesn't exist");
    return;
  }
  TickListControl& list = view_.SatelliteList();
  list.Clear();
  const std::vector<std::string> names = store::ListSatellites(file, kListTrap);
  if (!open_ || listing != listings_) return;  // closed, or another group chosen, while the file was read
  userTicks_ = false;                          // a button that is still down on the list means none of these ticks
  for (const std::string& name : names) list.Add(name);
  ShowTicks();
  FilterChanged();
}

/// The ticks as the table has them, and the star of the primary favourite. A file may hold a name more than once: its
/// rows are ticked alike.
void GroupsPanel::ShowTicks() {
  const bool users = std::exchange(userTicks_, false);
  TickListControl& list = view_.SatelliteList();
  const std::string& primary = platform::At(tables_.FaveList, 1).Name;
  for (int row = 0; row < list.Count(); ++row) {
    const std::string name = list.Row(row);
    const bool favourite = store::InFaves(tables_, name);
    if (list.IsTicked(row) != favourite) list.SetTicked(row, favourite);
    list.SetMarked(row, favourite && name == primary);
  }
  userTicks_ = users;
}

void GroupsPanel::FilterChanged() {
  FilterRows(view_.SatelliteList(), view_.FilterText());
}

void GroupsPanel::ShowCount() {
  view_.ShowFavouriteCount(store::FavouriteCountText(tables_), tables_.FaveCount > store::kMostFavouritesSaved);
}

void GroupsPanel::SatelliteTicked(int row, bool ticked) {
  if (!userTicks_) return;
  const FaultTrap trap{"GroupsCON - Satlist_itemcheck"};
  const bool done = trap([&] {
    const std::string name = view_.SatelliteList().Row(row);
    if (!ticked || !store::InFaves(tables_, name)) store::SetFave(tables_, name, ticked);  // a name stands there once
  });
  if (!done && ticked) {
    userTicks_ = false;  // the table is full: the row shows that it is no favourite
    view_.SatelliteList().SetTicked(row, false);
    userTicks_ = true;
  }
  if (!ticksMany_) ShowTicks();
  ShowCount();
}

void GroupsPanel::TickShownRows(bool ticked) {
  TickListControl& list = view_.SatelliteList();
  userTicks_ = true;
  ticksMany_ = true;
  for (int row = 0; row < list.Count(); ++row) {
    if (!list.IsShown(row) || list.IsTicked(row) == ticked) continue;
    list.SetTicked(row, ticked);
    if (list.IsTicked(row) != ticked) break;  // it fell back: the table is full, one line in the log will do
  }
  ticksMany_ = false;
  ShowTicks();
  platform::YieldOnce();
  userTicks_ = false;
}

/// The chosen name of SatelliteList; empty if none is chosen.
std::string GroupsPanel::ChosenSatellite() {
  const int row = view_.SatelliteList().Selected();
  return row < 0 ? std::string() : view_.SatelliteList().Row(row);
}

void GroupsPanel::SatelliteClicked() {
  const std::string name = ChosenSatellite();
  if (name.empty()) return;
  detailsOf_ = name;
  details_ = store::SatelliteDataFunc(name);
  if (details_.empty()) details_ = kNoDetails;
  view_.SetDetails(details_);
}

bool GroupsPanel::DetailsOffer() const {
  return platform::BeginsWith(details_, kNoDetailsStart);
}

void GroupsPanel::DetailsClicked() {
  if (!DetailsOffer()) return;
  const FaultTrap trap{"GroupsCON - DetailsClick"};
  trap([&] {
    OrSorry([&] {
      const std::string name = platform::ReplaceAll(detailsOf_, " ", "_");
      const std::string address = letter_("Satellite Info Request for " + name);
      CheckOwned(address);
      TheMessages().Show(kRequest);
      OpenOutside(address);
    });
  });
}

void GroupsPanel::FindInfoClicked() {
  const std::string name = ChosenSatellite();
  if (name.empty()) {
    TheMessages().Show(kChooseSatellite);
    return;
  }
  OrSorry([&] { OpenOutside(platform::endpoints::SearchAddress(name + " satellite")); });
}

void GroupsPanel::MakePrimeClicked() {
  const FaultTrap trap{"GroupsCON - BUTmakeprime"};
  const std::string name = ChosenSatellite();
  if (name.empty()) {
    TheMessages().Show(kChooseSatellite);
    return;
  }
  trap([&] {
    const std::string old = store::MakePrimaryFavourite(tables_, name);
    ShowTicks();
    ShowCount();
    TheMessages().Show("Primary Favourite Satellite changed from " + platform::QuoteOf(old) + " to " +
                       platform::QuoteOf(name));
  });
}

/// A row more in the table and in the list, or in neither.
void GroupsPanel::AppendGroup(const orbit::GroupRec& group) {
  store::AddGroup(tables_, group);
  view_.GroupList().Add(group.Name);
}

void GroupsPanel::AddServerGroupClicked() {
  const FaultTrap trap{"GroupsCON - BUTaddCelestrak"};
  const std::string chosen = view_.COMCelestrak().Text();
  if (platform::Contains(chosen, "Select")) {
    TheMessages().Show("Select a group first, then click this button");
    return;
  }
  trap([&] {
    const store::ServerGroup* group = store::FindOffered(chosen);
    if (group == nullptr) throw Fault::SubscriptOutOfRange();
    AppendGroup(store::GroupOf(*group));
  });
}

/// A text of the user without a comma, which would part the fields of its line. Cancel and an empty answer are none.
std::optional<std::string> GroupsPanel::Ask(std::string_view prompt, std::string_view title,
                                            std::string_view defaultText) {
  const std::optional<std::string> answer = view_.AskText(prompt, title, defaultText, store::kNotInGroups);
  if (!answer || !open_) return std::nullopt;
  const std::string text(platform::Trim(*answer));
  if (text.empty() || text.find_first_of(store::kNotInGroups) != std::string::npos) return std::nullopt;
  return text;
}

void GroupsPanel::AddGroupClicked() {
  const FaultTrap trap{"GroupsCON - BUTaddgroup"};
  trap([&] {
    const bool internet = TheMessages().AskYesNo("Is this new group updated via the Internet?", "Update");
    if (!open_) return;
    const auto name =
        Ask("Type a Display name for this group. This can be any name you would like.", "Display name", "New Group");
    if (!name) return;
    const auto source =
        internet ? Ask("Type the full web address of the file containing the keps, without 'https://'. Eg. '" +
                           platform::endpoints::ElementAddress("amateur.txt") + "'",
                       "Web Address of Keplerian Elements", "")
                 : Ask("Type the name of the file containing the keps, this file must be in your Kestrava folder. Eg. "
                       "'mykeps.txt'",
                       "Manually updated Keps", "");
    if (!source) return;
    AppendGroup({*name, internet ? store::WithoutScheme(*source) : *source, internet ? "0" : "1"});
  });
}

void GroupsPanel::DeleteGroupClicked() {
  if (view_.GroupList().Count() < 1 || tables_.GroupCount == 0) return;
  if (view_.GroupList().Selected() < 0) {
    TheMessages().Show("Select a group first, then click this button");
    return;
  }
  const FaultTrap trap{"GroupsCON - BUTdelgroup"};
  const bool removed = trap([&] {
    const int item = view_.GroupList().Selected();
    store::RemoveGroup(tables_, item + 1);
    view_.GroupList().Remove(item);
  });
  if (!removed) return;
  if (view_.GroupList().Count() == 0) {
    ++listings_;                    // one that still reads ends
    view_.SatelliteList().Clear();  // of no group
    return;
  }
  view_.GroupList().Select(0);
  GroupListClicked();
}

}  // namespace kestrava::panels
