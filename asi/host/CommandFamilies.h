#pragma once
// Each family of ASI commands enters its prototypes through one function, so
// that AsiParser::populateCommands stays a list of families. Every prototype
// is built with the read's shared provider; the caller owns what is returned
// and enters it in the keyword table over the stand-by commands.

#include <memory>
#include <vector>

namespace FileReaderPlugin {
class CommandParser;
}
namespace AsiInterface {
class ScenarioProvider;
}

namespace AsiReader {

using CommandList = std::vector<FileReaderPlugin::CommandParser*>;

// Platform commands ("PlatformID", "PlatformData", ...).
void addPlatformCommands(const std::shared_ptr<AsiInterface::ScenarioProvider>& provider, int version,
                         CommandList& commands);

// Beam commands ("BeamID", "BeamData", "AntennaPattern", ...).
void addBeamCommands(const std::shared_ptr<AsiInterface::ScenarioProvider>& provider, int version,
                     CommandList& commands);

// Gate commands ("GateID", "GateData", "GateDataRAE", ...).
void addGateCommands(const std::shared_ptr<AsiInterface::ScenarioProvider>& provider, int version,
                     CommandList& commands);

// Laser commands ("Laser", "LaserOri", ...).
void addLaserCommands(const std::shared_ptr<AsiInterface::ScenarioProvider>& provider, int version,
                      CommandList& commands);

// Line-of-bearing commands ("LOBID", "LOBData", ...).
void addLobCommands(const std::shared_ptr<AsiInterface::ScenarioProvider>& provider, int version,
                    CommandList& commands);

// Projector commands ("Projector", "ProjectorFOV", ...).
void addProjectorCommands(const std::shared_ptr<AsiInterface::ScenarioProvider>& provider, int version,
                          CommandList& commands);

// Custom rendering commands ("CustomRendering", "CustomRenderingColor").
void addCustomRenderingCommands(const std::shared_ptr<AsiInterface::ScenarioProvider>& provider, int version,
                                CommandList& commands);

// Scenario commands ("ReferenceYear", "CoordSystem", ...). The three
// version-dependent keywords ("Classification", "GenericData", "ImageFile")
// come last in the list, chosen by `version`.
void addScenarioCommands(const std::shared_ptr<AsiInterface::ScenarioProvider>& provider, int version,
                         CommandList& commands);

// Data-table commands ("DataTable", "DataTableUnits", "DataTableRow").
void addTableCommands(const std::shared_ptr<AsiInterface::ScenarioProvider>& provider, int version,
                      CommandList& commands);

}  // namespace AsiReader
