#include "asi/host/BeamAntennaCmds.h"
#include "asi/host/BeamDataCmds.h"
#include "asi/host/BeamDefinitionCmds.h"
#include "asi/host/BeamSettingCmds.h"
#include "asi/host/BeamTimedCmds.h"
#include "asi/host/CommandFamilies.h"

namespace AsiReader {

namespace {

// One class under a second keyword.
template <typename Command>
Command* alias(const std::shared_ptr<AsiInterface::ScenarioProvider>& provider, const char* keyword) {
  auto* command = new Command(provider);
  command->setName(keyword);
  return command;
}

}  // namespace

void addBeamCommands(const std::shared_ptr<AsiInterface::ScenarioProvider>& provider, int /*version*/,
                     CommandList& commands) {
  commands.push_back(new BeamId(provider));
  commands.push_back(new VertBW(provider));
  commands.push_back(new HorzBW(provider));
  commands.push_back(new AzimOffset(provider));
  commands.push_back(new ElevOffset(provider));
  commands.push_back(new RollOffset(provider));
  commands.push_back(new BodyOffset(provider));
  commands.push_back(new AntennaPattern(provider));
  commands.push_back(new AntennaAlgorithm(provider));
  commands.push_back(new AntennaGain(provider));
  commands.push_back(new AntennaPeakPower(provider));
  commands.push_back(new AntennaFrequency(provider));
  commands.push_back(new AntennaPolarity(provider));
  commands.push_back(new BeamDataRAE(provider));
  commands.push_back(new BeamOnOffCmd(provider));
  // The reader's "BeamTargetCmd" takes a platform id, as "BeamTargetIDCmd" does.
  commands.push_back(alias<BeamTargetIdCmd>(provider, "BeamTargetCmd"));
  commands.push_back(new BeamTargetIdCmd(provider));
  commands.push_back(new BeamColorCmd(provider));
  commands.push_back(new BeamDesc(provider));
  commands.push_back(new BeamType(provider));
  commands.push_back(new AREPSPattern(provider));
  commands.push_back(new BeamMissileOffset(provider));
  commands.push_back(new BeamInterpolate(provider));
  commands.push_back(alias<BeamInterpolate>(provider, "BeamInterpolatePos"));
  commands.push_back(new BeamData(provider));
}

}  // namespace AsiReader
