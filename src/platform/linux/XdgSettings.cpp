#include "platform/linux/XdgSettings.h"

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <ctime>
#include <optional>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/SerialDate.h"
#include "platform/SettingsText.h"

#include "AtomicFile.h"

namespace kestrava::platform {

namespace fs = std::filesystem;

namespace {

using Counter = std::atomic<std::uint64_t>;
static_assert(Counter::is_always_lock_free && sizeof(Counter) == 8, "the counter is shared between processes");

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

/// The lock file of all running copies. Its first bytes, mapped into the memory of each, count their writes.
class SharedLock {
 public:
  explicit SharedLock(fs::path file) : file_(std::move(file)) {}
  ~SharedLock() { Unmap(); }
  SharedLock(const SharedLock&) = delete;
  SharedLock& operator=(const SharedLock&) = delete;

  /// Opens the lock file if it can be; without one the store still works, by the stamps of the file alone.
  void Open(bool create) {
    struct stat onDisk {};
    struct stat held {};
    if (fd_.IsOpen() && ::fstat(fd_.Get(), &held) == 0 && ::stat(file_.c_str(), &onDisk) == 0 &&
        held.st_ino == onDisk.st_ino && held.st_dev == onDisk.st_dev) {
      return;
    }
    Unmap();
    fd_ = Descriptor(::open(file_.c_str(), O_RDWR | O_CLOEXEC | (create ? O_CREAT : 0), 0600));
    if (!fd_.IsOpen() || ::fstat(fd_.Get(), &held) != 0) return;
    if (::posix_fallocate(fd_.Get(), 0, sizeof(Counter)) != 0) return;  // a hole on a full disk would be a bus error
    void* memory = ::mmap(nullptr, sizeof(Counter), PROT_READ | PROT_WRITE, MAP_SHARED, fd_.Get(), 0);
    if (memory != MAP_FAILED) counter_ = static_cast<Counter*>(memory);
  }

  bool Lock() {
    int result = -1;
    do {
      result = fd_.IsOpen() ? ::flock(fd_.Get(), LOCK_EX) : -1;
    } while (result != 0 && fd_.IsOpen() && errno == EINTR);
    return result == 0;
  }
  void Unlock() { ::flock(fd_.Get(), LOCK_UN); }

  bool Counts() const { return counter_ != nullptr; }
  std::uint64_t Count() const { return counter_ ? counter_->load(std::memory_order_acquire) : 0; }
  void Add() {
    if (counter_) counter_->fetch_add(1, std::memory_order_acq_rel);
  }

 private:
  void Unmap() {
    if (counter_) ::munmap(static_cast<void*>(counter_), sizeof(Counter));
    counter_ = nullptr;
  }

  fs::path file_;
  Descriptor fd_;
  Counter* counter_ = nullptr;
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
  Store(fs::path folder, Clock& clock, DamageReport report)
      : folder_(std::move(folder)),
        file_(folder_ / "settings.conf"),
        clock_(clock),
        report_(std::move(report)),
        lock_(folder_ / "settings.lock") {
    lock_.Open(false);
    LoadForReading();
  }

  std::string Get(std::string_view key) {
    RefreshIfChanged();
    ReportDamage();
    const auto entry = settings_.find(key);
    return entry == settings_.end() ? std::string() : entry->second;
  }

  void Set(std::string_view key, std::string_view value) {
    RefreshIfChanged();
    if (!Stands(key, value)) Write(key, value);
    ReportDamage();
  }

 private:
  // An editor does not count its writes, nor does a copy that was killed behind its rename: the file itself is looked
  // at this often.
  static constexpr std::int64_t kLookIntervalMs = 100;

  bool Stands(std::string_view key, std::string_view value) const {
    const auto entry = settings_.find(key);
    return entry != settings_.end() && entry->second == value;
  }

  void RefreshIfChanged() {
    const std::int64_t now = CoarseMs();
    const bool counted = lock_.Count() != seenCount_;
    if (!counted && lock_.Counts() && now - lookedMs_ < kLookIntervalMs) return;
    lookedMs_ = now;
    lock_.Open(false);
    if (counted || lock_.Count() != seenCount_ || StampOf(file_) != seen_) LoadForReading();
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
    seenCount_ = lock_.Count();
    seen_ = StampOf(file_);
    lookedMs_ = CoarseMs();
  }

  void ReportDamage() {
    if (!setAside_ || reported_) return;
    reported_ = true;
    if (report_) report_(*setAside_);
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
  std::optional<fs::path> setAside_;
  bool reported_ = false;
  SharedLock lock_;
  SettingsMap settings_;
  FileStamp seen_;
  std::uint64_t seenCount_ = 0;
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
  SettingsMap changed = settings_;
  const auto entry = changed.find(key);
  if (entry == changed.end()) {
    changed.emplace(key, value);
  } else {
    entry->second = value;
  }
  ReplaceAtomically(file_, SettingsToText(changed), 0600);
  settings_ = std::move(changed);
  lock_.Add();
  Remember();
}

bool XdgSettings::Store::Load() {
  seenCount_ = lock_.Count();  // before the file: a write in between is seen at the next look
  seen_ = StampOf(file_);
  if (!seen_.exists) {
    settings_.clear();
    return true;
  }
  auto loaded = SettingsFromText(ReadAll(OpenFile(file_, O_RDONLY).Get()));
  settings_ = loaded ? std::move(*loaded) : SettingsMap();
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
  const DateParts now = SplitSerial(clock_.Read().local);
  std::string name = file_.string() + ".damaged-" + std::to_string(now.year);
  for (const int part : {now.month, now.day, now.hour, now.minute, now.second}) {
    name += (part < 10 ? "-0" : "-") + std::to_string(part);
  }
  fs::path free = name;
  for (int n = 2; StampOf(free).exists; ++n) free = name + "-" + std::to_string(n);
  return free;
}

XdgSettings::XdgSettings(fs::path folder, Clock& clock, DamageReport report)
    : store_(std::make_unique<Store>(std::move(folder), clock, std::move(report))) {}

XdgSettings::~XdgSettings() = default;

std::string XdgSettings::Get(std::string_view key) {
  return store_->Get(key);
}

void XdgSettings::Set(std::string_view key, std::string_view value) {
  store_->Set(key, value);
}

}  // namespace kestrava::platform
