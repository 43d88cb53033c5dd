// The loader and the picture on input no slicer writes. Built with
// AddressSanitizer and UndefinedBehaviorSanitizer: every byte sequence must
// end in a loaded document or in the reading error, and a loaded one must
// save.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "document/korvexed_file.h"
#include "editing/list_state.h"
#include "tests/file_fixture.h"
#include "view/korvexed_graphic.h"
#include "view/world_view.h"

using namespace korvexed;
using korvexed::testing::FileTest;

namespace {

class Hostile : public FileTest {
 protected:
  void survives(const std::string& bytes) {
    ui->messages.clear();
    ui->default_answer = MsgAnswer::yes;
    if (LoadGCode(write("hostile.gcode", bytes))) {
      EXPECT_TRUE(SaveGCode(path("hostile-out.gcode"), save_plain));
      EXPECT_TRUE(SaveGCode(path("hostile-out.gcode"), save_tagged));
    } else {
      ASSERT_FALSE(ui->messages.empty());
      EXPECT_TRUE(ui->messages.back().text.starts_with("Error while reading GCode file at line "))
          << ui->messages.back().text;
      EXPECT_EQ(doc.layer_count, 1);
    }
  }
};

}  // namespace

TEST_F(Hostile, RandomBytes) {
  std::mt19937 random(7);
  for (int round = 0; round < 60; ++round) {
    std::string bytes(std::uniform_int_distribution<size_t>(0, 50000)(random), '\0');
    for (char& c : bytes) c = static_cast<char>(random());
    survives(bytes);
  }
}

TEST_F(Hostile, RandomGCodeShapedText) {
  const std::string alphabet = "G0192XYZEF 0123456789.,-+;\r\n\tMS";
  std::mt19937 random(11);
  for (int round = 0; round < 200; ++round) {
    std::string bytes(std::uniform_int_distribution<size_t>(0, 20000)(random), ' ');
    for (char& c : bytes) c = alphabet[random() % alphabet.size()];
    survives(bytes);
  }
}

TEST_F(Hostile, MalformedFields) {
  for (const char* field : {"X-", "X.", "X--1", "X1,5", "X", "X+", "X-.", "X1e5", "X0x10", "Xnan", "Xinf"}) {
    survives(std::string("G1 ") + field + "\n");
    survives(std::string("G92 ") + field + "\n");
    survives(std::string("G1 Z1 ") + field + "\n");
  }
  survives("G1 X" + std::string(400, '7') + "\n");
  survives("G1 X-0." + std::string(400, '0') + "1\n");
  survives("G1 Z" + std::string(400, '9') + "\n");
}

TEST_F(Hostile, HugeLinesAndOddLineEnds) {
  survives("G1 X" + std::string(10 << 20, '1') + "\n");
  survives("M117 " + std::string(10 << 20, 'a') + ";" + std::string(1 << 20, ';') + "\n");
  survives(std::string(1 << 20, '\r'));
  survives(std::string(1 << 20, '\n'));
  survives(std::string(100000, '\0'));
  std::string mixed;
  for (int i = 0; i < 100000; ++i) mixed += "\r\n\n\r"[i % 4];
  survives(mixed);
}

TEST_F(Hostile, ExtremeValuesSave) {
  survives("G1 X1" + std::string(300, '0') + " Y-1" + std::string(300, '0') + " E1" + std::string(300, '0') + "\n");
  survives("G1 Z0.000000000001\nG1 Z1" + std::string(300, '0') + "\nG1 X1\n");
}

// Points anywhere a double reaches, at every zoom: the picture is drawn
// without overflow or reads outside the bitmap.
TEST_F(Hostile, ExtremePointsDrawAtEveryZoom) {
  const std::string big = "1" + std::string(300, '0');
  ui->default_answer = MsgAnswer::yes;
  ASSERT_TRUE(LoadGCode(write("extreme.gcode", "G1 X" + big + " Y-" + big + " E1\nG1 X-" + big + " Y" + big +
                                                   " E2\nG92 X" + big + "\nG1 X1e9 Y-1e9 E3\nG1 X0 Y0.5 E4\n" +
                                                   "G1 X-1e15 Y1e15 E5\nG1 X0.001 Y-0.001 E6\n")));
  FillLayerList(0);
  draw_settings = {.show_movement = true, .show_arrow = true};
  ASSERT_TRUE(CreateDrawing(97, 61));
  ZoomFit();
  for (const double factor : {1e-9, 1e3, 1e3, 1e3, 1e3, 1e3}) {
    ZoomView(factor, 0, 0, true);
    for (const int32_t pan : {INT32_MIN, INT32_MAX}) ZoomView(1, pan, -pan / 2, true);
  }
  MouseWheelZoom(-1e300);
  std::mt19937 random(5);
  for (int n = 0; n < 20000; ++n) {
    const auto any = [&random] { return static_cast<int32_t>(random()); };
    LineBitmap(drawing.picture, any(), any(), any(), any(), palette.selected);
    DrawArrow(any(), any(), any(), any(), 1e300, palette.selected);
    DrawSquare(any(), any(), 11, 11, palette.selected);
    PointBitmap(drawing.picture, any(), any(), palette.selected);
  }
}
