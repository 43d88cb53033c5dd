#pragma once
// Where the editing dialogs open: centred over the main window.
class QDialog;
class QWidget;

namespace korvexed {

// Shows `dialog` modally, centred over `main_window`; true on OK.
bool ExecCentred(QDialog& dialog, QWidget* main_window);

}  // namespace korvexed
