#pragma once
// Loads G-code as the Open command does and gives the edit tests short
// names for records, marks and the document's own consistency check.
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "editing/consistency.h"
#include "editing/korvexed_data.h"
#include "editing/list_state.h"
#include "tests/file_fixture.h"

namespace korvexed::testing {

class EditingTest : public FileTest {
 protected:
  // Loads the lines (LF ends) and shows layer 0 as after Open.
  void load(const std::string& gcode) {
    load_text(gcode);
    doc.modified = false;
    FillLayerList();
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
  int debug_messages() const {
    int n = 0;
    for (const auto& m : ui.get().messages) n += m.text.starts_with("for debug purpose");
    return n;
  }
};

#define EXPECT_CONSISTENT() EXPECT_EQ(::korvexed::CheckConsistency(), "")

}  // namespace korvexed::testing
