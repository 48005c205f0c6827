// Whole files with beams and gates through the read engine: an append merges
// beams and gates with the ones the host holds (they take the new data, not
// the settings), and the end-of-file checks name incomplete beams and gates
// and, in older files, references to ids never defined.

#include <memory>

#include "AsiTestSupport.h"
#include "asi/LliResolver.h"
#include "asi/MetadataResolver.h"

using namespace AsiTest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

const double DEG = 0.017453292519943295;

class BeamFileTest : public AsiFileFixture {
 protected:
  std::vector<const RefHost::HostObject*> objects(RefHost::ObjectKind kind) const {
    std::vector<const RefHost::HostObject*> out;
    for (uint64_t id : host_->scenario().list(kind, std::nullopt)) out.push_back(host_->scenario().find(id));
    return out;
  }
};

const char* const HEADER = "Version 24\nReferenceYear 2020\nCoordSystem LLA\nRefLLA 30 -80 0\n";

// A ship with a radar beam and a range gate, settings before the data.
const char* const RADAR =
    "PlatformID 1\nPlatformName 1 ship\nPlatformData 1 0 0.5 -1.4 0\n"
    "BeamID 1 5\nBeamDesc 5 radar\nHorzBW 5 2\nVertBW 5 10\nBeamType 5 absolute\n"
    "RollOffset 5 30\nAREPSPattern 5 a.env\nBeamData 5 0 green 0 0 20000\n"
    "GateID 5 7\nGateType 7 RANGE\nGateAzimOffset 7 10\nGateData 7 0 red 0 0 1 1 1000 2000\n";

// The same beam and gate, with other settings and data a year later, and a
// platform of its own so that the append stands by itself.
const char* const RADAR_NEXT_YEAR =
    "PlatformID 1\nPlatformName 1 ship\nPlatformData 1 10 0.5 -1.4 0\n"
    "BeamID 1 5\nBeamDesc 5 radar\nHorzBW 5 2\nVertBW 5 10\nBeamType 5 absolute\n"
    "RollOffset 5 45\nAREPSPattern 5 b.env\nBeamData 5 10 green 0.5 0 20000\n"
    "GateID 5 7\nGateType 7 RANGE\nGateAzimOffset 7 20\nGateData 7 10 red 0 0 1 1 1000 3000\n"
    "PlatformID 2\nPlatformName 2 tug\nPlatformData 2 10 0.5 -1.4 0\n";

}  // namespace

TEST_F(BeamFileTest, AnAppendMergesBeamsAndGatesWhichTakeDataButNotSettings) {
  AsiInterface::LliResolver resolver("feed");
  ASSERT_EQ(0, read("radar_1.asi", std::string(HEADER) + RADAR, resolver));
  const std::string next = std::string("Version 24\nReferenceYear 2021\nCoordSystem LLA\nRefLLA 30 -80 0\n") +
                           RADAR_NEXT_YEAR;
  ASSERT_EQ(0, read("radar_2.asi", next, resolver, true));
  EXPECT_THAT(messages_.texts(), IsEmpty());

  const auto beams = objects(RefHost::KIND_BEAM);
  const auto gates = objects(RefHost::KIND_GATE);
  ASSERT_EQ(1u, beams.size());
  ASSERT_EQ(1u, gates.size());
  // The second file's times are seconds of 2021 in the host's 2020.
  const RefHost::Series& beamPoints = beams[0]->data(RefHost::SERIES_POINTS);
  ASSERT_EQ(2u, beamPoints.count());
  EXPECT_EQ(10 + 366 * 86400.0, beamPoints.record(1)[0]);
  EXPECT_EQ(0.5, beamPoints.record(1)[1]);
  EXPECT_EQ(2u, beams[0]->data(RefHost::SERIES_COLOR).count());
  const RefHost::Series& gatePoints = gates[0]->data(RefHost::SERIES_POINTS);
  ASSERT_EQ(2u, gatePoints.count());
  EXPECT_EQ(3000.0, gatePoints.record(1)[6]);
  // Offsets and AREPS files stay those of the first file.
  EXPECT_NEAR(30 * DEG, beams[0]->settings["orientationOffset"][2].get<double>(), 1e-15);
  EXPECT_EQ(nlohmann::json({"a.env"}), beams[0]->settings["rfpropInputFiles"]);
  EXPECT_NEAR(10 * DEG, gates[0]->settings["azimuthOffset"].get<double>(), 1e-15);
}

TEST_F(BeamFileTest, ByLooksABeamMergesOnlyWithTheSameNameTypeAndPlatform) {
  AsiInterface::MetadataResolver resolver;
  ASSERT_EQ(0, read("look_1.asi", std::string(HEADER) + RADAR, resolver));
  // Same platform and name: one beam of the same type merges, one of another
  // type is new; so is the gate on the new beam.
  const std::string next = std::string(HEADER) +
                           "PlatformID 1\nPlatformName 1 ship\nPlatformData 1 20 0.5 -1.4 0\n"
                           "PlatformID 2\nPlatformName 2 tug\nPlatformData 2 20 0.5 -1.4 0\n"
                           "BeamID 1 5\nBeamDesc 5 radar\nHorzBW 5 2\nVertBW 5 10\nBeamType 5 absolute\n"
                           "BeamData 5 20 green 0 0 100\n"
                           "BeamID 1 6\nBeamDesc 6 radar\nHorzBW 6 2\nVertBW 6 10\nBeamType 6 body\n"
                           "BeamData 6 20 green 0 0 100 body\n"
                           "GateID 6 7\nGateType 7 RANGE\nGateData 7 20 red 0 0 1 1 1000 2000\n";
  ASSERT_EQ(0, read("look_2.asi", next, resolver, true));
  const auto beams = objects(RefHost::KIND_BEAM);
  ASSERT_EQ(2u, beams.size());
  EXPECT_EQ(2u, beams[0]->data(RefHost::SERIES_POINTS).count());
  EXPECT_EQ(PIData::PI_BEAM_BODY, beams[1]->header.beamType);
  const auto gates = objects(RefHost::KIND_GATE);
  ASSERT_EQ(2u, gates.size());
  EXPECT_EQ(beams[1]->id, gates[1]->parent);
}

TEST_F(BeamFileTest, IncompleteBeamsAndGatesAreNamedInAscendingId) {
  AsiInterface::LliResolver resolver("eof");
  const std::string text = std::string(HEADER) +
                           "PlatformID 1\nPlatformName 1 ship\nPlatformData 1 0 0.5 -1.4 0\n"
                           "BeamID 1 8\nGateID 8 6\nBeamID 1 5\nHorzBW 5 2\nVertBW 5 2\n"
                           "BeamColorCmd 8 1 red\nBeamDataRAE 5 1 0 0 100\nGateColorCmd 6 1 red\n";
  EXPECT_EQ(2, read("eof.asi", text, resolver));
  // The queues of the incomplete beam and gate are not reported as well.
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 14 BeamDataRAE: Should specify a beam type via a BeamType command",
                                             "Incomplete definition for Gate 6",
                                             "Incomplete definition for Beam 8"));
}

TEST_F(BeamFileTest, ATargetNeverDefinedIsReportedUpToVersion22) {
  const std::string body =
      "ReferenceYear 2020\nCoordSystem LLA\nRefLLA 30 -80 0\n"
      "PlatformID 1\nPlatformName 1 ship\nPlatformData 1 0 0.5 -1.4 0\n"
      "BeamID 1 5\nHorzBW 5 2\nVertBW 5 2\nBeamType 5 absolute\nBeamData 5 0 red 0 0 100\n"
      "BeamTargetIDCmd 5 1 9\n";
  AsiInterface::LliResolver first("v22");
  EXPECT_EQ(2, read("v22.asi", "Version 22\n" + body, first));
  EXPECT_THAT(messages_.texts(), ElementsAre("Reference(s) to undefined entities were detected : ",
                                             "Unique ID 9 at line(s): 13 "));
  messages_.messages.clear();
  AsiInterface::LliResolver second("v23");
  EXPECT_EQ(0, read("v23.asi", "Version 23\n" + body, second));
  EXPECT_THAT(messages_.texts(), IsEmpty());
}
