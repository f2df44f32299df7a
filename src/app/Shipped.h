// The files that came with the program: where they lie, and how a missing one of the user's is put back from them.
#pragma once

#include <filesystem>

#include "shell/FatalFault.h"

namespace kestrava::app {

/// The folder of the shipped sample data: beside the installed program, or in the source tree of a built one.
/// @return empty if there is none
std::filesystem::path FindShippedData(const std::filesystem::path& programFolder);

class ShippedData : public shell::ShippedFiles {
 public:
  explicit ShippedData(std::filesystem::path folder) : folder_(std::move(folder)) {}
  const std::filesystem::path& Folder() const { return folder_; }
  bool Has(const std::string& name) const override;
  void PutBack(const std::string& name) override;
  bool AreElements(const std::string& name) const override;

 private:
  std::filesystem::path folder_;
};

}  // namespace kestrava::app
