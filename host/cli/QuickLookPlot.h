#pragma once
// A quick-look map of what the host received, as a PNG: every platform's
// track in latitude and longitude, one colour each, start and end marked,
// names at the end points, a graticule, a scale bar and the time span in the
// title.

#include <string>

namespace RefHost {

struct ExportScene;

// Draws `scene` into the PNG file `path`; false with `error` set when the
// file could not be written.
bool writeQuickLookPlot(const std::string& path, const ExportScene& scene, std::string& error);

}  // namespace RefHost
