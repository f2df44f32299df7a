// How the pass window and the job wizard know each other: each implements one of these small interfaces beside its
// place in the window registry, and finds the other there. The launcher asks here before it ends.
#pragma once

#include <string_view>

namespace kestrava::predict {

class PassWizard;

/// The pass window, as the wizard sees it.
class JobListing {
 public:
  virtual ~JobListing() = default;
  /// Adds a job's name to ListPresets.
  virtual void AddJob(std::string_view name) = 0;
};

/// The wizard, as the pass window sees it.
class JobEditor {
 public:
  virtual ~JobEditor() = default;
  virtual PassWizard& Wizard() = 0;
};

/// The open pass window; null while there is none.
JobListing* FindJobListing();
/// The open wizard; null while there is none.
JobEditor* FindJobEditor();

/// To be asked before the program ends: a wizard that holds a job puts its question. @return false to stay
bool MayEndWithJobs();

}  // namespace kestrava::predict
