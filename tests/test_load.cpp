#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "document/korvexed_file.h"
#include "document/reserved_array.h"
#include "tests/file_fixture.h"

using namespace korvexed;
using korvexed::testing::FileTest;

namespace {

// The text of every entry of the document, one per line, layers marked.
std::string entries() {
  std::string out;
  for (int32_t L = 0; L < doc.layer_count; ++L) {
    out += "L" + std::to_string(L) + "\n";
    for (int32_t j = 0; j < doc.layer(L).g_count; ++j) out += RecordText(doc.layer(L).g[j], j, true, true, false) + "\n";
  }
  return out;
}

}  // namespace

using Load = FileTest;

TEST_F(Load, EmptyFileGivesTheResetLayer) {
  load_text("");
  EXPECT_EQ(entries(), "L0\nD0> G1 X0 Y0 E0 F0\n");
  EXPECT_EQ((std::vector<double>{doc.layer(0).z, doc.layer(0).dz, doc.coor(0, 0).d_delta}), (std::vector<double>(3)));
  EXPECT_EQ(doc.layer(0).coor_count, 1);
  EXPECT_EQ(doc.coor_list_count, 1);
  EXPECT_TRUE(doc.coor(0, 0).no_extrude);
  EXPECT_TRUE(IsDocumentLoaded());
}

TEST_F(Load, KeepsEmptyLinesAtEveryLineEnd) {
  load_text("A\r\nB\r\rC\rD\nE\n\nF\n\r\n\nG");
  EXPECT_EQ(entries(),
            "L0\nD0> G1 X0 Y0 E0 F0\nU1> A\nU2> B\nU3> \nU4> C\nU5> D\nU6> E\nU7> \nU8> F\nU9> \nU10> \nU11> G\n");

  const std::string with_lf = (load_text("G1 X1 Y2\nM104 S200\nG1 X3\n"), entries());
  const std::string with_crlf = (load_text("G1 X1 Y2\r\nM104 S200\r\nG1 X3\r\n"), entries());
  EXPECT_EQ(with_lf, with_crlf);
}

TEST_F(Load, KeepsBytesThatAreNotText) {
  const std::string odd = std::string("M117 \xff\xfe", 7) + std::string(1, '\0') + "end";
  load_text(odd + "\r\n");
  EXPECT_EQ(doc.text_list[doc.layer(0).g[1].index], odd);
  EXPECT_EQ(saved(), odd + "\r\n");
}

TEST_F(Load, StartsALayerWhereThePrintGoesOnAtANewHeight) {
  load_text("G1 Z0.3 F1200\nG1 X10 Y0 E1\nG1 Z0.6\nG1 X0 Y0 E2\nG01 Z0.9 X1\nG1 X2 E3\n");
  ASSERT_EQ(doc.layer_count, 4);
  EXPECT_EQ(doc.layer(1).z, 0.3);
  EXPECT_EQ(doc.layer(1).dz, 0.3);
  EXPECT_EQ(doc.layer(2).dz, 0.6 - 0.3);
  EXPECT_EQ(doc.layer(1).g[0].kind, line_kind::g1);
  // A layer keeps the kind that its first line states.
  EXPECT_EQ(doc.layer(3).g[0].kind, line_kind::g1);
  EXPECT_EQ(doc.layer(3).g[1].kind, line_kind::g1);
  // The first move of a layer climbs from the layer before.
  EXPECT_DOUBLE_EQ(doc.coor(1, 0).d_delta, 0.09);
  EXPECT_DOUBLE_EQ(doc.coor(1, 1).d_delta, 100);
  EXPECT_DOUBLE_EQ(doc.coor(3, 0).d_delta, 1 + 0.3 * 0.3);
  EXPECT_EQ(doc.coor(3, 1).d_delta, 1);
}

TEST_F(Load, FillsAbsentMoveFieldsAndKeepsG92AsGiven) {
  load_text("G1 X10 Y5 E2 F1800 ;first\nG1 X12\nG92 E0\nG1 X12 Y9 E0.5\nG1 X15 E0.25\n");
  EXPECT_EQ(entries(), "L0\nD0> G1 X0 Y0 E0 F0\nD1> G1 X10 Y5 E2 F1800 ;first\nD2> G1 X12 Y5 E2 F1800\n"
                       "R3> G92 E0\nD4> G1 X12 Y9 E0.5 F1800\nD5> G1 X15 Y9 E0.25 F1800\n");
  EXPECT_EQ(doc.layer(0).coor_count, 5);
  EXPECT_EQ(doc.coor(0, 3).x, no_value);
  EXPECT_EQ(doc.coor(0, 3).d_delta, 0);
  // The move after the G92 counts from its E; E going back does not extrude.
  EXPECT_EQ(column(&coor_data::e_delta, 0, 1, 4), (std::vector<double>{2, 0, 0, 0.5}));
  EXPECT_EQ(column(&coor_data::no_extrude, 0, 1, 5), (std::vector<bool>{false, true, true, false, true}));
}

TEST_F(Load, DetectsTagsOnlyBehindTheFirstSemicolonOfTheFirstLayers) {
  const std::pair<const char*, int> cases[] = {{";LAYER:0\nG1 X1\n", 0}, {"G1 X1 ;;LAYER:1\n", 1},
      {"G1 Z1\nG1 Z2\nG1 Z3\n;;LAYER:3\n", 1}, {"G1 Z1\nG1 Z2\nG1 Z3\nG1 Z4\n;;LAYER:4\n", 0}};
  for (const auto& [text, tagged] : cases) EXPECT_EQ((load_text(text), doc.layer_tagged), tagged) << text;
}

TEST_F(Load, KeepsMovesWithUnreadableNumbersAsTextAndNamesTheFirst) {
  std::string text;
  for (int i = 0; i < 10; ++i) text += "G1 X" + std::to_string(i) + "\n";
  text += "G91\nG1 Xabc\nG90\nG1 Y{machine_depth}\n";
  EXPECT_TRUE(LoadGCode(write("bad.gcode", text)));
  EXPECT_EQ(last_message(), "1 line could not be read as a move and is kept unchanged as text: line 14: G1 Y{machine_depth}");
  EXPECT_EQ(doc.text_list[doc.layer(0).g[14].index], "G1 Y{machine_depth}");
  EXPECT_EQ(doc.layer(0).coor_count, 11);
  EXPECT_TRUE(IsDocumentLoaded());

  const std::string long_line = "G92 E" + std::string(100, '?');
  load_text("G1 X1.2.3\n" + long_line + "\nG1 X2\n");
  EXPECT_EQ(last_message(), "2 lines could not be read as moves and are kept unchanged as text; the first is line 1: "
                            "G1 X1.2.3");
  load_text("M117\n" + long_line + "\n");
  EXPECT_EQ(last_message(), "1 line could not be read as a move and is kept unchanged as text: line 2: " +
                                long_line.substr(0, 80));
}

TEST_F(Load, ReadsATabBehindAKeyLetter) {
  load_text("G1 X\t13 Y8\nG92 E\t0\n");
  EXPECT_EQ(doc.coor(0, 1).x, 13);
  EXPECT_EQ(doc.coor(0, 2).e, 0);
  EXPECT_EQ(saved(), "G1 X13 Y8\r\nG92 E0\r\n");
}

TEST_F(Load, OpenFailureLeavesTheDocumentAlone) {
  load_text("G1 Z1\nG1 Z2\n");
  const std::string missing = path("missing.gcode");
  EXPECT_FALSE(LoadGCode(missing));
  EXPECT_EQ(last_message(), "Unable to open " + missing + "\r\nError 2: No such file or directory");
  EXPECT_EQ(doc.layer_count, 3);
  EXPECT_TRUE(IsDocumentLoaded());
  EXPECT_FALSE(LoadGCode(path("")));
  EXPECT_EQ(last_message(), "Unable to open " + path("") + "\r\nError 21: Is a directory");
}

TEST(ReservedArray, NeverMovesAndReadsFreshElementsAsZero) {
  ReservedArray<uint64_t> pool;
  pool.reserve(1);
  const uint64_t* const start = pool.data();
  size_t used = 0;
  for (size_t wanted = 1; wanted < 5'000'000; wanted = wanted * 3 / 2 + 1) {
    pool.reserve(wanted);
    ASSERT_GE(pool.room(), wanted);
    for (; used < wanted; ++used) {
      ASSERT_EQ(pool[used], 0u) << used;
      pool[used] = used * 7;
    }
  }
  EXPECT_EQ(pool.data(), start);
  for (size_t i = 0; i < used; i += 4099) ASSERT_EQ(pool[i], i * 7);
}

class LoadLimits : public FileTest {
 protected:
  // Layer 0 holds G1 Z0 and `extra` more lines.
  std::string crowded_layer(int extra) {
    std::string text;
    for (int i = 0; i < extra; ++i) text += (i % 2 ? "M400\n" : "G1 X1\n");
    return write("crowded.gcode", text);
  }
};

TEST_F(LoadLimits, DropsEntriesBeyondTheLimitAndAsks) {
  ASSERT_TRUE(LoadGCode(crowded_layer(max_data_count - 1)));
  EXPECT_TRUE(ui->messages.empty());
  EXPECT_EQ(doc.layer(0).g_count, max_data_count);

  ui->answers = {MsgAnswer::yes};
  ASSERT_TRUE(LoadGCode(crowded_layer(max_data_count + 5)));
  ASSERT_EQ(ui->messages.size(), 1u);
  EXPECT_EQ(ui->messages[0].buttons, MsgButtons::yes_no);
  EXPECT_TRUE(ui->messages[0].text.starts_with("Data count limit has been reached. Only partial data"));
  EXPECT_EQ(doc.layer(0).g_count, max_data_count);
  EXPECT_TRUE(IsDocumentLoaded());

  ui->answers = {MsgAnswer::no};
  EXPECT_FALSE(LoadGCode(crowded_layer(max_data_count + 5)));
  EXPECT_EQ(doc.layer(0).g_count, 1);
  EXPECT_FALSE(IsDocumentLoaded());
}

TEST_F(LoadLimits, DropsLayersBeyondTheLimit) {
  std::string text;
  for (int i = 1; i <= max_data_count + 1; ++i) text += "G1 Z" + std::to_string(i) + "\n";
  ui->answers = {MsgAnswer::yes};
  ASSERT_TRUE(LoadGCode(write("tall.gcode", text)));
  EXPECT_EQ(doc.layer_count, max_data_count);
  EXPECT_EQ(ui->messages.size(), 1u);
  EXPECT_EQ(doc.layer(max_data_count - 1).g_count, 1);
}

TEST_F(Load, ReportsProgressEveryTenThousandLines) {
  load_text(std::string(25000, '\n'));
  EXPECT_EQ(ui->status[1], "Reading GCode line 20000");
}
