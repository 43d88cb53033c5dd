#pragma once
// Loads G-code as the Open command does and gives the edit tests short
// names for records, marks and the document's own consistency check.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <random>
#include <string>
#include <vector>

#include "editing/consistency.h"
#include "editing/history.h"
#include "editing/korvexed_data.h"
#include "editing/list_state.h"
#include "tests/file_fixture.h"

namespace korvexed::testing {

// Four layers of six extruding moves, E running on through them all: each
// change of E reaches the end of the print.
inline std::string e_running_on() {
  std::string gcode;
  for (int l = 1; l <= 4; ++l) {
    gcode += "G1 X0 Y0 Z" + std::to_string(l) + "\n";
    for (int i = 1; i <= 6; ++i)
      gcode += "G1 X" + std::to_string(i * 3 % 7) + " Y" + std::to_string(i) + " E" + std::to_string(l * 10 + i) +
               ".37\n";
  }
  return gcode;
}

class EditingTest : public FileTest {
 protected:
  // Loads the lines (LF ends) and shows layer 0 as after Open.
  void load(const std::string& gcode) {
    load_text(gcode);
    doc.modified = false;
    history.clear();
    FillLayerList(0);
  }
  static coor_data& at(int32_t layer, int32_t r) { return doc.coor(layer, r); }
  static line_kind kind(int32_t layer, int32_t r) { return doc.layer(layer).g[static_cast<size_t>(r)].kind; }
  // Marks exactly these records of the current layer, as a click would.
  static void mark(std::initializer_list<int32_t> records) {
    std::fill(lists.select_flag.begin(), lists.select_flag.end(), 0);
    for (const int32_t r : records) lists.select_flag[static_cast<size_t>(r)] = 1;
    ApplySelection(false);
  }
  // Puts exactly these rows of the current layer on view.
  static void on_view(std::initializer_list<int32_t> rows) { SetDataRowsOnView(rows); }
  // E, e_delta and d_delta of every move, layer by layer.
  static std::vector<double> bookkeeping() {
    std::vector<double> all;
    for (int32_t l = 0; l < doc.layer_count; ++l)
      for (int32_t r = 0; r < doc.layer(l).g_count; ++r)
        if (is_move(kind(l, r))) all.insert(all.end(), {at(l, r).e, at(l, r).e_delta, at(l, r).d_delta});
    return all;
  }
  // An edit of many vertices at once carries the changes of E on as one
  // sum, so it may differ from the same edit vertex by vertex in the last
  // bits.
  static void expect_same_bookkeeping(const std::vector<double>& at_once, const std::vector<double>& one_by_one) {
    ASSERT_EQ(at_once.size(), one_by_one.size());
    for (size_t i = 0; i < at_once.size(); ++i)
      EXPECT_NEAR(at_once[i], one_by_one[i], 1e-12 * std::max(1.0, std::fabs(one_by_one[i]))) << "value " << i;
  }
  int debug_messages() const {
    int n = 0;
    for (const auto& m : ui.get().messages) n += m.text.starts_with("for debug purpose");
    return n;
  }
};

// Random edit sequences: a seeded generator and the picks they make.
class RandomEditingTest : public EditingTest {
 protected:
  std::mt19937 rng;

  int32_t any(int32_t n) { return std::uniform_int_distribution<int32_t>(0, n - 1)(rng); }
  bool chance(int percent) { return any(100) < percent; }
  // An offset of up to `reach` mm either way.
  double offset(double reach) { return std::uniform_real_distribution<double>(-reach, reach)(rng); }
  static const layer_data& layer() { return doc.layer(doc.current_layer); }
};

#define EXPECT_CONSISTENT() EXPECT_EQ(::korvexed::CheckConsistency(), "")

}  // namespace korvexed::testing
