#include "predict/PassJobs.h"

#include <algorithm>
#include <cstddef>
#include <functional>

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Files.h"
#include "platform/Format.h"
#include "platform/SharedFiles.h"
#include "platform/Text.h"
#include "platform/TextFile.h"

namespace kestrava::predict {

using platform::Fault;
using platform::FaultTrap;
using platform::InAppDir;

namespace {

using Lines = std::vector<std::string>;

constexpr std::string_view kCrLf = "\r\n";
constexpr std::size_t kLinesBehindSatellites = 3;  // days and two flags
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool IsBlank(std::string_view line) {
  return platform::Trim(line).empty();
}

bool IsSatelliteLine(std::string_view line) {
  return platform::Contains(line, ";");
}

/// Index of the first line behind a record.
std::size_t EndOfRecord(const Lines& lines, std::size_t nameLine) {
  std::size_t at = nameLine + 1;
  while (at < lines.size() && IsSatelliteLine(lines[at])) ++at;
  return std::min(lines.size(), at + kLinesBehindSatellites);
}

/// Index of the line with a job's name. Goes from record to record, so that a job called "3" is not mistaken for the
/// days of another. Behind a record that breaks off the steps go astray: then a name is known by the satellite behind
/// it.
std::optional<std::size_t> FindRecord(const Lines& lines, const std::function<bool(const std::string&)>& isName) {
  for (std::size_t at = 0; at < lines.size();) {
    if (IsBlank(lines[at])) {
      ++at;
    } else if (isName(lines[at])) {
      return at;
    } else {
      at = EndOfRecord(lines, at);
    }
  }
  for (std::size_t at = 0; at + 1 < lines.size(); ++at) {
    if (isName(lines[at]) && IsSatelliteLine(lines[at + 1])) return at;
  }
  return std::nullopt;
}

std::optional<std::size_t> FindExactly(const Lines& lines, std::string_view name) {
  return FindRecord(lines, [&](const std::string& line) { return line == name; });
}

/// Hands out the lines of a record one by one.
class RecordReader {
 public:
  RecordReader(const Lines& lines, std::size_t nameLine) : lines_(lines), next_(nameLine + 1) {}
  const std::string& Next() {
    if (next_ >= lines_.size()) throw Fault::InputPastEnd();
    return lines_[next_++];
  }

 private:
  const Lines& lines_;
  std::size_t next_;
};

std::string BytesOnDisk() {
  const auto file = InAppDir(kJobFile);
  return platform::FileExists(file) ? platform::TheFiles().Read(file) : std::string();
}

/// Puts a new file in place of the old one by one rename.
void PutInPlace(std::string_view content) {
  platform::TheFiles().Replace(InAppDir(kNewJobFile), content);
  platform::TheFiles().Rename(InAppDir(kNewJobFile), InAppDir(kJobFile));
}

/// A text can become one line: line ends in it would break the file.
std::string AsLine(std::string_view text) {
  std::string line(text);
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
  return line + std::string(kCrLf);
}

std::string TextOf(const JobRecord& job) {
  std::string text = AsLine(job.name);
  for (const std::string& satellite : job.satellites) text += AsLine(satellite + ";");
  return text + AsLine(job.days) + AsLine(job.save) + AsLine(job.print);
}

/// A new record would not be listed behind blank lines.
void DropBlankEnd(std::string& content) {
  const std::string_view bytes = content;
  const std::size_t start = platform::BeginsWith(bytes, kByteOrderMark) ? kByteOrderMark.size() : 0;
  const std::size_t last = bytes.substr(start).find_last_not_of(" \t\r\n");
  if (last == std::string_view::npos) return content.resize(start);
  const std::size_t end = bytes.find_first_of("\r\n", start + last);
  if (end == std::string_view::npos) return;
  content.resize(end + (bytes.substr(end, kCrLf.size()) == kCrLf ? kCrLf.size() : 1));
}

void AppendRecord(std::string record) {
  const auto hold = platform::HoldAppDir();  // another copy may add one at this moment
  std::string content = BytesOnDisk();
  bool latin1 = false;
  const std::string asUtf8 = platform::ToUtf8(content, &latin1);
  if (latin1) {
    const std::string recordLatin1 = platform::ToLatin1(record);
    const bool fits = platform::ToUtf8(recordLatin1) == record;
    if (fits) record = recordLatin1;
    if (!fits) content = asUtf8;
  }
  DropBlankEnd(content);
  const bool lineIsOpen =
      !content.empty() && content != kByteOrderMark && content.back() != '\n' && content.back() != '\r';
  if (lineIsOpen) content += kCrLf;
  PutInPlace(content + record);
}

/// The lines of a record, one text.
std::string RecordText(const Lines& lines, std::size_t nameLine) {
  std::string text;
  for (std::size_t i = nameLine; i < EndOfRecord(lines, nameLine); ++i) text += AsLine(lines[i]);
  return text;
}

void ReadSatellites(RecordReader& reader, std::string& line, PassJob& job, const FaultTrap& trap) {
  bool more = trap([&] { line = reader.Next(); });
  while (more && IsSatelliteLine(line)) {
    trap([&] { job.satelliteCount = platform::ToInt16(job.satelliteCount + 1); });
    trap([&] { platform::At(job.satellites, job.satelliteCount) = line.substr(0, line.find(';')); });
    more = trap([&] { line = reader.Next(); });
  }
}

}  // namespace

std::string BeyondText(const PassJob& job) {
  if (job.satelliteCount <= kJobRows) return {};
  return "the job names " + std::to_string(job.satelliteCount) + " satellites, of which the first " +
         std::to_string(kJobRows) + " are used";
}

std::vector<std::string> ListJobs() {
  const FaultTrap trap{"PassPred-FormLoad"};
  std::vector<std::string> names;
  if (!platform::FileExists(InAppDir(kJobFile))) return names;
  std::optional<platform::TextReader> reader;
  if (!trap([&] { reader.emplace(InAppDir(kJobFile)); })) return names;
  while (!reader->AtEnd()) {
    const std::string name(platform::Trim(reader->ReadLine()));
    if (name.empty()) break;
    names.push_back(name);
    const bool whole = trap([&] {
      while (IsSatelliteLine(reader->ReadLine())) {
      }
    });
    if (!whole) break;
    trap([&] { reader->ReadLine(); });
    trap([&] { reader->ReadLine(); });
  }
  return names;
}

std::optional<PassJob> ReadJob(std::string_view name) {
  const FaultTrap trap{"PassPred-PresetGo"};
  Lines lines;
  trap([&] { lines = platform::SplitLines(platform::TheFiles().Read(InAppDir(kJobFile))); });
  const auto at = FindRecord(lines, [&](const std::string& line) { return platform::Trim(line) == name; });
  if (!at) return std::nullopt;
  PassJob job;
  RecordReader reader(lines, *at);
  std::string line;
  ReadSatellites(reader, line, job, trap);
  trap([&] { job.days = platform::ToInt16(platform::ParseNumber(line)); });
  trap([&] { job.save = reader.Next() == "1"; });
  trap([&] { job.print = reader.Next() == "1"; });
  return job;
}

std::optional<JobRecord> ReadJobRecord(std::string_view name) {
  const Lines lines = platform::SplitLines(platform::TheFiles().Read(InAppDir(kJobFile)));
  const auto at = FindExactly(lines, name);
  if (!at) return std::nullopt;
  RecordReader reader(lines, *at);
  JobRecord job;
  job.name = name;
  std::string line = reader.Next();
  for (; IsSatelliteLine(line); line = reader.Next()) {
    job.satellites.push_back(platform::ReplaceAll(line, ";", ""));
  }
  job.days = line;
  job.save = reader.Next();
  job.print = reader.Next();
  return job;
}

void AppendJob(const JobRecord& job) {
  AppendRecord(TextOf(job));
}

bool RemoveJob(std::string_view name) {
  const auto hold = platform::HoldAppDir();
  bool latin1 = false;
  const Lines lines = platform::SplitLines(BytesOnDisk(), &latin1);
  const auto at = FindExactly(lines, name);
  if (!at) return false;
  std::string content;
  const std::size_t behind = EndOfRecord(lines, *at);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const bool taken = i < *at || (i >= behind && !IsBlank(lines[i]));
    if (taken) content.append(latin1 ? platform::ToLatin1(lines[i]) : lines[i]).append(kCrLf);
  }
  // A first line that begins like a mark would lose that at the next reading.
  if (platform::BeginsWith(content, kByteOrderMark)) content.insert(0, kByteOrderMark);
  PutInPlace(content);
  return true;
}

namespace {

/// The lines of the copy; none without one.
Lines EditedRecord() {
  if (!platform::FileExists(InAppDir(kEditedJobFile))) return {};
  return platform::SplitLines(platform::TheFiles().Read(InAppDir(kEditedJobFile)));
}

}  // namespace

void KeepEditedJob(std::string_view name) {
  PutBackEditedJob();  // another copy of the station may edit one, or one could not be put back
  const Lines lines = platform::SplitLines(BytesOnDisk());
  const auto at = FindExactly(lines, name);
  if (!at) throw Fault::InputPastEnd();
  platform::TheFiles().Replace(InAppDir(kEditedJobFile), RecordText(lines, *at));
}

void ForgetEditedJob(std::string_view name) {
  const Lines kept = EditedRecord();
  if (!kept.empty() && kept.front() == name) platform::TheFiles().Remove(InAppDir(kEditedJobFile));
}

std::optional<std::string> PutBackEditedJob(std::string_view only) {
  if (!platform::FileExists(InAppDir(kEditedJobFile))) return std::nullopt;
  const Lines kept = EditedRecord();
  if (!only.empty() && (kept.empty() || kept.front() != only)) return std::nullopt;
  std::optional<std::string> name;
  if (!kept.empty() && !IsBlank(kept.front())) {
    // A kill between the copy and the removal leaves the job in both.
    const Lines lines = platform::SplitLines(BytesOnDisk());
    const auto at = FindExactly(lines, kept.front());
    const std::string record = RecordText(kept, 0);
    if (!at || RecordText(lines, *at) != record) {
      AppendRecord(record);
      name = kept.front();
    }
  }
  platform::TheFiles().Remove(InAppDir(kEditedJobFile));
  return name;
}

}  // namespace kestrava::predict
