// ScenarioUD::save: the document written as ASI text, object by object in
// file order, through the writer's saveASI functions.
#include <fstream>
#include <iomanip>

#include "core/CoordinateConverter.h"
#include "core/FileUtils.h"
#include "document/ASIOutput.h"
#include "document/ConvenienceFuncsUD.h"
#include "document/ScenarioUD.h"

namespace {

class Writer {
 public:
  Writer(std::ostream& os, const ScenarioUD& scenario, orvCore::CoordinateSystem system)
      : os_(os), scenario_(scenario), format_(scenario.dataFormat()) {
    format_.setCoordSystem(system);
  }

  void platform(const PlatformUD& p) {
    const PlatformHeaderUD& h = *p.Header();
    const uint64_t id = p.UniqueID();
    saveASIPlatformRequired(os_, id, h.callSign, h.iconName);
    if (h.hasOwnFrame())
      saveASIPlatformCoordFrame(os_, id, h.coordSystem, h.hasRefLLA ? h.refLLA : nullptr, h.tangentPlane,
                                h.referenceTimeECI);
    saveASIPlatformOriginalID(os_, id, p.GetOriginalID());
    saveASIPlatformOffset(os_, id, h.positionOffset);
    saveASIPlatformOriOffset(os_, id, h.courseOffset, h.pitchOffset, h.rollOffset);
    saveASIPlatformRCS(os_, id, p.getRCSFilename());
    saveASIPlatformInterpolatePos(os_, id, p.getInterpolate());
    saveASIPlatformAttachedGOG(os_, id, h.gogFiles);
    saveASIPlatformVerticalDatum(os_, id, h.verticalDatum, h.verticalDatumUser);
    saveASIPlatformMagneticVariance(os_, id, h.magneticVariance, h.magneticVarianceUser);
    const LinearPlatMotionUD& motion = *p.Motion();
    for (const MotionStateUD& state : motion.states()) platformState(id, state, motion);
    for (const BeamUD* beam : p.beams()) this->beam(*beam);
    for (const LOBGroupUD* group : p.lobGroups()) lob(*group);
    for (const LaserUD* laser : p.lasers()) this->laser(*laser);
    for (const CustomRenderingUD* object : p.customRenderings()) customRendering(*object);
    objectData(p);
  }

  // Category data, generic data and data tables of an object.
  void objectData(const ObjectUD& object) {
    const uint64_t id = object.UniqueID();
    const CategoryManager& categories = scenario_.categoryManager();
    for (const auto& series : object.categoryData())
      for (const auto& entry : series.second)
        saveASICategoryData(os_, id, entry.first, categories.getCategoryNameString(series.first),
                            categories.getCategoryValueString(series.first, entry.second), format_);
    genericData(id);
  }

  void genericData(uint64_t id) {
    const GenericDataUD* data = scenario_.getGenericData(id);
    if (data == nullptr) return;
    for (const auto& list : data->items())
      for (const GenericDataObject::Item& item : list.second)
        saveASIGenericData(os_, id, data->getTag(item.second.first), item.second.second, list.first, item.first,
                           format_);
  }

  void tables() {
    for (const auto& entry : scenario_.dataTables().tables()) table(*entry.second);
  }

  void projectors() {
    for (const auto& entry : scenario_.GetProjectorManager().projectors()) {
      const Projector& p = *entry.second;
      saveASIProjector(os_, p.hostId(), p.id(), p.name(), p.rasterFileName(), p.interpolateFov());
      saveASIProjectorOriginalID(os_, p.id(), p.originalId());
      forEachValue(p.onOffTable(), [&](const DataTableRowT& row) {
        uint8_t on = 0;
        if (const DataTableCell* cell = row.cell(0)) cell->getValue(on);
        saveASIProjectorOnOffCmd(os_, p.id(), row.time(), on != 0, format_);
      });
      forEachValue(p.fovTable(), [&](const DataTableRowT& row) {
        double fov = 0.0;
        if (const DataTableCell* cell = row.cell(0)) cell->getValue(fov);
        saveASIProjectorFovCmd(os_, p.id(), row.time(), fov, format_);
      });
    }
  }

 private:
  template <typename Visit>
  static void forEachValue(const DataTable& table, Visit visit) {
    struct Rows : PerDataTableRowFunctor {
      explicit Rows(Visit& v) : visit(v) {}
      bool operator()(DataTable&, const DataTableRowT& row) override {
        visit(row);
        return true;
      }
      Visit& visit;
    } rows(visit);
    const_cast<DataTable&>(table).forEachRow(-1.0e300, 1.0e300, rows);
  }

  void platformState(uint64_t id, const MotionStateUD& s, const LinearPlatMotionUD& motion) {
    double position[3] = {s.lat, s.lon, s.alt};
    if (format_.coordSystem != orvCore::LLA) {
      orvCore::Coordinate lla(orvCore::LLA, orvCore::Vec3(s.lat, s.lon, s.alt));
      orvCore::Coordinate out;
      if (scenario_.converter().convert(lla, out, format_.coordSystem) != 0) {
        writeErrorStreamUD("ERROR:  Unable to obtain Platform Data position.\n");
        return;
      }
      position[0] = out.position()[0];
      position[1] = out.position()[1];
      position[2] = out.position()[2];
    }
    const double orientation[3] = {s.yaw, s.pitch, s.roll};
    const double velocity[3] = {s.velEast, s.velNorth, s.velUp};
    const bool withOrientation = motion.hasOrientation() || motion.hasVelocity();
    if (s.Acceleration())
      saveASIPlatformData(os_, id, s.time, format_, position, orientation, velocity, s.Acceleration());
    else
      saveASIPlatformData(os_, id, s.time, format_, position, withOrientation ? orientation : nullptr,
                          s.velocityGiven() ? velocity : nullptr);
  }

  void beam(const BeamUD& b) {
    const BeamHeaderUD& h = *b.Header();
    const uint64_t id = b.UniqueID();
    saveASIBeamRequired(os_, b.host() ? b.host()->UniqueID() : 0, id, h.vbw, h.hbw, h.beamType);
    saveASIBeamOriginalID(os_, id, b.GetOriginalID());
    saveASIBeamDesc(os_, id, h.desc);
    saveASIBeamOffsets(os_, id, h.azimOffset, h.elevOffset, h.rollOffset, h.bodyOffset, h.missileOffset,
                       h.missileOffsetValue);
    saveASIAntennaBeamInfo(os_, id, h.antType, h.antName, h.antAlgo, h.antGain, h.antPower, h.antFreq,
                           h.antPolarity);
    saveASIAREPSPatterns(os_, id, h.arepsFiles);
    objectData(b);
    for (const auto& entry : b.onOffCommands()) saveASIBeamOnOffCmd(os_, id, entry.first, entry.second, format_);
    for (const auto& entry : b.targetCommands())
      saveASIBeamTargetIdCmd(os_, id, entry.first, entry.second.getId(), format_);
    for (const auto& entry : b.colorCommands()) saveASIBeamColorCmd(os_, id, entry.first, entry.second, format_);
    saveASIBeamInterpolatePosition(os_, id, b.getInterpolate());
    if (const auto* motion = dynamic_cast<const LinearBeamMotionUD*>(b.motion()))
      for (const BeamStateUD& s : motion->states()) saveASIBeamData(os_, id, s.time, s.range, s.azimuth, s.elevation, format_);
    for (const GateUD* g : b.gates()) gate(*g);
  }

  void gate(const GateUD& g) {
    const GateHeaderUD& h = *g.Header();
    const uint64_t id = g.UniqueID();
    saveASIGateRequired(os_, g.host() ? g.host()->UniqueID() : 0, id, h.gateType);
    saveASIGateOriginalID(os_, id, g.GetOriginalID());
    saveASIGateDesc(os_, id, h.desc);
    saveASIGateOffsets(os_, id, h.azimOffset, h.elevOffset, h.rollOffset);
    objectData(g);
    for (const auto& entry : g.onOffCommands()) saveASIGateOnOffCmd(os_, id, entry.first, entry.second, format_);
    for (const auto& entry : g.colorCommands()) saveASIGateColorCmd(os_, id, entry.first, entry.second, format_);
    saveASIGateInterpolatePosition(os_, id, g.getInterpolate());
    for (const GateStateUD& s : g.Motion()->states()) {
      const double values[7] = {s.azimuth, s.elevation, s.width, s.height, s.minRange, s.maxRange, s.centroid};
      saveASIGateData(os_, id, s.time, values, format_);
    }
  }

  void lob(const LOBGroupUD& l) {
    const uint64_t id = l.UniqueID();
    saveASILOBRequired(os_, l.host() ? l.host()->UniqueID() : 0, id, l.Header()->type, l.Header()->description);
    saveASILOBOriginalID(os_, id, l.GetOriginalID());
    for (const auto& entry : l.drawStyles()) {
      const LOBDrawStyleUD& s = entry.second;
      saveASILOBDrawStyle(os_, id, entry.first, s.color1, s.width, s.color2, s.stipple1, s.stipple2, format_);
    }
    for (const auto& entry : l.Motion()->states())
      for (const LOBStateUD& s : entry.second) saveASILOBData(os_, id, s.time, s.range, s.azimuth, s.elevation, format_);
    objectData(l);
  }

  void laser(const LaserUD& object) {
    const Laser& l = *object.laser();
    const uint64_t id = l.id();
    saveASILaser(os_, l.hostId(), id, l.name(), l.coordSystem(), l.referenceLLA(), l.azElBodyFlag());
    saveASILaserOriginalID(os_, id, l.originalId());
    objectData(object);
    forEachValue(l.table(), [&](const DataTableRowT& row) {
      const double t = row.time();
      auto number = [&row](int64_t column, double& out) {
        const DataTableCell* cell = row.cell(column);
        if (cell) cell->getValue(out);
        return cell != nullptr;
      };
      double a = 0, b = 0, c = 0;
      if (number(Laser::COL_ON_OFF, a)) saveASILaserOnOff(os_, id, t, a != 0.0, format_);
      if (number(Laser::COL_YAW, a) && number(Laser::COL_PITCH, b) && number(Laser::COL_ROLL, c))
        saveASILaserOrientation(os_, id, t, a, b, c, format_);
      if (number(Laser::COL_WIDTH, a)) saveASILaserWidth(os_, id, t, static_cast<int>(a), format_);
      if (number(Laser::COL_MAX_RANGE, a)) saveASILaserMaxRange(os_, id, t, a, format_);
      if (number(Laser::COL_COLOR, a)) saveASILaserColor(os_, id, t, static_cast<uint32_t>(a), format_);
      if (number(Laser::COL_OFFSET_X, a) && number(Laser::COL_OFFSET_Y, b) && number(Laser::COL_OFFSET_Z, c))
        saveASILaserOffsetXYZ(os_, id, t, a, b, c, format_);
    });
  }

  void customRendering(const CustomRenderingUD& object) {
    const uint64_t id = object.UniqueID();
    saveASICustomRenderingRequired(os_, object.host() ? object.host()->UniqueID() : 0, id,
                                   object.Header()->renderer, object.Desc());
    saveASICustomRenderingOriginalID(os_, id, object.GetOriginalID());
    objectData(object);
    for (const auto& entry : object.colorCommands())
      saveASICustomRenderingColor(os_, id, entry.first, entry.second, format_);
  }

  void table(const DataTable& t) {
    saveASIDataTableHeader(os_, t.ownerId(), t.tableId(), t.name(), t.getColumnNames(), t.getColumnStorageTypes(),
                           t.getColumnUnitTypes());
    const std::vector<int64_t> ids = t.getColumnIds();
    forEachValue(t, [&](const DataTableRowT& row) {
      saveASIDataTableRow(os_, "DataTableRow", t.tableId(), row, ids, format_);
    });
  }

  std::ostream& os_;
  const ScenarioUD& scenario_;
  DataFormatUD format_;
};

}  // namespace

int ScenarioUD::save(const std::string& fileName, orvCore::CoordinateSystem system) {
  if (!isValid()) return UD_INVALID_SCENARIO_SAVE;
  std::ofstream out(fileName);
  if (!out) {
    writeErrorStreamUD("\n\nERROR!  Unable to open file for saving: " + fileName + "\n");
    return UD_SAVE_OPEN_FAILED;
  }
  setFilename(fileName);
  return save(out, system);
}

int ScenarioUD::save(std::ostream& os, orvCore::CoordinateSystem system) {
  setVersion(UD_HIGHEST_VERSION);
  const std::streamsize precision = os.precision(15);
  saveASIScenarioRequired(os, *this, system);
  if (!classification_.empty()) saveASIClassification(os, classification_, classificationColor_);
  saveASIScenarioWinds(os, windAngle_, windSpeed_);
  const EExternalFileType order[] = {EFT_DED_MAP,    EFT_GOG_FILE,   EFT_WVS_MAP, EFT_VIEW_FILE,     EFT_IMAGE_FILE,
                                     EFT_MEDIA_FILE, EFT_FILE,       EFT_IT_CONFIG_FILE, EFT_RULE_FILE};
  for (EExternalFileType type : order) {
    std::vector<std::string> names = getExternalFile(type);
    // These kinds hold one file.
    if ((type == EFT_VIEW_FILE || type == EFT_IT_CONFIG_FILE || type == EFT_RULE_FILE) && names.size() > 1)
      names.resize(1);
    saveASIExternalFiles(os, type, names);
  }
  if (!desc_.empty()) saveASIScenarioInfo(os, desc_);
  saveASIMagneticVariance(os, magneticVariance_, magneticVarianceUser_);
  saveASIVerticalDatum(os, verticalDatum_, verticalDatumUser_);
  saveASIDegreeAngles(os, format_.degreeAngles);
  Writer writer(os, *this, system);
  writer.genericData(0);
  for (const auto& entry : platforms_) writer.platform(*entry.second);
  writer.tables();
  writer.projectors();
  os.precision(precision);
  return UD_NO_ERROR;
}
