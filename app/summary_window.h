#pragma once
// A plain editor window: the File menu and a summary of the loaded
// document (its counts, printed extent and layers).
#include <QMainWindow>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/qt_platform.h"

class QLabel;

namespace korvexed {

class LayerTableModel;

class SummaryWindow : public QMainWindow {
  Q_OBJECT

 public:
  SummaryWindow();
  ~SummaryWindow() override;

  // Shows the window and loads the file that the command-line arguments
  // (program name excluded) name, if any.
  void OpenCommandLine(const std::vector<std::string>& arguments);
  void LoadCommand(const std::string& path);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void OpenFile();
  // 1 Save, 2 Save As, 3 tagged export.
  void SaveFileFunc(uint8_t code);
  std::string AskNewSaveFileName();
  // True when the caller may go on (the changes are saved or dropped).
  bool AskSaveChanges();
  void SetCaption();
  void ShowDocument();

  QtPlatform platform_;
  Platform* previous_platform_;
  QLabel* summary_;
  LayerTableModel* layers_;
};

}  // namespace korvexed
