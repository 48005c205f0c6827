#include "asi/host/CommandFamilies.h"
#include "asi/host/ScenarioDataCommands.h"
#include "asi/host/ScenarioFileCommands.h"
#include "asi/host/ScenarioSettingCommands.h"

namespace AsiReader {

namespace {

// Keywords whose class depends on the file's version: up to and including
// these versions the older argument lists are read.
const int LAST_NUMERIC_CLASSIFICATION_VERSION = 4;
const int LAST_GENERIC_OBJECT_VERSION = 6;
const int LAST_TERRAIN_IMAGE_FILE_VERSION = 13;

}  // namespace

void addScenarioCommands(const std::shared_ptr<AsiInterface::ScenarioProvider>& provider, int version,
                         CommandList& commands) {
  commands.push_back(new ReferenceYear(provider));
  commands.push_back(new CoordSystem(provider));
  commands.push_back(new RefLat(provider));
  commands.push_back(new RefLon(provider));
  commands.push_back(new DegreeAngles(provider));
  commands.push_back(new CategoryData(provider));
  commands.push_back(new RefAlt(provider));
  commands.push_back(new ReferenceLla(provider));
  commands.push_back(new ReferenceTimeEci(provider));
  commands.push_back(new TangentPlaneOffset(provider));
  commands.push_back(new ScenarioInfo(provider));
  commands.push_back(new WindSpeed(provider));
  commands.push_back(new WindAngle(provider));
  commands.push_back(new DEDMap(provider));
  commands.push_back(new WVSMap(provider));
  commands.push_back(new GOGFile(provider));
  commands.push_back(new SoundFile(provider));
  commands.push_back(new ViewFile(provider));
  commands.push_back(new MediaFile(provider));
  commands.push_back(new MagneticVariance(provider));
  commands.push_back(new EventObjID(provider));
  commands.push_back(new EventObjRefID(provider));
  commands.push_back(new EventData(provider));
  commands.push_back(new OriginalId(provider));
  commands.push_back(new ITConfigFile(provider));
  commands.push_back(new RuleFile(provider));
  commands.push_back(new VerticalDatum(provider));
  commands.push_back(new GenericObjID(provider));
  commands.push_back(new GenericObjRefID(provider));
  commands.push_back(new File(provider));

  if (version <= LAST_NUMERIC_CLASSIFICATION_VERSION) {
    commands.push_back(new ClassificationDeprecated(provider));
  } else {
    commands.push_back(new Classification(provider));
  }
  if (version <= LAST_GENERIC_OBJECT_VERSION) {
    commands.push_back(new GenericDataDeprecated(provider));
  } else {
    commands.push_back(new GenericData(provider));
  }
  if (version <= LAST_TERRAIN_IMAGE_FILE_VERSION) {
    commands.push_back(new ImageFileDeprecated(provider));
  } else {
    commands.push_back(new ImageFile(provider));
  }
}

}  // namespace AsiReader
