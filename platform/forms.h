#pragma once
// The two editing dialogs as the logic fills and reads them: texts in,
// typed texts out. The window shows them as real dialogs; the tests answer
// them.
#include <array>
#include <string>

namespace korvexed {

// fmValueInput: up to three labelled values.
struct ValueForm {
  std::string title;
  std::array<std::string, 3> prompts;
  std::array<std::string, 3> texts;
  std::array<bool, 3> shown{};
};

// fmTextInput: one record, as coordinates or as its line of text.
struct RecordForm {
  enum Kind { none = -1, g0 = 0, g1 = 1 };  // the optGCode pair, by index

  std::string caption;
  bool coordinates = false;
  std::string text;                 // text mode
  std::string x, y, e, f, e_label;  // coordinate mode
  Kind kind = none;
};

}  // namespace korvexed
