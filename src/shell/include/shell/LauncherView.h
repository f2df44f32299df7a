// What the launcher's logic asks of its window: its labels, its clock, its picture, and to be unloaded.
#pragma once

#include <string_view>

#include "platform/Controls.h"

namespace kestrava::shell {

enum class LauncherLabel { kVersion, kCredit, kKepAge, kSunrise, kSunshine, kClock };

/// Object name of a label, and the text that it has before the load.
struct LabelStart {
  std::string_view objectName;
  std::string_view text;
};
constexpr LabelStart StartOf(LauncherLabel label) {
  switch (label) {
    case LauncherLabel::kVersion:
      return {"lblVersion", ""};
    case LauncherLabel::kCredit:
      return {"Label1", ""};
    case LauncherLabel::kKepAge:
      return {"lblKepAge", "Checking Age of Keplerian Elements, Please Wait.."};
    case LauncherLabel::kSunrise:
      return {"lblSunrise", "Calculating Sunrise/set"};
    case LauncherLabel::kSunshine:
      return {"lblSunshine", "Calculating Sunshine"};
    case LauncherLabel::kClock:
      return {"lblClock", "Local Time"};
  }
  return {};
}

class LauncherView {
 public:
  virtual ~LauncherView() = default;
  virtual void SetCaption(std::string_view text) = 0;
  virtual void SetLabel(LauncherLabel label, std::string_view text) = 0;
  virtual platform::LedClock& Clock() = 0;
  /// Shows a picture file in PBCustomise. @throws platform::Fault "File not found", "Invalid picture"
  virtual void ShowPicture(std::string_view file) = 0;
  virtual void SetPictureHint(std::string_view text) = 0;
  /// The line LABdemo: the elements of the first group are those for trying out.
  virtual void ShowDemonstration(bool shown) = 0;
  /// Unloads the window: it goes when the present event is over.
  virtual void UnloadSelf() = 0;
};

}  // namespace kestrava::shell
