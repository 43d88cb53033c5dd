// Edit scripts: the current layer, the rows on view, the marking of
// vertices, the output commands and the handling of wrong lines. Marked
// vertices are made visible with `kind`.
#include "cli_edit_fixture.h"

namespace {

using CliEditView = CliEdit;

// square_saved's lines of layer 1 with kind G0: records 0, 1, 2 and 4.
const std::string g0_r0 = "G0 Z0.3 F1200", g0_r1 = "G0 X10 Y0 E1 ;edge", g0_r2 = "G0 Y10 E2", g0_r4 = "G0 Y0 E3";

TEST_F(CliEditView, AfterTheLoadLayerZeroIsCurrentWithAllOnView) {
  const CliResult result = Edit(square_gcode, "select all\nkind G0\ndump -\n");
  EXPECT_EQ(result.status, 0);
  EXPECT_NE(result.out.find("layer 0 z=0 dz=0 records=3 moves=1\n  0 G0 x=0 "), std::string::npos) << result.out;
  EXPECT_NE(result.out.find("layer 1 z=0.29999999999999999 dz=0.29999999999999999 records=6 moves=5\n  0 G1 "),
            std::string::npos);
}

TEST_F(CliEditView, LayerMakesALayerCurrentWithAllOfItOnView) {
  EXPECT_EQ(SavedAfter("layer 2\nselect all\nkind G0"),
            SquareWith({{8, "G0  Z0.6"}, {9, "G0 X10 E4"}, {10, "G0 Y10 E5"}}));
  EXPECT_EQ(SavedAfter("layer 1\nrows none\nlayer 1\nselect all\nkind G0"),
            SquareWith({{2, g0_r0}, {3, g0_r1}, {4, g0_r2}, {6, g0_r4}}))
      << "a layer chosen again has all of it on view";
}

TEST_F(CliEditView, RowsListedAreExactlyTheRowsOnView) {
  EXPECT_EQ(SavedAfter("layer 1\nrows 1 4\nselect all\nkind G0"), SquareWith({{3, g0_r1}, {6, g0_r4}}));
  EXPECT_EQ(SavedAfter("layer 1\nrows 0-4\nrows 1\nselect all\nkind G0"), SquareWith({{3, g0_r1}}));
}

TEST_F(CliEditView, RowsViewCommands) {
  EXPECT_EQ(SavedAfter("layer 1\nrows none\nselect all\nkind G0"), SquareWith({}));
  EXPECT_EQ(SavedAfter("layer 1\nrows none\nrows all\nselect all\nkind G0"),
            SquareWith({{2, g0_r0}, {3, g0_r1}, {4, g0_r2}, {6, g0_r4}}));
  EXPECT_EQ(SavedAfter("layer 1\nrows 0-2\nrows invert\nselect all\nkind G1"), SquareWith({{5, "G1 X0"}}));
  EXPECT_EQ(SavedAfter("layer 1\nrows extruded\nselect all\nkind G0"), SquareWith({{3, g0_r1}, {4, g0_r2}, {6, g0_r4}}))
      << "the start move and the travel do not extrude";
  EXPECT_EQ(SavedAfter("layer 1\nselect 1 2\nrows 1\nselect none\nrows selected\nselect all\nrows all\nkind G0"),
            SquareWith({{4, g0_r2}}))
      << "only record 2 was still marked when its rows were chosen";
  EXPECT_EQ(last.err, "") << "a mark off view is kept but not counted against the lines on view";
}

TEST_F(CliEditView, SelectMarksExactlyTheListedRecords) {
  EXPECT_EQ(SavedAfter("layer 1\nselect 1 4\nkind G0"), SquareWith({{3, g0_r1}, {6, g0_r4}}));
  EXPECT_EQ(SavedAfter("layer 1\nselect all\nselect 2\nkind G0"), SquareWith({{4, g0_r2}}));
}

TEST_F(CliEditView, SelectKeepsTheMarksOfRecordsOffView) {
  EXPECT_EQ(SavedAfter("layer 1\nselect 1\nrows 2-4\nselect 2\nrows all\nkind G0"),
            SquareWith({{3, g0_r1}, {4, g0_r2}}));
  EXPECT_EQ(last.err, "");
}

TEST_F(CliEditView, SelectCommands) {
  EXPECT_EQ(SavedAfter("layer 1\nselect all\nselect none\nkind G0"), SquareWith({}));
  EXPECT_EQ(SavedAfter("layer 1\nselect 1\nselect invert\nkind G0"), SquareWith({{2, g0_r0}, {4, g0_r2}, {6, g0_r4}}));
}

TEST_F(CliEditView, RectReplacesTheMarkingWithTheVerticesInside) {
  EXPECT_EQ(SavedAfter("layer 1\nselect all\nrect 11 11 5 -1\nkind G0"), SquareWith({{3, g0_r1}, {4, g0_r2}}));
  EXPECT_EQ(SavedAfter("layer 1\nrect 10 0 20 20\nkind G0"), SquareWith({{3, g0_r1}, {4, g0_r2}}))
      << "vertices on the edges are inside";
}

TEST_F(CliEditView, RectModifiersAddToggleAndRemove) {
  EXPECT_EQ(SavedAfter("layer 1\nrect 5 -1 11 1\nrect 5 9 11 11 shift\nkind G0"), SquareWith({{3, g0_r1}, {4, g0_r2}}));
  EXPECT_EQ(SavedAfter("layer 1\nselect 1\nrect 5 -1 11 11 alt+ctrl\nkind G0"), SquareWith({{4, g0_r2}}))
      << "Ctrl toggles even with Alt held";
  EXPECT_EQ(SavedAfter("layer 1\nrect 5 9 11 11 shift+alt+ctrl\nrect 5 -1 11 1\nkind G0"), SquareWith({{3, g0_r1}}))
      << "the keys are released after their rectangle";
}

TEST_F(CliEditView, OutputCommandsWriteToStandardOutputInOrder) {
  const CliResult result = Edit(square_gcode, "export -\nsave -\ndump -\n");
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_TRUE(result.out.starts_with("; test square\r\nG92 E0\r\n;Layer count: 2\r\n")) << result.out;
  EXPECT_NE(result.out.find(std::string(square_saved) + "document layers=3 tagged=0\n"), std::string::npos)
      << "the export leaves the document as it was, and the dump follows the save";
  EXPECT_TRUE(result.out.ends_with("  2 G1 x=10 y=10 z=0.59999999999999998 e=5 f=1200 e_delta=1 d_delta=100 no_extrude=0 rel=0 given=XYE comment=\n"));
}

TEST_F(CliEditView, OutputCommandsWriteFilesAndAFailedWriteLetsTheScriptGoOn) {
  const CliResult result = Edit(square_gcode, "save no/dir/a.gcode\ndump no/dir/a.dump\nexport no/dir/b.gcode\n"
                                              "save a.gcode\nexport b.gcode\ndump c.dump\n");
  EXPECT_EQ(result, (CliResult{1, "",
                                "message: Unable to open no/dir/a.gcode Error 2: No such file or directory\n"
                                "message: Unable to open no/dir/a.dump Error 2: No such file or directory\n"
                                "message: Unable to open no/dir/b.gcode Error 2: No such file or directory\n"}));
  EXPECT_EQ(Read("a.gcode"), square_saved);
  EXPECT_TRUE(Read("b.gcode").starts_with("; test square\r\nG92 E0\r\n;Layer count: 2\r\n;LAYER:0\r\n;TYPE:FILL\r\n"));
  EXPECT_TRUE(Read("c.dump").starts_with("document layers=3 tagged=0\nlayer 0 "));
}

TEST_F(CliEditView, AWrongLineStopsTheScriptWithItsLineNumber) {
  EXPECT_EQ(Edit(square_gcode, "save a.gcode\r\n# comment\r\n\r\nfrobnicate 1\r\nsave b.gcode\r\n"),
            (CliResult{2, "", "line 4: unknown command 'frobnicate'\n"}));
  EXPECT_TRUE(Exists("a.gcode"));
  EXPECT_FALSE(Exists("b.gcode"));
}

TEST_F(CliEditView, WrongArgumentsAreScriptErrors) {
  const std::vector<std::pair<std::string, std::string>> cases{
      {"layer 3", "line 1: layer 3 does not exist (valid: 0 to 2)"},
      {"layer", "line 1: 'layer' takes 1 argument, not 0"},
      {"layer 1\nrows 6", "line 2: row 6 does not exist (valid: 0 to 5)"},
      {"layer 1\nrows some", "line 2: 'some' is not a row index"},
      {"layer 1\nmove 1", "line 2: 'move' takes 2 to 3 arguments, not 1"},
      {"layer 1\nmove 1 2,5", "line 2: '2,5' is not a number"},
      {"layer 1\nselect 9", "line 2: record 9 does not exist (valid: 0 to 5)"},
      {"layer 1\nselect 5", "line 2: record 5 is not a move record (G0, G1, G2, G3) on view"},
      {"layer 1\nrows 2-4\nselect 3 1", "line 3: record 1 is not a move record (G0, G1, G2, G3) on view"},
      {"layer 1\nrows all extra", "line 2: 'rows' takes 1 argument, not 2"},
      {"layer 1\ndelete-vertices now", "line 2: 'delete-vertices' takes 0 arguments, not 1"},
      {"save", "line 1: 'save' takes 1 argument, not 0"},
      {"save a b", "line 1: 'save' takes 1 argument, not 2"},
      {"delete-layers 2-1", "line 1: range '2-1' runs backwards"},
      {"layer 1\nrect 0 0 1 1 meta", "line 2: 'meta' is not shift, ctrl or alt"},
      {"layer 1\nrect 0 0 1 1 shift+Alt", "line 2: 'Alt' is not shift, ctrl or alt"},
      {"layer 1\nrect 0 0 1 1 +ctrl", "line 2: '' is not shift, ctrl or alt"},
      {"layer 1\nrect 0 0 1 1 shift+", "line 2: a key is missing after '+'"},
  };
  for (const auto& [script, error] : cases)
    EXPECT_EQ(Edit(square_gcode, script + "\n"), (CliResult{2, "", error + "\n"})) << script;
}

TEST_F(CliEditView, AfterDeleteLayersNoLayerIsCurrent) {
  for (const std::string_view command : {"rows all", "select all", "rect 0 0 1 1", "move 1 1", "delete-vertices",
                                         "delete-rows", "feedrate 0 100", "kind G0", "insert-point 1 0 0",
                                         "insert-points 1 2", "text 1 x"}) {
    const std::string word(command.substr(0, command.find(' ')));
    EXPECT_EQ(Edit(square_gcode, "delete-layers 2\n" + std::string(command) + "\n"),
              (CliResult{2, "", "line 2: '" + word + "' needs a current layer (choose one with 'layer L')\n"}));
  }
}

TEST_F(CliEditView, TheScriptMayComeFromStandardInput) {
  Write("in.gcode", square_gcode);
  EXPECT_EQ(CrLfLines(Run({"edit", "in.gcode", "-"}, "layer 1\nselect 4\nkind G0\nsave -\n").out),
            SquareWith({{6, g0_r4}}));
}

TEST_F(CliEditView, AMissingScriptOrFileExitsWithOne) {
  Write("in.gcode", square_gcode);
  EXPECT_EQ(Run({"edit", "in.gcode", "nope.txt"}),
            (CliResult{1, "", "korvexed-cli: cannot read the script nope.txt: No such file or directory\n"}));
  Write("script.txt", "save out.gcode\n");
  EXPECT_EQ(Run({"edit", "nope.gcode", "script.txt"}).status, 1);
  EXPECT_FALSE(Exists("out.gcode"));
}

}  // namespace
