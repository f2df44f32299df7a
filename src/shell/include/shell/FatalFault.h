// The orderly end that an untrapped fault of the start-up comes to: one message that names the fault, the file or the
// value, and what the user can do about it.
#pragma once

#include <string>

namespace kestrava::shell {

/// The files that came with the program, as far as the launcher needs them.
class ShippedFiles {
 public:
  virtual ~ShippedFiles() = default;
  virtual bool Has(const std::string& name) const = 0;
  /// Puts the shipped file of that name into the user's folder, if none is there. @throws platform::Fault
  virtual void PutBack(const std::string& name) = 0;
  /// Are the elements of the user's file of that name still those that were shipped? @throws platform::Fault
  virtual bool AreElements(const std::string& name) const = 0;
};

struct FatalReport {
  std::string fault;        ///< the run-time's text: "File not found"
  std::string subject;      ///< what it was about: a sentence that names the file or the value
  std::string remedy;       ///< what the user can do: a sentence
  std::string missingFile;  ///< name of a missing data file, else empty
};

/// Shows the one message. Where a shipped file of the missing one's name exists it offers to put it back, and does so
/// on Yes. The caller then ends the run with exit code 1.
void ReportFatal(const FatalReport& report, ShippedFiles* shipped);

inline constexpr int kFatalExitCode = 1;

}  // namespace kestrava::shell
