#include "platform/Files.h"

#include "platform/Doors.h"

namespace kestrava::platform {

std::string AppDir;

std::filesystem::path InAppDir(std::string_view name) {
  return std::filesystem::path(AppDir + std::string(name));
}

bool FileExists(const std::filesystem::path& file) {
  return TheFiles().Exists(file);
}

std::string FileNameOfAddress(std::string_view address) {
  const std::size_t slash = address.rfind('/');
  return std::string(slash == std::string_view::npos ? address : address.substr(slash + 1));
}

}  // namespace kestrava::platform
