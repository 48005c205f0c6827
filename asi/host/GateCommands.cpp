#include "asi/host/CommandFamilies.h"
#include "asi/host/GateDataCmds.h"
#include "asi/host/GateDefinitionCmds.h"
#include "asi/host/GateSettingCmds.h"

namespace AsiReader {

void addGateCommands(const std::shared_ptr<AsiInterface::ScenarioProvider>& provider, int /*version*/,
                     CommandList& commands) {
  commands.push_back(new GateId(provider));
  commands.push_back(new GateDataRAE(provider));
  commands.push_back(new GateOnOffCmd(provider));
  commands.push_back(new GateColorCmd(provider));
  commands.push_back(new GateDesc(provider));
  commands.push_back(new GateType(provider));
  commands.push_back(new GateInterpolate(provider));
  commands.push_back(new GateAzimOffset(provider));
  commands.push_back(new GateElevOffset(provider));
  commands.push_back(new GateRollOffset(provider));
  // One class under a second keyword each.
  auto* interpolatePos = new GateInterpolate(provider);
  interpolatePos->setName("GateInterpolatePos");
  commands.push_back(interpolatePos);
  commands.push_back(new TargetGateData(provider));
  auto* bodyGateData = new GateData(provider);
  bodyGateData->setName("BodyGateData");
  commands.push_back(bodyGateData);
  commands.push_back(new GateData(provider));
}

}  // namespace AsiReader
