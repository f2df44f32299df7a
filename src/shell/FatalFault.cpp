#include "shell/FatalFault.h"

#include "platform/Doors.h"
#include "platform/Fault.h"

namespace kestrava::shell {

namespace {

constexpr std::string_view kTitle = "Kestrava cannot go on";

void PutBackAndTell(const std::string& name, ShippedFiles& shipped) {
  try {
    shipped.PutBack(name);
  } catch (const platform::Fault& fault) {
    platform::ErrorTrap(fault.what(), "Put back " + name);
    platform::TheMessages().Show(name + " could not be put back: " + fault.what(), kTitle);
  }
}

}  // namespace

void ReportFatal(const FatalReport& report, ShippedFiles* shipped) {
  const std::string what = report.fault + ".\n\n" + report.subject + "\n\n";
  const bool canPutBack = shipped && !report.missingFile.empty() && shipped->Has(report.missingFile);
  if (!canPutBack) {
    platform::TheMessages().Show(what + report.remedy + " Kestrava ends now.", kTitle);
    return;
  }
  const std::string question = what + "Shall the " + report.missingFile +
                               " that came with Kestrava be put back? Kestrava ends now in either case: start it again "
                               "afterwards.";
  if (platform::TheMessages().AskYesNo(question, kTitle)) PutBackAndTell(report.missingFile, *shipped);
}

}  // namespace kestrava::shell
