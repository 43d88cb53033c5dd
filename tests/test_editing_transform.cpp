// Translate All GCode: rotation about the plan origin, then the offset.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

#include "editing/commands.h"
#include "tests/editing_fixture.h"

using namespace korvexed;
using korvexed::testing::EditingTest;

namespace {

const char* const square_doc = "G1 X10 Y0 E1 F600\nG92 X10 Y10\nG1 X10 Y10 E2\nM117 hi\nG1 X0 Y10 Z0.3 E3\n";

// Keeps every status text, not only the last one of each panel.
class StatusLog : public HeadlessPlatform {
 public:
  void show_status(std::string_view text, int panel) override {
    if (panel == 1) texts.emplace_back(text);
  }
  std::vector<std::string> texts;
};

}  // namespace

using Translate = EditingTest;

TEST_F(Translate, NinetyDegreesUseTheProgramsOwnPi) {
  load(square_doc);
  const coor_data before = at(0, 1);
  translate_all(90, 0, 0);
  const coor_data& m = at(0, 1);
  EXPECT_EQ(m.x, 10 * std::cos(90 * 3.14159265358979 / 180));
  EXPECT_NE(m.x, 10 * std::cos(std::numbers::pi / 2));
  EXPECT_EQ(m.y, 10);
  EXPECT_EQ(std::tie(m.e, m.f, m.e_delta, m.d_delta), std::tie(before.e, before.f, before.e_delta, before.d_delta));
  EXPECT_EQ(doc.layer(1).z, 0.3);
  EXPECT_EQ(std::pair(at(0, 2).x, at(0, 2).y), std::pair(10.0, 10.0));  // G92 positions stay as they are
}

TEST_F(Translate, ANegligibleXOffsetStillGoesWithY) {
  load(square_doc);
  translate_all(0, 1e-11, 2);
  EXPECT_EQ(std::pair(at(0, 1).x, at(0, 1).y), std::pair(10 + 1e-11, 2.0));
}

TEST_F(Translate, NothingToDoIsSaid) {
  load(square_doc);
  EXPECT_FALSE(TranslateCommand(1e-11, 0, -1e-11));
  EXPECT_EQ(last_message(), "No translation is needed");
  EXPECT_EQ(ui->messages.back().icon, MsgIcon::information);
  EXPECT_FALSE(doc.modified);

  EXPECT_TRUE(TranslateCommand(0, 1, 0));
  EXPECT_TRUE(doc.modified);
  EXPECT_EQ(ui->busy_depth, 0);
}

TEST_F(Translate, ProgressEveryFifthLayer) {
  std::string gcode;
  for (int l = 1; l < 12; ++l) gcode += "G1 X1 Z" + std::to_string(l) + "\n";
  load(gcode);
  ASSERT_EQ(doc.layer_count, 12);
  StatusLog log;
  set_platform(&log);
  translate_all(0, 1, 1);
  set_platform(&ui.get());
  EXPECT_EQ(log.texts, (std::vector<std::string>{"Translating GCode at Layer 0", "Translating GCode at Layer 5",
                                                 "Translating GCode at Layer 10"}));
}
