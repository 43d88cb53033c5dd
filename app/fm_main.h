#pragma once
// The editor's one window: the toolbar, the collapsible side panel with the
// layer, data and selection lists, the drawing area between its rulers, the
// two sliders, the menus and the status bar. Every control carries its
// program name as its object name ("picDraw", "lstLayer", "poFile_1", ...).
#include <QKeySequence>
#include <QMainWindow>
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/recent_files.h"
#include "editing/commands.h"
#include "platform/qt_platform.h"

class QAction;
class QLabel;
class QMenu;
class QPushButton;
class QSlider;

namespace korvexed {

class CoolButton;
class CoolTab;
class Container;
class DrawArea;
class Line;
class ListBox;
class RulerBar;
class ShrinkWnd;

class FmMain : public QMainWindow {
  Q_OBJECT

 public:
  // `arguments`: the command line without the program name.
  explicit FmMain(const std::vector<std::string>& arguments);
  ~FmMain() override;

  // The last step of start-up: shows the window and opens the file that the
  // command line named, as if it had been chosen in the Open dialog.
  void Start();
  bool debug_mode() const { return debug_mode_; }
  const std::string& command_line_file() const { return command_file_; }

  // File commands: 0 Open, 1 Save, 2 Save As, 5 Quit, 6 Reload.
  void poFile_Click(int index);
  void poExport_Click(int index);
  // Loads `path`: the first printed layer becomes current and the view is
  // fitted to the part.
  void LoadCommand(const std::string& path);
  // Loads the document's file again, keeping the current layer (or the
  // last, when there are fewer) and the view.
  void ReloadCommand();
  // The save question, then the load: a recent or dropped file.
  void OpenAfterAsking(const std::string& path);
  // 1 Save, 2 Save As, 3 tagged export.
  void SaveFileFunc(uint8_t code);
  std::string AskNewSaveFileName();
  // True when the caller may go on: the changes are saved or dropped.
  bool AskSaveChanges();

  // Menus and toolbar.
  // 0 Undo, 1 Redo.
  void poEdit_Click(int index);
  void poView_Click(int index);
  void poSetting_Click(int index);
  void poHelp_Click(int index);
  void CoolButton1_Click(int index);
  bool setting(int index) const;

  // The lists: their clicks, sliders, buttons and pop-ups (fm_main_lists.cpp).
  void poLstlayer_Click(int index);
  void poLstData_Click(int index);
  void poLstSelect_Click(int index);
  void poPopLayer_Click(int index);

  // Editing: the drawing area's mouse and the edit commands (fm_main_mouse.cpp).
  void poSelectEdit_Click(int index);
  void poUnSelectEdit_Click(int index);
  void poPoint_Click(int index);
  void poTools_Click(int index);

 protected:
  void closeEvent(QCloseEvent* event) override;
  // Dropped G-code files (fm_main_drop.cpp).
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // Construction, in fm_main_layout.cpp.
  void BuildToolbar();
  void BuildSidePanel();
  void BuildDrawingArea();
  // The toolbar, side panel, splitter and drawing area in the window.
  void ArrangeDrawArea();
  // The rulers, picDraw and the sliders inside the drawing area.
  void ArrangeDrawingControls();
  // The buttons and lists inside the side panel's two tabs.
  void ArrangeSidePanel();
  // Resizes of the window's parts lay their children out again.
  bool LayOut(QObject* watched, QEvent* event);

  // fm_main_menus.cpp.
  void BuildMenus();
  void BuildPopupMenus();
  void HideUnfinishedCommands();
  QAction* AddItem(QMenu* menu, const char* name, int index, const QString& caption,
                   const QKeySequence& shortcut = {});
  // File > Open Recent (fm_main_recent.cpp), inserted before `before`.
  void BuildRecentMenu(QMenu* mnFile, QAction* before);
  void FillRecentMenu();
  // The document's file joins the recent files.
  void RememberFile();
  void ShowManual();
  void ShowAbout();

  // fm_main_lists.cpp.
  void ConnectLists();
  // fm_main_mouse.cpp.
  void ConnectDrawingArea();

  // `keep_layer`: the layer to make current, the view kept; none for a new
  // first look.
  void LoadFile(const std::string& path, std::optional<int32_t> keep_layer);
  void SetCaption();
  // "+" and "-" step the layer slider while a document is loaded.
  bool LayerSliderKey(int key);

  QtPlatform platform_;
  Platform* previous_platform_;
  std::string command_file_;
  bool debug_mode_ = false;
  std::string base_title_;
  // The check marks of "&Layer Range Scroll", "&Data Range Scroll",
  // "Show &Movement" and "Show &Arrow".
  std::array<bool, 4> settings_{};

  // Toolbar.
  QWidget* picTool_ = nullptr;
  // The twelve first buttons, then Undo and Redo (shown after Save).
  std::array<CoolButton*, 14> CoolButton1_{};
  Line* lineToolTop_ = nullptr;
  Line* lineToolBottom_ = nullptr;

  // Side panel.
  ShrinkWnd* panelGCode_ = nullptr;
  int panel_now_ = 0;  // the panel's width, also while it opens or shuts
  CoolTab* tabGCode_ = nullptr;
  Container* cntGCode_ = nullptr;
  Container* cntGSelect_ = nullptr;
  QPushButton* cmdLayer_ = nullptr;
  QPushButton* cmdData_ = nullptr;
  QPushButton* cmdSelect_ = nullptr;
  ListBox* lstLayer_ = nullptr;
  ListBox* lstData_ = nullptr;
  ListBox* lstSelect_ = nullptr;
  Line* LeftPanelSize_ = nullptr;

  // Drawing area.
  QWidget* body_ = nullptr;
  Container* cntDraw_ = nullptr;
  RulerBar* horzRuler_ = nullptr;
  RulerBar* vertRuler_ = nullptr;
  DrawArea* picDraw_ = nullptr;
  QSlider* scrLayer_ = nullptr;
  QSlider* scrData_ = nullptr;
  QLabel* lblLayerScr_ = nullptr;
  QLabel* lblDataScr_ = nullptr;

  RecentFiles recent_;
  QMenu* mnRecent_ = nullptr;

  // Menus: the item arrays by index.
  std::vector<QAction*> poFile_, poExport_, poEdit_, poView_, poSetting_, poTools_, poHelp_;
  QMenu* mnLstLayer_ = nullptr;
  QMenu* mnLstData_ = nullptr;
  QMenu* mnLstSelect_ = nullptr;
  QMenu* mnSelectEdit_ = nullptr;
  QMenu* mnUnSelectEdit_ = nullptr;
  QMenu* popLstLayer_ = nullptr;
  std::vector<QAction*> poLstlayer_, poLstData_, poLstSelect_, poSelectEdit_, poUnSelectEdit_, poPoint_,
      poPopLayer_;

  // ---- State of the lists (fm_main_lists.cpp): add below. ----

  // ---- State of the drawing area's gestures (fm_main_mouse.cpp): add below. ----
  FeedrateMemory feedrate_memory_;
};

}  // namespace korvexed
