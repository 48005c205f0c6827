#pragma once
// An entity of an ASI file: anything that the file addresses by number
// (scenario, platform, beam, gate, LOB, laser, custom rendering, projector).
// It is known to the file from its ID command on, and exists in the host only
// once it has been given the host's unique id.

#include <cstdint>
#include <string>

namespace AsiInterface {

class Entity {
 public:
  virtual ~Entity() = default;

  // The class as the end-of-file report names it ("Platform", "Beam", ...).
  virtual std::string typeName() const = 0;
  virtual uint64_t uniqueId() const = 0;
  // Records the host's id; from now on the entity exists, whatever the id.
  virtual void setUniqueId(uint64_t id) = 0;
  virtual std::string name() const = 0;
  virtual void setName(const std::string& name) = 0;
  virtual uint64_t originalId() const = 0;
  virtual void setOriginalId(uint64_t id) = 0;
  virtual uint64_t asiId() const = 0;
  virtual void setAsiId(uint64_t id) = 0;
  // 1 if a table of that name is already attached, else records it and 0.
  virtual int addTable(const std::string& name) = 0;
  virtual bool doesExist() const = 0;
  // An ignored entity takes commands and sends nothing (plot host).
  virtual bool ignore() const = 0;
  virtual void setIgnore(bool ignore) = 0;
  // Set when the resolver matched the entity to one the host already held.
  virtual bool isMerging() const = 0;
  virtual void setMerging(bool merging) = 0;
};

}  // namespace AsiInterface
