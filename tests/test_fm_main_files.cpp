// What the window does with files beyond the File menu's first commands:
// the first look after Open, Reload, Open Recent, and files dropped on it.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QSlider>
#include <QTest>
#include <QUrl>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

#include "controls/list_box.h"
#include "document/document.h"
#include "editing/list_state.h"
#include "tests/gui_fixture.h"
#include "view/korvexed_graphic.h"
#include "view/world_view.h"

namespace korvexed::testing {
namespace {

namespace fs = std::filesystem;

std::string Slicer(const char* name) { return std::string(KORVEXED_TEST_DATA) + "/" + name + ".gcode"; }

// `count` layers: the start code, then a line of extrusion on each.
std::string Layers(int count) {
  std::string gcode = "G21\nG92 E0\n";
  for (int l = 1; l < count; ++l)
    gcode += "G1 X10 Y10 Z" + std::to_string(l * 0.2) + "\nG1 X20 Y10 E" + std::to_string(l) + "\n";
  return gcode;
}

// What the lists and the status show of the current layer.
struct OnView {
  int32_t layer;
  std::vector<uint8_t> layers, rows, marks;
  int32_t slider;
  QString layer_status, data_status;
  bool operator==(const OnView&) const = default;
};

struct MenuLine {
  QString text, tip;
  bool enabled;
  bool operator==(const MenuLine&) const = default;
};
void PrintTo(const MenuLine& line, std::ostream* out) {
  *out << '{' << line.text.toStdString() << ", " << line.tip.toStdString() << ", " << line.enabled << '}';
}

class FilesTest : public FmMainTest {
 protected:
  ListBox* List(const char* name) const { return Control<ListBox>(QString::fromLatin1(name)); }
  // The line is inside the list's visible part.
  bool Shown(const char* list, int line) const {
    return List(list)->viewport()->rect().contains(List(list)->line_rect(line));
  }

  OnView Now() const {
    return {doc.current_layer, lists.layer_selected, lists.data_selected, lists.select_flag,
            Control<QSlider>(QStringLiteral("scrLayer"))->value(), Status(2), Status(3)};
  }

  // Open Recent as it shows when opened.
  std::vector<MenuLine> RecentMenu() {
    auto* menu = Control<QMenu>(QStringLiteral("mnRecent"));
    menu->popup(window_->geometry().center());
    std::vector<MenuLine> lines;
    for (const QAction* item : menu->actions()) lines.push_back({item->text(), item->toolTip(), item->isEnabled()});
    menu->hide();
    return lines;
  }
  MenuLine Recent(const std::string& name) const { return {Q(name), Q(dir_.string()), true}; }
  static MenuLine Separator() { return {QString(), QString(), true}; }
  static MenuLine ClearList(bool enabled) { return {QStringLiteral("Clear List"), QStringLiteral("Clear List"), enabled}; }

  // Drags `urls` onto the drawing area and drops them there when it takes
  // them; true when it took them.
  bool Drop(const QList<QUrl>& urls) {
    QWidget* area = Control<QWidget>(QStringLiteral("picDraw"));
    QMimeData mime;
    mime.setUrls(urls);
    const QPoint at = area->rect().center();
    QDragEnterEvent enter(at, Qt::CopyAction | Qt::MoveAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(area, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop(QPointF(at), Qt::CopyAction | Qt::MoveAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(area, &drop);
    return drop.isAccepted();
  }
  static QUrl File(const std::string& path) { return QUrl::fromLocalFile(Q(path)); }
};


TEST_F(FilesTest, OpenShowsTheFirstPrintedLayerWithThePartFillingTheDrawing) {
  // After the start code (layer 0) the print's first layer, at 0.3 mm
  // (the arc print's at 0.2 mm), skirt and all.
  for (const auto& [name, first_z] : {std::pair{"cura_ring", 0.3}, {"prusa_prism", 0.3}, {"slic3r_box", 0.3},
                                      {"arc_cup", 0.2}}) {
    SCOPED_TRACE(name);
    const std::string path = Slicer(name);
    StartWith({path});
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
    EXPECT_EQ(doc.current_layer, 1);
    EXPECT_DOUBLE_EQ(doc.layer(doc.current_layer).z, first_z);
    EXPECT_EQ(Status(), "Load successful " + Q(path));
    EXPECT_TRUE(Shown("lstLayer", doc.current_layer));
    EXPECT_EQ(List("lstData")->line_count(), doc.layer(doc.current_layer).g_count);
    const OnView opened = Now();
    EXPECT_EQ(std::count(opened.layers.begin(), opened.layers.end(), 1), 1);
    EXPECT_EQ(std::count(opened.rows.begin(), opened.rows.end(), 0), 0);
    EXPECT_EQ(std::count(opened.marks.begin(), opened.marks.end(), 0), static_cast<long>(opened.marks.size()));

    // Every extruding vertex above the first two printed layers is in the
    // drawing, and the part fills most of it.
    int32_t left = INT32_MAX, right = INT32_MIN, bottom = INT32_MAX, top = INT32_MIN;
    for (int32_t l = doc.current_layer + 2; l < doc.layer_count; ++l)
      for (int32_t r = 0; r < doc.layer(l).g_count; ++r) {
        const g_entry& entry = doc.layer(l).g[static_cast<size_t>(r)];
        if (!is_move(entry.kind) || doc.coor(entry).no_extrude) continue;
        int32_t x, y;
        WorldToPixel(doc.coor(entry).x, doc.coor(entry).y, x, y);
        left = std::min(left, x), right = std::max(right, x), bottom = std::min(bottom, y), top = std::max(top, y);
      }
    EXPECT_GE(left, 0);
    EXPECT_GE(bottom, 0);
    EXPECT_LT(right, drawing.picture.width);
    EXPECT_LT(top, drawing.picture.height);
    EXPECT_TRUE(right - left >= 0.85 * drawing.picture.width || top - bottom >= 0.85 * drawing.picture.height);

    // Just as a click on the layer's line makes it.
    QTest::mouseClick(List("lstLayer")->viewport(), Qt::LeftButton, {},
                      List("lstLayer")->line_rect(doc.current_layer).center());
    EXPECT_EQ(opened, Now());
  }
}

TEST_F(FilesTest, ReloadKeepsTheLayerAndTheViewAndAsksFirst) {
  QAction* reload = Item(QStringLiteral("poFile_6"));
  EXPECT_EQ(reload->text(), QStringLiteral("&Reload"));
  EXPECT_EQ(reload->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_R));
  EXPECT_FALSE(reload->isEnabled());
  QStringList file_menu;
  for (const QAction* item : Control<QMenu>(QStringLiteral("mnFile"))->actions()) file_menu << item->text();
  EXPECT_EQ(file_menu, (QStringList{"&Open...", "Open Rec&ent", "&Save", "Save &As...", "&Reload", "Export", "",
                                    "&Quit"}));

  const std::string path = Write("vase.gcode", Read(Slicer("prusa_vase")));
  window_->LoadCommand(path);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
  EXPECT_TRUE(reload->isEnabled());
  Control<QSlider>(QStringLiteral("scrLayer"))->setValue(38);
  QTest::keyClick(window_.get(), Qt::Key_F2);  // Zoom +
  const WorldView before = view;
  Write("vase.gcode", Read(path) + "; touched\n");
  QTest::keyClick(window_.get(), Qt::Key_R, Qt::ControlModifier);
  EXPECT_EQ(doc.current_layer, 38);
  EXPECT_TRUE(Shown("lstLayer", 38));
  EXPECT_EQ(Status(2), QStringLiteral("Layer 38"));
  EXPECT_EQ(Status(), "Load successful " + Q(path));
  EXPECT_EQ(view.view_scale, before.view_scale);
  EXPECT_EQ(view.view_xmin, before.view_xmin);
  EXPECT_EQ(view.view_ymin, before.view_ymin);

  // Fewer layers now: the last one.
  Write("vase.gcode", Layers(5));
  QTest::keyClick(window_.get(), Qt::Key_R, Qt::ControlModifier);
  EXPECT_EQ(doc.layer_count, 5);
  EXPECT_EQ(doc.current_layer, 4);

  // A changed document asks first; Cancel keeps it.
  doc.modified = true;
  dialogs_.answers = {QMessageBox::Cancel};
  QTest::keyClick(window_.get(), Qt::Key_R, Qt::ControlModifier);
  ASSERT_EQ(dialogs_.seen.size(), 1u);
  EXPECT_EQ(dialogs_.seen[0].text, Q(path) + " has been modified. Save changes?");
  EXPECT_TRUE(doc.modified);

  // A file gone: as a failed Open, the document stays.
  doc.modified = false;
  fs::remove(path);
  reload->trigger();
  EXPECT_EQ(Status(), "Load failed " + Q(path));
  EXPECT_TRUE(IsDocumentLoaded());
  EXPECT_EQ(doc.file_name, path);
}

TEST_F(FilesTest, OpenRecentListsNewestFirstKeepsEightAndSurvivesARestart) {
  EXPECT_EQ(RecentMenu(), (std::vector<MenuLine>{Separator(), ClearList(false)}));
  for (const char* name : {"a.gcode", "b.gcode", "c.gcode", "a.gcode"}) window_->LoadCommand(Write(name, Layers(3)));
  const std::vector<MenuLine> three{Recent("a.gcode"), Recent("c.gcode"), Recent("b.gcode"), Separator(),
                                    ClearList(true)};
  EXPECT_EQ(RecentMenu(), three);

  StartWith({});
  EXPECT_EQ(RecentMenu(), three);

  // A file that is gone is greyed; a chosen one opens and comes first.
  fs::remove(dir_ / "b.gcode");
  std::vector<MenuLine> lines = RecentMenu();
  EXPECT_FALSE(lines[2].enabled);
  Item(QStringLiteral("poRecent_1"))->trigger();
  EXPECT_EQ(doc.file_name, (dir_ / "c.gcode").string());
  lines = RecentMenu();
  ASSERT_EQ(lines.size(), 5u);
  EXPECT_EQ(lines[0], Recent("c.gcode"));

  // Eight at most, the oldest dropped.
  for (int i = 0; i < 9; ++i) window_->LoadCommand(Write("n" + std::to_string(i) + ".gcode", Layers(2)));
  lines = RecentMenu();
  ASSERT_EQ(lines.size(), 10u);
  EXPECT_EQ(lines[0], Recent("n8.gcode"));
  EXPECT_EQ(lines[7], Recent("n1.gcode"));

  // Clear List, then a save puts the file back.
  Item(QStringLiteral("poRecent_clear"))->trigger();
  EXPECT_EQ(RecentMenu(), (std::vector<MenuLine>{Separator(), ClearList(false)}));
  QTest::keyClick(window_.get(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(RecentMenu(), (std::vector<MenuLine>{Recent("n8.gcode"), Separator(), ClearList(true)}));
}

TEST_F(FilesTest, ADroppedGCodeFileOpensAndOtherDropsAreRefused) {
  const std::string notes = Write("notes.txt", "G1 X1 Y1 E1\n");
  EXPECT_FALSE(Drop({File(notes)}));
  EXPECT_FALSE(Drop({QUrl(QStringLiteral("https://example.org/print.gcode"))}));
  EXPECT_FALSE(Drop({}));
  QApplication::processEvents();
  EXPECT_FALSE(IsDocumentLoaded());

  // Of several files the first.
  const std::string first = Write("first.GCODE", Layers(3)), second = Write("second.g", Layers(4));
  EXPECT_TRUE(Drop({File(first), File(second)}));
  QTRY_COMPARE(Q(doc.file_name), Q(first));
  EXPECT_EQ(doc.current_layer, 1);

  // The save question first; Cancel keeps the document.
  doc.modified = true;
  dialogs_.answers = {QMessageBox::Cancel};
  EXPECT_TRUE(Drop({File(second)}));
  QTRY_COMPARE(dialogs_.seen.size(), size_t{1});
  EXPECT_EQ(doc.file_name, first);
  dialogs_.answers = {QMessageBox::No};
  EXPECT_TRUE(Drop({File(second)}));
  QTRY_COMPARE(Q(doc.file_name), Q(second));
}

}  // namespace
}  // namespace korvexed::testing
