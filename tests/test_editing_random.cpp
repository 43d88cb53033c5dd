// Random edit sequences over multi-layer documents with E resets, travels,
// retractions and zero-length moves: after every edit the document passes
// its own consistency check and the lists stay in step with it.
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

#include "editing/commands.h"
#include "tests/editing_fixture.h"

using namespace korvexed;
using korvexed::testing::RandomEditingTest;

namespace {

// Six layers of mixed records. Position resets (G92 X Y) only when asked:
// Translate leaves them where they are, which no check could accept.
std::string random_document(std::mt19937& rng, bool position_resets) {
  std::uniform_real_distribution<double> coord(0, 50);
  std::uniform_int_distribution<int> pick(0, 99);
  std::string out;
  double x = 0, y = 0, e = 0;
  for (int l = 1; l <= 6; ++l) {
    x = coord(rng), y = coord(rng);
    out += "G0 X" + std::to_string(x) + " Y" + std::to_string(y) + " Z" + std::to_string(0.2 * l) + "\n";
    if (pick(rng) < 50) out += "G92 E0\n", e = 0;
    for (int i = 0; i < 15; ++i) {
      const int p = pick(rng);
      if (p < 45) {
        const double nx = coord(rng), ny = coord(rng);
        e += std::hypot(nx - x, ny - y) * 0.05;
        x = nx, y = ny;
        out += "G1 X" + std::to_string(x) + " Y" + std::to_string(y) + " E" + std::to_string(e) + " F1800\n";
      } else if (p < 60) {
        x = coord(rng), y = coord(rng);
        out += "G0 X" + std::to_string(x) + " Y" + std::to_string(y) + " F6000\n";
      } else if (p < 70) {
        e += 0.5;
        out += "G1 X" + std::to_string(x) + " Y" + std::to_string(y) + " E" + std::to_string(e) + "\n";  // zero length
      } else if (p < 78) {
        e -= 1;
        out += "G1 E" + std::to_string(e) + " F2400 ;retract\n";
      } else if (p < 86) {
        out += "M117 layer " + std::to_string(l) + "\n";
      } else if (p < 93) {
        e = 5;
        out += "G92 E5\n";
      } else if (position_resets) {
        x = coord(rng), y = coord(rng);
        out += "G92 X" + std::to_string(x) + " Y" + std::to_string(y) + "\n";
      }
    }
  }
  return out;
}

class RandomEdits : public RandomEditingTest {
 protected:
  double offset() { return RandomEditingTest::offset(5); }

  // Marks each listed vertex with the given chance; `can_delete` keeps only
  // vertices with no G92 before their next move (vertex deletion ignores
  // such resets, by its own rule).
  void mark_some(int percent, bool can_delete) {
    std::fill(lists.select_flag.begin(), lists.select_flag.end(), 0);
    for (const int32_t r : lists.row_to_g)
      if (chance(percent) && (!can_delete || !reset_before_next_move(r))) lists.select_flag[static_cast<size_t>(r)] = 1;
    ApplySelection(false);
  }

  bool reset_before_next_move(int32_t r) const {
    for (int32_t l = doc.current_layer; l < doc.layer_count; ++l, r = -1) {
      for (int32_t i = r + 1; i < doc.layer(l).g_count; ++i) {
        const line_kind k = doc.layer(l).g[static_cast<size_t>(i)].kind;
        if (is_move(k)) return false;
        if (k == line_kind::g92) return true;
      }
    }
    return false;
  }

  int32_t random_move() {
    std::vector<int32_t> moves;
    for (int32_t i = 0; i < layer().g_count; ++i)
      if (is_move(layer().g[static_cast<size_t>(i)].kind)) moves.push_back(i);
    return moves[static_cast<size_t>(any(static_cast<int32_t>(moves.size())))];
  }

  void edit(bool translate) {
    switch (any(11)) {
      case 0: ShowSingleLayer(any(doc.layer_count)); break;
      case 1: DataViewCommand(any(5)); break;
      case 2:
        mark_some(30, false);
        move_marked(offset(), offset(), chance(20) ? offset() / 10 : 0);
        break;
      case 3: {  // drag one vertex onto the point before it
        if (lists.row_to_g.empty()) break;
        const int32_t r = lists.row_to_g[static_cast<size_t>(any(static_cast<int32_t>(lists.row_to_g.size())))];
        mark({r});
        int32_t p_layer = doc.current_layer;
        const coor_data p = get_state_before(p_layer, r - 1);
        move_marked(p.x - at(doc.current_layer, r).x, p.y - at(doc.current_layer, r).y, 0);
        break;
      }
      case 4: insert_point(random_move(), std::uniform_real_distribution<double>(0, 50)(rng), 25); break;
      case 5: insert_points_evenly(random_move(), 1 + any(5)); break;
      case 6:
        mark_some(25, true);
        delete_marked_vertices();
        break;
      case 7: {
        std::vector<int32_t> rows;
        for (int32_t i = 0; i < layer().g_count; ++i)
          if (chance(30)) rows.push_back(i);
        SetDataRowsOnView(rows);
        delete_selected_rows();
        break;
      }
      case 8:
        if (doc.layer_count < 3) break;
        lists.layer_selected.assign(static_cast<size_t>(doc.layer_count), 0);
        lists.layer_selected[static_cast<size_t>(any(doc.layer_count))] = 1;
        DeleteSelectedLayersCommand();
        ShowSingleLayer(any(doc.layer_count));
        break;
      case 9:
        if (translate) translate_all(offset() * 40, 0, 0);
        break;
      default:
        mark_some(50, false);
        set_marked_kind(chance(50) ? line_kind::g0 : line_kind::g1);
        change_feedrate(0, 1200);
        break;
    }
  }

  void expect_lists_in_step() {
    ASSERT_EQ(lists.layer_selected.size(), static_cast<size_t>(doc.layer_count));
    ASSERT_EQ(lists.data_selected.size(), static_cast<size_t>(layer().g_count));
    ASSERT_EQ(lists.select_flag.size(), static_cast<size_t>(layer().g_count));
    std::vector<int32_t> listed;
    for (int32_t i = 0; i < layer().g_count; ++i)
      if (lists.data_selected[static_cast<size_t>(i)] && is_move(layer().g[static_cast<size_t>(i)].kind))
        listed.push_back(i);
    ASSERT_EQ(lists.row_to_g, listed);
    for (size_t k = 0; k < listed.size(); ++k)
      ASSERT_EQ(lists.select_line[k], lists.select_flag[static_cast<size_t>(listed[k])] != 0);
  }

  void run(bool position_resets) {
    for (const unsigned seed : {1u, 2u, 3u, 4u, 5u, 6u}) {
      rng.seed(seed);
      load(random_document(rng, position_resets));
      ASSERT_EQ(CheckConsistency(), "") << "seed " << seed << " as loaded";
      for (int step = 0; step < 300; ++step) {
        edit(!position_resets);
        ASSERT_EQ(CheckConsistency(), "") << "seed " << seed << " step " << step;
        ASSERT_NO_FATAL_FAILURE(expect_lists_in_step()) << "seed " << seed << " step " << step;
        ASSERT_EQ(debug_messages(), 0) << "seed " << seed << " step " << step << ": " << last_message();
      }
    }
  }
};

}  // namespace

TEST_F(RandomEdits, WithEResetsAndRotations) { run(false); }

TEST_F(RandomEdits, WithPositionResets) { run(true); }
