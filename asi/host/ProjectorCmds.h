#pragma once
// The projector commands against the host. "Projector" creates the projector
// at its own line, once its platform or beam exists (until then it waits for
// that host). The other commands never wait: addressed to a projector that
// the host does not hold yet, they reach the host with no object and are
// refused, so they must stand after the data of the projector's host.

#include "asi/ProjectorCmds.h"

namespace AsiReader {

// Declares the projector and creates it; in the plot application it is
// ignored from its declaration on.
class ProjectorId : public AsiInterface::ProjectorId {
 public:
  using AsiInterface::ProjectorId::ProjectorId;
  FileReaderPlugin::CommandParser* clone() const override { return new ProjectorId(*this); }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override;
};

// Not sent to a projector that the host held before this file.
class ProjectorRasterFile : public AsiInterface::ProjectorRasterFile {
 public:
  using AsiInterface::ProjectorRasterFile::ProjectorRasterFile;
  FileReaderPlugin::CommandParser* clone() const override { return new ProjectorRasterFile(*this); }
  void transmit() override;
};

// Not sent to a projector that the host held before this file.
class ProjectorInterpolateFov : public AsiInterface::ProjectorInterpolateFov {
 public:
  using AsiInterface::ProjectorInterpolateFov::ProjectorInterpolateFov;
  FileReaderPlugin::CommandParser* clone() const override { return new ProjectorInterpolateFov(*this); }
  void transmit() override;
};

// Needs the raster file first, unless the projector merged with one the host
// already held.
class ProjectorFOV : public AsiInterface::ProjectorFOV {
 public:
  using AsiInterface::ProjectorFOV::ProjectorFOV;
  FileReaderPlugin::CommandParser* clone() const override { return new ProjectorFOV(*this); }
  void transmit() override;
};

// Needs the raster file first, unless the file is appended.
class ProjectorOn : public AsiInterface::ProjectorOn {
 public:
  using AsiInterface::ProjectorOn::ProjectorOn;
  FileReaderPlugin::CommandParser* clone() const override { return new ProjectorOn(*this); }
  void transmit() override;
};

}  // namespace AsiReader
