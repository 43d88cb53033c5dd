// korvexed-cli's commands other than edit, through the built program.
#include <string>

#include "cli_gcode.h"
#include "cli_runner.h"

namespace {

using CliCommands = CliTest;

TEST_F(CliCommands, VersionAndHelp) {
  EXPECT_EQ(Run({"--version"}), (CliResult{0, "korvexed-cli 1.0.3\n", ""}));
  const CliResult help = Run({"--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_TRUE(help.out.starts_with("Usage: korvexed-cli COMMAND FILE"));
  for (const char* command :
       {"info FILE", "dump FILE", "convert FILE", "translate FILE", "render FILE", "edit FILE SCRIPT"})
    EXPECT_NE(help.out.find(command), std::string::npos) << command;
}

TEST_F(CliCommands, AWrongCommandLineExitsWithTwoAndSaysWhy) {
  EXPECT_EQ(Run({"paint", "a.gcode", "-o", "a.png"}),
            (CliResult{2, "",
                       "korvexed-cli: unknown command 'paint'\nTry 'korvexed-cli --help' for more information.\n"}));
  EXPECT_EQ(Run({}).status, 2);
}

TEST_F(CliCommands, InfoSummarisesLayersRecordsAndTheExtentOfTheMoves) {
  Write("a.gcode", square_gcode);
  EXPECT_EQ(Run({"info", "a.gcode"}),
            (CliResult{0,
                       "file: a.gcode\nlayers: 3\nrecords: 12\nmoves: 9\ng92: 1\ntext: 2\ntagged: 0\n"
                       "x-min: 0\nx-max: 10\ny-min: 0\ny-max: 10\nz-max: 0.6\n",
                       ""}));
}

TEST_F(CliCommands, InfoExtentLeavesOutTheStartLine) {
  Write("a.gcode", "G1 X100.5 Y-3 Z0.2\nG0 X120 Y40.25\n;LAYER:0\n");
  const CliResult result = Run({"info", "a.gcode"});
  EXPECT_NE(result.out.find("x-min: 100.5\nx-max: 120\ny-min: -3\ny-max: 40.25\n"), std::string::npos) << result.out;
  EXPECT_NE(result.out.find("tagged: 0\n"), std::string::npos) << "a comment-only ;LAYER: line does not tag";

  Write("empty.gcode", "");
  const CliResult empty = Run({"info", "empty.gcode"});
  EXPECT_EQ(empty.status, 0);
  EXPECT_NE(empty.out.find("x-min: none\n"), std::string::npos) << empty.out;
}

TEST_F(CliCommands, DumpWritesEveryRecordWithFullPrecision) {
  Write("a.gcode", square_gcode);
  const CliResult result = Run({"dump", "a.gcode"});
  EXPECT_EQ(result.status, 0);
  EXPECT_TRUE(result.out.starts_with(
      "document layers=3 tagged=0\n"
      "layer 0 z=0 dz=0 records=3 moves=1\n"
      "  0 G1 x=0 y=0 z=0 e=0 f=0 e_delta=0 d_delta=0 no_extrude=1 rel=0 given=- comment=\n"
      "  1 text ; test square\n"
      "  2 G92 x=none y=none e=0 f=none e_delta=0 d_delta=0 no_extrude=1 comment=\n"
      "layer 1 z=0.29999999999999999 dz=0.29999999999999999 records=6 moves=5\n"
      "  0 G1 x=0 y=0 z=0.29999999999999999 e=0 f=1200 e_delta=0 d_delta=0.089999999999999997 no_extrude=1 rel=0 given=ZF comment=\n"
      "  1 G1 x=10 y=0 z=0.29999999999999999 e=1 f=1200 e_delta=1 d_delta=100 no_extrude=0 rel=0 given=XYE comment=edge\n"
      "  2 G1 x=10 y=10 z=0.29999999999999999 e=2 f=1200 e_delta=1 d_delta=100 no_extrude=0 rel=0 given=XYE comment=\n"
      "  3 G0 x=0 y=10 z=0.29999999999999999 e=2 f=1200 e_delta=0 d_delta=100 no_extrude=1 rel=0 given=XY comment=\n"
      "  4 G1 x=0 y=0 z=0.29999999999999999 e=3 f=1200 e_delta=1 d_delta=100 no_extrude=0 rel=0 given=XYE comment=\n"
      "  5 text ;comment line\n"
      "layer 2 z=0.59999999999999998 dz=0.29999999999999999 records=3 moves=3\n"))
      << result.out;
}

TEST_F(CliCommands, DumpKeepsTextAndCommentsVerbatim) {
  Write("a.gcode", "M117 caf\xc3\xa9  ;  two ; semis \nG1 X1 ; \t\n");
  EXPECT_EQ(Run({"dump", "a.gcode", "-o", "a.dump"}), (CliResult{0, "", ""}));
  const std::string dump = Read("a.dump");
  EXPECT_NE(dump.find("  1 text M117 caf\xc3\xa9  ;  two ; semis \n"), std::string::npos) << dump;
  EXPECT_NE(dump.find(" comment= \t\n"), std::string::npos) << dump;
}

TEST_F(CliCommands, ConvertWritesAsSaveDoes) {
  Write("a.gcode", square_gcode);
  EXPECT_EQ(Run({"convert", "a.gcode", "-o", "b.gcode"}), (CliResult{0, "", ""}));
  EXPECT_EQ(Read("b.gcode"), square_saved);
  EXPECT_EQ(Run({"convert", "a.gcode", "-o", "-"}), (CliResult{0, std::string(square_saved), ""}));
}

TEST_F(CliCommands, ConvertTaggedWritesTheCuraStyleExport) {
  Write("a.gcode", square_gcode);
  const CliResult result = Run({"convert", "a.gcode", "-o", "-", "--tagged"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(CrLfLines(result.out),
            (std::vector<std::string>{"; test square", "G92 E0", ";Layer count: 2", ";LAYER:0", ";TYPE:FILL",
                                      "G1 Z0.3 E0 F1200", "G1 X10 Y0 E1 F1200 ;edge", "G1 X10 Y10 E2 F1200",
                                      "G0 X0 Y10 E2 F1200", "G1 X0 Y0 E3 F1200", ";comment line", ";LAYER:1",
                                      ";TYPE:WALL-OUTER", "G1 X0 Y0 Z0.6 E3 F1200", "G1 X10 Y0 E4 F1200",
                                      "G1 X10 Y10 E5 F1200"}));
}

TEST_F(CliCommands, AFileThatCannotBeReadExitsWithOne) {
  EXPECT_EQ(Run({"info", "missing.gcode"}),
            (CliResult{1, "", "message: Unable to open missing.gcode Error 2: No such file or directory\n"}));

  EXPECT_EQ(Run({"info", "."}), (CliResult{1, "", "message: Unable to open . Error 21: Is a directory\n"}));
}

TEST_F(CliCommands, AFileThatCannotBeWrittenExitsWithOne) {
  Write("a.gcode", square_gcode);
  EXPECT_EQ(Run({"convert", "a.gcode", "-o", "no/such/dir/b.gcode"}),
            (CliResult{1, "", "message: Unable to open no/such/dir/b.gcode Error 2: No such file or directory\n"}))
      << "CR LF inside a message becomes a blank";
}

TEST_F(CliCommands, PartialDataIsRefusedUnlessAccepted) {
  std::string big;
  for (int i = 0; i < 100000; ++i) big += "M117\n";
  Write("big.gcode", big);
  const std::string question =
      "message: Data count limit has been reached. Only partial data have been collected. Saving the loaded data "
      "again to the original file will result in data loss. Are you sure to continue loading the partial data?\n";

  EXPECT_EQ(Run({"info", "big.gcode"}), (CliResult{1, "", question}));
  const CliResult accepted = Run({"info", "big.gcode", "--accept-partial"});
  EXPECT_EQ(accepted.status, 0);
  EXPECT_EQ(accepted.err, question);
  EXPECT_NE(accepted.out.find("records: 100000\n"), std::string::npos) << accepted.out;
}

TEST_F(CliCommands, DecimalCommaReadsCommasAndWritesPeriods) {
  Write("a.gcode", "G1 X1,5 Y2\n");
  EXPECT_EQ(Run({"convert", "a.gcode", "-o", "-"}),
            (CliResult{0, "G1 X1,5 Y2\r\n",
                       "message: 1 line could not be read as a move and is kept unchanged as text: line 1: "
                       "G1 X1,5 Y2\n"}))
      << "1,5 is not a number with a period";
  EXPECT_EQ(Run({"convert", "a.gcode", "-o", "-", "--decimal-comma"}), (CliResult{0, "G1 X1.5 Y2\r\n", ""}));
}

TEST_F(CliCommands, TranslateRotatesAboutTheOriginThenOffsets) {
  Write("a.gcode", square_gcode);
  EXPECT_EQ(Run({"translate", "a.gcode", "-o", "b.gcode", "--rotate", "90", "--dx", "5"}), (CliResult{0, "", ""}));
  // The start line G1 Z0 stays unwritten, and nothing writes an X or Y that
  // the file never stated.
  EXPECT_EQ(CrLfLines(Read("b.gcode")),
            (std::vector<std::string>{"; test square", "G92 E0", "G1 Z0.3 F1200", "G1 X5 Y10 E1 ;edge",
                                      "G1 X-5 E2", "G0 Y0", "G1 X5 E3", ";comment line", "G1  Z0.6", "G1 Y10 E4",
                                      "G1 X-5 E5"}));
}

TEST_F(CliCommands, TranslateByNothingSaysSoAndWritesTheFileUnchanged) {
  Write("a.gcode", square_gcode);
  EXPECT_EQ(Run({"translate", "a.gcode", "-o", "b.gcode", "--dx", "1e-11"}),
            (CliResult{0, "", "message: No translation is needed\n"}));
  EXPECT_EQ(Read("b.gcode"), square_saved);
}

TEST_F(CliCommands, TranslateValuesAreClampedAsTheDialogClampsThem) {
  Write("a.gcode", "G1 X10 Y0\n");
  ASSERT_EQ(Run({"translate", "a.gcode", "-o", "b.gcode", "--dy", "-1e6"}).status, 0);
  EXPECT_EQ(Read("b.gcode"), "G1 X10 Y-328000\r\n");
}

}  // namespace
