#include "tests/printer_motion.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <sstream>
#include <utility>

namespace korvexed::test {
namespace {

constexpr double kSame = 1e-12;
constexpr char kAxes[] = "XYZE";
using Position = std::array<double, 4>;  // X, Y, Z, E

bool IsBlank(char c) { return c == ' ' || c == '\t'; }
bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool Near(double a, double b, double tolerance) {
  return (std::isnan(a) && std::isnan(b)) || std::abs(a - b) <= tolerance;
}

// The line without what the firmware skips: a `;` comment, `( ... )` groups
// (an unclosed one runs to the end) and a `*` checksum.
std::string StripComments(std::string_view line) {
  std::string code;
  bool in_group = false;
  for (char c : line) {
    if (in_group) {
      in_group = c != ')';
      if (!in_group) code += ' ';
    } else if (c == '(') {
      in_group = true;
    } else if (c == ';' || c == '*') {
      break;
    } else {
      code += c;
    }
  }
  return code;
}

// Takes a number (sign, digits, one point) from the front of `text`; nullopt
// when there is none or it runs on into anything but a blank or a letter.
std::optional<double> TakeNumber(std::string_view& text) {
  size_t end = text.front() == '-' || text.front() == '+' ? 1 : 0;
  size_t digits = 0;
  bool point = false;
  for (; end < text.size(); ++end) {
    if (IsDigit(text[end])) {
      ++digits;
    } else if (text[end] == '.' && !point) {
      point = true;
    } else {
      break;
    }
  }
  if (digits == 0 || (end < text.size() && !IsBlank(text[end]) && !IsLetter(text[end]))) return std::nullopt;
  double value = 0;
  std::from_chars(text.data() + (text.front() == '+'), text.data() + end, value);
  text.remove_prefix(end);
  return value;
}

// A line's command word and its capital-letter fields; a field without a
// number holds NaN (G28 X names X; G1 X moves nothing).
struct Command {
  char letter = 0;
  double number = NAN;
  std::array<std::optional<double>, 26> fields;

  bool Has(char field) const { return fields[field - 'A'].has_value(); }
  double Value(char field, double otherwise = NAN) const {
    const auto& value = fields[field - 'A'];
    return value && !std::isnan(*value) ? *value : otherwise;
  }
};

// nullopt when a word's number cannot be read: firmware rejects such a line.
// A leading `N` line number is skipped; the first other word is the command.
std::optional<Command> Parse(std::string_view line) {
  const std::string code = StripComments(line);
  std::string_view rest = code;
  Command command;
  while (true) {
    while (!rest.empty() && IsBlank(rest.front())) rest.remove_prefix(1);
    if (rest.empty()) return command;
    const char letter = rest.front();
    if (!IsLetter(letter)) return std::nullopt;
    rest.remove_prefix(1);
    std::optional<double> value = NAN;
    if (!rest.empty() && !IsBlank(rest.front()) && !IsLetter(rest.front())) {
      value = TakeNumber(rest);
      if (!value) return std::nullopt;
    }
    if (command.letter == 0 && letter != 'N') {
      command.letter = letter;
      command.number = *value;
    } else if (letter >= 'A' && letter <= 'Z') {
      command.fields[letter - 'A'] = value;
    }
  }
}

// An arc's centre: the start plus (I, J), or from the radius R, on the side
// of the chord that makes the arc at most half a turn for R > 0 and the
// longer one for R < 0. nullopt when there is none (the firmware refuses
// the arc and stays where it is).
std::optional<std::pair<double, double>> ArcCentre(const Command& command, const Position& from,
                                                   const Position& to, bool clockwise) {
  const double r = command.Value('R');
  if (std::isnan(r)) {
    const double i = command.Value('I', 0), j = command.Value('J', 0);
    if (i == 0 && j == 0) return std::nullopt;
    return std::pair{from[0] + i, from[1] + j};
  }
  const double dx = to[0] - from[0], dy = to[1] - from[1];
  const double chord = std::hypot(dx, dy);
  if (r == 0 || chord <= kSame) return std::nullopt;
  // From the chord's middle, perpendicular to it; longer than 2|R|: the middle.
  const double offset = std::sqrt(std::max(0.0, r * r - chord * chord / 4)) / chord;
  const double left = clockwise == (r < 0) ? offset : -offset;
  return std::pair{(from[0] + to[0]) / 2 - left * dy, (from[1] + to[1]) / 2 + left * dx};
}

class Printer {
 public:
  void Run(const Command& command, int line, std::vector<PrinterMove>& moves) {
    const double n = command.number;
    if (command.letter == 'M' && (n == 82 || n == 83)) {
      relative_e_ = m83_ = n == 83;
    } else if (command.letter != 'G') {
      return;
    } else if (n == 0 || n == 1 || n == 2 || n == 3) {
      Move(command, line, static_cast<char>('0' + n), moves);
    } else if (n == 28) {
      Home(command, line, moves);
    } else if (n == 90 || n == 91) {
      relative_ = n == 91;
      relative_e_ = relative_ || m83_;
    } else if (n == 92) {
      SetPosition(command);
    }
  }

 private:
  void Move(const Command& command, int line, char kind, std::vector<PrinterMove>& moves) {
    Position target = position_;
    bool changes = false;
    for (int axis = 0; axis < 4; ++axis) {
      const double value = command.Value(kAxes[axis]);
      if (std::isnan(value)) continue;
      const bool relative = axis == 3 ? relative_e_ : relative_;
      target[axis] = relative ? position_[axis] + value : value;
      // A relative step moves the axis even where its position is not known.
      changes |= relative ? std::abs(value) > kSame : !Near(position_[axis], value, kSame);
    }
    std::pair<double, double> centre{NAN, NAN};
    if (kind == '2' || kind == '3') {
      const auto arc_centre = ArcCentre(command, position_, target, kind == '2');
      if (!arc_centre) return;
      centre = *arc_centre;
      changes = true;  // even a full circle goes round
    }
    if (changes) {
      moves.push_back({line, target[0], target[1], target[2], target[3] - position_[3], kind, centre.first,
                       centre.second});
    }
    position_ = target;
  }

  void Home(const Command& command, int line, std::vector<PrinterMove>& moves) {
    const bool all = !command.Has('X') && !command.Has('Y') && !command.Has('Z');
    Position target = position_;
    bool changes = false;
    for (int axis = 0; axis < 3; ++axis) {
      if (!all && !command.Has(kAxes[axis])) continue;
      target[axis] = 0;
      changes |= !Near(position_[axis], 0, kSame);
    }
    if (changes) moves.push_back({line, target[0], target[1], target[2], 0, '0'});
    position_ = target;
  }

  void SetPosition(const Command& command) {
    const bool bare = std::none_of(kAxes, kAxes + 4, [&](char axis) { return command.Has(axis); });
    for (int axis = 0; axis < 4; ++axis) {
      position_[axis] = bare ? 0 : command.Value(kAxes[axis], position_[axis]);
    }
  }

  Position position_{NAN, NAN, NAN, 0};
  bool relative_ = false;    // G91: X, Y, Z and E
  bool relative_e_ = false;  // E alone, after G91 or M83
  bool m83_ = false;         // the last of M82 and M83, which E follows again after G90
};

std::string Describe(const PrinterMove* move) {
  if (!move) return "no move";
  std::ostringstream out;
  out.precision(10);
  out << "line " << move->line << " G" << move->kind << " X" << move->x << " Y" << move->y << " Z" << move->z
      << " filament " << move->e_change;
  if (move->kind == '2' || move->kind == '3') out << " centre " << move->cx << "," << move->cy;
  return out.str();
}

bool SameMove(const PrinterMove& a, const PrinterMove& b, double tolerance) {
  return a.kind == b.kind && Near(a.x, b.x, tolerance) && Near(a.y, b.y, tolerance) &&
         Near(a.z, b.z, tolerance) && Near(a.e_change, b.e_change, tolerance) &&
         Near(a.cx, b.cx, tolerance) && Near(a.cy, b.cy, tolerance);
}

}  // namespace

std::vector<PrinterMove> RunPrinter(std::string_view gcode) {
  std::vector<PrinterMove> moves;
  Printer printer;
  for (int line = 1; !gcode.empty(); ++line) {
    const size_t end = std::min(gcode.find_first_of("\r\n"), gcode.size());
    if (const auto command = Parse(gcode.substr(0, end))) printer.Run(*command, line, moves);
    const size_t line_end = gcode.substr(end, 2) == "\r\n" ? 2 : 1;
    gcode.remove_prefix(std::min(end + line_end, gcode.size()));
  }
  return moves;
}

std::string CompareMotion(const std::vector<PrinterMove>& a, const std::vector<PrinterMove>& b,
                          double tolerance) {
  for (size_t i = 0; i < std::max(a.size(), b.size()); ++i) {
    const PrinterMove* from_a = i < a.size() ? &a[i] : nullptr;
    const PrinterMove* from_b = i < b.size() ? &b[i] : nullptr;
    if (from_a && from_b && SameMove(*from_a, *from_b, tolerance)) continue;
    return "moves[" + std::to_string(i) + "]: " + Describe(from_a) + " vs " + Describe(from_b);
  }
  return "";
}

}  // namespace korvexed::test
