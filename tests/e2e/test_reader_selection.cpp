// Which reader takes a file, seen from the outside: the messages of the
// selection and the load that follows, through the whole plug-in.
#include "E2eSupport.h"

namespace {

using e2e::data;

class ReaderSelection : public e2e::HostRun {
 protected:
  // Loads one file; expects exit 3 and answers stderr.
  std::string failing(const std::string& file) {
    const e2e::Outcome r = run({file});
    EXPECT_EQ(r.status, 3) << file << "\n" << r.err;
    return r.err;
  }
  static bool has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }
};

TEST_F(ReaderSelection, AsiFilesAreReadEvenBehindCommentsAndBlankLines) {
  const std::string err = failing(data("e2e_no_id.asi"));
  EXPECT_FALSE(has(err, "Unsupported format"));
  EXPECT_TRUE(has(err, "Must define at least one non-static independent entity"));
}

TEST_F(ReaderSelection, AsiFileThatDoesNotStartWithVersionIsUnsupported) {
  for (const char* name : {"e2e_reflat_first.asi", "e2e_empty.asi"}) {
    const std::string err = failing(data(name));
    EXPECT_TRUE(has(err, "Unsupported format for the file \"" + data(name) + "\"\n")) << err;
    EXPECT_TRUE(has(err, "Failed to load file due to errors."));
  }
}

TEST_F(ReaderSelection, MissingFilesByExtension) {
  EXPECT_TRUE(has(failing(path("a.zip")), "File \"" + path("a.zip") + "\" not found or not readable.\n"));
  EXPECT_TRUE(has(failing(path("a.kp")), "File \"" + path("a.kp") + "\" not found or not readable.\n"));
  // Nobody claims ".xyz", so a missing one is unsupported, not missing.
  EXPECT_TRUE(has(failing(path("a.xyz")), "Unsupported format for the file \"" + path("a.xyz") + "\"\n"));
  EXPECT_TRUE(has(failing(data("e2e_not_asi.xyz")), "Unsupported format"));
  // A file of a format that is known but not read here.
  const std::string discn = write("s.discn", "x");
  EXPECT_TRUE(has(failing(discn), "Unsupported format for the file \"" + discn + "\"\n"));
}

TEST_F(ReaderSelection, ArchivesWithSeveralTypesAreRefused) {
  const std::string multiple = "\" contains multiple supported file types.  Please remove unnecessary extra files.\n";
  const std::string mixed = zip("mixed.zip", {{"a.asi", "Version 24\n"}, {"b.csv", "x,y\n"}});
  EXPECT_TRUE(has(failing(mixed), "File \"" + mixed + multiple));
  const std::string side = zip("side.zip", {{"a.csv", "x\n"}, {"b.tle", "t\n"}});
  EXPECT_TRUE(has(failing(side), "File \"" + side + multiple));
}

TEST_F(ReaderSelection, ArchiveOfSideFormatsGoesToTheLegacyReader) {
  const std::string err = failing(zip("two.zip", {{"b.csv", "x\n"}, {"a.csv", "y\n"}}));
  EXPECT_FALSE(has(err, "multiple supported"));
  // No CSV dialect matches "a.csv", read first: the load stops there.
  EXPECT_TRUE(has(err, "Unknown CSV file format detected\n")) << err;
}

TEST_F(ReaderSelection, SideFormatLoadsCanBeCanceled) {
  std::ofstream(path("a.gpx")) << "<gpx/>\n";
  const e2e::Outcome r = run({"--cancel-after", "1", path("a.gpx")});
  EXPECT_EQ(r.status, 1) << r.err;
  EXPECT_FALSE(has(r.err, "Unknown file format"));
}

TEST_F(ReaderSelection, ZippedHdf5AndCorruptArchives) {
  EXPECT_TRUE(has(failing(zip("data.zip", {{"x.hdf5", "h"}})), "A zipped HDF5 file must have an hdfz extension.\n"));
  std::ofstream(path("corrupt.zip")) << "PK this is not an archive";
  EXPECT_TRUE(has(failing(path("corrupt.zip")), "Unsupported format for the file \"" + path("corrupt.zip") + "\"\n"));
  EXPECT_TRUE(tmpIsEmpty());
}

}  // namespace
