#pragma once
// TLE2ASI: a file of three-line element sets turned into ASI text, one
// satellite platform per set with its propagated track, and optionally a
// GOG file of each satellite's points.

#include <cstdint>
#include <iosfwd>
#include <string>

#include "document/ScenarioUD.h"
#include "importers/Propagator.h"
#include "importers/TleSettings.h"
#include "importers/TleTrack.h"

namespace TLE2ASI {

// Colours of "ORVIDE_TrackColor": a track in the earth's shadow, in
// sunlight, and the value before the first point.
extern const char* const ECLIPSE_COLOR;
extern const char* const SUNLIGHT_COLOR;
extern const char* const START_COLOR;

// Converts settings.inputFile into settings.outputFile (the input with
// ".asi" added when empty). 0 on success; -2 when the output can't be
// opened; -1 when the input can't be read, holds a format error, the output
// fails while being written, or no set gives a single point; UD_USER_CANCEL when `progress` (told the percentage of sets
// done before each set) answers a cancel. What has been written stays on
// disk.
int convert(const TleSettings& settings, ScenarioUD::PercentCallback* progress = nullptr);

// Writes the platform `id` of one satellite with `points` points from the
// frame's start. With `first` the scenario header is written before the
// platform. `gog`, when not null, receives the GOG text of the points.
// Answers the number of points written: a track ends early at a model
// error (told on the issue stream), and a satellite whose first point
// fails writes nothing, header included.
int writeSatProp2ASI(Propagator& satellite, int points, const TimeFrame& frame, std::ostream& os, bool first,
                     const TleSettings& settings, uint64_t id, std::ostream* gog);

// A satellite's name made fit for a file name: path separators and other
// characters that file systems refuse become "_".
std::string gogFileName(const std::string& satelliteName);

}  // namespace TLE2ASI
