// While rows of passes are built the pass window counts as visible for Satcalc, whether it stands on the screen, is
// hidden or does not exist (as on the command line): otherwise each row would cost searches that nobody reads.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/Doors.h"
#include "predict/PassPrediction.h"

namespace kestrava::predict {

/// The registry with the pass window taken for visible. Everything else is asked of the real one.
class PassWindowVisible : public platform::Windows {
 public:
  /// @param real  null where a program has no windows
  explicit PassWindowVisible(platform::Windows* real) : real_(real) {}

  bool IsVisible(std::string_view name) override { return name == kPassWindow || (real_ && real_->IsVisible(name)); }
  void Register(std::string_view name, Factory factory) override { Real().Register(name, std::move(factory)); }
  bool Knows(std::string_view name) const override { return real_ && real_->Knows(name); }
  void Show(std::string_view name, std::string_view tag) override { Real().Show(name, tag); }
  void ShowNew(std::string_view name, std::string_view tag) override { Real().ShowNew(name, tag); }
  platform::Window* Find(std::string_view name) override { return real_ ? real_->Find(name) : nullptr; }
  void Unload(platform::Window& window) override { Real().Unload(window); }
  std::vector<std::pair<std::string, platform::Window*>> Loaded() const override { return Real().Loaded(); }
  int VisibleCount() const override { return real_ ? real_->VisibleCount() : 0; }

 private:
  platform::Windows& Real() const {
    if (!real_) throw platform::Fault::ObjectNotSet();
    return *real_;
  }

  platform::Windows* real_;
};

/// Holds for as long as it lives. Nothing yields meanwhile, so nobody else sees it.
class BuildingRows {
 public:
  BuildingRows() : windows_(platform::TheDoors().windows), doors_(With(windows_)) {}

 private:
  static platform::Doors With(platform::Windows& windows) {
    platform::Doors doors = platform::TheDoors();
    doors.windows = &windows;
    return doors;
  }

  PassWindowVisible windows_;
  platform::ScopedDoors doors_;
};

}  // namespace kestrava::predict
