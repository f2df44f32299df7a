// The way through the whole station: every window that the program registers, opened as a tour does and filled as far
// as it takes to see what it can show, page after page.
#pragma once

#include <functional>

#include "Findings.h"
#include "robot/RobotStation.h"

namespace kestrava::accessibility {

class StationWalk {
 public:
  using Look = std::function<void(const Visit&)>;

  explicit StationWalk(bool skinOn);
  ~StationWalk();

  /// Calls `look` at every window, or at each page of one with tabs. @return the names of the windows
  std::vector<std::string> EachWindow(const Look& look);

 private:
  QWidget* Open(const std::string& name);
  void VisitWindow(const std::string& name, const Look& look);
  void Fill(const std::string& name, QWidget& window);
  void LetItPaint();

  robot::RobotStation station_;
};

}  // namespace kestrava::accessibility
