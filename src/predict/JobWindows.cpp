#include "predict/JobWindows.h"

#include "platform/Doors.h"
#include "predict/PassPrediction.h"
#include "predict/PassWizard.h"

namespace kestrava::predict {

JobListing* FindJobListing() {
  return dynamic_cast<JobListing*>(platform::TheWindows().Find(kPassWindow));
}

JobEditor* FindJobEditor() {
  return dynamic_cast<JobEditor*>(platform::TheWindows().Find(kWizardWindow));
}

bool MayEndWithJobs() {
  JobEditor* editor = FindJobEditor();
  return !editor || !editor->Wizard().HoldsAJob() || editor->Wizard().MayClose();
}

}  // namespace kestrava::predict
