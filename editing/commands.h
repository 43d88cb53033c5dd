#pragma once
// The editing commands as the window runs them, minus the window: their
// checks, messages and the modified flag. Dialog values arrive already
// clamped by the dialog.
#include <cstdint>
#include <string>

namespace korvexed {

// Change Feedrate on the marked vertices; true when something changed.
bool ChangeFeedrateCommand(double old_f, double new_f);
// Scale Extrusion Rate of the marked vertices by `percent`; true when it
// changed something.
bool ScaleExtrusionCommand(double percent);
// Translate All GCode; false (after "No translation is needed") when all
// three values are negligible.
bool TranslateCommand(double rotation, double ox, double oy);
// Delete Selected Data: marked vertices, then (when `rows_allowed`) the
// selected G92 and text rows.
bool DeleteSelectedDataCommand(bool rows_allowed);
// Copy and Cut put the G-code of what Delete Selected Data would act on
// on the clipboard (Cut then deletes it, as one step); Paste inserts the
// clipboard's lines before record r of the current layer. True when the
// document or the clipboard changed.
bool CopySelectedDataCommand(bool rows_allowed);
bool CutSelectedDataCommand(bool rows_allowed);
bool PasteGCodeCommand(int32_t r);
// Delete Selected Layers; afterwards the layer in the place of the first
// deleted one (else the last) is current and alone on view.
bool DeleteSelectedLayersCommand();
// Insert Point(s) before move r: one point at (x, y) for count 1, else
// count points spread evenly.
void InsertPointsCommand(int32_t r, int32_t count, double x, double y);
// The text editing dialog's OK: replaces text record r of the current layer
// when `text` differs from it; true when it did.
bool ReplaceTextCommand(int32_t r, const std::string& text);

// The same commands as the window runs them, through their dialogs. Each
// is true when it changed the document; the caller then redraws.

// The Change Feedrate dialog opens with the values typed last time.
struct FeedrateMemory {
  double old_f = 0;
  double new_f = 0;
};
bool ChangeFeedrateDialog(FeedrateMemory& memory);
// The three values start at 0 each time; after Cancel they stay 0.
bool TranslateDialog();
// Asks for the scale in percent (100 at first), within 0 ... 1000.
bool ScaleExtrusionDialog();
// Edits the first selected line of the selection list, or, when that list
// is empty, the caret row of the data list.
bool EditSelectedDataDialog();

}  // namespace korvexed
