#include "document/gcode_line.h"

#include <algorithm>
#include <array>
#include <bit>

#include "document/korvexed_general.h"

namespace korvexed {

namespace {

bool is_blank(char c) { return c == ' ' || c == '\t'; }
bool is_capital(char c) { return c >= 'A' && c <= 'Z'; }
bool is_digit(char c) { return c >= '0' && c <= '9'; }

// A field's number runs up to the next blank, key letter, checksum or group.
bool ends_number(char c) { return is_blank(c) || is_capital(c) || c == '*' || c == '(' || c == ')'; }

constexpr uint8_t bit(int key) { return static_cast<uint8_t>(1u << key); }
constexpr uint8_t line_keys = 0x1f;  // X Y Z E F
constexpr uint8_t reset_keys = line_keys & ~bit(MoveFields::z);
constexpr uint8_t arc_keys = 0xff;  // and I J R

// The field bit of each key letter; 0 for every other character.
constexpr auto key_bits = [] {
  std::array<uint8_t, 256> bits{};
  bits['X'] = bit(MoveFields::x);
  bits['Y'] = bit(MoveFields::y);
  bits['Z'] = bit(MoveFields::z);
  bits['E'] = bit(MoveFields::e);
  bits['F'] = bit(MoveFields::f);
  bits['I'] = bit(MoveFields::i);
  bits['J'] = bit(MoveFields::j);
  bits['R'] = bit(MoveFields::r);
  return bits;
}();

// The line without its parenthesised groups, which are gathered into
// `groups`, each group's place left as a blank. False for a "(" that is
// never closed or a ")" that was never opened.
bool take_groups(std::string_view code, std::string& plain, std::string& groups) {
  for (size_t i = 0; i < code.size(); ++i) {
    if (code[i] == ')') return false;
    if (code[i] != '(') {
      plain += code[i];
      continue;
    }
    const size_t close = code.find(')', i);
    if (close == std::string_view::npos) return false;
    groups.append(code.substr(i, close - i + 1));
    plain += ' ';
    i = close;
  }
  return true;
}

// Reads the fields of `body`; false when it holds a word that is not one
// of `allowed` (or one given twice).
bool read_fields(std::string_view body, uint8_t allowed, MoveFields& fields, bool& unreadable) {
  for (size_t i = 0; i < body.size();) {
    if (is_blank(body[i])) {
      ++i;
      continue;
    }
    const uint8_t key_bit = key_bits[static_cast<unsigned char>(body[i])];
    if (!(allowed & key_bit) || (fields.given & key_bit)) return false;
    const int key = std::countr_zero(key_bit);
    ++i;
    while (i < body.size() && is_blank(body[i])) ++i;
    double value = 0;
    size_t end = 0;
    if (ReadPlainDecimal(body, i, value, end) && (end == body.size() || ends_number(body[end]))) {
      i = end;
    } else {
      end = i;
      while (end < body.size() && !ends_number(body[end])) ++end;
      if (!ReadNumber(body.substr(i, end - i), value)) unreadable = true;
      i = end;
    }
    fields.value[key] = value;
    fields.given |= key_bit;
  }
  return true;
}

}  // namespace

CommandWord ReadCommandWord(std::string_view line) {
  CommandWord word;
  // Most lines of a print begin "G1 ".
  if (line.size() > 3 && line[0] == 'G' && line[1] >= '0' && line[1] <= '3' && line[2] == ' ')
    return {'G', line[1] - '0', 2};
  size_t i = 0;
  while (i < line.size() && is_blank(line[i])) ++i;
  if (i == line.size() || !is_capital(line[i])) return word;
  word.letter = line[i++];
  const size_t digits = i;
  int number = 0;
  for (; i < line.size() && is_digit(line[i]); ++i) number = std::min(number * 10 + (line[i] - '0'), 1000000);
  word.end = i;
  const bool ends_word = i == line.size() || is_blank(line[i]) || is_capital(line[i]) || line[i] == '(';
  if (i > digits && ends_word) word.number = number;
  return word;
}

line_kind CoordinateCommand(const CommandWord& word) {
  if (word.letter != 'G') return line_kind::text;
  switch (word.number) {
    case 0: return line_kind::g0;
    case 1: return line_kind::g1;
    case 2: return line_kind::g2;
    case 3: return line_kind::g3;
    case 92: return line_kind::g92;
    default: return line_kind::text;
  }
}

ReadLine ReadMoveLine(const CommandWord& word, std::string_view code, std::string_view comment, std::string& scratch) {
  ReadLine line;
  const line_kind kind = CoordinateCommand(word);
  if (kind == line_kind::text) return line;
  const std::string_view body = code.substr(word.end);
  const uint8_t allowed = kind == line_kind::g92 ? reset_keys : is_arc(kind) ? arc_keys : line_keys;
  bool unreadable = false;
  line.comment = comment;
  if (!read_fields(body, allowed, line.fields, unreadable)) {
    // Parenthesised groups are rare: the line is read again without them.
    std::string plain;
    scratch.clear();
    if (body.find('(') == std::string_view::npos || !take_groups(body, plain, scratch)) return line;
    if (!comment.empty()) scratch.append(";").append(comment);
    line.comment = scratch;
    line.fields = MoveFields{};
    unreadable = false;
    if (!read_fields(plain, allowed, line.fields, unreadable)) return line;
  }
  // A G1 that states nothing is no move; a bare G92 is kept as a reset.
  if (line.fields.given == 0 && kind != line_kind::g92) return line;
  // Firmware disagree on which of R and I/J wins.
  if (line.fields.has(MoveFields::r) && (line.fields.has(MoveFields::i) || line.fields.has(MoveFields::j))) return line;
  line.read = unreadable ? LineRead::unreadable : LineRead::move;
  line.kind = kind;
  return line;
}

bool FindArcCentre(line_kind kind, PlanePoint start, MoveFields& fields) {
  const PlanePoint end{fields.has(MoveFields::x) ? fields.value[MoveFields::x] : start.x,
                       fields.has(MoveFields::y) ? fields.value[MoveFields::y] : start.y};
  double& i = fields.value[MoveFields::i];
  double& j = fields.value[MoveFields::j];
  if (fields.has(MoveFields::r))
    return CentreFromRadius(start, end, fields.value[MoveFields::r], kind == line_kind::g2, i, j);
  if (i == no_value) i = 0;
  if (j == no_value) j = 0;
  return i != 0 || j != 0;
}

bool KeepsPosition(std::string_view line, const CommandWord& word) {
  if (word.letter == 0) {
    const size_t first = line.find_first_not_of(" \t");
    return first == std::string_view::npos || line[first] == ';';
  }
  if (word.number < 0) return false;
  if (word.letter == 'G') return word.number == 4 || word.number == 21 || word.number == 90;
  if (word.letter != 'M') return false;
  // Stops, pauses and filament changes may move the head.
  static constexpr int moving[] = {0, 1, 25, 125, 600, 601, 701, 702};
  return std::find(std::begin(moving), std::end(moving), word.number) == std::end(moving);
}

}  // namespace korvexed
