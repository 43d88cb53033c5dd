#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "document/korvexed_file.h"
#include "editing/korvexed_data.h"
#include "tests/file_fixture.h"
#include "tests/file_size_limit.h"

using namespace korvexed;
using korvexed::testing::FileTest;

using Save = FileTest;

TEST_F(Save, LeavesOutValuesThatRepeatAndPutsZInFrontOfEAndF) {
  const std::pair<const char*, const char*> cases[] = {
      {"G1 X10 Y10 F1200\nG1 X20 Y10\nG1 X20 Y10.000001\n", "G1 X10 Y10 F1200\r\nG1 X20\r\n"},
      {"G1 X1 Y1\nG1 X1 Y1 ;again\nG0 X1\n", "G1 X1 Y1\r\n"},  // a move that repeats everything is left out
      {"G1 X1 Y2 Z0.3 E0.5 F900\nG1 Z0.6 F600\nG1 X5 Z0.9\n",
       "G1 X1 Y2 Z0.3 E0.5 F900\r\nG1 Z0.6 F600\r\nG1 X5 Z0.9\r\n"}};
  for (const auto& [text, written] : cases) {
    load_text(text);
    EXPECT_EQ(saved(), written) << text;
  }
}

TEST_F(Save, RecordTextLeavesOutTheCommentOfAMoveOnlyWhenAsked) {
  load_text("G1 X10 Y20 E1.5 F1200 ;perimeter\nM104 S200 ;hot\n");
  EXPECT_EQ(RecordText(doc.layer(0).g[1], 7, false, true, true), "G1 X10 Y20 E1.5 F1200");
  EXPECT_EQ(RecordText(doc.layer(0).g[2], 3, true, true, true), "U3> M104 S200 ;hot");
}

TEST_F(Save, TaggedFileGetsNoNewTagsAndEveryKnownValue) {
  load_text("G1 X1 ;;LAYER:0\nG1 X1 Y0\nG1 Z0.3\n");
  ASSERT_EQ(doc.layer_tagged, 1);
  const std::string expected = "G1 X1 ;;LAYER:0\r\nG1 X1 Y0\r\nG1 X1 Y0 Z0.3\r\n";
  EXPECT_EQ(saved(save_tagged), expected);
  EXPECT_EQ(saved(save_plain), expected);
}

TEST_F(Save, NeverWritesTheResetMove) {
  load_text("G92 X5 Y0\n");
  std::swap(doc.layer(0).g[0], doc.layer(0).g[1]);  // a G92 that moves the origin first
  EXPECT_EQ(saved(), "G92 X5 Y0\r\n");
  translate_all(30, 10, 20);
  EXPECT_EQ(saved(), "G92 X5 Y0\r\n");
}

TEST_F(Save, ReportsProgressEveryTenThousandLines) {
  load_text(std::string(25000, '\n'));
  saved();
  EXPECT_EQ(ui->status[1], "Saving GCode line 20000");
}

TEST_F(Save, KeepsTheOldFileWhenWritingFails) {
  load_text(std::string(20000, 'M') + "\n");
  const std::string target = write("keep.gcode", "old contents\n");
  const bool ok = [&] {
    const korvexed::testing::FileSizeLimit limit(1000);
    return SaveGCode(target, save_plain);
  }();
  EXPECT_FALSE(ok);
  EXPECT_EQ(last_message(), "Error while saving GCode file: File too large");
  EXPECT_EQ(read(target), "old contents\n");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(path("")), {}), 2);  // no temporary file left
}

TEST_F(Save, ReportsATargetThatCannotBeOpened) {
  load_text("G1 X1\n");
  const std::string nowhere = path("no/such/dir.gcode");
  EXPECT_FALSE(SaveGCode(nowhere, save_plain));
  EXPECT_EQ(last_message(), "Unable to open " + nowhere + "\r\nError 2: No such file or directory");
}

TEST_F(Save, WritesThroughALinkAndKeepsTheFileMode) {
  load_text("G1 X1\n");
  const std::string target = write("real.gcode", "old\n");
  std::filesystem::permissions(target, std::filesystem::perms(0640));
  std::filesystem::create_symlink(target, path("link.gcode"));
  ASSERT_TRUE(SaveGCode(path("link.gcode"), save_plain));
  EXPECT_TRUE(std::filesystem::is_symlink(path("link.gcode")));
  EXPECT_EQ(read(target), "G1 X1\r\n");
  EXPECT_EQ(std::filesystem::status(target).permissions(), std::filesystem::perms(0640));
}

TEST_F(Save, ReportsAFullDevice) {
  load_text("G1 X1\n");
  EXPECT_FALSE(SaveGCode("/dev/full", save_plain));
  EXPECT_EQ(last_message(), "Error while saving GCode file: No space left on device");
}
