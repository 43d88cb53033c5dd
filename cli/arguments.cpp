#include "cli/arguments.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "cli/numbers.h"
#include "cli/words.h"

namespace korvexed::cli {

namespace {

constexpr std::array<std::pair<std::string_view, Command>, 5> command_names{{
    {"info", Command::info},
    {"dump", Command::dump},
    {"convert", Command::convert},
    {"translate", Command::translate},
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
    const bool known = IsAnyOf(option, {"-o", "--tagged", "--rotate", "--dx", "--dy"});
    if (!known) throw UsageError("unknown option " + Quoted(option));
    throw UsageError(std::string(NameOf(args.command)) + " does not take option " + Quoted(option));
  }
  const bool is_flag = IsAnyOf(option, {"--accept-partial", "--decimal-comma", "--tagged"});
  if (is_flag && glued) throw UsageError("option " + Quoted(option) + " takes no value");

  if (option == "--accept-partial")
    args.accept_partial = true;
  else if (option == "--decimal-comma")
    args.decimal_comma = true;
  else if (option == "--tagged")
    args.tagged = true;
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
  if ((args.command == Command::convert || args.command == Command::translate) && args.out.empty()) {
    throw UsageError(std::string(NameOf(args.command)) + " needs -o OUT");
  }
  return args;
}

}  // namespace korvexed::cli
