// Real slicer output: loading and saving reaches a fixed point, and the
// tagged export reads back as the same moves.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "document/korvexed_file.h"
#include "tests/file_fixture.h"

using namespace korvexed;
using korvexed::testing::FileTest;

namespace {

class SlicerOutput : public FileTest, public ::testing::WithParamInterface<std::string> {
 protected:
  // Loads `from` and saves it to `to`; returns the bytes written.
  std::string resave(const std::string& from, const std::string& to) {
    EXPECT_TRUE(LoadGCode(from)) << last_message();
    EXPECT_TRUE(SaveGCode(path(to), save_plain)) << last_message();
    return read(path(to));
  }

  // Every move of the document as text, without line numbers or comments.
  static std::string moves() {
    std::string out;
    for (int32_t L = 0; L < doc.layer_count; ++L) {
      for (int32_t j = 0; j < doc.layer(L).g_count; ++j) {
        const g_entry& entry = doc.layer(L).g[j];
        if (is_move(entry.kind)) out += RecordText(entry, 0, false, true, true) + "\n";
      }
    }
    return out;
  }
};

std::vector<std::string> slicer_files() {
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(KORVEXED_TEST_DATA)) {
    if (entry.path().extension() == ".gcode") files.push_back(entry.path().string());
  }
  files.push_back(KORVEXED_EXAMPLE);
  std::sort(files.begin(), files.end());
  return files;
}

}  // namespace

TEST_P(SlicerOutput, PlainSaveReachesAFixedPoint) {
  resave(GetParam(), "first.gcode");
  const std::string second = resave(path("first.gcode"), "second.gcode");
  const std::string third = resave(path("second.gcode"), "third.gcode");
  EXPECT_EQ(second, third);
}

TEST_P(SlicerOutput, LoadsIntoLayersAndTheTaggedExportKeepsTheMoves) {
  ASSERT_TRUE(LoadGCode(GetParam())) << last_message();
  EXPECT_TRUE(ui->messages.empty());
  const std::string original = moves();
  const int32_t layers = doc.layer_count;
  EXPECT_GT(layers, 3);
  const bool tagged = doc.layer_tagged == 1;
  ASSERT_TRUE(SaveGCode(path("tagged.gcode"), save_tagged));
  ASSERT_TRUE(LoadGCode(path("tagged.gcode")));
  EXPECT_EQ(moves(), original);
  EXPECT_EQ(doc.layer_count, layers);
  if (!tagged) {
    const std::string text = read(path("tagged.gcode"));
    EXPECT_NE(text.find(";Layer count: " + std::to_string(layers - 1) + "\r\n;LAYER:0\r\n;TYPE:FILL\r\n"),
              std::string::npos);
  }
}

INSTANTIATE_TEST_SUITE_P(Files, SlicerOutput, ::testing::ValuesIn(slicer_files()),
                         [](const auto& info) {
                           std::string name = std::filesystem::path(info.param).stem().string();
                           for (char& c : name) if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
                           return name;
                         });
