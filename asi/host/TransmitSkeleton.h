#pragma once
// The opening steps that almost every AsiReader::X::transmit() shares, so that
// a command class writes only its host call:
//
//   void transmit() override {
//     auto* beam = provider_->getBeamEntity(id_);
//     if (!TransmitSkeleton::timed(*this, *provider_, beam, time_)) return;
//     PIData::setColor(beam->uniqueId(), color_, time_);
//   }
//
// An entity marked ignore() ends every form at once: it takes commands and
// sends nothing.

#include "asi/BaseParser.h"
#include "asi/Entity.h"
#include "asi/ScenarioProvider.h"

namespace AsiReader {

class TransmitSkeleton {
 public:
  static const char* const MISSING_ENTITY;     // "Internal Error: missing entity"
  static const char* const MISSING_PROJECTOR;  // "Internal Error: missing projector"
  static const char* const INVALID_TIME;

  // A command that drew an error or a warning in stage 1 sends nothing.
  static bool guard(FileReaderPlugin::CommandParser& command) { return command.hasError() || command.hasWarning(); }

  // Guard; a null entity is the error `missingText`; an entity the host does
  // not hold yet gets a clone of `command` parked under its ASI id; then the
  // time is normalised in place and refused below -1. True when the host
  // call should follow.
  static bool timed(AsiInterface::BaseParser& command, AsiInterface::ScenarioProvider& provider,
                    AsiInterface::Entity* entity, double& time, const char* missingText = MISSING_ENTITY);

  // The same without a time ("deferring"); an entity that merged with one the
  // host held before this file is left alone.
  static bool deferring(AsiInterface::BaseParser& command, AsiInterface::ScenarioProvider& provider,
                        AsiInterface::Entity* entity, const char* missingText = MISSING_ENTITY);

  // Normalises `time` in place; false after the error when it is invalid.
  static bool normalizeTime(AsiInterface::BaseParser& command, AsiInterface::ScenarioProvider& provider,
                            double& time);

 private:
  // Guard, entity and parking; true when the entity exists in the host.
  static bool ready_(AsiInterface::BaseParser& command, AsiInterface::ScenarioProvider& provider,
                     AsiInterface::Entity* entity, const char* missingText);
};

}  // namespace AsiReader
