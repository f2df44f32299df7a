#include "station/Devices.h"

namespace kestrava::station {

namespace {
Recorder* recorderInUse = nullptr;
TrackingWindow* trackerInUse = nullptr;
}  // namespace

Recorder& TheRecorder() {
  static Recorder none;
  return recorderInUse ? *recorderInUse : none;
}

TrackingWindow& TheTrackingWindow() {
  static TrackingWindow none;
  return trackerInUse ? *trackerInUse : none;
}

void UseRecorder(Recorder* recorder) {
  recorderInUse = recorder;
}
void UseTrackingWindow(TrackingWindow* window) {
  trackerInUse = window;
}

}  // namespace kestrava::station
