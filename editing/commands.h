#pragma once
// The editing commands as the window runs them, minus the window: their
// checks, messages and the modified flag. Dialog values arrive already
// clamped by the dialog.
#include <cstdint>
#include <string>

namespace korvexed {

// Change Feedrate on the marked vertices; true when something changed.
bool ChangeFeedrateCommand(double old_f, double new_f);
// Translate All GCode; false (after "No translation is needed") when all
// three values are negligible.
bool TranslateCommand(double rotation, double ox, double oy);
// Delete Selected Data: marked vertices, then (when `rows_allowed`) the
// selected G92 and text rows.
bool DeleteSelectedDataCommand(bool rows_allowed);
// Delete Selected Layers; afterwards no layer is current.
bool DeleteSelectedLayersCommand();
// Insert Point(s) before move r: one point at (x, y) for count 1, else
// count points spread evenly.
void InsertPointsCommand(int32_t r, int32_t count, double x, double y);
// The text editing dialog's OK: replaces text record r of the current layer
// when `text` differs from it; true when it did.
bool ReplaceTextCommand(int32_t r, const std::string& text);

}  // namespace korvexed
