#include "orbit/Tables.h"

namespace kestrava::orbit {

Tables& TheTables() {
  static Tables tables;
  return tables;
}

}  // namespace kestrava::orbit
