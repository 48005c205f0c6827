#include "asi/Projector.h"

#include "hostapi/PIData.h"

namespace AsiInterface {

void Projector::setOriginalId(uint64_t id) {
  EntityAdapter::setOriginalId(id);
  if (uniqueId() == 0) return;
  PIData::PIProjectorHeader header;
  if (!PIData::getHeader(uniqueId(), header)) return;
  header.originalId = id;
  PIData::updateHeader(uniqueId(), header);
}

}  // namespace AsiInterface
