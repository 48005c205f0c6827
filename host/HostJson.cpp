// The JSON form of the scenario, as the dump writes it.

#include <cmath>
#include <ostream>
#include <sstream>
#include <string>

#include "host/HostScenario.h"

namespace RefHost {

namespace {

using nlohmann::json;

json optionalNumber(const std::optional<double>& v) { return v ? json(*v) : json(nullptr); }

json headerJson(const HostObject& object, const StringPool& frames) {
  const ObjectHeader& h = object.header;
  json out = {{"name", h.name}};
  switch (object.kind) {
    case KIND_PLATFORM: out["icon"] = h.icon; break;
    case KIND_BEAM:
      out["azimuthOffset"] = h.azimuthOffset;
      out["elevationOffset"] = h.elevationOffset;
      out["horizontalWidth"] = h.horizontalWidth;
      out["verticalWidth"] = h.verticalWidth;
      out["beamType"] = h.beamType;
      out["missileOffset"] = h.missileOffset;
      break;
    case KIND_GATE: out["gateType"] = h.gateType; break;
    case KIND_LOB: out["type"] = h.lobType; break;
    case KIND_LASER:
      out["frame"] = h.frame < frames.size() ? json::parse(frames.at(h.frame)) : json(nullptr);
      out["body"] = h.body;
      break;
    case KIND_CUSTOM_RENDERING: out["renderer"] = h.renderer; break;
    default: break;
  }
  return out;
}

// One value of a record as the dump shows it: pool indices become their
// strings, ids and colours integers.
json fieldJson(unsigned series, std::uint32_t kind, unsigned field, double v, const StringPool& strings) {
  if (std::isnan(v) || std::isinf(v)) return json(v);  // written as null
  switch (series) {
    case SERIES_POINTS:
      // A platform point's frame is its index in the dump's "frames" list.
      if (kind == KIND_PLATFORM && field == 10) return json(static_cast<std::uint32_t>(v));
      break;
    case SERIES_STATUS:
    case SERIES_COLOR:
    case SERIES_TARGET:
      if (field == 1) return json(static_cast<std::uint64_t>(v));
      break;
    case SERIES_GENERIC:
      if (field == 2 || field == 3) return json(strings.at(static_cast<std::uint32_t>(v)));
      if (field == 4) return json(static_cast<std::uint64_t>(v));
      break;
    case SERIES_CATEGORY:
      if (field >= 1) return json(strings.at(static_cast<std::uint32_t>(v)));
      break;
    case SERIES_LOB_DRAW_STYLE:
      if (field >= 1) return json(static_cast<std::int64_t>(v));
      break;
    default: break;
  }
  return json(v);
}

json spanJson(const Series& s) {
  json out = {{"count", s.count()}};
  out["begin"] = s.hasTimedRecords() ? json(s.minTime()) : json(nullptr);
  out["end"] = s.hasTimedRecords() ? json(s.maxTime()) : json(nullptr);
  return out;
}

std::string text(const json& j) { return j.dump(-1, ' ', false, json::error_handler_t::replace); }

// Writes `head` (an object) with one more member whose value `writeValue`
// streams, so that records never need a JSON tree of their own.
template <typename F>
void writeWith(std::ostream& out, const json& head, const char* key, F&& writeValue) {
  std::string h = text(head);
  h.pop_back();  // the closing brace
  out << h << (head.empty() ? "" : ",") << text(json(key)) << ':';
  writeValue();
  out << '}';
}

void writeData(std::ostream& out, const HostObject& object, const StringPool& strings) {
  out << '{';
  bool first = true;
  for (unsigned s = 0; s < SERIES_COUNT; ++s) {
    const Series& series = object.series[s];
    if (series.empty()) continue;
    if (!first) out << ',';
    first = false;
    out << text(json(seriesName(s))) << ':';
    json head = spanJson(series);
    if (!series.keepsRecords()) {
      out << text(head);
      continue;
    }
    head["fields"] = seriesFields(s, object.kind);
    writeWith(out, head, "records", [&] {
      out << '[';
      for (std::size_t i = 0; i < series.count(); ++i) {
        const double* r = series.record(i);
        json row = json::array();
        for (unsigned f = 0; f < series.stride(); ++f) row.push_back(fieldJson(s, object.kind, f, r[f], strings));
        out << (i ? "," : "") << text(row);
      }
      out << ']';
    });
  }
  out << '}';
}

json cellJson(const TableCell& cell, const StringPool& strings) {
  switch (cell.kind) {
    case CELL_SIGNED: return json(cell.i);
    case CELL_UNSIGNED: return json(cell.u);
    case CELL_STRING: return json(strings.at(cell.s));
    default: return json(cell.d);
  }
}

void writeTable(std::ostream& out, const DataTable& table, const StringPool& strings) {
  json head = {{"id", table.id}, {"owner", table.owner}, {"name", table.name}};
  json columns = json::array();
  for (const TableColumn& c : table.columns)
    columns.push_back({{"id", c.id}, {"name", c.name}, {"type", c.type}, {"unit", c.unit}});
  head["columns"] = std::move(columns);
  writeWith(out, head, "rows", [&] {
    const json rows = spanJson(table.rowTimes);
    if (!table.rowTimes.keepsRecords()) {
      out << text(rows);
      return;
    }
    writeWith(out, rows, "records", [&] {
      out << '[';
      for (std::size_t r = 0; r < table.rowStart.size(); ++r) {
        const std::size_t from = table.rowStart[r];
        const std::size_t to = r + 1 < table.rowStart.size() ? table.rowStart[r + 1] : table.cells.size();
        json cells = json::object();
        for (std::size_t c = from; c < to; ++c)
          cells[std::to_string(table.cells[c].column)] = cellJson(table.cells[c], strings);
        out << (r ? "," : "") << text(json({{"time", table.rowTimes.record(r)[0]}, {"cells", std::move(cells)}}));
      }
      out << ']';
    });
  });
}

}  // namespace

void HostScenario::writeJson(std::ostream& out, const nlohmann::json& extra) const {
  json scenario = {{"initialized", settings_.initialized},
                   {"name", settings_.name},
                   {"port", settings_.port},
                   {"protocol", settings_.protocol},
                   {"flag", settings_.flag},
                   {"fileName", settings_.fileName},
                   {"referenceYear", settings_.referenceYear},
                   {"classification", settings_.classification},
                   {"description", settings_.description}};
  scenario["originLLA"] = settings_.originLLA ? json(*settings_.originLLA) : json(nullptr);
  scenario["tangentPlaneOffsets"] =
      settings_.tangentPlaneOffsets ? json(*settings_.tangentPlaneOffsets) : json(nullptr);
  scenario["classificationColor"] =
      settings_.classificationColor ? json(*settings_.classificationColor) : json(nullptr);
  scenario["windSpeed"] = optionalNumber(settings_.windSpeed);
  scenario["windDirection"] = optionalNumber(settings_.windDirection);

  json clock = {{"begin", clock_.begin}, {"end", clock_.end}, {"time", clock_.time}, {"setTimeSecond", clock_.setTimeSecond}};
  clock["timeFormat"] = clock_.timeFormat ? json(*clock_.timeFormat) : json(nullptr);

  std::size_t points = 0;
  for (const auto& o : objects_) points += o->data(SERIES_POINTS).count();
  const json statistics = {{"objects", objects_.size()},
                           {"points", points},
                           {"tables", tables_.size()},
                           {"dataBytes", dataBytes()}};

  // One member per line, one object or table per line.
  json frameList = json::array();
  for (std::uint32_t i = 0; i < frames_.size(); ++i) frameList.push_back(json::parse(frames_.at(i)));

  out << "{\"noData\":" << (noData_ ? "true" : "false") << ",\n\"scenario\":" << text(scenario)
      << ",\n\"clock\":" << text(clock) << ",\n\"statistics\":" << text(statistics)
      << ",\n\"frames\":" << text(frameList) << ",\n\"scenarioData\":";
  writeData(out, scenarioObject_, strings_);
  out << ",\n\"objects\":[";
  for (std::size_t i = 0; i < objects_.size(); ++i) {
    const HostObject& o = *objects_[i];
    json head = {{"id", o.id}, {"kind", kindName(o.kind)}, {"parent", o.parent}, {"originalId", o.originalId}};
    head["header"] = headerJson(o, frames_);
    head["settings"] = o.settings;
    out << (i ? ",\n" : "\n");
    writeWith(out, head, "data", [&] { writeData(out, o, strings_); });
  }
  out << "],\n\"tables\":[";
  for (std::size_t i = 0; i < tables_.size(); ++i) {
    out << (i ? ",\n" : "\n");
    writeTable(out, *tables_[i], strings_);
  }
  out << ']';
  if (extra.is_object())
    for (auto it = extra.begin(); it != extra.end(); ++it) out << ",\n" << text(json(it.key())) << ':' << text(it.value());
  out << "}\n";
}

nlohmann::json HostScenario::toJson() const {
  std::stringstream text;
  writeJson(text);
  return json::parse(text.str());
}

}  // namespace RefHost
