#include "shell/FatalFault.h"

#include "platform/Doors.h"
#include "platform/Fault.h"

namespace kestrava::shell {

namespace {

constexpr std::string_view kTitle = "Kestrava cannot go on";

constexpr std::string_view kEndsNow = "Kestrava ends now in either case: start it again afterwards.";

template <class PutBack>
void PutBackAndTell(const std::string& name, PutBack&& putBack) {
  try {
    putBack();
  } catch (const platform::Fault& fault) {
    platform::ErrorTrap(fault.what(), "Put back " + name);
    platform::TheMessages().Show(name + " could not be put back: " + fault.what(), kTitle);
  }
}

}  // namespace

void OfferBackup(const std::string& what, const std::string& fileName, const store::Backup& backup) {
  const std::string question = what + backup.fileName + ", the fullest copy that was kept of " + fileName + ", has " +
                               std::to_string(backup.rows) + (backup.rows == 1 ? " row" : " rows") +
                               ". Shall it be put back? " + std::string(kEndsNow);
  if (!platform::TheMessages().AskYesNo(question, kTitle)) return;
  PutBackAndTell(fileName, [&] { store::RestoreBackup(fileName, backup.fileName); });
}

void ReportFatal(const FatalReport& report, ShippedFiles* shipped) {
  const std::string what = report.fault + ".\n\n" + report.subject + "\n\n";
  if (report.backup) {
    OfferBackup(what, report.missingFile, *report.backup);
    return;
  }
  const bool canPutBack = shipped && !report.missingFile.empty() && shipped->Has(report.missingFile);
  if (!canPutBack) {
    platform::TheMessages().Show(what + report.remedy + " Kestrava ends now.", kTitle);
    return;
  }
  const std::string question =
      what + "Shall the " + report.missingFile + " that came with Kestrava be put back? " + std::string(kEndsNow);
  if (!platform::TheMessages().AskYesNo(question, kTitle)) return;
  PutBackAndTell(report.missingFile, [&] { shipped->PutBack(report.missingFile); });
}

}  // namespace kestrava::shell
