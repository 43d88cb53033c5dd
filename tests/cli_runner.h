#pragma once
// Runs the built korvexed-cli in a scratch directory of its own, which is
// its working directory: scripts and arguments name files there.
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

struct CliResult {
  int status = -1;  // exit status, -1 when the program did not exit normally
  std::string out, err;
  bool operator==(const CliResult&) const = default;
};
void PrintTo(const CliResult& result, std::ostream* os);

class CliTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  std::string Path(std::string_view name) const;
  // Writes a file into the scratch directory and returns its path.
  std::string Write(std::string_view name, std::string_view content) const;
  std::string Read(std::string_view name) const;
  bool Exists(std::string_view name) const;

  // korvexed-cli with these arguments, `input` on its standard input.
  CliResult Run(const std::vector<std::string>& args, std::string_view input = "") const;
  // `edit` of in.gcode, written from `gcode`, with this script.
  CliResult Edit(std::string_view gcode, std::string_view script) const;

 private:
  std::string dir_;
};

// The lines of text written with CR LF line ends; a line end of any other
// form fails the test.
std::vector<std::string> CrLfLines(std::string_view text);
