// The picture behind the horizon. The shipped ones are drawn by night, without a lighter side, and say so in their
// text; they are lit here, where the Sun stands. A picture of the user's own stays as it is.
#pragma once

#include <QImage>
#include <cstdint>
#include <vector>

namespace kestrava::views2d::ui {

/// Where the Sun stands in a view.
struct SunInView {
  double azDeg = 0;
  double elDeg = -90;
  bool centreNorth = false;
};

class Scenery {
 public:
  void Load(const QImage& picture);
  /// The Sun has moved. @return true if that shows: the picture is another one
  bool Light(const SunInView& sun);
  const QImage& Picture() const { return picture_; }

 private:
  void FindSky();
  void LightRow(int row);

  QImage night_;  ///< null where nothing is to be lit
  QImage picture_;
  SunInView sun_;
  /// How much of the glow each pixel of night_ takes, 0 to 255: all of it the open sky, none a silhouette before it.
  std::vector<std::uint8_t> sky_;
  std::vector<float> across_;  ///< the glow's strength over each column
};

}  // namespace kestrava::views2d::ui
