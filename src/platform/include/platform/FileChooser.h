// The door to the dialog in which the user says where something is to be saved.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace kestrava::platform {

class FileChooser {
 public:
  virtual ~FileChooser() = default;
  /// Opens the save dialog and returns when it is closed.
  /// @param suggested  where it stands at first: a folder and a file name in it
  /// @return the file, which may be there already (the dialog has then asked); nothing if it was cancelled
  virtual std::optional<std::filesystem::path> ChooseSaveFile(std::string_view title,
                                                              const std::filesystem::path& suggested) = 0;
  /// The folder in which a user expects documents.
  virtual std::filesystem::path DocumentsFolder() = 0;
};

}  // namespace kestrava::platform
