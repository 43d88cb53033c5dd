#pragma once
// Edit scripts run on a small file, judged by the G-code they save.
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "cli_gcode.h"
#include "cli_runner.h"

class CliEdit : public CliTest {
 protected:
  // Runs `script` on `gcode` and saves; the saved lines. The run must
  // succeed and the extrusion self-check stay silent.
  std::vector<std::string> SavedAfter(std::string_view script, std::string_view gcode = square_gcode) {
    last = Edit(gcode, std::string(script) + "\nsave out.gcode\n");
    EXPECT_EQ(last.status, 0) << last.err;
    EXPECT_EQ(last.err.find("d_delta is not tally"), std::string::npos) << last.err;
    return CrLfLines(Read("out.gcode"));
  }

  // The lines of square_saved, some of them (by position) replaced.
  static std::vector<std::string> SquareWith(const std::map<size_t, std::string>& changes) {
    std::vector<std::string> lines = CrLfLines(square_saved);
    for (const auto& [i, line] : changes) lines.at(i) = line;
    return lines;
  }

  CliResult last;
};
