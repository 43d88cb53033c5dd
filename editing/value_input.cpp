#include "editing/value_input.h"

#include "editing/typed_number.h"
#include "platform/platform.h"

namespace korvexed {

bool ValueInput(const std::string& title, std::array<ValueRow, 3>& rows) {
  ValueForm form;
  form.title = title;
  for (size_t i = 0; i < rows.size(); ++i) {
    if (rows[i].value == no_value) continue;
    form.shown[i] = true;
    form.prompts[i] = rows[i].prompt;
    form.texts[i] = TypedNumberText(rows[i].value);
  }
  if (!platform().ask_values(form)) return false;
  for (size_t i = 0; i < rows.size(); ++i) {
    if (!form.shown[i]) continue;
    if (const auto typed = ParseTypedNumber(form.texts[i]))
      rows[i].value = ClampTyped(*typed, -max_typed_value, max_typed_value);
  }
  return true;
}

}  // namespace korvexed
