#pragma once
// Host-bound beam declaration and header commands: they act in stage 1 and
// send nothing themselves; the creation of the beam carries what they set.

#include "asi/BeamDefinitionCmds.h"
#include "asi/host/ScnStageOneOnly.h"

namespace AsiReader {

using BeamId = ScnStageOneOnly<AsiInterface::BeamId>;
using BeamDesc = ScnStageOneOnly<AsiInterface::BeamDesc>;
using VertBW = ScnStageOneOnly<AsiInterface::VertBW>;
using HorzBW = ScnStageOneOnly<AsiInterface::HorzBW>;
using AzimOffset = ScnStageOneOnly<AsiInterface::AzimOffset>;
using ElevOffset = ScnStageOneOnly<AsiInterface::ElevOffset>;
using BeamMissileOffset = ScnStageOneOnly<AsiInterface::BeamMissileOffset>;
using BeamType = ScnStageOneOnly<AsiInterface::BeamType>;
using AREPSPattern = ScnStageOneOnly<AsiInterface::AREPSPattern>;

}  // namespace AsiReader
