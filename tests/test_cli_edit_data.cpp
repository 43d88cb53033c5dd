// Edit scripts: the commands that change the document, judged by the
// G-code they save.
#include "cli_edit_fixture.h"

namespace {

using CliEditData = CliEdit;
using Lines = std::vector<std::string>;

TEST_F(CliEditData, MoveKeepsTheExtrusionPerMillimetreAndCarriesEOn) {
  // (10,0) to (10,5): the move from (0,0) grows by sqrt(1.25), the next one
  // shrinks to half, and every later E follows.
  EXPECT_EQ(SavedAfter("layer 1\nselect 1\nmove 0 5"), SquareWith({{3, "G1 X10 Y5 E1.11803 ;edge"},
                                                                   {4, "G1 Y10 E1.61803"},
                                                                   {6, "G1 Y0 E2.61803"},
                                                                   {9, "G1 X10 E3.61803"},
                                                                   {10, "G1 Y10 E4.61803"}}));
}

TEST_F(CliEditData, DeleteVerticesJoinsTheNeighboursAndCarriesEOn) {
  EXPECT_EQ(SavedAfter("layer 1\nselect 3\ndelete-vertices"),
            (Lines{"; test square", "G92 E0", "G1 Z0.3 F1200", "G1 X10 Y0 E1 ;edge", "G1 Y10 E2", "G1 X0 Y0 E3.41421",
                   ";comment line", "G1  Z0.6", "G1 X10 E4.41421", "G1 Y10 E5.41421"}));
}

TEST_F(CliEditData, DeleteRowsDeletesOnlyTextAndG92RowsOnView) {
  Lines without_text = SquareWith({});
  without_text.erase(without_text.begin() + 7);
  EXPECT_EQ(SavedAfter("layer 1\nselect all\ndelete-rows"), without_text) << "marked vertices are not deleted";
  Lines without_header = SquareWith({});
  without_header.erase(without_header.begin());
  EXPECT_EQ(SavedAfter("layer 0\nrows 1\ndelete-rows"), without_header);
  EXPECT_EQ(SavedAfter("layer 1\nrows 0-4\ndelete-rows"), SquareWith({})) << "the text row was off view";
}

TEST_F(CliEditData, FeedrateChangesTheMarkedVertices) {
  EXPECT_EQ(SavedAfter("layer 1\nselect all\nfeedrate 0 3000"),
            SquareWith({{2, "G1 Z0.3 F3000"}, {8, "G1 Z0.6 F1200"}}));
  EXPECT_EQ(last.err, "");
  EXPECT_EQ(SavedAfter("layer 1\nselect 2\nfeedrate 0 3000"), SquareWith({{4, "G1 Y10 E2 F3000"}, {5, "G0 X0 F1200"}}));
}

TEST_F(CliEditData, FeedrateValuesAreClampedAsTheDialogClampsThem) {
  EXPECT_EQ(SavedAfter("layer 1\nselect all\nfeedrate -1 1e9"),
            SquareWith({{2, "G1 Z0.3 F328000"}, {8, "G1 Z0.6 F1200"}}));
}

TEST_F(CliEditData, KindSetsTheKindOfTheMarkedVertices) {
  EXPECT_EQ(SavedAfter("layer 1\nselect 3 4\nkind G1"), SquareWith({{5, "G1 X0"}}));
  EXPECT_EQ(SavedAfter("layer 1\nselect 1\nkind G0"), SquareWith({{3, "G0 X10 Y0 E1 ;edge"}}));
  EXPECT_EQ(Edit(square_gcode, "layer 1\nkind G2\n"), (CliResult{2, "", "line 2: 'G2' is not G0 or G1\n"}));
}

TEST_F(CliEditData, InsertPointSplitsAMoveWhereItIsTold) {
  Lines split = SquareWith({});
  split.insert(split.begin() + 3, "G1 X5 Y0 E0.5");  // a new point states where it is
  split[4] = "G1 X10 E1 ;edge";
  EXPECT_EQ(SavedAfter("layer 1\ninsert-point 1 5 0"), split);
  EXPECT_EQ(SavedAfter("layer 1\ninsert-points 1 1"), split) << "one point goes to the middle";
}

TEST_F(CliEditData, InsertPointsSpreadsThemEvenly) {
  Lines split = SquareWith({});
  split.insert(split.begin() + 3, {"G1 X3.33333 Y0 E0.33333", "G1 X6.66667 E0.66667"});
  split[5] = "G1 X10 E1 ;edge";
  EXPECT_EQ(SavedAfter("layer 1\ninsert-points 1 2"), split);

  const CliResult nine = Edit("G1 Z0.2\nG1 X9 E3\n", "layer 1\ninsert-points 1 2\ndump -\n");
  EXPECT_NE(nine.out.find("  1 G1 x=3 y=0 "), std::string::npos) << nine.out;
  EXPECT_NE(nine.out.find("  2 G1 x=6 y=0 "), std::string::npos) << nine.out;

  // An arc splits into arcs round its centre.
  EXPECT_EQ(Edit("G1 X10 Y0 Z0.2\nG3 X0 Y10 I-10 J0 E2\n", "layer 1\ninsert-points 1 1\nsave -\n").out,
            "G1 X10 Y0 Z0.2\r\nG3 X7.07107 Y7.07107 I-10 J0 E1\r\nG3 X0 Y10 I-7.07107 J-7.07107 E2\r\n");
}

TEST_F(CliEditData, InsertPointsWantsAMoveAndOneToFivePoints) {
  const std::vector<std::pair<std::string, std::string>> cases{
      {"insert-point 5 1 1", "line 2: record 5 is not a move record (G0, G1, G2, G3)\n"},
      {"insert-points 5 2", "line 2: record 5 is not a move record (G0, G1, G2, G3)\n"},
      {"insert-points 1 6", "line 2: the point count must be 1 to 5, not '6'\n"},
      {"insert-points 1 0", "line 2: the point count must be 1 to 5, not '0'\n"},
      {"insert-point 1 5", "line 2: 'insert-point' takes 3 arguments, not 2\n"},
  };
  for (const auto& [command, error] : cases)
    EXPECT_EQ(Edit(square_gcode, "layer 1\n" + command + "\n"), (CliResult{2, "", error}));
}

TEST_F(CliEditData, TextReplacesATextRecordVerbatim) {
  EXPECT_EQ(SavedAfter("layer 1\ntext 5 M117 hello  world ; twice"), SquareWith({{7, "M117 hello  world ; twice"}}));
  EXPECT_EQ(SavedAfter("layer 1\ntext 5"), SquareWith({{7, ""}}));
  EXPECT_EQ(Edit(square_gcode, "layer 1\ntext 1 M117\n"),
            (CliResult{2, "", "line 2: record 1 is not a text record\n"}));
}

TEST_F(CliEditData, DeleteLayersLowersTheLaterLayersAndRederivesTheirFirstMove) {
  // The feedrate went with the deleted layer's line that stated it.
  EXPECT_EQ(SavedAfter("delete-layers 1"), (Lines{"; test square", "G92 E0", "G1  Z0.3", "G1 X10 Y0 E1", "G1 Y10 E2"}));
  EXPECT_EQ(SavedAfter("delete-layers 1\nlayer 1\nselect all\nkind G0"),
            (Lines{"; test square", "G92 E0", "G0  Z0.3", "G0 X10 Y0 E1", "G0 Y10 E2"}));
}

TEST_F(CliEditData, TranslateNeedsNoCurrentLayer) {
  EXPECT_EQ(SavedAfter("delete-layers 2\ntranslate 0 0 -2"),
            (Lines{"; test square", "G92 E0", "G1 Z0.3 F1200", "G1 X10 Y-2 E1 ;edge", "G1 Y8 E2", "G0 X0",
                   "G1 Y-2 E3", ";comment line"}));
}

}  // namespace
