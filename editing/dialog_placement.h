#pragma once
// What the editing dialogs share: their OK and Cancel buttons, and where
// they open (centred over the main window).
class QDialog;
class QDialogButtonBox;
class QWidget;

namespace korvexed {

// OK ("cmdOk", the default, so Enter presses it) and Cancel ("cmdCancel",
// which rejects, as Escape does). The caller connects `accepted`.
QDialogButtonBox* OkCancelButtons(QDialog* dialog);

// Shows `dialog` modally, centred over `main_window`; true on OK.
bool ExecCentred(QDialog& dialog, QWidget* main_window);

}  // namespace korvexed
