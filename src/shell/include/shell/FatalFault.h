// The orderly end that an untrapped fault of the start-up comes to: one message that names the fault, the file or the
// value, and what the user can do about it.
#pragma once

#include <optional>
#include <string>

#include "store/Backups.h"

namespace kestrava::shell {

/// The files that came with the program, as far as the launcher needs them.
class ShippedFiles {
 public:
  virtual ~ShippedFiles() = default;
  virtual bool Has(const std::string& name) const = 0;
  /// Puts the shipped file of that name into the user's folder, if none is there that can be used. @throws
  /// platform::Fault
  virtual void PutBack(const std::string& name) = 0;
  /// Are the elements of the user's file of that name still those that were shipped? @throws platform::Fault
  virtual bool AreElements(const std::string& name) const = 0;
};

struct FatalReport {
  std::string fault;        ///< the run-time's text: "File not found"
  std::string subject;      ///< what it was about: a sentence that names the file or the value
  std::string remedy;       ///< what the user can do: a sentence
  std::string missingFile;  ///< name of a data file that is missing or of no use, else empty
  std::optional<store::Backup> backup = std::nullopt;  ///< the fullest copy of it, if one was kept
};

/// Shows the one message. Where a copy of the missing file was kept, or else a shipped one of its name exists, it
/// offers to put that back, and does so on Yes. The caller then ends the run with exit code 1.
void ReportFatal(const FatalReport& report, ShippedFiles* shipped);

/// Offers to put a kept copy of the user's file back, and does so on Yes.
/// @param what  what stands in front of the question
void OfferBackup(const std::string& what, const std::string& fileName, const store::Backup& backup);

inline constexpr int kFatalExitCode = 1;

}  // namespace kestrava::shell
