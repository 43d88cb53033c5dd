#include "editing/text_input.h"

#include "editing/commands.h"
#include "editing/history.h"
#include "editing/korvexed_data.h"
#include "editing/list_state.h"
#include "editing/typed_number.h"
#include "platform/platform.h"

namespace korvexed {

namespace {

RecordForm::Kind option_of(line_kind kind) {
  if (kind == line_kind::g0) return RecordForm::g0;
  if (kind == line_kind::g1) return RecordForm::g1;
  return RecordForm::none;
}

// The typed value clamped, or `unchanged` when the text is not a number.
double typed_or(const std::string& text, double unchanged) {
  const auto typed = ParseTypedNumber(text);
  return typed ? ClampTyped(*typed, -max_typed_value, max_typed_value) : unchanged;
}

// A G92 line that does not name a field shows it empty.
std::string field_text(double value) { return value == no_value ? std::string() : TypedNumberText(value); }

// A zero-length move (and a G92 line) shows its extrusion; any other move
// its extrusion per squared millimetre, which is multiplied back by the
// same figure, so an unchanged entry gives back the same extrusion.
bool per_mm(const coor_data& c) { return !c.no_extrude && c.d_delta > 0; }
double shown_e(const coor_data& c) { return per_mm(c) ? c.e_delta / c.d_delta : c.e_delta; }

RecordForm coordinate_form(const coor_data& c, line_kind kind) {
  RecordForm form;
  form.caption = "GCode Coordinate Editing...";
  form.coordinates = true;
  form.x = field_text(c.x);
  form.y = field_text(c.y);
  form.f = field_text(c.f);
  form.kind = option_of(kind);
  form.e_label = per_mm(c) ? "dE/mm:" : "dE:";
  form.e = TypedNumberText(shown_e(c));
  return form;
}

// X and Y shift every marked vertex; the extrusion, the feedrate and the
// kind reach them only when the user changed that field from what `shown`
// offered, so the other vertices keep their own.
bool apply_coordinates(const RecordForm& form, const RecordForm& shown, const coor_data& c) {
  const double dx = c.x == no_value ? 0 : typed_or(form.x, c.x) - c.x;
  const double dy = c.y == no_value ? 0 : typed_or(form.y, c.y) - c.y;
  double de = 0;
  if (form.e != shown.e) {
    const double entry = typed_or(form.e, shown_e(c));
    de = per_mm(c) ? entry * c.d_delta - c.e_delta : entry - c.e_delta;
  }
  bool modified = move_marked(dx, dy, de);
  if (form.f != shown.f) {
    if (const auto f = ParseTypedNumber(form.f))
      modified |= change_feedrate(0, ClampTyped(*f, 1, max_typed_value)) > 0;
  }
  if (form.kind != shown.kind && form.kind != RecordForm::none)
    modified |= set_marked_kind(form.kind == RecordForm::g0 ? line_kind::g0 : line_kind::g1) > 0;
  return modified;
}

}  // namespace

bool TextInput(int32_t r) {
  const g_entry entry = doc.layer(doc.current_layer).g[static_cast<size_t>(r)];
  if (entry.kind == line_kind::text) {
    RecordForm form;
    form.caption = "GCode Text Editing...";
    form.text = std::string(std::string_view(doc.text_list[entry.index]));
    if (!platform().ask_record(form) || !ReplaceTextCommand(r, form.text)) return false;
    // The status names the line that was edited, as it reads now.
    ShowStatus("Data " + std::to_string(r), 3);
    ShowStatus(DataLineText(r), 1);
    return true;
  }
  const coor_data c = doc.coor(entry);  // a copy: the edit moves the record
  const RecordForm shown = coordinate_form(c, entry.kind);
  RecordForm form = shown;
  if (!platform().ask_record(form)) return false;
  return history.run("Edit Selected Data", [=] {
    if (!apply_coordinates(form, shown, c)) return false;
    doc.modified = true;
    RefreshListsAfterEdit();
    return true;
  });
}

}  // namespace korvexed
