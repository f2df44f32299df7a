#include "platform/linux/PosixFiles.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <csignal>
#include <ctime>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/Text.h"
#include "platform/TextFile.h"

#include "AtomicFile.h"

namespace kestrava::platform {

namespace fs = std::filesystem;

namespace {

constexpr SerialDate kUnixEpoch = 25569;  // 1 January 1970

fs::file_status StatusOf(const fs::path& path) {
  std::error_code error;
  return fs::status(path, error);
}

bool IsThere(const fs::path& path) {
  return fs::exists(StatusOf(path));
}

/// A name in a folder that differs from the given one in case only; the first in order, so that it is always the same.
fs::path MatchIn(const fs::path& folder, const fs::path& name) {
  fs::path match;
  std::error_code error;
  for (fs::directory_iterator entry(folder.empty() ? "." : folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const fs::path candidate = entry->path().filename();
    if (EqualsIgnoringCase(candidate.string(), name.string()) && (match.empty() || candidate < match)) {
      match = candidate;
    }
  }
  return match.empty() ? name : match;
}

/// Where a file's bytes really lie: a link is written through, never replaced.
fs::path TargetOf(const fs::path& file) {
  fs::path found = ResolveIgnoringCase(file);
  std::error_code error;
  if (!fs::is_symlink(found, error)) return found;
  fs::path target = fs::weakly_canonical(found, error);
  return error ? found : target;
}

struct stat StatusBits(const fs::path& file) {
  struct stat status {};
  if (::stat(ResolveIgnoringCase(file).c_str(), &status) != 0) {
    throw errno == ENOENT && !IsThere(ResolveIgnoringCase(file).parent_path()) ? Fault::PathNotFound()
                                                                               : FaultOfError(errno);
  }
  return status;
}

void SetTimes(const fs::path& file, const timespec& accessed, const timespec& modified) {
  const std::array<timespec, 2> times{accessed, modified};
  if (::utimensat(AT_FDCWD, file.c_str(), times.data(), 0) != 0) throw FaultOfError(errno);
}

/// The mount table writes a blank as "\040" and the like.
std::string WithoutOctalEscapes(std::string_view text) {
  const auto isOctal = [](char c) { return c >= '0' && c <= '7'; };
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\' && i + 3 < text.size() && isOctal(text[i + 1]) && isOctal(text[i + 2]) &&
        isOctal(text[i + 3])) {
      plain += static_cast<char>((text[i + 1] - '0') * 64 + (text[i + 2] - '0') * 8 + (text[i + 3] - '0'));
      i += 3;
    } else {
      plain += text[i];
    }
  }
  return plain;
}

/// ".kestrava-unfinished-1234-faves.dat" of a process that is no more.
bool IsOfADeadProcess(std::string_view name) {
  if (!BeginsWith(name, kUnfinishedPrefix)) return false;
  name.remove_prefix(kUnfinishedPrefix.size());
  pid_t process = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), process);
  const bool hasNumber = error == std::errc() && end != name.data() + name.size() && *end == '-' && process > 0;
  return hasNumber && ::kill(process, 0) != 0 && errno == ESRCH;
}

/// Where desktops mount what the user puts in.
bool IsMediaFolder(std::string_view path) {
  return BeginsWith(path, "/media/") || BeginsWith(path, "/run/media/");
}

/// Where users mount by hand: sticks and floppies, but the machine's other disks as well.
bool IsMountFolder(std::string_view path) {
  return path == "/mnt" || BeginsWith(path, "/mnt/");
}

}  // namespace

void RemoveUnfinished(const fs::path& folder) {
  std::vector<fs::path> left;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    if (IsOfADeadProcess(entry->path().filename().string())) left.push_back(entry->path());
  }
  for (const fs::path& file : left) ::unlink(file.c_str());
}

fs::path ResolveIgnoringCase(const fs::path& path) {
  if (IsThere(path)) return path;
  fs::path found;
  bool lost = false;
  for (const fs::path& component : path) {
    const fs::path exact = found / component;
    if (lost || component.empty() || IsThere(exact)) {
      found = exact;
    } else {
      found /= MatchIn(found, component);
      lost = !IsThere(found);
    }
  }
  return found;
}

bool PosixFiles::Exists(const Path& file) {
  const auto status = StatusOf(ResolveIgnoringCase(file));
  return fs::exists(status) && !fs::is_directory(status);
}

std::string PosixFiles::Read(const Path& file) {
  return ReadAll(OpenFile(ResolveIgnoringCase(file), O_RDONLY).Get());
}

void PosixFiles::Replace(const Path& file, std::string_view content) {
  ReplaceAtomically(TargetOf(file), content);
}

void PosixFiles::Append(const Path& file, std::string_view content) {
  Descriptor fd = OpenFile(ResolveIgnoringCase(file), O_WRONLY | O_CREAT | O_APPEND);
  WriteAll(fd.Get(), content);
  if (!fd.Close()) throw FaultOfError(errno);
}

void PosixFiles::Remove(const Path& file) {
  const fs::path found = ResolveIgnoringCase(file);
  if (::unlink(found.c_str()) != 0) throw FaultOfError(errno);
  FlushFolder(found.parent_path());
}

void PosixFiles::Rename(const Path& from, const Path& to) {
  const fs::path source = ResolveIgnoringCase(from);
  const fs::path target = ResolveIgnoringCase(to);
  if (::rename(source.c_str(), target.c_str()) != 0) throw FaultOfError(errno);
  FlushFolder(target.parent_path());
  if (source.parent_path() != target.parent_path()) FlushFolder(source.parent_path());
}

void PosixFiles::Copy(const Path& from, const Path& to) {
  const struct stat source = StatusBits(from);
  const std::string content = Read(from);
  const fs::path target = TargetOf(to);
  if (!FolderExists(target.parent_path())) throw Fault::DiskNotReady();
  ReplaceAtomically(target, content);
  try {
    SetTimes(target, source.st_atim, source.st_mtim);
  } catch (const Fault&) {
    // Some media take no date from a user who does not own them: the file has arrived all the same.
  }
}

std::uintmax_t PosixFiles::Size(const Path& file) {
  return static_cast<std::uintmax_t>(StatusBits(file).st_size);
}

SerialDate PosixFiles::ModifiedLocal(const Path& file) {
  const std::time_t modified = StatusBits(file).st_mtim.tv_sec;
  std::tm local{};
  ::tzset();
  if (!::localtime_r(&modified, &local)) throw Fault::Overflow();
  return MakeSerial({local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec});
}

void PosixFiles::SetModifiedUtc(const Path& file, SerialDate utc) {
  // Built from its parts: a date before day zero counts its fraction the other way.
  const DateParts parts = SplitSerial(utc);
  const double days = MakeSerial({parts.year, parts.month, parts.day, 0, 0, 0}) - kUnixEpoch;
  const auto midnight = static_cast<std::time_t>(days * kSecondsPerDay);
  const timespec modified{midnight + std::time_t{parts.hour} * 3600 + std::time_t{parts.minute} * 60 + parts.second, 0};
  SetTimes(ResolveIgnoringCase(file), {0, UTIME_OMIT}, modified);
}

std::vector<std::string> PosixFiles::List(const Path& folder) {
  std::vector<std::string> names;
  std::error_code error;
  const fs::path found = ResolveIgnoringCase(folder);
  for (fs::directory_iterator entry(found, error), end; !error && entry != end; entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    if (fs::is_regular_file(StatusOf(entry->path())) && !BeginsWith(name, kUnfinishedPrefix)) names.push_back(name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

bool PosixFiles::FolderExists(const Path& folder) {
  return fs::is_directory(StatusOf(ResolveIgnoringCase(folder)));
}

bool PosixFiles::FolderIsEmpty(const Path& folder) {
  std::error_code error;
  const fs::directory_iterator first(ResolveIgnoringCase(folder), error);
  return error ? !FolderExists(folder) : first == fs::directory_iterator();
}

void PosixFiles::MakeFolder(const Path& folder) {
  std::error_code error;
  fs::create_directories(ResolveIgnoringCase(folder), error);
  if (error) throw FaultOfError(error.value());
}

std::vector<fs::path> PosixFiles::RemovableMedia() {
  const auto canBeTaken = [&](const std::string& device) { return CanBeTaken(blockDevices_, device); };
  std::vector<fs::path> media = RemovableMounts(ReadAll(OpenFile(mountTable_, O_RDONLY).Get()), canBeTaken);
  std::erase_if(media, [](const fs::path& folder) { return ::access(folder.c_str(), W_OK) != 0; });
  return media;
}

bool CanBeTaken(const fs::path& blockDevices, const std::string& device) {
  std::error_code error;
  const fs::path name = fs::weakly_canonical(device, error).filename();  // "/dev/mapper/stick" is a link to "/dev/dm-0"
  const fs::path at = error ? fs::path() : fs::canonical(blockDevices / name, error);
  if (at.empty() || error) return false;
  if (Contains(at.string(), "/usb") || Contains(at.string(), "/mmc")) return true;
  for (const fs::path& disk : {at, at.parent_path()}) {  // a partition lies in the folder of its disk
    try {
      if (BeginsWith(ReadAll(OpenFile(disk / "removable", O_RDONLY).Get()), "1")) return true;
    } catch (const Fault&) {
    }
  }
  return false;
}

std::vector<fs::path> RemovableMounts(std::string_view mountTable,
                                      const std::function<bool(const std::string& device)>& canBeTaken) {
  std::vector<fs::path> found;
  for (const std::string& line : SplitLines(mountTable)) {
    const std::vector<std::string> fields = SplitAt(line, ' ');  // device, folder, type, options
    if (fields.size() < 4 || !BeginsWith(fields[0], "/dev/")) continue;
    const std::string folder = WithoutOctalEscapes(fields[1]);
    const std::vector<std::string> options = SplitAt(fields[3], ',');
    const bool readOnly = std::find(options.begin(), options.end(), "ro") != options.end();
    const bool isMedium = IsMediaFolder(folder) || (IsMountFolder(folder) && canBeTaken(fields[0]));
    if (isMedium && !readOnly) found.emplace_back(folder);
  }
  return found;
}

}  // namespace kestrava::platform
