#pragma once
// A plain editor window: the File, View and Setting menus, a summary of
// the loaded document (its counts, printed extent and layers) and the
// drawing area beside them.
#include <QMainWindow>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/qt_platform.h"

class QKeySequence;
class QLabel;
class QMenu;

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
  // Adds a check-mark setting to `menu`, on from start-up.
  void AddSetting(QMenu* menu, const QString& text, const QKeySequence& key, bool& setting);

  QtPlatform platform_;
  Platform* previous_platform_;
  QLabel* summary_;
  LayerTableModel* layers_;
};

}  // namespace korvexed
