// Undo and redo in edit scripts over random edits of real prints: each
// undo's dump is the one a step before, each redo's the one a step after,
// and either does nothing when there is no step to take.
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "cli_runner.h"

namespace {

std::string ReadData(const std::string& name) {
  std::ifstream in(std::string(KORVEXED_TEST_DATA) + "/" + name, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

enum class Kind { edit, undo, redo };

// A script of random edits, undos and redos, each followed by a dump
// d1, d2, ... (d0 is the document as loaded).
struct RandomScript {
  std::string text = "dump d0\n";
  std::vector<Kind> kinds;

  explicit RandomScript(unsigned seed) {
    std::mt19937 rng(seed);
    auto any = [&rng](int n) { return std::uniform_int_distribution<int>(0, n - 1)(rng); };
    auto number = [&rng](double from, double to) { return std::to_string(std::uniform_real_distribution<double>(from, to)(rng)); };
    int deleted_layers = 0;
    for (int i = 0; i < 40; ++i) {
      const int pick = any(10);
      if (pick < 2) {
        add(Kind::undo, "undo");
      } else if (pick < 3) {
        add(Kind::redo, "redo");
      } else {
        // A layer that every test print keeps, and the vertices in a random
        // part of the bed.
        text += "layer " + std::to_string(1 + any(3)) + "\nrect " + number(0, 120) + " " + number(0, 120) + " " +
                number(100, 250) + " " + number(100, 250) + "\n";
        switch (pick) {
          case 3: add(Kind::edit, "move " + number(-2, 2) + " " + number(-2, 2)); break;
          case 4: add(Kind::edit, "move " + number(-2, 2) + " 0 " + number(-0.1, 0.1)); break;
          case 5: add(Kind::edit, "delete-vertices"); break;
          case 6: add(Kind::edit, "feedrate 0 " + std::to_string(600 + any(3000))); break;
          case 7: add(Kind::edit, "kind G0"); break;
          case 8: add(Kind::edit, "translate " + number(-90, 90) + " " + number(-5, 5) + " " + number(-5, 5)); break;
          default:
            if (deleted_layers++ < 2) add(Kind::edit, "delete-layers " + std::to_string(1 + any(3)));
            else add(Kind::edit, "move 1 1");
            break;
        }
      }
    }
  }

  void add(Kind kind, const std::string& line) {
    kinds.push_back(kind);
    text += line + "\ndump d" + std::to_string(kinds.size()) + "\n";
  }
};

using CliUndo = CliTest;

TEST_F(CliUndo, UndoGoesBackAStepAndRedoForwardThroughRandomEdits) {
  for (const char* file : {"arc_cup.gcode", "prusa_zhop_rel.gcode", "slic3r_box.gcode"}) {
    for (const unsigned seed : {1u, 2u, 3u}) {
      const RandomScript script(seed);
      const CliResult result = Edit(ReadData(file), script.text);
      ASSERT_EQ(result.status, 0) << file << ": " << result.err;
      // The dumps a step apart; an edit that changed nothing made no step.
      std::vector<std::string> steps{Read("d0")};
      size_t at = 0;
      for (size_t i = 0; i < script.kinds.size(); ++i) {
        const std::string dump = Read("d" + std::to_string(i + 1));
        switch (script.kinds[i]) {
          case Kind::edit:
            if (dump == steps[at]) continue;
            steps.resize(at + 1);
            steps.push_back(dump);
            ++at;
            continue;
          case Kind::undo: at -= at > 0; break;
          case Kind::redo: at += at + 1 < steps.size(); break;
        }
        ASSERT_TRUE(dump == steps[at]) << file << " seed " << seed << " command " << i;
      }
    }
  }
}

}  // namespace
