#include "station/Hub.h"

namespace kestrava::station {

namespace {
Hub* hubInUse = nullptr;
}  // namespace

Hub& TheHub() {
  static Hub none;
  return hubInUse ? *hubInUse : none;
}

void UseHub(Hub* hub) {
  hubInUse = hub;
}

}  // namespace kestrava::station
