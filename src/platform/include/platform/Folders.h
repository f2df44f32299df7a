// Whole folders that several running copies may want at the same moment: made by one of them alone, and held by it for
// as long as it lives. Asked for by the first start only, which hands it in.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace kestrava::platform {

/// A folder that is held. It is let go with this object, and with the process, however that ends.
class FolderHold {
 public:
  virtual ~FolderHold() = default;
};

class Folders {
 public:
  virtual ~Folders() = default;
  /// Names (not paths) of the folders in a folder, sorted; links are none. Empty if there is no such folder.
  virtual std::vector<std::string> List(const std::filesystem::path& parent) = 0;
  /// @return false if anything of that name is there. @throws Fault if it cannot be made
  virtual bool Make(const std::filesystem::path& folder) = 0;
  /// Removes a folder and the plain files in it. @throws Fault; what it holds besides stays, and the folder with it
  virtual void Remove(const std::filesystem::path& folder) = 0;
  /// @return none if another holds it, or if it is not there (any more). @throws Fault on a medium that knows no holds
  virtual std::unique_ptr<FolderHold> TryHold(const std::filesystem::path& folder) = 0;
  /// Waits until nobody else holds it. @throws Fault if it is not there, or on a medium that knows no holds
  virtual std::unique_ptr<FolderHold> Hold(const std::filesystem::path& folder) = 0;
};

}  // namespace kestrava::platform
