#include "cli/arguments.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "cli/numbers.h"
#include "cli/words.h"

namespace korvexed::cli {

namespace {

constexpr std::array<std::pair<std::string_view, Command>, 6> command_names{{
    {"info", Command::info},
    {"dump", Command::dump},
    {"convert", Command::convert},
    {"translate", Command::translate},
    {"render", Command::render},
    {"edit", Command::edit},
}};

bool IsAnyOf(std::string_view word, std::initializer_list<std::string_view> names) {
  return KeywordIndex(word, names) >= 0;
}

// Whether `option` belongs to `command`; the options every command takes
// are not listed here.
bool CommandTakes(Command command, std::string_view option) {
  if (option == "-o") return command != Command::info && command != Command::edit;
  if (option == "--tagged") return command == Command::convert;
  if (command == Command::render) return IsAnyOf(option, {"--layer", "--with", "--size", "--no-travel", "--no-arrows"});
  return command == Command::translate && IsAnyOf(option, {"--rotate", "--dx", "--dy"});
}

class Reader {
 public:
  explicit Reader(const std::vector<std::string_view>& words) : words_(words) {}

  bool done() const { return next_ == words_.size(); }
  std::string_view take() { return words_[next_++]; }

  // The value of an option: glued on with "=", or the next word.
  std::string_view value_of(std::string_view option, std::optional<std::string_view> glued) {
    const std::string_view value = glued ? *glued : done() ? std::string_view() : take();
    if (value.empty()) throw UsageError("option " + Quoted(option) + " needs a value");
    return value;
  }

 private:
  const std::vector<std::string_view>& words_;
  size_t next_ = 0;
};

double NumberOption(std::string_view option, std::string_view text) {
  const std::optional<double> value = ParseNumber(text);
  if (!value) throw UsageError("option " + Quoted(option) + ": " + Quoted(text) + " is not a number");
  return *value;
}

std::string_view NameOf(Command command) {
  for (const auto& [name, c] : command_names) {
    if (c == command) return name;
  }
  return {};
}

int32_t IndexOption(std::string_view option, std::string_view text) {
  const std::optional<int32_t> value = ParseIndex(text);
  if (!value) throw UsageError("option " + Quoted(option) + ": " + Quoted(text) + " is not a layer index");
  return *value;
}

// "0,3-5": indices and ranges, comma-separated.
std::vector<std::pair<int32_t, int32_t>> LayerRanges(std::string_view option, std::string_view text) {
  std::vector<std::pair<int32_t, int32_t>> ranges;
  for (size_t begin = 0; begin <= text.size();) {
    const size_t end = std::min(text.find(',', begin), text.size());
    const std::string_view item = text.substr(begin, end - begin);
    const size_t dash = item.find('-');
    const int32_t first = IndexOption(option, item.substr(0, dash));
    const int32_t last = dash == std::string_view::npos ? first : IndexOption(option, item.substr(dash + 1));
    if (last < first) throw UsageError("option " + Quoted(option) + ": the range " + Quoted(item) + " runs backwards");
    ranges.emplace_back(first, last);
    begin = end + 1;
  }
  return ranges;
}

// Picture sizes that can be allocated and encoded.
constexpr int32_t max_picture_side = 16384;

void PictureSize(Arguments& args, std::string_view option, std::string_view text) {
  const size_t x = text.find('x');
  const std::optional<int32_t> width = ParseIndex(text.substr(0, x));
  const std::optional<int32_t> height = x == std::string_view::npos ? std::nullopt : ParseIndex(text.substr(x + 1));
  if (!width || !height || *width < 1 || *height < 1 || *width > max_picture_side || *height > max_picture_side) {
    throw UsageError("option " + Quoted(option) + ": " + Quoted(text) + " is not WIDTHxHEIGHT with sides from 1 to " +
                     std::to_string(max_picture_side));
  }
  args.width = *width;
  args.height = *height;
}

Command CommandNamed(std::string_view word) {
  for (const auto& [name, command] : command_names) {
    if (name == word) return command;
  }
  throw UsageError("unknown command " + Quoted(word));
}

void Option(Arguments& args, std::string_view word, Reader& reader) {
  std::string_view option = word;
  std::optional<std::string_view> glued;
  if (const size_t equals = word.find('='); word.starts_with("--") && equals != std::string_view::npos) {
    option = word.substr(0, equals);
    glued = word.substr(equals + 1);
  }
  const bool for_all = IsAnyOf(option, {"--accept-partial", "--decimal-comma"});
  if (!for_all && !CommandTakes(args.command, option)) {
    const bool known = IsAnyOf(option, {"-o", "--tagged", "--rotate", "--dx", "--dy", "--layer", "--with", "--size",
                                        "--no-travel", "--no-arrows"});
    if (!known) throw UsageError("unknown option " + Quoted(option));
    throw UsageError(std::string(NameOf(args.command)) + " does not take option " + Quoted(option));
  }
  const bool is_flag =
      IsAnyOf(option, {"--accept-partial", "--decimal-comma", "--tagged", "--no-travel", "--no-arrows"});
  if (is_flag && glued) throw UsageError("option " + Quoted(option) + " takes no value");

  if (option == "--accept-partial")
    args.accept_partial = true;
  else if (option == "--decimal-comma")
    args.decimal_comma = true;
  else if (option == "--tagged")
    args.tagged = true;
  else if (option == "--no-travel")
    args.travel = false;
  else if (option == "--no-arrows")
    args.arrows = false;
  else if (option == "--layer")
    args.layer = IndexOption(option, reader.value_of(option, glued));
  else if (option == "--with")
    args.with = LayerRanges(option, reader.value_of(option, glued));
  else if (option == "--size")
    PictureSize(args, option, reader.value_of(option, glued));
  else if (option == "-o")
    args.out = reader.value_of(option, glued);
  else if (option == "--rotate")
    args.rotate = NumberOption(option, reader.value_of(option, glued));
  else if (option == "--dx")
    args.dx = NumberOption(option, reader.value_of(option, glued));
  else
    args.dy = NumberOption(option, reader.value_of(option, glued));
}

}  // namespace

Arguments ParseArguments(const std::vector<std::string_view>& words) {
  Arguments args;
  if (std::find_if(words.begin(), words.end(), [](std::string_view w) {
        return IsAnyOf(w, {"-h", "--help"});
      }) != words.end()) {
    return args;
  }
  if (std::find(words.begin(), words.end(), "--version") != words.end()) {
    args.command = Command::version;
    return args;
  }
  if (words.empty()) throw UsageError("no command given");

  Reader reader(words);
  args.command = CommandNamed(reader.take());
  std::vector<std::string_view> positional;
  while (!reader.done()) {
    const std::string_view word = reader.take();
    if (word.size() > 1 && word[0] == '-') {
      Option(args, word, reader);
    } else {
      positional.push_back(word);
    }
  }

  const size_t wanted = args.command == Command::edit ? 2 : 1;
  if (positional.size() < wanted) {
    throw UsageError(std::string(NameOf(args.command)) + (wanted == 2 ? " needs FILE and SCRIPT" : " needs FILE"));
  }
  if (positional.size() > wanted) throw UsageError("unexpected argument " + Quoted(positional[wanted]));
  args.file = positional[0];
  if (args.command == Command::edit) args.script = positional[1];
  const bool needs_out =
      args.command == Command::convert || args.command == Command::translate || args.command == Command::render;
  if (needs_out && args.out.empty()) {
    throw UsageError(std::string(NameOf(args.command)) + " needs -o OUT");
  }
  return args;
}

}  // namespace korvexed::cli
