// The station as a command finds it: the user's folder, settings and place through doors that change nothing, and the
// engine over them.
#pragma once

#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "cli/Command.h"
#include "cli/ReadOnlyDoors.h"
#include "orbit/OrbitEngine.h"
#include "orbit/Tables.h"
#include "platform/Doors.h"
#include "platform/FaultLog.h"
#include "platform/Messages.h"

#include "Records.h"
#include "Request.h"

namespace kestrava::cli {

/// Messages go to the error stream; nobody is there to answer a question.
class ErrorStreamMessages : public platform::Messages {
 public:
  explicit ErrorStreamMessages(std::ostream& err) : err_(err) {}
  void Show(std::string_view text, std::string_view title, platform::MessageIcon icon) override;
  bool AskYesNo(std::string_view text, std::string_view title) override;

 private:
  std::ostream& err_;
};

class Station {
 public:
  /// @throws NotFound  there is no data at all, or no place, or the stored place is none
  /// @throws WrongUse  the named folder is none
  Station(const Machine& machine, const Request& request, std::ostream& err);
  ~Station();
  Station(const Station&) = delete;
  Station& operator=(const Station&) = delete;

  orbit::OrbitEngine& Engine() { return engine_; }
  orbit::Tables& Tables() { return *tables_; }
  /// Where the engine's observer stands; "list" asks from nowhere and leaves it unset.
  const Place& Observer() const { return place_; }
  /// The minimum elevation of the request, or the setting.
  double MinimumElevationDeg() const { return minimumElevationDeg_; }

  /// All satellites, in the order of their files.
  const std::vector<std::string>& Satellites() const { return satellites_; }
  /// The names of the satellites that were asked for by name or catalogue number, as the element files spell them.
  /// @throws NotFound  with what stands near, if one of them is not known
  std::vector<std::string> Resolve(const std::vector<std::string>& asked) const;
  /// The same for one name. @return empty if nobody has it
  std::string Find(std::string_view asked) const;

  /// The favourites, as the windows load them; a fault is told and leaves them empty.
  std::vector<std::string> Favourites();
  /// Fills the groups of the tables in the same way.
  void LoadGroups();

  /// Tells once if elements are more than two weeks away from a moment. @param satellites  that the engine knows
  void NoteOldElements(const std::vector<std::string>& satellites, platform::SerialDate utc);

  /// A line on the error stream.
  void Note(std::string_view text) { err_ << "kestrava: " << text << '\n'; }

 private:
  platform::Doors DoorsOver();
  platform::SettingsMap ReadSettings(const std::filesystem::path& file);
  void OpenFolder(const Machine& machine, const Request& request);
  void PlaceObserver(const Machine& machine, const Request& request);
  void GuessPlace(const Machine& machine);
  Place StoredPlace();
  void ReadMinimumElevation(const Request& request);
  void ReadSatellites();

  std::ostream& err_;
  UnchangedFiles files_;
  UnchangedSettings settings_;
  NoEvents events_;
  ErrorStreamMessages messages_;
  std::unique_ptr<platform::Windows> windows_ = platform::MakeWindows();
  platform::ScopedDoors doors_;
  std::string earlierAppDir_;
  platform::FaultObserver earlierObserver_;

  orbit::OrbitEngine engine_;
  std::unique_ptr<orbit::Tables> tables_ = std::make_unique<orbit::Tables>();
  Place place_;
  double minimumElevationDeg_ = 0;
  std::vector<std::string> satellites_;
};

/// The names nearest to one that nobody has: those that contain it, then those that differ by a few letters; at most
/// five, best first.
std::vector<std::string> NearNames(std::string_view asked, const std::vector<std::string>& names);

/// "Did you mean A, B or C?", with a blank in front; empty without names.
std::string DidYouMean(const std::vector<std::string>& names);

}  // namespace kestrava::cli
