// A rotor and radio window that remembers what the views told it.
#pragma once

#include <string>

#include "station/Devices.h"

namespace kestrava::views2d {

class RememberingTracker : public station::TrackingWindow {
 public:
  RememberingTracker() { station::UseTrackingWindow(this); }
  ~RememberingTracker() override { station::UseTrackingWindow(nullptr); }
  bool IsVisible() const override { return visible; }
  void SetTag(std::string_view name) override { tag = name; }
  void SelectSatellite(std::string_view name) override { selected = name; }
  void UpdateCombos() override { ++updates; }
  bool visible = true;
  std::string tag;
  std::string selected;
  int updates = 0;
};

}  // namespace kestrava::views2d
