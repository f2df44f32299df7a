// The painter of the horizon: the whole sky above the observer over a scenery picture, azimuth across, elevation up. It
// calculates what it paints, always by the system's clock: the warp clock of a map has no effect here.
#pragma once

#include <string_view>

#include "orbit/Satcalc.h"
#include "platform/Surface.h"
#include "views2d/PaintedRows.h"
#include "views2d/SpriteSet.h"

namespace kestrava::views2d {

/// Pixel column of an azimuth, 0 at the left edge for north, or for south with north in the centre. No clipping.
double AzToX(double azDeg, double widthPx, bool centreNorth);
/// Pixel row of an elevation: the zenith is the top edge, the horizon the bottom edge, below it off the surface.
double ElToY(double elDeg, double heightPx);

/// What is said of the Sun. One slightly below the horizon counts as up; both ends of the twilight belong to it.
enum class SunInSky { kUp, kTwilight, kTooLow };
SunInSky SunAt(double elDeg);
/// The Moon counts from one degree on, a satellite from just above the horizon on, if it is known where it stands.
bool IsMoonShown(double elDeg);
bool IsSatelliteShown(const orbit::FaveRec& row);
/// A track goes on at an elevation of exactly 0.
bool HasSet(double elDeg);

/// Two seconds on. The carries test for equality: a second that passes over 60 never carries and grows past it, which a
/// date rolls over just as well. Month and year stay alone.
void StepTrack(platform::DateParts& moment);

inline constexpr int kBackDropDesignWidth = 794;
inline constexpr int kBackDropDesignHeight = 509;

/// Sun or Moon as the latest paint had it.
struct BodyInSky {
  bool drawn = false;
  double azDeg = 0;
  double elDeg = 0;
};

/// What belongs to one horizon window.
struct HorizonState {
  bool CentreNorth = false;   ///< north stands in the centre, not south
  bool SatInfoShown = false;  ///< txtSatInfo is in view
  BodyInSky sun;
  BodyInSky moon;
  PaintedRows rows;  ///< the favourites as the latest paint had them
};

struct HorizonSurfaces {
  platform::Surface& Final;           ///< the horizon as the user sees it
  const platform::Surface& BackDrop;  ///< the scenery; black and of its design size while none is loaded
  SpriteSet sprites;
};

/// What the painter asks of its window.
class HorizonHost {
 public:
  virtual ~HorizonHost() = default;
  /// Nothing was selected, and the paint has selected this row: it is to be said and described. May show a message.
  virtual void SatelliteTaken(int index) = 0;
  virtual bool IsOpen() const = 0;
};

class HorizonPainter {
 public:
  HorizonPainter(const orbit::Sky& sky, HorizonState& state, HorizonSurfaces surfaces, HorizonHost& host)
      : sky_(sky), state_(state), surfaces_(surfaces), host_(host) {}

  /// Pixel position on Final.
  double AzToHorizonX(double azDeg) const;
  double ElToHorizonY(double elDeg) const;

  /// Calculates and paints everything; ends where the window closes. Writes Az and El of the favourites; takes the
  /// first favourite that is up where none is selected. Faults are logged with "Horizon - PaintScreen" and cost their
  /// statement.
  void PaintScreen();

  /// The way of a satellite to its set, in dots of two seconds, at most 1600 seconds from ten seconds ahead of now on.
  /// One that is down already is no longer selected. Faults: "Horizon - DrawSkyTrack". A satellite without a position
  /// ends its track.
  void DrawSkyTrack(std::string_view name);

 private:
  void PaintBackDrop();
  void PaintCompass();
  void PaintSun(const platform::DateParts& now);
  void PaintMoon(const platform::DateParts& now);
  void PrintBody(std::string_view name, const BodyInSky& body);
  void PaintBody(const BodyInSky& body, const platform::Surface& mask, const platform::Surface& picture);
  void PaintFavourite(int index, const platform::DateParts& now);
  void DrawFavourite(const orbit::FaveRec& row);
  void PaintLastLine();

  orbit::Sky sky_;
  HorizonState& state_;
  HorizonSurfaces surfaces_;
  HorizonHost& host_;
};

}  // namespace kestrava::views2d
