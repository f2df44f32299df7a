#include "cli/ReadOnlyDoors.h"

#include <algorithm>
#include <utility>

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Text.h"

namespace kestrava::cli {

using platform::Fault;

namespace {

std::string KeyOf(const std::filesystem::path& path) {
  std::string text = platform::ToCapitals(path.lexically_normal().string());
  while (text.size() > 1 && text.back() == '/') text.pop_back();
  return text;
}

class SilentTimer : public platform::Timer {
 public:
  explicit SilentTimer(int intervalMs) : intervalMs_(intervalMs) {}
  void SetIntervalMs(int intervalMs) override { intervalMs_ = intervalMs; }
  int IntervalMs() const override { return intervalMs_; }
  void SetEnabled(bool enabled) override { enabled_ = enabled; }
  bool Enabled() const override { return enabled_; }

 private:
  int intervalMs_;
  bool enabled_ = false;
};

}  // namespace

const UnchangedFiles::Change* UnchangedFiles::ChangeOf(const Path& file) const {
  const auto found = changes_.find(KeyOf(file));
  return found == changes_.end() ? nullptr : &found->second;
}

void UnchangedFiles::Note(const Path& file, std::optional<std::string> content) {
  changes_.insert_or_assign(KeyOf(file), Change{file, std::move(content)});
}

bool UnchangedFiles::Exists(const Path& file) {
  if (const Change* change = ChangeOf(file)) return change->content.has_value();
  return real_.Exists(file);
}

std::string UnchangedFiles::Read(const Path& file) {
  const Change* change = ChangeOf(file);
  if (!change) return real_.Read(file);
  if (!change->content) throw Fault::FileNotFound();
  return *change->content;
}

void UnchangedFiles::Replace(const Path& file, std::string_view content) {
  Note(file, std::string(content));
}

void UnchangedFiles::Append(const Path& file, std::string_view content) {
  std::string whole = Exists(file) ? Read(file) : std::string();
  Note(file, whole.append(content));
}

void UnchangedFiles::Remove(const Path& file) {
  if (!Exists(file)) throw Fault::FileNotFound();
  Note(file, std::nullopt);
}

void UnchangedFiles::Rename(const Path& from, const Path& to) {
  std::string content = Read(from);
  Remove(from);
  Note(to, std::move(content));
}

void UnchangedFiles::Copy(const Path& from, const Path& to) {
  Note(to, Read(from));
}

std::uintmax_t UnchangedFiles::Size(const Path& file) {
  return ChangeOf(file) ? Read(file).size() : real_.Size(file);
}

platform::SerialDate UnchangedFiles::ModifiedLocal(const Path& file) {
  if (!ChangeOf(file)) return real_.ModifiedLocal(file);
  if (!Exists(file)) throw Fault::FileNotFound();
  return platform::TheClock().Read().local;
}

void UnchangedFiles::SetModifiedUtc(const Path& file, platform::SerialDate /*utc*/) {
  if (!Exists(file)) throw Fault::FileNotFound();
}

std::vector<std::string> UnchangedFiles::List(const Path& folder) {
  std::vector<std::string> names = real_.List(folder);
  std::erase_if(names, [&](const std::string& name) { return ChangeOf(folder / name) != nullptr; });
  for (const auto& [key, change] : changes_) {
    if (change.content && KeyOf(change.file.parent_path()) == KeyOf(folder)) {
      names.push_back(change.file.filename().string());
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

bool UnchangedFiles::FolderExists(const Path& folder) {
  return folders_.count(KeyOf(folder)) > 0 || real_.FolderExists(folder);
}

bool UnchangedFiles::FolderIsEmpty(const Path& folder) {
  return List(folder).empty() && real_.FolderIsEmpty(folder);
}

void UnchangedFiles::MakeFolder(const Path& folder) {
  folders_.insert(KeyOf(folder));
}

std::string UnchangedSettings::Get(std::string_view key) {
  const auto entry = settings_.find(key);
  return entry == settings_.end() ? std::string() : entry->second;
}

void UnchangedSettings::Set(std::string_view key, std::string_view value) {
  settings_.insert_or_assign(std::string(key), std::string(value));
}

std::unique_ptr<platform::Timer> NoEvents::MakeTimer(int intervalMs, std::function<void()> /*tick*/) {
  return std::make_unique<SilentTimer>(intervalMs);
}

void NoEvents::Later(std::function<void()> /*work*/) {}

void NoEvents::Quit(int /*exitCode*/) {}

}  // namespace kestrava::cli
