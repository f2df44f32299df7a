#include "platform/KeptFile.h"

#include <string>

#include "platform/Doors.h"
#include "platform/Files.h"

namespace kestrava::platform {

std::optional<std::filesystem::path> KeepUnderOtherName(const std::filesystem::path& file) {
  if (!FileExists(file)) return std::nullopt;
  const std::string stem = file.stem().string();
  for (int number = 1;; ++number) {
    const auto other = file.parent_path() / (stem + " (" + std::to_string(number) + ")" + file.extension().string());
    if (FileExists(other)) continue;
    TheFiles().Rename(file, other);
    return other;
  }
}

}  // namespace kestrava::platform
