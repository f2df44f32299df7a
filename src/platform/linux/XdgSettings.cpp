#include "platform/linux/XdgSettings.h"

#include <cerrno>
#include <cstdint>
#include <ctime>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/ClockFace.h"
#include "platform/SerialDate.h"
#include "platform/SettingsText.h"

#include "AtomicFile.h"

namespace kestrava::platform {

namespace fs = std::filesystem;

namespace {

/// What tells one state of the file from another.
struct FileStamp {
  bool exists = false;
  std::uint64_t inode = 0;
  std::int64_t size = 0;
  std::int64_t modifiedS = 0;
  std::int64_t modifiedNs = 0;
  bool operator==(const FileStamp&) const = default;
};

FileStamp StampOf(const fs::path& file) {
  struct stat status {};
  if (::stat(file.c_str(), &status) != 0) return {};
  return {true, status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

/// Milliseconds of a coarse clock that costs a few nanoseconds to read.
std::int64_t CoarseMs() {
  timespec now{};
  ::clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
  return static_cast<std::int64_t>(now.tv_sec) * 1000 + now.tv_nsec / 1000000;
}

/// The lock file of all running copies. Its first bytes count their writes. They are read by calls and never mapped
/// into memory: a backup may cut the file while it is in use, and a look at what was cut off would end the process.
class SharedLock {
 public:
  using Count = std::uint64_t;

  explicit SharedLock(fs::path file) : file_(std::move(file)) {}

  /// Opens the lock file if it can be; without one the store still works, by the stamps of the file alone.
  void Open(bool create) {
    struct stat onDisk {};
    struct stat held {};
    if (fd_.IsOpen() && ::fstat(fd_.Get(), &held) == 0 && ::stat(file_.c_str(), &onDisk) == 0 &&
        held.st_ino == onDisk.st_ino && held.st_dev == onDisk.st_dev) {
      return;
    }
    try {
      fd_ = Descriptor();
      fd_ = OpenFile(file_, O_RDWR | (create ? O_CREAT : 0), 0600);
    } catch (const Fault&) {
    }
  }

  bool Lock() {
    int result = -1;
    do {
      result = fd_.IsOpen() ? ::flock(fd_.Get(), LOCK_EX) : -1;
    } while (result != 0 && fd_.IsOpen() && errno == EINTR);
    return result == 0;
  }
  void Unlock() { ::flock(fd_.Get(), LOCK_UN); }

  /// @return none while nobody counts: no file, or one that was cut
  std::optional<Count> Writes() const {
    Count count = 0;
    const bool whole = fd_.IsOpen() && ::pread(fd_.Get(), &count, sizeof count, 0) == ssize_t{sizeof count};
    return whole ? std::optional(count) : std::nullopt;
  }

  /// Needs the lock. Where it cannot be written (a full disk) the others see the change by the file's stamp.
  void Add() {
    const Count count = Writes().value_or(NewStart()) + 1;
    if (fd_.IsOpen() && ::pwrite(fd_.Get(), &count, sizeof count, 0) != ssize_t{sizeof count}) return;
  }

 private:
  /// A count that was lost must not come to a number that somebody has seen: it goes on from the moment of the loss.
  Count NewStart() const {
    struct stat status {};
    if (::fstat(fd_.Get(), &status) != 0) return 0;
    return static_cast<Count>(status.st_mtim.tv_sec) * 1000000000 + static_cast<Count>(status.st_mtim.tv_nsec);
  }

  fs::path file_;
  Descriptor fd_;
};

class LockHeld {
 public:
  explicit LockHeld(SharedLock& lock) : lock_(lock), held_(lock.Lock()) {}
  ~LockHeld() {
    if (held_) lock_.Unlock();
  }
  LockHeld(const LockHeld&) = delete;
  LockHeld& operator=(const LockHeld&) = delete;

 private:
  SharedLock& lock_;
  bool held_;
};

}  // namespace

class XdgSettings::Store {
 public:
  Store(fs::path folder, Clock& clock, DamageReport report, OddityReport tellOddity)
      : folder_(std::move(folder)),
        file_(folder_ / "settings.conf"),
        clock_(clock),
        report_(std::move(report)),
        tellOddity_(std::move(tellOddity)),
        lock_(folder_ / "settings.lock") {
    lock_.Open(false);
    LoadForReading();
  }

  std::string Get(std::string_view key) {
    RefreshIfChanged();
    Report();
    const auto entry = text_.Values().find(key);
    return entry == text_.Values().end() ? std::string() : entry->second;
  }

  void Set(std::string_view key, std::string_view value) {
    RefreshIfChanged();
    if (!Stands(key, value)) Write(key, value);
    Report();
  }

 private:
  // An editor does not count its writes, nor does a copy that was killed behind its rename: the file itself is looked
  // at this often.
  static constexpr std::int64_t kLookIntervalMs = 100;

  bool Stands(std::string_view key, std::string_view value) const {
    const auto entry = text_.Values().find(key);
    return entry != text_.Values().end() && entry->second == value;
  }

  void RefreshIfChanged() {
    const std::int64_t now = CoarseMs();
    const auto writes = lock_.Writes();
    const bool counted = writes != seenWrites_;
    if (!counted && writes && now - lookedMs_ < kLookIntervalMs) return;
    lookedMs_ = now;
    lock_.Open(false);
    if (counted || lock_.Writes() != seenWrites_ || StampOf(file_) != seen_) LoadForReading();
  }

  /// A file that cannot be read now leaves the values as they are known.
  void LoadForReading() {
    try {
      if (Load()) return;
      lock_.Open(true);
      const LockHeld held(lock_);
      LoadOrSetAside();  // anew: another copy may have set it aside meanwhile
    } catch (const Fault&) {
      Remember();
    }
  }

  /// Needs the lock.
  void LoadOrSetAside() {
    if (!Load()) SetAside();
  }

  void Remember() {
    seenWrites_ = lock_.Writes();
    seen_ = StampOf(file_);
    lookedMs_ = CoarseMs();
  }

  void Report() {
    if (setAside_ && !reported_) {
      reported_ = true;
      if (report_) report_(*setAside_);
    }
    if (untold_.empty()) return;
    for (const std::string& oddity : std::exchange(untold_, {})) {
      if (tellOddity_) tellOddity_(oddity);
    }
  }

  void Write(std::string_view key, std::string_view value);
  /// @return false if the file is damaged; there are no values then. @throws Fault if it cannot be read
  bool Load();
  void SetAside();
  fs::path NameAside() const;

  fs::path folder_;
  fs::path file_;
  Clock& clock_;
  DamageReport report_;
  OddityReport tellOddity_;
  std::optional<fs::path> setAside_;
  bool reported_ = false;
  SharedLock lock_;
  SettingsText text_;
  std::set<std::string> told_;  // oddities of the run so far
  std::vector<std::string> untold_;
  FileStamp seen_;
  std::optional<SharedLock::Count> seenWrites_;
  std::int64_t lookedMs_ = 0;
};

void XdgSettings::Store::Write(std::string_view key, std::string_view value) {
  std::error_code error;
  fs::create_directories(folder_, error);
  if (error) throw FaultOfError(error.value());
  lock_.Open(true);
  const LockHeld held(lock_);
  LoadOrSetAside();
  if (Stands(key, value)) return;
  SettingsText changed = text_;
  changed.Set(key, value);
  ReplaceAtomically(file_, changed.Bytes(), 0600);
  text_ = std::move(changed);
  lock_.Add();
  Remember();
}

bool XdgSettings::Store::Load() {
  seenWrites_ = lock_.Writes();  // before the file: a write in between is seen at the next look
  seen_ = StampOf(file_);
  if (!seen_.exists) {
    text_ = {};
    return true;
  }
  auto loaded = SettingsText::Parse(ReadAll(OpenFile(file_, O_RDONLY).Get()));
  text_ = loaded ? std::move(*loaded) : SettingsText();
  for (const SettingsText::Oddity& oddity : text_.Oddities()) {
    if (told_.insert(oddity.what).second) untold_.push_back(oddity.Text());  // its number changes with lines above it
  }
  return loaded.has_value();
}

void XdgSettings::Store::SetAside() {
  const fs::path aside = NameAside();
  setAside_ = ::rename(file_.c_str(), aside.c_str()) == 0 ? aside : file_;
  FlushFolder(folder_);
  lock_.Add();
  Remember();
}

fs::path XdgSettings::Store::NameAside() const {
  const DateParts now = SplitSerial(CutToSecond(clock_.Read().local));
  std::string name = file_.string() + ".damaged-" + std::to_string(now.year);
  for (const int part : {now.month, now.day, now.hour, now.minute, now.second}) {
    name += (part < 10 ? "-0" : "-") + std::to_string(part);
  }
  fs::path free = name;
  for (int n = 2; StampOf(free).exists; ++n) free = name + "-" + std::to_string(n);
  return free;
}

XdgSettings::XdgSettings(fs::path folder, Clock& clock, DamageReport report, OddityReport tellOddity)
    : store_(std::make_unique<Store>(std::move(folder), clock, std::move(report), std::move(tellOddity))) {}

XdgSettings::~XdgSettings() = default;

std::string XdgSettings::Get(std::string_view key) {
  return store_->Get(key);
}

void XdgSettings::Set(std::string_view key, std::string_view value) {
  store_->Set(key, value);
}

}  // namespace kestrava::platform
