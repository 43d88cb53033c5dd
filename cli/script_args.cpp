#include "cli/script_args.h"

#include <optional>
#include <string>

#include "cli/numbers.h"
#include "cli/words.h"

namespace korvexed::cli {

namespace {

int32_t Checked(std::string_view word, std::optional<int32_t> value, int32_t count, std::string_view what) {
  if (!value) throw ScriptError(Quoted(word) + " is not a " + std::string(what) + " index");
  if (*value >= count) {
    const std::string valid = count > 0 ? "0 to " + std::to_string(count - 1) : "none";
    throw ScriptError(std::string(what) + " " + std::to_string(*value) + " does not exist (valid: " + valid + ")");
  }
  return *value;
}

}  // namespace

void ScriptArgs::expect(size_t min, size_t max) const {
  if (size() >= min && size() <= max) return;
  const std::string wanted = min == max ? std::to_string(min) : std::to_string(min) + " to " + std::to_string(max);
  throw ScriptError(Quoted(command()) + " takes " + wanted + " argument" + (max == 1 ? "" : "s") + ", not " +
                    std::to_string(size()));
}

double ScriptArgs::number(size_t i) const {
  const std::optional<double> value = ParseNumber((*this)[i]);
  if (!value) throw ScriptError(Quoted((*this)[i]) + " is not a number");
  return *value;
}

int32_t ScriptArgs::index(size_t i, int32_t count, std::string_view what) const {
  return Checked((*this)[i], ParseIndex((*this)[i]), count, what);
}

std::vector<int32_t> ScriptArgs::indices(size_t first, int32_t count, std::string_view what) const {
  if (size() <= first) throw ScriptError(Quoted(command()) + " needs at least one " + std::string(what) + " index");
  std::vector<int32_t> result;
  for (size_t i = first; i < size(); ++i) {
    const std::string_view word = (*this)[i];
    const size_t dash = word.find('-');
    if (dash == std::string_view::npos) {
      result.push_back(Checked(word, ParseIndex(word), count, what));
      continue;
    }
    const int32_t from = Checked(word, ParseIndex(word.substr(0, dash)), count, what);
    const int32_t to = Checked(word, ParseIndex(word.substr(dash + 1)), count, what);
    if (from > to) throw ScriptError("range " + Quoted(word) + " runs backwards");
    for (int32_t k = from; k <= to; ++k) result.push_back(k);
  }
  return result;
}

}  // namespace korvexed::cli
