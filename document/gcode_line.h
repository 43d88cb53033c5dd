#pragma once
// Reading one G-code line as a printer reads it: its command word, and for
// the moves and position resets the editor models, their fields.
#include <cstdint>
#include <string>
#include <string_view>

#include "document/document.h"

namespace korvexed {

// The command word at the start of a line (after blanks): a capital
// letter and its digits, compared by number. A "." behind the digits makes
// it another command (G1.5, G90.1), as does anything but a blank or a
// field right behind it.
struct CommandWord {
  char letter = 0;   // 0: the line has no command word
  int number = -1;   // -1: another command
  size_t end = 0;    // where the fields begin

  bool is(char l, int n) const { return letter == l && number == n; }
};
CommandWord ReadCommandWord(std::string_view line);

// The fields of a G0/G1, arc or G92 line. I and J are an arc's centre
// offset from its start, R its radius.
struct MoveFields {
  enum Key : uint8_t { x, y, z, e, f, i, j, r };
  double value[8] = {no_value, no_value, no_value, no_value, no_value, no_value, no_value, no_value};
  uint8_t given = 0;  // bit 1 << key for each field the line states

  bool has(Key key) const { return given & (1u << key); }
};

enum class LineRead : uint8_t {
  text,        // a line the editor keeps as it is
  move,        // g0, g1 or g92 with its fields
  unreadable,  // a move or reset whose field is not a number: kept as text
};

// What a line without its ";" comment holds. `code` is the line's part
// before its first ";", `comment` what follows it. For a move, the
// parenthesised groups of the line, in order, then the ";" comment form
// the record's comment; `scratch` holds it when groups were joined.
struct ReadLine {
  LineRead read = LineRead::text;
  line_kind kind = line_kind::text;
  MoveFields fields;
  std::string_view comment;
};
ReadLine ReadMoveLine(const CommandWord& word, std::string_view code, std::string_view comment, std::string& scratch);

// Puts the centre of an arc line that starts at `start` into its I and J,
// from R where it gives one; false for an arc without a centre.
bool FindArcCentre(line_kind kind, PlanePoint start, MoveFields& fields);

// The command of a G0/G1, G2/G3 or G92 word, or text.
line_kind CoordinateCommand(const CommandWord& word);

// Whether a text line, with its command word, leaves the printer's
// position as it was: blank and comment lines, dwell, units, absolute
// positioning, extrusion modes and the M-codes that move nothing.
bool KeepsPosition(std::string_view line, const CommandWord& word);

}  // namespace korvexed
