// A folder of its own for a test that needs real files; gone with everything in it when the test is over.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>

namespace kestrava::testing {

class TempFolder {
 public:
  TempFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "kestrava-test-XXXXXX").string();
    if (!::mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
    path_ = name;
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  std::filesystem::path operator/(const std::filesystem::path& name) const { return path_ / name; }

 private:
  std::filesystem::path path_;
};

}  // namespace kestrava::testing
