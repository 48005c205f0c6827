#include "asi/host/CommandFamilies.h"
#include "asi/host/PlatformByIdCmds.h"
#include "asi/host/PlatformDataCmd.h"
#include "asi/host/PlatformFrameCmds.h"
#include "asi/host/PlatformHeaderCmds.h"
#include "asi/host/PlatformIdCmd.h"
#include "asi/host/PlatformSettingCmds.h"

namespace AsiReader {

void addPlatformCommands(const std::shared_ptr<AsiInterface::ScenarioProvider>& provider, int /*version*/,
                         CommandList& commands) {
  commands.push_back(new PlatformId(provider));
  commands.push_back(new PlatformData(provider));
  commands.push_back(new PlatformName(provider));
  commands.push_back(new PlatformIcon(provider));
  commands.push_back(new PlatformUsesQuaternion(provider));
  commands.push_back(new PlatformCoordSystem(provider));
  commands.push_back(new PlatformReferenceLla(provider));
  commands.push_back(new PlatformReferenceTimeEci(provider));
  commands.push_back(new PlatformTangentPlaneOffset(provider));
  commands.push_back(new PlatformOffset(provider));
  commands.push_back(new PlatformType(provider));
  commands.push_back(new PlatformFHN(provider));
  commands.push_back(new PlatformRCS(provider));
  commands.push_back(new PlatformAttachedGOG(provider));
  // One class serves both interpolation keywords.
  auto* interpolateOri = new PlatformInterpolate(provider);
  interpolateOri->setName("PlatformInterpolateOri");
  commands.push_back(interpolateOri);
  commands.push_back(new PlatformInterpolate(provider));
  commands.push_back(new PlatformMagneticVariance(provider));
  commands.push_back(new PlatformVerticalDatum(provider));
  commands.push_back(new PlatformOriOffset(provider));
}

}  // namespace AsiReader
