#include "support/StationFiles.h"

#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

namespace kestrava::testing {

namespace {

namespace fs = std::filesystem;

const fs::path kOwn = KESTRAVA_SOURCE_DIR "tests/data/station";
const fs::path kShipped = KESTRAVA_SOURCE_DIR "data/sample";

/// Those of the tests hide shipped ones of the same name.
std::map<std::string, fs::path> Places() {
  std::map<std::string, fs::path> places;
  for (const fs::path& folder : {kOwn, kShipped}) {
    for (const auto& entry : fs::directory_iterator(folder)) {
      if (entry.path().extension() != ".md") places.try_emplace(entry.path().filename().string(), entry.path());
    }
  }
  return places;
}

}  // namespace

std::string StationFile(const std::string& name) {
  const auto found = StationFiles().find(name);
  if (found != StationFiles().end()) return found->second;
  ADD_FAILURE() << "the station of the tests has no file " << name;
  return {};
}

const std::map<std::string, std::string>& StationFiles() {
  static const std::map<std::string, std::string> all = [] {
    std::map<std::string, std::string> files;
    for (const auto& [name, path] : Places()) {
      std::ifstream file(path, std::ios::binary);
      files[name] = {std::istreambuf_iterator<char>(file), {}};
    }
    return files;
  }();
  return all;
}

void CopyStationFiles(const std::filesystem::path& folder) {
  fs::create_directories(folder);
  for (const auto& [name, path] : Places()) fs::copy_file(path, folder / name);
}

}  // namespace kestrava::testing
