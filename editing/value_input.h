#pragma once
// fmValueInput: asks for up to three labelled numbers.
#include <array>
#include <string>

#include "document/document.h"

namespace korvexed {

struct ValueRow {
  std::string prompt;
  double value = no_value;  // no_value: the row is hidden and left alone
};

// On OK each shown row's text is read and clamped to the typed range; a
// text that is not a number leaves its value as it was. True on OK.
bool ValueInput(const std::string& title, std::array<ValueRow, 3>& rows);

}  // namespace korvexed
