// What the views ask of the recorder and of the rotor and radio window. Both may be missing: the default does nothing.
#pragma once

#include <string_view>

namespace kestrava::station {

/// The pass recorder, driven by the map and the 3D view.
class Recorder {
 public:
  virtual ~Recorder() = default;
  virtual void Show() {}
  virtual void Start(std::string_view satelliteName) { (void)satelliteName; }
  virtual void Stop() {}
  /// Closes every open wave recording: the launcher's last act.
  virtual void CloseAll() {}
};

/// The rotor and radio window (frmTracker), as the map sees it.
class TrackingWindow {
 public:
  virtual ~TrackingWindow() = default;
  virtual bool IsVisible() const { return false; }
  /// Hands over the selected satellite's name.
  virtual void SetTag(std::string_view satelliteName) { (void)satelliteName; }
  /// Sets the text of CBOSelSat.
  virtual void SelectSatellite(std::string_view satelliteName) { (void)satelliteName; }
  virtual void UpdateCombos() {}
};

/// The devices in use; a do-nothing one where none has been put in.
Recorder& TheRecorder();
TrackingWindow& TheTrackingWindow();
/// Puts a device in, or with null takes it out.
void UseRecorder(Recorder* recorder);
void UseTrackingWindow(TrackingWindow* window);

}  // namespace kestrava::station
