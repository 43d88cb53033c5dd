// Undo and redo over random edit sequences on real prints (absolute and
// relative E, arcs, lifts, a spiral): after k undos the dump is the one k
// steps before, with the view of then; redoing gives the later dumps again.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "cli/dump.h"
#include "editing/commands.h"
#include "editing/history.h"
#include "tests/editing_fixture.h"

using namespace korvexed;
using korvexed::testing::RandomEditingTest;

namespace {

std::string dump() {
  char* text = nullptr;
  size_t size = 0;
  std::FILE* out = open_memstream(&text, &size);
  cli::WriteDump(out);
  std::fclose(out);
  std::string result(text, size);
  std::free(text);
  return result;
}

// "" when the dumps are equal, else their first lines that differ.
std::string difference(const std::string& got, const std::string& want) {
  size_t line = 0, start = 0;
  while (true) {
    const size_t a = got.find('\n', start), b = want.find('\n', start);
    if (got.compare(start, a - start, want, start, b - start) != 0) {
      return "line " + std::to_string(line) + ":\n  got  " + got.substr(start, a - start) + "\n  want " +
             want.substr(start, b - start);
    }
    if (a == std::string::npos || b == std::string::npos) return a == b ? "" : "different lengths";
    start = a + 1;
    ++line;
  }
}

// The document and the view as a step left them.
struct Position {
  std::string dump;
  ListView view;  // the view the next step started from
};

// The current layer, its rows on view and its marks. (The layers on view
// are those Delete Selected Layers was given, chosen after `before`.)
bool same_view(const ListView& a, const ListView& b) {
  return a.current_layer == b.current_layer && a.data_selected == b.data_selected && a.select_flag == b.select_flag;
}

class UndoTest : public RandomEditingTest {
 protected:
  double offset() { return RandomEditingTest::offset(3); }

  void load_file(const std::string& name) {
    load(read(std::string(KORVEXED_TEST_DATA) + "/" + name));
    history.clear();
  }

  // A printed layer, some rows on view and some vertices marked.
  void change_view() {
    ShowSingleLayer(1 + any(doc.layer_count - 1));
    if (chance(30)) DataViewCommand(any(5));
    for (const int32_t r : lists.row_to_g) lists.select_flag[static_cast<size_t>(r)] = chance(20);
    ApplySelection(false);
  }

  int32_t random_move() {
    std::vector<int32_t> moves;
    for (int32_t i = 0; i < layer().g_count; ++i)
      if (is_move(layer().g[static_cast<size_t>(i)].kind)) moves.push_back(i);
    return moves.empty() ? -1 : moves[static_cast<size_t>(any(static_cast<int32_t>(moves.size())))];
  }

  // A drag as the window makes it: one step of several moves.
  void drag() {
    auto parts = std::make_shared<std::vector<PlanePoint>>();
    history.begin("Move", [parts] {
      for (const PlanePoint& part : *parts) move_marked(part.x, part.y, 0);
      return true;
    });
    for (int i = 1 + any(4); i > 0; --i) {
      const PlanePoint part{offset(), offset()};
      if (move_marked(part.x, part.y, 0)) parts->push_back(part);
    }
    history.end();
  }

  void edit() {
    switch (any(9)) {
      case 0: drag(); break;
      case 1: ChangeFeedrateCommand(0, 600 + any(3000)); break;
      case 2: TranslateCommand(offset() * 20, offset(), offset()); break;
      case 3: DeleteSelectedDataCommand(chance(50)); break;
      case 4:
        if (doc.layer_count > 3) {
          lists.layer_selected.assign(static_cast<size_t>(doc.layer_count), 0);
          for (int i = 0; i < 3; ++i) lists.layer_selected[static_cast<size_t>(1 + any(doc.layer_count - 1))] = 1;
          DeleteSelectedLayersCommand();
        }
        break;
      case 5:
        if (const int32_t r = random_move(); r > 0) InsertPointsCommand(r, 1 + any(5), offset() + 50, offset() + 50);
        break;
      case 6:
        for (int32_t r = 0; r < layer().g_count; ++r) {
          if (layer().g[static_cast<size_t>(r)].kind == line_kind::text) {
            ReplaceTextCommand(r, "; edited " + std::to_string(any(1000)));
            break;
          }
        }
        break;
      case 7:
        history.run("Edit Selected Data", [] { return set_marked_kind(line_kind::g0) > 0; });
        break;
      default:
        history.run("Move", [dx = offset(), de = offset() / 10] { return move_marked(dx, 0, de); });
        break;
    }
  }

  // Random edits, undos and redos, each position checked against the
  // dump and the view the model expects.
  void run(const std::string& file, unsigned seed) {
    rng.seed(seed);
    load_file(file);
    std::vector<Position> positions{{dump(), {}}};
    size_t at = 0;
    for (int round = 0; round < 12; ++round) {
      for (int i = 0; i < 5; ++i) {
        change_view();
        const ListView before = CaptureListView();
        const size_t steps = history.size();
        edit();
        if (history.size() == steps) continue;
        positions.resize(at + 1);
        positions[at].view = before;
        positions.push_back({dump(), {}});
        ++at;
        ASSERT_TRUE(doc.modified);
      }
      for (int k = any(static_cast<int32_t>(at) + 1); k > 0; --k) {
        history.undo();
        --at;
        ASSERT_EQ(difference(dump(), positions[at].dump), "") << file << " seed " << seed << " round " << round;
        ASSERT_TRUE(same_view(CaptureListView(), positions[at].view)) << file << " round " << round;
      }
      for (int k = any(static_cast<int32_t>(positions.size() - at)); k > 0; --k) {
        history.redo();
        ++at;
        ASSERT_EQ(difference(dump(), positions[at].dump), "") << file << " seed " << seed << " round " << round
                                                              << " redo";
      }
      ASSERT_EQ(doc.modified, at != 0);
    }
    ASSERT_EQ(debug_messages(), 0) << last_message();
  }

  // Moves the marked vertices of the current layer as one step.
  static void move_step(double dx) {
    history.run("Move", [dx] { return move_marked(dx, 0, 0); });
  }
};

TEST_F(UndoTest, RandomEditsUndoToTheEarlierDumpsAndRedoToTheLaterOnes) {
  for (const char* file : {"arc_cup.gcode", "prusa_zhop_rel.gcode", "slic3r_box.gcode", "cura_vase.gcode"}) {
    for (const unsigned seed : {1u, 2u}) ASSERT_NO_FATAL_FAILURE(run(file, seed));
  }
}

TEST_F(UndoTest, StepsAreNamedAndNothingHappensWithoutOne) {
  load(korvexed::testing::e_running_on());
  history.clear();
  const std::string loaded = dump();
  history.undo();
  history.redo();
  EXPECT_EQ(dump(), loaded);
  EXPECT_FALSE(history.can_undo());
  ShowSingleLayer(2);
  mark({2});
  ChangeFeedrateCommand(0, 1234);
  ASSERT_TRUE(history.can_undo());
  EXPECT_EQ(history.undo_name(), "Change Feedrate");
  history.undo();
  ASSERT_TRUE(history.can_redo());
  EXPECT_EQ(history.redo_name(), "Change Feedrate");
  // A new step ends what could be redone.
  move_step(1);
  EXPECT_FALSE(history.can_redo());
  EXPECT_EQ(history.undo_name(), "Move");
  // An edit that changes nothing is no step.
  ChangeFeedrateCommand(0, at(2, 2).f);
  EXPECT_EQ(history.size(), 1u);
  // A command in the middle of a drag ends the drag's step first.
  history.begin("Move", [] { return move_marked(1, 0, 0); });
  move_marked(1, 0, 0);
  ChangeFeedrateCommand(0, 999);
  EXPECT_FALSE(history.recording());
  ASSERT_EQ(history.size(), 3u);
  EXPECT_EQ(history.undo_name(), "Change Feedrate");
  for (int i = 0; i < 3; ++i) history.undo();
  EXPECT_EQ(dump(), loaded);
}

TEST_F(UndoTest, ModifiedIsClearOnlyWhereTheLastLoadOrSaveLeftTheDocument) {
  load(korvexed::testing::e_running_on());
  history.clear();
  ShowSingleLayer(1);
  mark({3});
  const struct {
    const char* what;
    void (*act)();
    bool modified;
  } rows[] = {
      {"a step", [] { move_step(1); }, true},
      {"its undo", [] { history.undo(); }, false},
      {"its redo", [] { history.redo(); }, true},
      {"a save", [] { history.saved(); }, false},
      {"a second step", [] { move_step(2); }, true},
      {"back to the save", [] { history.undo(); }, false},
      {"back to the load", [] { history.undo(); }, true},
      {"forward to the save", [] { history.redo(); }, false},
  };
  for (const auto& row : rows) {
    row.act();
    EXPECT_EQ(doc.modified, row.modified) << row.what;
  }
  // A failed load keeps a changed document changed, with no history.
  move_step(3);
  history.clear();
  EXPECT_TRUE(doc.modified);
  EXPECT_FALSE(history.can_undo());
}

TEST_F(UndoTest, TheOldestStepsGoPastAHundredOrPastTheDocumentsMemory) {
  // Twenty layers of a hundred moves: a hundred small moves weigh less.
  std::string gcode;
  for (int l = 1; l <= 20; ++l)
    for (int i = 0; i < 100; ++i)
      gcode += "G1 X" + std::to_string(i % 10) + " Y" + std::to_string(i / 10) + " Z" + std::to_string(l) + " E" +
               std::to_string(l * 100 + i) + "\n";
  load(gcode);
  history.clear();
  ShowSingleLayer(1);
  mark({2});
  for (size_t i = 0; i < History::max_steps + 5; ++i) move_step(i % 2 ? 1 : -1);
  EXPECT_EQ(history.size(), History::max_steps);
  EXPECT_LT(history.bytes(), DocumentBytes());
}

TEST(HistorySize, TooManyStepsOrMoreMemoryThanTheDocumentIsTooBig) {
  constexpr size_t mb = size_t{1} << 20;
  const struct {
    size_t steps, bytes, document_bytes;
    bool too_big;
  } rows[] = {
      {100, 0, 0, false},
      {101, 0, 0, true},
      {50, 300 * mb, 400 * mb, false},
      {50, 500 * mb, 400 * mb, true},
      {100, 10 * mb, 1 * mb, false},  // a small file keeps its hundred steps
      {100, 65 * mb, 1 * mb, true},
  };
  for (const auto& row : rows)
    EXPECT_EQ(HistoryTooBig(row.steps, row.bytes, row.document_bytes), row.too_big)
        << row.steps << " steps, " << row.bytes << " of " << row.document_bytes;
}

}  // namespace
