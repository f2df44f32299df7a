#include "support/MemoryFiles.h"

#include <algorithm>

#include "platform/Text.h"

namespace kestrava::testing {

using platform::EqualsIgnoringCase;
using platform::Fault;

namespace {

std::string Key(const std::filesystem::path& path) {
  std::string key = path.lexically_normal().string();
  while (key.size() > 1 && key.back() == '/') key.pop_back();
  return key;
}

std::string FolderKey(const std::filesystem::path& file) {
  return Key(file.lexically_normal().parent_path());
}

}  // namespace

std::map<std::string, MemoryFiles::Entry>::iterator MemoryFiles::Find(const Path& file) {
  const std::string key = Key(file);
  const auto exact = files_.find(key);
  if (exact != files_.end()) return exact;
  return std::find_if(files_.begin(), files_.end(),
                      [&](const auto& entry) { return EqualsIgnoringCase(entry.first, key); });
}

MemoryFiles::Entry& MemoryFiles::Existing(const Path& file) {
  CheckFile(file);
  const auto entry = Find(file);
  if (entry != files_.end()) return entry->second;
  throw FolderExists(file.lexically_normal().parent_path()) ? Fault::FileNotFound() : Fault::PathNotFound();
}

void MemoryFiles::CheckFile(const Path& file) const {
  const auto broken = brokenFiles_.find(platform::ToCapitals(Key(file)));
  if (broken != brokenFiles_.end()) throw broken->second;
}

void MemoryFiles::CheckTarget(const Path& file) {
  CheckFile(file);
  if (!FolderExists(file.lexically_normal().parent_path())) throw Fault::PathNotFound();
}

std::size_t MemoryFiles::Pass(std::optional<Break>& device, std::size_t bytes) {
  if (!device) return bytes;
  const std::size_t passed = std::min(bytes, device->bytesLeft);
  device->bytesLeft -= passed;
  return passed;
}

void MemoryFiles::Store(const Path& file, std::string content) {
  const auto entry = Find(file);
  Entry& target = entry == files_.end() ? files_[Key(file)] : entry->second;
  target = {std::move(content), clock_.Read().utc};
  ++changes_;
}

bool MemoryFiles::Exists(const Path& file) {
  return Find(file) != files_.end();
}

std::string MemoryFiles::Read(const Path& file) {
  const Entry& entry = Existing(file);
  if (Pass(reading_, entry.content.size()) < entry.content.size()) throw reading_->fault;
  return entry.content;
}

void MemoryFiles::Replace(const Path& file, std::string_view content) {
  CheckTarget(file);
  if (writing_ && writing_->bytesLeft == 0) throw writing_->fault;
  if (Pass(writing_, content.size()) < content.size()) throw writing_->fault;
  Store(file, std::string(content));
}

void MemoryFiles::Append(const Path& file, std::string_view content) {
  CheckTarget(file);
  if (writing_ && writing_->bytesLeft == 0) throw writing_->fault;
  const std::size_t passed = Pass(writing_, content.size());
  const auto entry = Find(file);
  std::string whole = entry == files_.end() ? std::string() : entry->second.content;
  Store(file, whole.append(content.substr(0, passed)));
  if (passed < content.size()) throw writing_->fault;
}

void MemoryFiles::Remove(const Path& file) {
  Existing(file);
  files_.erase(Find(file));
  ++changes_;
}

void MemoryFiles::Rename(const Path& from, const Path& to) {
  if (Find(from) == files_.end() && FolderExists(from)) {
    RenameFolder(Key(from), Key(to));
    return;
  }
  const Entry moved = Existing(from);
  CheckTarget(to);
  files_.erase(Find(from));
  const auto target = Find(to);
  (target == files_.end() ? files_[Key(to)] : target->second) = moved;
  ++changes_;
}

void MemoryFiles::RenameFolder(const std::string& from, const std::string& to) {
  if (!FolderIsEmpty(to)) throw Fault::PathFileAccess();
  CheckTarget(to);
  const auto moved = [&](const std::string& key) {
    return key == from || platform::BeginsWith(key, from + "/") ? to + key.substr(from.size()) : key;
  };
  std::set<std::string> folders;
  for (const std::string& folder : folders_) folders.insert(moved(folder));
  std::map<std::string, Entry> files;
  for (auto& [key, entry] : files_) files.emplace(moved(key), std::move(entry));
  folders_ = std::move(folders);
  files_ = std::move(files);
  ++changes_;
}

void MemoryFiles::Copy(const Path& from, const Path& to) {
  const Entry source = Existing(from);
  if (!FolderExists(to.lexically_normal().parent_path())) throw Fault::DiskNotReady();
  Replace(to, Read(from));
  Find(to)->second.modifiedUtc = source.modifiedUtc;
}

std::uintmax_t MemoryFiles::Size(const Path& file) {
  return Existing(file).content.size();
}

platform::SerialDate MemoryFiles::ModifiedLocal(const Path& file) {
  const platform::ClockReading now = clock_.Read();
  return platform::MakeSerial(platform::SplitSerial(Existing(file).modifiedUtc + (now.local - now.utc)));
}

void MemoryFiles::SetModifiedUtc(const Path& file, platform::SerialDate utc) {
  Existing(file).modifiedUtc = utc;
}

std::vector<std::string> MemoryFiles::List(const Path& folder) {
  std::vector<std::string> names;
  for (const auto& [key, entry] : files_) {
    if (EqualsIgnoringCase(FolderKey(key), Key(folder))) names.push_back(Path(key).filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

bool MemoryFiles::FolderExists(const Path& folder) {
  const std::string key = Key(folder);
  return std::any_of(folders_.begin(), folders_.end(), [&](const auto& name) { return EqualsIgnoringCase(name, key); });
}

bool MemoryFiles::FolderIsEmpty(const Path& folder) {
  const std::string below = platform::ToCapitals(Key(folder) + "/");
  const auto isBelow = [&](const std::string& key) { return platform::BeginsWith(platform::ToCapitals(key), below); };
  return std::none_of(files_.begin(), files_.end(), [&](const auto& entry) { return isBelow(entry.first); }) &&
         std::none_of(folders_.begin(), folders_.end(), isBelow);
}

void MemoryFiles::MakeFolder(const Path& folder) {
  for (Path path = Key(folder); !path.empty(); path = path.parent_path()) {
    folders_.insert(Key(path));
    if (path == path.parent_path()) break;
  }
}

void MemoryFiles::Put(const Path& file, std::string_view content) {
  MakeFolder(file.lexically_normal().parent_path());
  Store(file, std::string(content));
}

std::string MemoryFiles::Content(const Path& file) {
  const auto entry = Find(file);
  return entry == files_.end() ? std::string() : entry->second.content;
}

void MemoryFiles::RemoveFolder(const Path& folder) {
  const std::string key = Key(folder);
  folders_.erase(key);
  std::erase_if(files_, [&](const auto& entry) { return FolderKey(entry.first) == key; });
}

void MemoryFiles::BreakReadAfter(std::size_t bytes, const Fault& fault) {
  reading_ = Break{bytes, fault};
}

void MemoryFiles::BreakWriteAfter(std::size_t bytes, const Fault& fault) {
  writing_ = Break{bytes, fault};
}

void MemoryFiles::BreakFile(const Path& file, const Fault& fault) {
  brokenFiles_.insert_or_assign(platform::ToCapitals(Key(file)), fault);
}

void MemoryFiles::Mend() {
  reading_.reset();
  writing_.reset();
  brokenFiles_.clear();
}

}  // namespace kestrava::testing
