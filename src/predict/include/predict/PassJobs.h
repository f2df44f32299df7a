// pass.dat: the saved jobs, each a name, satellites, a number of days, and whether to save and to print. Read by the
// pass window, its wizard and the command line. Every change builds pass.new and puts it in place by one rename, so
// that a kill leaves the old or the new file whole; a pass.new that was left over does no harm.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrava::predict {

inline constexpr std::string_view kJobFile = "pass.dat";  ///< in AppDir
inline constexpr std::string_view kNewJobFile = "pass.new";
inline constexpr std::string_view kEditedJobFile = "pass.edit";  ///< the job that stands in the wizard alone
inline constexpr int kJobRows = 50;                              ///< satellites of a job, rows 1 to 50

/// A job as it runs.
struct PassJob {
  std::array<std::string, kJobRows + 1> satellites;  ///< row 0 stays empty
  std::int16_t satelliteCount = 0;                   ///< may be above kJobRows: those have no row
  std::int16_t days = 0;
  bool save = false;
  bool print = false;
};

/// Says that a job names more satellites than it has rows for; empty if it does not.
std::string BeyondText(const PassJob& job);

/// The lines of a job as they stand in the file.
struct JobRecord {
  std::string name;
  std::vector<std::string> satellites;  ///< what is written, or what was read, without the ";" behind it
  std::string days;
  std::string save;   ///< "1" or "0"
  std::string print;  ///< "1" or "0"
  bool operator==(const JobRecord&) const = default;
};

/// The names of all jobs up to the first blank line, trimmed; none without a file. A file that breaks off within a job
/// is logged under "PassPred-FormLoad".
std::vector<std::string> ListJobs();

/// The first job of that name; the lines of the file are trimmed for the comparison. Faults are logged under
/// "PassPred-PresetGo" and cost their statement only: days that are no number count as 0, a satellite beyond row 50 is
/// counted without a row.
/// @return nothing if the file has no such job, or is not there
std::optional<PassJob> ReadJob(std::string_view name);

/// The first record of exactly that name, with every ";" taken out of its satellites.
/// @return nothing if the file has none. @throws platform::Fault  no file, or it breaks off within the record
std::optional<JobRecord> ReadJobRecord(std::string_view name);

/// Appends a record; all that the file holds stays as it is, but for blank lines at its end, behind which the new job
/// would not be listed. @throws platform::Fault; the old file is then whole
void AppendJob(const JobRecord& job);

/// Takes the first record of exactly that name out of the file, and every blank line behind it.
/// @return false if there is no such record: the file is then untouched. @throws platform::Fault; the file is then
/// whole
bool RemoveJob(std::string_view name);

/// Keeps a copy of the first record of exactly that name in a file of its own, while the job stands in the wizard
/// alone. One that is there already is put back first.
/// @throws platform::Fault  no such record, or the copy could not be written; one that was there stays
void KeepEditedJob(std::string_view name);

/// Takes the copy of that job away: it was saved, or given up. Another job's copy stays.
void ForgetEditedJob(std::string_view name);

/// Writes that copy back at the end of the file, if there is one and the file has not got it, and takes it away.
/// @param only  the one job that is meant; empty for whichever stands there
/// @return the name of the job that has come back; none without a copy. @throws platform::Fault  the copy stays
std::optional<std::string> PutBackEditedJob(std::string_view only = {});

}  // namespace kestrava::predict
