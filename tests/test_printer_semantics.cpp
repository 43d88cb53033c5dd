// A save keeps what the printer does: on real slicer output and on small
// files for each rule, Open and Save leaves every move's target and
// filament as the tests' own printer sees them, and a second round trip
// changes nothing more.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>

#include "document/korvexed_file.h"
#include "document/korvexed_general.h"
#include "tests/editing_fixture.h"
#include "tests/printer_motion.h"

using namespace korvexed;
using korvexed::test::CompareMotion;
using korvexed::test::RunPrinter;

namespace {

// The document as a printer would need it: layers, text lines, and every
// move that changes a value the file wrote, with its values as written.
// A move that repeats every value of the move before it is left out, since
// a save drops it.
std::string document_text() {
  std::string out;
  const coor_data* before = nullptr;
  const auto number = [&](double v) { return v == no_value ? std::string("-") : FormatNumber(v, true); };
  for (int32_t L = 0; L < doc.layer_count; ++L) {
    const layer_data& layer = doc.layer(L);
    out += "layer " + number(layer.z) + " " + number(layer.dz) + "\n";
    for (int32_t j = 0; j < layer.g_count; ++j) {
      const g_entry& entry = layer.g[static_cast<size_t>(j)];
      if (entry.kind == line_kind::text) {
        out += std::string(doc.text_list[entry.index]) + "\n";
        continue;
      }
      const coor_data& c = doc.coor(entry);
      if (is_move(entry.kind) && before && RoundTo5(c.x) == RoundTo5(before->x) &&
          RoundTo5(c.y) == RoundTo5(before->y) && RoundTo5(c.e) == RoundTo5(before->e) &&
          RoundTo5(c.f) == RoundTo5(before->f) && j > 0)
        continue;
      out += RecordText(entry, 0, false, true, false) + (c.e_relative ? " rel" : "") + " e=" + number(c.e) + "\n";
      if (is_move(entry.kind)) before = &c;
    }
  }
  return out;
}

class PrinterSemantics : public korvexed::testing::EditingTest {
 protected:
  // Open and Save (or Export) of `gcode`: the printer's moves before and
  // after, compared; returns the bytes written.
  std::string check_save_keeps_the_motion(const std::string& gcode, uint8_t mode = save_plain) {
    load_text(gcode);
    const std::string written = saved(mode);
    EXPECT_EQ(CompareMotion(RunPrinter(gcode), RunPrinter(written)), "") << (mode == save_tagged ? "export" : "save");
    return written;
  }

  // Open, Save and Open gives the same document, and a second Save the
  // same bytes.
  void check_round_trip(const std::string& gcode) {
    load_text(gcode);
    const std::string first_document = document_text();
    const std::string first = saved();
    load_text(first);
    EXPECT_EQ(document_text(), first_document);
    EXPECT_EQ(saved(), first);
  }
};

class SlicerFiles : public PrinterSemantics, public ::testing::WithParamInterface<std::string> {};

std::vector<std::string> slicer_files() {
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(KORVEXED_TEST_DATA))
    if (entry.path().extension() == ".gcode") files.push_back(entry.path().string());
  files.push_back(KORVEXED_EXAMPLE);
  std::sort(files.begin(), files.end());
  return files;
}

// Small files, one for each way a save could change a print.
const char* const rule_files[] = {
    // Relative extrusion: the same E word twice, a mode switch without a reset.
    "M83\nG1 X10 Y0 E1 F1200\nG1 X20 E1\nG1 X30 E1\nM82\nG1 X40 E7\nG1 X50 E7.5\nM83\nG1 X60 E0.5\n",
    // Homing and G91 blocks: the printer's position is not what the file
    // said last.
    "G1 X5 Y5 Z10\nG28 Z\nG1 X128 Y128 Z10\nG91\nG1 Z5 E-1\nG1 X118.813 Y111.459 E-1\nG90\nG1 X128 Y128 Z10 E1\n",
    // A tool change and a filament change repeat values the file states.
    "G1 X10 Y10 Z0.2 E1 F1500\nT1\nG1 X10 Y10 E1 F1500\nM600\nG1 X10 Y10 E2\nM104 S200\nG1 X10 Y20 E3\n",
    // Moves the printer reads: indented, without blanks, with comments in
    // parentheses; and a placeholder it refuses.
    "  G1 X1 Y1 Z0.3\nG1X2Y2E1\n\tG01X3\nG1 X10 Y10 (Extrude ...) E2\nG1 X0 Y{machine_depth}\nG1 X5 E3\n",
    // Lines kept as they were: a lone ";", G28 with a bare ";", CR LF,
    // bare CR and empty lines.
    ";\r\nG28 ;\r\n\r\nG1 X1 Y2 Z0.3\r\rG1 X3\r\n\n",
    // Arcs both ways, full circles, R of either sign, an arc that starts a
    // layer, arcs between lines, in both extrusion modes.
    "G1 X10 Y0 Z0.2 F1200\nG3 X0 Y10 I-10 J0 E1\nG1 X0 Y20 E2\nG2 X10 Y30 R10 E3\nG2 X10 Y30 I-5 J0 E4\n"
    "G3 X30 Y30 R-10 E5\nG3 X20 Y30 I-5 Z0.4 E6\nG1 X10 Y10 E7\nM83\nG02X5Y15I-5J0E0.5\nG3 X5 Y15 R-2 E1\n",
    // Resets: bare, with Z (text), and E; repeated feedrates.
    "G1 X1 Y1 Z1 E1 F600\nG92\nG1 X2 E2\nG92 Z0\nG1 X3 Y3 Z1\nG92 E0\nG1 X4 E1\nG1 F600\nG1 F600\nG1 X5 E2\n",
};

}  // namespace

TEST_P(SlicerFiles, OpenAndSaveKeepEveryMove) {
  const std::string gcode = read(GetParam());
  const std::string written = check_save_keeps_the_motion(gcode);
  const std::string tagged = check_save_keeps_the_motion(gcode, save_tagged);
  // None of the files is tagged: the export counts the layers and tags them.
  EXPECT_NE(tagged.find(";Layer count: " + std::to_string(doc.layer_count - 1) + "\r\n;LAYER:0\r\n;TYPE:FILL\r\n"),
            std::string::npos);
  load_text(written);
  EXPECT_EQ(saved(), written) << "a second save writes the same bytes";
}

TEST_P(SlicerFiles, OpenSaveAndOpenGiveTheSameDocument) { check_round_trip(read(GetParam())); }

INSTANTIATE_TEST_SUITE_P(Files, SlicerFiles, ::testing::ValuesIn(slicer_files()), [](const auto& info) {
  return std::filesystem::path(info.param).stem().string();
});

TEST_F(PrinterSemantics, EveryRuleKeepsTheMotion) {
  for (const char* gcode : rule_files) {
    SCOPED_TRACE(gcode);
    check_save_keeps_the_motion(gcode);
    check_save_keeps_the_motion(gcode, save_tagged);
    check_round_trip(gcode);
  }
}

TEST_F(PrinterSemantics, MovingVerticesOfARelativeFileChangesOnlyTheirMoves) {
  const std::string gcode = read(std::string(KORVEXED_TEST_DATA) + "/prusa_zhop_rel.gcode");
  load(gcode);
  // Five vertices in the middle of the first layer with a long run of
  // extrusion: each between two extruding moves that state X and Y.
  int32_t layer = 1;
  while (doc.layer(layer).coor_count < 100) ++layer;
  ShowSingleLayer(layer);
  const layer_data& ly = doc.layer(layer);
  const auto extruding = [&](int32_t r) {
    return r < ly.g_count && is_move(ly.g[r].kind) && !doc.coor(layer, r).no_extrude &&
           (doc.coor(layer, r).given & (given_x | given_y)) != 0;
  };
  std::vector<int32_t> marked;
  for (int32_t r = 20; r < ly.g_count && marked.size() < 5; r += 7)
    if (extruding(r - 1) && extruding(r) && extruding(r + 1)) marked.push_back(r);
  ASSERT_EQ(marked.size(), 5u);
  std::fill(lists.select_flag.begin(), lists.select_flag.end(), 0);
  for (const int32_t r : marked) lists.select_flag[static_cast<size_t>(r)] = 1;
  ApplySelection(false);
  ASSERT_TRUE(move_marked(0.3, -0.2, 0));
  EXPECT_CONSISTENT();

  const auto before = RunPrinter(gcode);
  const auto after = RunPrinter(saved());
  ASSERT_EQ(before.size(), after.size());
  std::set<size_t> touched;  // the moves that end or start at a moved vertex
  for (size_t i = 0; i < before.size(); ++i) {
    if (before[i].x != after[i].x || before[i].y != after[i].y) touched.insert({i, i + 1});
  }
  EXPECT_EQ(touched.size(), 10u);
  for (size_t i = 0; i < before.size(); ++i) {
    const bool changed = std::abs(before[i].e_change - after[i].e_change) > 1e-5;
    EXPECT_EQ(changed, touched.count(i) > 0) << "move " << i << " on line " << before[i].line;
  }
}
