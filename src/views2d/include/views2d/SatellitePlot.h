// What is plotted on a map: the favourites' places, the selected satellite's ground track and footprint. Fills what the
// painter draws, the map's own and, by a copy, the shared tables: on every tick (Gsatroutine) or on the slow schedules
// of the window (CalcGroundTrack).
#pragma once

#include "orbit/Satcalc.h"
#include "views2d/MapState.h"

namespace kestrava::views2d {

/// One tick: advances the warp clock, computes every favourite, drives the recorder, fills the info pane for the
/// selected one and makes the automatic selection. Yields once for each satellite.
void Gsatroutine(const orbit::Sky& sky, MapState& map, MapHost& host);

/// The favourites' places alone, for the moment that the map shows. Does not yield.
void CalcRows(const orbit::Sky& sky, const MapState& map);

/// The selected satellite's track from now (or the warp clock) on, a point every 30 seconds.
void CalcGroundTrack(const orbit::Sky& sky, MapState& map);

/// The circle of a satellite's radio horizon around its sub-point.
/// @param lonDeg  west positive, as SatLon
void CalcFootprint(orbit::Tables& tables, MapState& map, double heightKm, double latDeg, double lonDeg);

/// Sub-points and look angles of Sun and Moon, the terminator and the seeds of its fill, the phase of the Moon.
void CalcSunMoon(const orbit::Sky& sky, MapState& map, MapHost& host);

/// The name of a moon phase angle in radians, -pi at new moon through 0 at full moon.
const char* MoonPhaseName(double phaseRad);

/// 0 at new moon, 100 at full, linear in the angle.
double MoonPhasePercent(double phaseRad);

}  // namespace kestrava::views2d
