// The main window driven as a person would: the command line, the menus
// and toolbar, the file commands with their questions and choosers, the
// side panel and the layout.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QSettings>
#include <QSlider>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <string>

#include "controls/cool_button.h"
#include "controls/list_box.h"
#include "controls/shrink_wnd.h"
#include "document/document.h"
#include "tests/gui_fixture.h"

namespace korvexed::testing {
namespace {

namespace fs = std::filesystem;

const QString base_title = QStringLiteral("Korvex Visual GCode Editor (V1.0.3)");

// Layers 1 and 2 above layer 0.
const char* const two_layers =
    "; made by hand\nG21\nG90\nM82\nG92 E0\n"
    "G1 Z0.2 F1800\nG1 X10 Y10 F3000\nG1 X20 Y10 E1\nG1 X20 Y20 E2\n"
    "G1 Z0.4\nG1 X10 Y20 E3\nG0 X5 Y5\n";

class WindowTest : public FmMainTest {
 protected:
  std::string LoadExample() {
    const std::string path = Write("print.gcode", two_layers);
    window_->LoadCommand(path);
    return path;
  }
  CoolButton* Button(int index) const { return Control<CoolButton>(QStringLiteral("CoolButton1_%1").arg(index)); }
};

// The items of the menu bar and the pop-ups that start hidden, greyed,
// checked or with a shortcut: caption, shortcut, visible, enabled, checked.
struct ItemState {
  const char* name;
  const char* caption;
  const char* shortcut;
  bool visible_normal, enabled, checked;
};

constexpr ItemState start_state[] = {
    {"poFile_0", "&Open...", "Ctrl+O", true, true, false},
    {"poFile_1", "&Save", "Ctrl+S", true, false, false},
    {"poFile_2", "Save &As...", "", true, false, false},
    {"poFile_3", "Export", "", true, false, false},
    {"poFile_5", "&Quit", "Ctrl+Q", true, true, false},
    {"poEdit_0", "&Undo", "Ctrl+Z", true, false, false},
    {"poEdit_1", "&Redo", "Ctrl+Y", true, false, false},
    {"poView_0", "&Zoom +", "F2", true, false, false},
    {"poView_1", "Z&oom -", "F3", true, false, false},
    {"poView_2", "Zoom &Fit", "F4", true, false, false},
    {"poSetting_0", "&Layer Range Scroll", "F5", true, true, false},
    {"poSetting_1", "&Data Range Scroll", "F6", true, true, true},
    {"poSetting_2", "Show &Movement", "F7", true, true, true},
    {"poSetting_3", "Show &Arrow", "F8", true, true, true},
    {"poTools_0", "&Ruler", "", true, true, false},
    {"poTools_2", "Scale &Extrusion Rate", "", true, false, false},
    {"poHelp_0", "&Manual", "F1", true, true, false},
    {"poHelp_1", "&About", "F12", true, true, false},
    {"poSelectEdit_0", "&Copy Selected Data", "Ctrl+C", true, true, false},
    {"poSelectEdit_1", "Cu&t Selected Data", "Ctrl+X", true, true, false},
    {"poSelectEdit_2", "&Edit Selected Data", "Ctrl+E", true, true, false},
    {"poSelectEdit_3", "Change &Feedrate", "Ctrl+F", true, true, false},
    {"poSelectEdit_4", "&Delete Selected Data", "Del", true, true, false},
    {"poUnSelectEdit_0", "&Paste GCode", "Ctrl+V", true, true, false},
    {"poUnSelectEdit_1", "&Insert Point(s)", "", true, true, false},
    {"poUnSelectEdit_2", "Add &First Point", "Ctrl+F1", false, false, false},
    {"poUnSelectEdit_3", "Add &Last Point", "Ctrl+F2", false, false, false},
    {"poPopLayer_0", "&Copy Selected Layers", "", false, false, false},
    {"poPopLayer_2", "&Edit Selected Layer", "", false, false, false},
};

TEST_F(WindowTest, StartsWithEveryMenuItemInItsState) {
  for (const bool debug : {false, true}) {
    if (debug) StartWith({"DEBUG"});
    EXPECT_EQ(window_->debug_mode(), debug);
    EXPECT_EQ(window_->windowTitle(), base_title);
    for (const ItemState& state : start_state) {
      SCOPED_TRACE(std::string(state.name) + (debug ? " in debug mode" : ""));
      QAction* item = Item(QString::fromLatin1(state.name));
      ASSERT_NE(item, nullptr);
      EXPECT_EQ(item->text(), QString::fromLatin1(state.caption));
      EXPECT_EQ(item->shortcut().toString(), QString::fromLatin1(state.shortcut));
      EXPECT_EQ(item->isVisible(), debug || state.visible_normal);
      // Qt greys out an item while it is hidden.
      EXPECT_EQ(item->isEnabled(), state.enabled && item->isVisible());
      EXPECT_EQ(item->isChecked(), state.checked);
    }
    // The Tools menu waits for a document as a whole.
    EXPECT_FALSE(Control<QMenu>(QStringLiteral("mnTools"))->menuAction()->isEnabled());
    // The pop-ups' parents are never in the menu bar.
    for (const char* name : {"mnLstLayer", "mnLstData", "mnLstSelect", "mnSelectEdit", "mnUnSelectEdit", "popLstLayer"})
      EXPECT_FALSE(window_->menuBar()->actions().contains(Control<QMenu>(QString::fromLatin1(name))->menuAction()));
  }
}

TEST_F(WindowTest, OpensTheCommandLineFileQuotedOrNot) {
  const std::string path = Write("two words/my print.gcode", two_layers);
  StartWith({"\"" + path + "\""});
  EXPECT_EQ(window_->windowTitle(), Q(path) + " - " + base_title);
  EXPECT_EQ(Status(), "Load successful " + Q(path));

  StartWith({(dir_ / "two").string(), "words/my", "print.gcode"});
  EXPECT_EQ(window_->windowTitle(), Q(path) + " - " + base_title);
  EXPECT_TRUE(IsDocumentLoaded());

  // A name that is no file, even with DEBUG in it, is dropped in silence.
  StartWith({(dir_ / "DEBUG.gcode").string()});
  EXPECT_TRUE(window_->debug_mode());
  EXPECT_FALSE(IsDocumentLoaded());
  EXPECT_EQ(window_->windowTitle(), base_title);
  EXPECT_TRUE(dialogs_.seen.empty());
}

TEST_F(WindowTest, TheTitleFollowsLoadsSavesAndExports) {
  const std::string path = LoadExample();
  EXPECT_EQ(window_->windowTitle(), Q(path) + " - " + base_title);
  EXPECT_TRUE(Item(QStringLiteral("poFile_1"))->isEnabled());

  // Export leaves the document bound to its file.
  const std::string tagged = (dir_ / "tagged.gcode").string();
  dialogs_.paths = {Q(tagged)};
  doc.modified = true;
  Item(QStringLiteral("poExport_0"))->trigger();
  ASSERT_EQ(dialogs_.choosers.size(), 1u);
  EXPECT_EQ(dialogs_.choosers[0].mode, QFileDialog::AcceptSave);
  EXPECT_EQ(Status(), "Export successful " + Q(tagged));
  EXPECT_EQ(window_->windowTitle(), Q(path) + " - " + base_title);
  EXPECT_TRUE(doc.modified);
  EXPECT_NE(Read(tagged).find(";LAYER:"), std::string::npos);

  // Save As binds it to the new file.
  const std::string copy = (dir_ / "copy.gcode").string();
  dialogs_.paths = {Q(copy)};
  Item(QStringLiteral("poFile_2"))->trigger();
  EXPECT_EQ(window_->windowTitle(), Q(copy) + " - " + base_title);
  EXPECT_EQ(Status(), "Save successful " + Q(copy));
  EXPECT_FALSE(doc.modified);
  EXPECT_NE(Read(copy).find("G1 X10 E3\r\n"), std::string::npos);

  // A cancelled chooser does nothing at all.
  Item(QStringLiteral("poFile_2"))->trigger();
  EXPECT_EQ(Status(), "Save successful " + Q(copy));

  // A file that cannot be opened keeps the document; one that fails to
  // read empties it and the title.
  const std::string missing = (dir_ / "missing.gcode").string();
  window_->LoadCommand(missing);
  EXPECT_EQ(Status(), "Load failed " + Q(missing));
  EXPECT_EQ(window_->windowTitle(), Q(copy) + " - " + base_title);
  EXPECT_TRUE(IsDocumentLoaded());
  // The process's own memory opens but cannot be read from its start.
  const std::string bad = "/proc/self/mem";
  window_->LoadCommand(bad);
  ASSERT_EQ(dialogs_.seen.size(), 2u);
  EXPECT_EQ(dialogs_.seen[1].text, QStringLiteral("Error while reading GCode file at line 0: Input/output error"));
  EXPECT_EQ(Status(), "Load failed " + Q(bad));
  EXPECT_EQ(window_->windowTitle(), base_title);
  EXPECT_FALSE(Item(QStringLiteral("poFile_1"))->isEnabled());
}

TEST_F(WindowTest, SaveAsAndExportStartFromTheDocumentAndAFailedSaveIsNotWhereTheNextStarts) {
  const std::string path = LoadExample();
  dialogs_.paths = {QStringLiteral("/proc/print.gcode")};
  Item(QStringLiteral("poFile_2"))->trigger();
  EXPECT_EQ(Status(), QStringLiteral("Save failed /proc/print.gcode"));
  Item(QStringLiteral("poExport_0"))->trigger();
  ASSERT_EQ(dialogs_.choosers.size(), 2u);
  for (const auto& chooser : dialogs_.choosers) EXPECT_EQ(chooser.start, Q(path));
  // Nor does Qt start its next chooser there (its choosers hang reading
  // /proc/kmsg).
  const QSettings qt_memory(QSettings::UserScope, QStringLiteral("QtProject"));
  EXPECT_FALSE(qt_memory.value(QStringLiteral("FileDialog/lastVisited")).toString().contains(QStringLiteral("/proc")));
}

TEST_F(WindowTest, AFailedOpenLeavesNothingShown) {
  std::string print = two_layers;
  for (int i = 0; i < 100; ++i) print += "; the top layer's notes\n";
  window_->LoadCommand(Write("long.gcode", print));
  auto* slider = Control<QSlider>(QStringLiteral("scrLayer"));
  slider->setValue(2);
  QScrollBar* rows = Control<ListBox>(QStringLiteral("lstData"))->verticalScrollBar();
  ASSERT_GT(rows->maximum(), 0);
  window_->LoadCommand("/proc/self/mem");  // opens, but cannot be read
  EXPECT_EQ(Status(2), QString());
  EXPECT_EQ(Status(3), QString());
  EXPECT_EQ(slider->value(), 0);
  EXPECT_FALSE(slider->isEnabled());
  EXPECT_EQ(rows->maximum(), 0);
}

TEST_F(WindowTest, SaveWritesTheFileWithoutAChooser) {
  // Before a load Ctrl+S does nothing.
  QTest::keyClick(window_.get(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_TRUE(dialogs_.choosers.empty());
  EXPECT_EQ(Status(), QString());

  const std::string path = LoadExample();
  fs::remove(path);
  doc.modified = true;
  QTest::keyClick(window_.get(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_TRUE(dialogs_.choosers.empty());
  EXPECT_TRUE(dialogs_.seen.empty());
  EXPECT_EQ(Status(), "Save successful " + Q(path));
  EXPECT_FALSE(doc.modified);
  EXPECT_TRUE(fs::is_regular_file(path));
}

TEST_F(WindowTest, OpenAsksFirstAndTakesOnlyAnExistingGCodeFile) {
  LoadExample();
  doc.modified = true;
  // Cancel keeps the document and shows no chooser.
  dialogs_.answers = {QMessageBox::Cancel};
  window_->poFile_Click(0);
  EXPECT_TRUE(dialogs_.choosers.empty());
  EXPECT_TRUE(doc.modified);

  const std::string other = Write("other.gcode", "G1 Z0.3\nG1 X1 Y1 E1\n");
  dialogs_.answers = {QMessageBox::No};
  dialogs_.paths = {Q(other)};
  Button(0)->click();
  ASSERT_EQ(dialogs_.choosers.size(), 1u);
  EXPECT_EQ(dialogs_.choosers[0].mode, QFileDialog::AcceptOpen);
  EXPECT_EQ(dialogs_.choosers[0].file_mode, QFileDialog::ExistingFile);
  EXPECT_EQ(dialogs_.choosers[0].filters,
            QStringList{QStringLiteral("KISSlicer/Slic3r/Skeinforge/Cura GCode Output File (*.gcode *.g)")});
  EXPECT_EQ(Status(), "Load successful " + Q(other));
  EXPECT_FALSE(doc.modified);
}

TEST_F(WindowTest, ClosingAModifiedDocumentAsksAndCancelKeepsIt) {
  const std::string path = LoadExample();
  doc.modified = true;
  dialogs_.answers = {QMessageBox::Cancel};
  Item(QStringLiteral("poFile_5"))->trigger();
  ASSERT_EQ(dialogs_.seen.size(), 1u);
  EXPECT_EQ(dialogs_.seen[0].text, Q(path) + " has been modified. Save changes?");
  EXPECT_EQ(dialogs_.seen[0].icon, QMessageBox::Warning);
  EXPECT_EQ(dialogs_.seen[0].buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
  EXPECT_TRUE(window_->isVisible());
  EXPECT_TRUE(doc.modified);
  EXPECT_TRUE(IsDocumentLoaded());

  fs::remove(path);
  dialogs_.answers = {QMessageBox::Yes};
  EXPECT_TRUE(window_->close());
  EXPECT_FALSE(doc.modified);
  EXPECT_TRUE(fs::is_regular_file(path));
}

TEST_F(WindowTest, ToolbarButtonsAndCheckMarksStayInStep) {
  for (int setting = 0; setting < 4; ++setting) {
    SCOPED_TRACE(setting);
    QAction* item = Item(QStringLiteral("poSetting_%1").arg(setting));
    CoolButton* button = Button(setting + 6);
    const bool start = item->isChecked();
    EXPECT_EQ(button->pressed_state(), start);
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(item->isChecked(), !start);
    EXPECT_EQ(button->pressed_state(), !start);
    item->trigger();
    EXPECT_EQ(item->isChecked(), start);
    EXPECT_EQ(button->pressed_state(), start);
    EXPECT_EQ(window_->setting(setting), start);
  }
}

TEST_F(WindowTest, HelpShowsTheManualInTwoBoxesAndTheVersionInAbout) {
  QTest::keyClick(window_.get(), Qt::Key_F1);
  ASSERT_EQ(dialogs_.seen.size(), 2u);
  EXPECT_TRUE(dialogs_.seen[0].text.startsWith(QStringLiteral("For now, the Basic Parts are just:\n1) Open")));
  EXPECT_TRUE(dialogs_.seen[0].text.endsWith(QStringLiteral("another file,\nleaving original file as backup.)")));
  EXPECT_TRUE(dialogs_.seen[0].text.contains(QStringLiteral(
      "will move them (Ctrl+Z undoes)\n6) Right click on selected vertex/vertices will popup delete menu (Ctrl+Z "
      "undoes)\n")));
  EXPECT_TRUE(dialogs_.seen[0].lines_whole);
  EXPECT_TRUE(dialogs_.seen[1].text.endsWith(QStringLiteral("time.\n \nThank you for your kind respond.")));
  EXPECT_EQ(dialogs_.seen[1].icon, QMessageBox::Information);
  Button(11)->click();
  ASSERT_EQ(dialogs_.seen.size(), 3u);
  EXPECT_TRUE(dialogs_.seen[2].text.section('\n', 0, 0).endsWith(QStringLiteral(" (V1.0.3)")));
}

TEST_F(WindowTest, PlusAndMinusStepTheLayerSliderAndBeepAtTheEnds) {
  auto* slider = Control<QSlider>(QStringLiteral("scrLayer"));
  // Without a document the keys do nothing.
  QTest::keyClick(window_.get(), Qt::Key_Plus);
  EXPECT_EQ(slider->value(), 0);

  LoadExample();
  ASSERT_EQ(slider->maximum(), 2);
  for (const auto& [key, value] : {std::pair{Qt::Key_Minus, 0}, {Qt::Key_Plus, 1}, {Qt::Key_Plus, 2},
                                  {Qt::Key_Plus, 2}, {Qt::Key_Minus, 1}}) {
    QTest::keyClick(window_.get(), key);
    EXPECT_EQ(slider->value(), value);
  }
}

TEST_F(WindowTest, TheSidePanelFoldsAndTheDrawingAreaFollows) {
  auto* panel = Control<ShrinkWnd>(QStringLiteral("panelGCode"));
  auto* draw = Control<QWidget>(QStringLiteral("cntDraw"));
  ASSERT_TRUE(panel->is_expanded());
  const int open_left = draw->x();
  QTest::mouseClick(panel->header_button(), Qt::LeftButton);
  QTRY_COMPARE(draw->x(), panel->collapsed_width() + 5);
  EXPECT_EQ(Control<QWidget>(QStringLiteral("LeftPanelSize"))->cursor().shape(), Qt::ArrowCursor);
  QTest::mouseClick(panel->header_button(), Qt::LeftButton);
  QTRY_COMPARE(draw->x(), open_left);
  EXPECT_EQ(Control<QWidget>(QStringLiteral("LeftPanelSize"))->cursor().shape(), Qt::SizeHorCursor);
}

// No control overlaps another or leaves the window, small or large.
TEST_F(WindowTest, NothingOverlapsAtSmallAndLargeSizes) {
  const char* const controls[] = {"picTool", "panelGCode", "LeftPanelSize", "cntDraw"};
  const char* const drawing[] = {"horzRuler", "vertRuler", "picDraw", "lblLayerScr", "scrLayer", "lblDataScr", "scrData"};
  // Room for a title bar and a desktop panel on a 1366 x 768 screen, and a
  // drawing area of at least half the width.
  EXPECT_LE(window_->frameGeometry().height(), 700);
  EXPECT_GE(Control<QWidget>(QStringLiteral("cntDraw"))->width(), window_->width() / 2);
  for (const QSize size : {window_->minimumSize(), QSize(1024, 700), QSize(1920, 1080)}) {
    window_->resize(size);
    QApplication::processEvents();
    SCOPED_TRACE(size.width());
    auto check = [&](const auto& names, QWidget* parent) {
      std::vector<QRect> seen;
      for (const char* name : names) {
        const QRect place = Control<QWidget>(QString::fromLatin1(name))->geometry();
        EXPECT_FALSE(place.isEmpty()) << name;
        EXPECT_TRUE(parent->rect().contains(place)) << name;
        for (const QRect& other : seen) EXPECT_FALSE(place.intersects(other)) << name;
        seen.push_back(place);
      }
    };
    check(controls, window_->centralWidget());
    check(drawing, Control<QWidget>(QStringLiteral("cntDraw")));
    EXPECT_GE(Control<QWidget>(QStringLiteral("picDraw"))->height(), 250);
    EXPECT_GE(Control<QWidget>(QStringLiteral("picDraw"))->width(), 200);
  }
}

}  // namespace
}  // namespace korvexed::testing
