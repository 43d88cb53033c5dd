// The menu bar, the pop-up menus, the toolbar's commands, the check-mark
// settings and the help texts.
#include <QMenuBar>

#include "app/fm_main.h"
#include "app/program_title.h"
#include "controls/cool_button.h"
#include "document/document.h"
#include "editing/history.h"
#include "editing/list_state.h"
#include "view/korvexed_graphic.h"
#include "view/world_view.h"

namespace korvexed {

namespace {

// Which menu item each toolbar button stands for.
enum class Group { file, lst_layer, view, setting, help, edit };
struct ButtonCommand {
  Group group;
  int index;
};
constexpr ButtonCommand button_commands[14] = {
    {Group::file, 0},    {Group::file, 1},    {Group::lst_layer, 2}, {Group::view, 0},    {Group::view, 1},
    {Group::view, 2},    {Group::setting, 0}, {Group::setting, 1},   {Group::setting, 2}, {Group::setting, 3},
    {Group::help, 0},    {Group::help, 1},    {Group::edit, 0},      {Group::edit, 1},
};

constexpr const char* manual_basics[] = {
    "For now, the Basic Parts are just:",
    "1) Open a gcode file from File->Open",
    "2) Drag Layer Slider scroll at the bottom to select interested slice layer",
    "3) Left click to select a vertex (green dots). Left click drag to make rectangle selection.",
    "4) While (3), press Shift to add, Ctrl to invert, Alt to subtract selection.",
    "5) Left click drag on selected vertex/vertices will move them (Ctrl+Z undoes)",
    "6) Right click on selected vertex/vertices will popup delete menu (Ctrl+Z undoes)",
    "7) Right click on a line to popup insert point menu.",
    "8) Right or Middle button click drag to pan view. Mousewheel scroll to zoom in and out view.",
    "9) Save edited file from File->Save/Save As. (Best practice is to save to another file,",
    "leaving original file as backup.)",
};

constexpr const char* manual_rules[] = {
    "As for the Rules and Regulations are just:",
    "1) We will not be held responsible for any data, properties or profit loss due to the usage of this software.",
    "2) Changing or hacking the binary data of this program and its external links or dlls is a violation and not "
    "a good behaviour.",
    "3) We can change the rules as we see fit from time to time.",
    " ",
    "Thank you for your kind respond.",
};

template <size_t n>
std::string Lines(const char* const (&lines)[n]) {
  std::string text;
  for (const char* line : lines) {
    if (!text.empty()) text += '\n';
    text += line;
  }
  return text;
}

// A pop-up menu: never in the menu bar, shown only at the pointer. Its
// actions also live in the window, so that their shortcuts work.
QMenu* NewPopupMenu(QMainWindow* window, const char* name) {
  auto* menu = new QMenu(QStringLiteral("_%1").arg(QLatin1String(name)), window);
  menu->setObjectName(QString::fromLatin1(name));
  return menu;
}

}  // namespace

QAction* FmMain::AddItem(QMenu* menu, const char* name, int index, const QString& caption,
                         const QKeySequence& shortcut) {
  QAction* action = menu->addAction(caption);
  action->setObjectName(QStringLiteral("%1_%2").arg(QLatin1String(name)).arg(index));
  action->setShortcut(shortcut);
  return action;
}

void FmMain::BuildMenus() {
  QMenu* mnFile = menuBar()->addMenu(QStringLiteral("&File"));
  mnFile->setObjectName(QStringLiteral("mnFile"));
  poFile_ = {AddItem(mnFile, "poFile", 0, QStringLiteral("&Open..."), QKeySequence(Qt::CTRL | Qt::Key_O)),
             AddItem(mnFile, "poFile", 1, QStringLiteral("&Save"), QKeySequence(Qt::CTRL | Qt::Key_S)),
             AddItem(mnFile, "poFile", 2, QStringLiteral("Save &As..."))};
  BuildRecentMenu(mnFile, poFile_[1]);
  QMenu* mnExport = mnFile->addMenu(QStringLiteral("Export"));
  mnExport->menuAction()->setObjectName(QStringLiteral("poFile_3"));
  poFile_.push_back(mnExport->menuAction());
  poExport_ = {AddItem(mnExport, "poExport", 0, QStringLiteral("Cura <;TAG:> Compatible GCode"))};
  QAction* separator = mnFile->addSeparator();
  separator->setObjectName(QStringLiteral("poFile_4"));
  poFile_.push_back(separator);
  poFile_.push_back(AddItem(mnFile, "poFile", 5, QStringLiteral("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q)));
  QAction* reload = AddItem(mnFile, "poFile", 6, QStringLiteral("&Reload"), QKeySequence(Qt::CTRL | Qt::Key_R));
  mnFile->insertAction(mnExport->menuAction(), reload);
  poFile_.push_back(reload);
  for (int i = 0; i < 7; ++i)
    if (i != 3 && i != 4) connect(poFile_[i], &QAction::triggered, this, [this, i] { poFile_Click(i); });
  connect(poExport_[0], &QAction::triggered, this, [this] { poExport_Click(0); });

  QMenu* mnEdit = menuBar()->addMenu(QStringLiteral("&Edit"));
  mnEdit->setObjectName(QStringLiteral("mnEdit"));
  poEdit_ = {AddItem(mnEdit, "poEdit", 0, QStringLiteral("&Undo"), QKeySequence(Qt::CTRL | Qt::Key_Z)),
             AddItem(mnEdit, "poEdit", 1, QStringLiteral("&Redo"), QKeySequence(Qt::CTRL | Qt::Key_Y))};
  poEdit_[1]->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_Y), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)});

  QMenu* mnView = menuBar()->addMenu(QStringLiteral("&View"));
  mnView->setObjectName(QStringLiteral("mnView"));
  poView_ = {AddItem(mnView, "poView", 0, QStringLiteral("&Zoom +"), Qt::Key_F2),
             AddItem(mnView, "poView", 1, QStringLiteral("Z&oom -"), Qt::Key_F3),
             AddItem(mnView, "poView", 2, QStringLiteral("Zoom &Fit"), Qt::Key_F4)};

  QMenu* mnSetting = menuBar()->addMenu(QStringLiteral("Se&ttings"));
  mnSetting->setObjectName(QStringLiteral("mnSetting"));
  poSetting_ = {AddItem(mnSetting, "poSetting", 0, QStringLiteral("&Layer Range Scroll"), Qt::Key_F5),
                AddItem(mnSetting, "poSetting", 1, QStringLiteral("&Data Range Scroll"), Qt::Key_F6),
                AddItem(mnSetting, "poSetting", 2, QStringLiteral("Show &Movement"), Qt::Key_F7),
                AddItem(mnSetting, "poSetting", 3, QStringLiteral("Show &Arrow"), Qt::Key_F8)};
  for (QAction* item : poSetting_) item->setCheckable(true);

  QMenu* mnTools = menuBar()->addMenu(QStringLiteral("&Tools"));
  mnTools->setObjectName(QStringLiteral("mnTools"));
  poTools_ = {AddItem(mnTools, "poTools", 0, QStringLiteral("&Ruler")),
              AddItem(mnTools, "poTools", 1, QStringLiteral("&Translate All GCode")),
              AddItem(mnTools, "poTools", 2, QStringLiteral("Scale &Extrusion Rate"))};

  QMenu* mnHelp = menuBar()->addMenu(QStringLiteral("&Help"));
  mnHelp->setObjectName(QStringLiteral("mnHelp"));
  poHelp_ = {AddItem(mnHelp, "poHelp", 0, QStringLiteral("&Manual"), Qt::Key_F1),
             AddItem(mnHelp, "poHelp", 1, QStringLiteral("&About"), Qt::Key_F12)};

  for (int i = 0; i < 2; ++i) connect(poEdit_[i], &QAction::triggered, this, [this, i] { poEdit_Click(i); });
  for (int i = 0; i < 3; ++i) connect(poView_[i], &QAction::triggered, this, [this, i] { poView_Click(i); });
  for (int i = 0; i < 4; ++i) connect(poSetting_[i], &QAction::triggered, this, [this, i] { poSetting_Click(i); });
  for (int i = 0; i < 3; ++i) connect(poTools_[i], &QAction::triggered, this, [this, i] { poTools_Click(i); });
  poTools_[0]->setCheckable(true);
  // Scale Extrusion Rate scales the marked vertices: with none, it is greyed.
  poTools_[2]->setEnabled(false);
  connect(mnTools, &QMenu::aboutToShow, this, [this] { poTools_[2]->setEnabled(CountSelected(lists.select_line) > 0); });
  for (int i = 0; i < 2; ++i) connect(poHelp_[i], &QAction::triggered, this, [this, i] { poHelp_Click(i); });

  platform_.set_save_action(poFile_[1]);
  platform_.add_document_control(poFile_[2]);
  platform_.add_document_control(poFile_[3]);
  platform_.add_document_control(poFile_[6]);
  platform_.set_export_action(poExport_[0]);
  platform_.set_history_controls({poEdit_[0], poEdit_[1]}, {CoolButton1_[12], CoolButton1_[13]});
  for (QAction* item : poView_) platform_.add_document_control(item);
  platform_.add_document_control(mnTools->menuAction());
}

void FmMain::BuildPopupMenus() {
  mnLstLayer_ = NewPopupMenu(this, "mnLstLayer");
  poLstlayer_ = {AddItem(mnLstLayer_, "poLstlayer", 0, QStringLiteral("View &Single")),
                 AddItem(mnLstLayer_, "poLstlayer", 1, QStringLiteral("View &Invert")),
                 AddItem(mnLstLayer_, "poLstlayer", 2, QStringLiteral("View &All"))};
  mnLstData_ = NewPopupMenu(this, "mnLstData");
  poLstData_ = {AddItem(mnLstData_, "poLstData", 0, QStringLiteral("View &None")),
                AddItem(mnLstData_, "poLstData", 1, QStringLiteral("View &Invert")),
                AddItem(mnLstData_, "poLstData", 2, QStringLiteral("View &Selected")),
                AddItem(mnLstData_, "poLstData", 3, QStringLiteral("View &Extruded")),
                AddItem(mnLstData_, "poLstData", 4, QStringLiteral("View &All"))};
  mnLstSelect_ = NewPopupMenu(this, "mnLstSelect");
  poLstSelect_ = {AddItem(mnLstSelect_, "poLstSelect", 0, QStringLiteral("Select &None")),
                  AddItem(mnLstSelect_, "poLstSelect", 1, QStringLiteral("Select &Invert")),
                  AddItem(mnLstSelect_, "poLstSelect", 2, QStringLiteral("Select &All"))};

  mnSelectEdit_ = NewPopupMenu(this, "mnSelectEdit");
  poSelectEdit_ = {
      AddItem(mnSelectEdit_, "poSelectEdit", 0, QStringLiteral("&Copy Selected Data"), QKeySequence(Qt::CTRL | Qt::Key_C)),
      AddItem(mnSelectEdit_, "poSelectEdit", 1, QStringLiteral("Cu&t Selected Data"), QKeySequence(Qt::CTRL | Qt::Key_X)),
      AddItem(mnSelectEdit_, "poSelectEdit", 2, QStringLiteral("&Edit Selected Data"), QKeySequence(Qt::CTRL | Qt::Key_E)),
      AddItem(mnSelectEdit_, "poSelectEdit", 3, QStringLiteral("Change &Feedrate"), QKeySequence(Qt::CTRL | Qt::Key_F)),
      AddItem(mnSelectEdit_, "poSelectEdit", 4, QStringLiteral("&Delete Selected Data"), Qt::Key_Delete)};

  mnUnSelectEdit_ = NewPopupMenu(this, "mnUnSelectEdit");
  poUnSelectEdit_ = {
      AddItem(mnUnSelectEdit_, "poUnSelectEdit", 0, QStringLiteral("&Paste GCode"), QKeySequence(Qt::CTRL | Qt::Key_V))};
  QMenu* insert = mnUnSelectEdit_->addMenu(QStringLiteral("&Insert Point(s)"));
  insert->menuAction()->setObjectName(QStringLiteral("poUnSelectEdit_1"));
  poUnSelectEdit_.push_back(insert->menuAction());
  for (int i = 0; i < 5; ++i)
    poPoint_.push_back(AddItem(insert, "poPoint", i, i == 0 ? QStringLiteral("1 point") : QStringLiteral("%1 points").arg(i + 1)));
  poUnSelectEdit_.push_back(AddItem(mnUnSelectEdit_, "poUnSelectEdit", 2, QStringLiteral("Add &First Point"),
                                    QKeySequence(Qt::CTRL | Qt::Key_F1)));
  poUnSelectEdit_.push_back(AddItem(mnUnSelectEdit_, "poUnSelectEdit", 3, QStringLiteral("Add &Last Point"),
                                    QKeySequence(Qt::CTRL | Qt::Key_F2)));

  popLstLayer_ = NewPopupMenu(this, "popLstLayer");
  poPopLayer_ = {AddItem(popLstLayer_, "poPopLayer", 0, QStringLiteral("&Copy Selected Layers")),
                 AddItem(popLstLayer_, "poPopLayer", 1, QStringLiteral("Cu&t Selected Layers")),
                 AddItem(popLstLayer_, "poPopLayer", 2, QStringLiteral("&Edit Selected Layer")),
                 AddItem(popLstLayer_, "poPopLayer", 3, QStringLiteral("&Delete Selected Layers"))};

  // The commands that are not finished stay greyed even where they are shown.
  for (QAction* item : {poUnSelectEdit_[2], poUnSelectEdit_[3], poPopLayer_[0], poPopLayer_[1], poPopLayer_[2]})
    item->setEnabled(false);
  // The edit commands' shortcuts work wherever the window has the focus.
  for (QMenu* menu : {mnSelectEdit_, mnUnSelectEdit_}) addActions(menu->actions());

  for (int i = 0; i < 3; ++i) connect(poLstlayer_[i], &QAction::triggered, this, [this, i] { poLstlayer_Click(i); });
  for (int i = 0; i < 5; ++i) connect(poLstData_[i], &QAction::triggered, this, [this, i] { poLstData_Click(i); });
  for (int i = 0; i < 3; ++i) connect(poLstSelect_[i], &QAction::triggered, this, [this, i] { poLstSelect_Click(i); });
  for (int i = 0; i < 5; ++i)
    connect(poSelectEdit_[i], &QAction::triggered, this, [this, i] { poSelectEdit_Click(i); });
  for (int i : {0, 2, 3})
    connect(poUnSelectEdit_[i], &QAction::triggered, this, [this, i] { poUnSelectEdit_Click(i); });
  for (int i = 0; i < 5; ++i) connect(poPoint_[i], &QAction::triggered, this, [this, i] { poPoint_Click(i); });
  for (int i = 0; i < 4; ++i) connect(poPopLayer_[i], &QAction::triggered, this, [this, i] { poPopLayer_Click(i); });
}

void FmMain::HideUnfinishedCommands() {
  for (QAction* item : {poUnSelectEdit_[2], poUnSelectEdit_[3], poPopLayer_[0], poPopLayer_[1], poPopLayer_[2]})
    item->setVisible(false);
}

void FmMain::CoolButton1_Click(int index) {
  if (index < 0 || index >= 14) return;
  const ButtonCommand command = button_commands[index];
  switch (command.group) {
    case Group::file: poFile_Click(command.index); break;
    case Group::lst_layer: poLstlayer_Click(command.index); break;
    case Group::view: poView_Click(command.index); break;
    case Group::setting: poSetting_Click(command.index); break;
    case Group::help: poHelp_Click(command.index); break;
    case Group::edit: poEdit_Click(command.index); break;
  }
}

void FmMain::poEdit_Click(int index) {
  if (index == 0) history.undo();
  else history.redo();
  RedrawView();
}

void FmMain::poView_Click(int index) {
  switch (index) {
    case 0: ZoomAboutCentre(1); break;
    case 1: ZoomAboutCentre(-1); break;
    case 2: ZoomFit(); break;
    default: break;
  }
}

void FmMain::poSetting_Click(int index) {
  if (index < 0 || index >= static_cast<int>(poSetting_.size())) return;
  const bool on = !settings_[static_cast<size_t>(index)];
  settings_[static_cast<size_t>(index)] = on;
  poSetting_[static_cast<size_t>(index)]->setChecked(on);
  CoolButton1_[static_cast<size_t>(index + 6)]->set_pressed_state(on);
  if (index < 2) return;
  (index == 2 ? draw_settings.show_movement : draw_settings.show_arrow) = on;
  const BusyPointer busy;
  RedrawView();
}

bool FmMain::setting(int index) const { return settings_.at(static_cast<size_t>(index)); }

void FmMain::poHelp_Click(int index) {
  if (index == 0) ShowManual();
  if (index == 1) ShowAbout();
}

void FmMain::ShowManual() {
  platform().message_box(Lines(manual_basics), MsgIcon::information, MsgButtons::ok);
  platform().message_box(Lines(manual_rules), MsgIcon::information, MsgButtons::ok);
}

void FmMain::ShowAbout() {
  platform().message_box(std::string(program_title) + " by Korvex (V" + KORVEXED_VERSION +
                             ")\nA viewer and editor for the G-code of 3D-printer slicers.\n"
                             "Every edit keeps the extrusion of the moves it touches consistent.",
                         MsgIcon::information, MsgButtons::ok);
}

}  // namespace korvexed
