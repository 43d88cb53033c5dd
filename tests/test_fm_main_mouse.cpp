// Editing in the window with the real mouse on picDraw: drags, rubber
// bands, clicks with the modifier keys, pans, the hover text, and the
// pop-up menus with their dialogs answered from the keyboard.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QRadioButton>
#include <QSlider>
#include <QTest>
#include <QTimer>
#include <deque>
#include <fstream>
#include <functional>

#include "controls/list_box.h"
#include "document/korvexed_file.h"
#include "editing/consistency.h"
#include "editing/list_state.h"
#include "tests/gui_fixture.h"
#include "view/korvexed_graphic.h"
#include "view/world_view.h"

namespace korvexed::testing {
namespace {

// Records 1 to 4 at (2, 2), (10, 2), (10, 10) and (2, 10) mm, one unit of E
// per millimetre; the last two at F1800.
const char* const square =
    "G1 X2 Y2 F1200\n"
    "G1 X10 Y2 E8\n"
    "G1 X10 Y10 E16 F1800\n"
    "G1 X2 Y10 E24\n";

// Answers the pop-up menus and the editing dialogs that open: clicks the
// queued items of each menu in turn (closing a menu with none queued), and
// hands each dialog to the queued answer (Escape when none).
class PopupWatcher {
 public:
  PopupWatcher() {
    QObject::connect(&timer_, &QTimer::timeout, [this] { Answer(); });
    timer_.start(5);
  }

  std::deque<QString> items;
  std::deque<std::function<void(QDialog&)>> answers;
  std::vector<QString> menus;              // the menus shown, by name
  std::vector<QStringList> enabled;        // the enabled items of each, by name
  std::vector<int> preview_pixels;         // yellow pixels while each menu was open
  std::vector<Qt::CursorShape> pointers;   // the pointer over each menu
  std::vector<QRect> dialogs;              // where each dialog opened

 private:
  void Answer() {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu) return Choose(*menu);
    open_menu_ = nullptr;
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog || (dialog->objectName() != "fmValueInput" && dialog->objectName() != "fmTextInput")) return;
    dialogs.push_back(dialog->frameGeometry());
    if (answers.empty()) return QTest::keyClick(dialog, Qt::Key_Escape);
    const auto answer = std::move(answers.front());
    answers.pop_front();
    answer(*dialog);
  }

  void Choose(QMenu& menu) {
    if (menu.objectName().startsWith("mn") && open_menu_ != &menu) {
      open_menu_ = &menu;
      menus.push_back(menu.objectName());
      enabled.emplace_back();
      for (QAction* item : menu.actions())
        if (item->isEnabled() && item->isVisible()) enabled.back() << item->objectName();
      preview_pixels.push_back(CountPixels(RgbT(255, 255, 0)));
      const QCursor* pointer = QApplication::overrideCursor();
      pointers.push_back(pointer ? pointer->shape() : Qt::ArrowCursor);
    }
    if (items.empty()) {
      menu.close();
      return;
    }
    for (QAction* item : menu.actions()) {
      if (item->objectName() != items.front()) continue;
      items.pop_front();
      // Clicked from the event loop: the command it runs may open a dialog,
      // which this watcher answers from its next tick.
      const QPoint at = menu.actionGeometry(item).center();
      QTimer::singleShot(0, &menu, [&menu, at] { QTest::mouseClick(&menu, Qt::LeftButton, {}, at); });
      return;
    }
  }

  QTimer timer_;
  QMenu* open_menu_ = nullptr;  // the drawing area's menu now open, counted once
};

// Types into the dialog's text boxes by name, then presses Enter.
std::function<void(QDialog&)> Type(std::vector<std::pair<QString, QString>> texts) {
  return [texts](QDialog& dialog) {
    for (const auto& [name, text] : texts) {
      auto* box = dialog.findChild<QLineEdit*>(name);
      ASSERT_NE(box, nullptr) << name.toStdString();
      box->setText(text);
    }
    QTest::keyClick(&dialog, Qt::Key_Return);
  };
}

class MouseTest : public FmMainTest {
 protected:
  void SetUp() override {
    FmMainTest::SetUp();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
    area_ = Control<QWidget>(QStringLiteral("picDraw"));
    path_ = Write("square.gcode", square);
    window_->LoadCommand(path_);
    // Ten pixels a millimetre, the origin at the bottom-left pixel.
    view.view_scale = 10;
    view.view_offset_x = view.view_offset_y = 0;
    UpdateViewBounds();
    RedrawView();
  }

  // The area's position (y downwards) of a world point, moved by (dx, dy).
  static QPoint At(double wx, double wy, int dx = 0, int dy = 0) {
    int32_t px, py;
    WorldToPixel(wx, wy, px, py);
    return {px + dx, drawing.picture.height - py + dy};
  }
  static void Mark(std::initializer_list<int32_t> records) {
    std::fill(lists.select_flag.begin(), lists.select_flag.end(), 0);
    for (const int32_t r : records) lists.select_flag[static_cast<size_t>(r)] = 1;
    ApplySelection(false);
  }
  // The marks of records 1 to 4, as "0110".
  static std::string Marks() {
    std::string marks;
    for (int32_t r = 1; r <= 4; ++r) marks += lists.select_flag[static_cast<size_t>(r)] ? '1' : '0';
    return marks;
  }
  static const coor_data& Record(int32_t r) { return doc.coor(doc.current_layer, r); }
  // One field of records 1 to 4.
  static std::vector<double> Field(double coor_data::*field) {
    std::vector<double> values;
    for (int32_t r = 1; r <= 4; ++r) values.push_back(Record(r).*field);
    return values;
  }

  void Drag(Qt::MouseButton button, QPoint from, QPoint to, Qt::KeyboardModifiers keys = {}) {
    QTest::mousePress(area_, button, {}, from);
    QTest::mouseMove(area_, to);
    QTest::mouseRelease(area_, button, keys, to);
  }
  void Click(Qt::MouseButton button, QPoint at, Qt::KeyboardModifiers keys = {}) {
    QTest::mouseClick(area_, button, keys, at);
  }
  // A move with no button held.
  void Hover(QPoint at) {
    QMouseEvent event(QEvent::MouseMove, at, area_->mapToGlobal(at), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(area_, &event);
  }
  std::string Saved() {
    window_->SaveFileFunc(1);
    std::ifstream in(path_, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
  }

  QWidget* area_ = nullptr;
  std::string path_;
  PopupWatcher popups_;
};

TEST_F(MouseTest, APressNearAMarkedVertexDragsTheSelectionAndTheFileKeepsTheExtrusionPerMillimetre) {
  Mark({2, 3});
  // 4.5 pixels from record 2; the steps add up to 1 mm right and 2 mm up.
  QTest::mousePress(area_, Qt::LeftButton, {}, At(10, 2, 4, -2));
  QTest::mouseMove(area_, At(10, 2, 9, -12));
  EXPECT_EQ(Status(), "Movement dX (0.5), dY (1)");
  QTest::mouseMove(area_, At(10, 2, 14, -22));
  QTest::mouseRelease(area_, Qt::LeftButton, {}, At(10, 2, 14, -22));
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);  // the busy pointer is back to normal
  EXPECT_TRUE(doc.modified);
  EXPECT_EQ(CheckConsistency(), "");
  // The moved moves are sqrt(85) long; the middle one keeps its 8 mm.
  EXPECT_EQ(Saved(),
            "G1 X2 Y2 F1200\r\nG1 X11 Y4 E9.21954\r\nG1 Y12 E17.21954 F1800\r\nG1 X2 Y10 E26.43909\r\n");
}

TEST_F(MouseTest, APressSixPixelsAwayDrawsABandWithItsSizeAndMarksWhatItHolds) {
  Mark({1, 2});
  const QPoint from = At(10, 2, -6, 0), to = At(10, 2, 30, -20);
  QTest::mousePress(area_, Qt::LeftButton, {}, from);
  QTest::mouseMove(area_, to);
  EXPECT_EQ(Status(), "X1 (9.4), Y1 (2) - X2 (13), Y2 (4) - dX (3.6), dY (2)");
  const QImage band = area_->grab().toImage();
  EXPECT_EQ(band.pixelColor(from.x(), to.y() + 5), QColor(255, 255, 0));  // its left edge, over the picture
  QTest::mouseRelease(area_, Qt::LeftButton, {}, to);
  EXPECT_EQ(Marks(), "0100");
  EXPECT_FALSE(doc.modified);
  EXPECT_NE(area_->grab().toImage().pixelColor(from.x(), to.y() + 5), QColor(255, 255, 0));
}

TEST_F(MouseTest, BandsAddWithShiftInvertWithCtrlRemoveWithAltAndCtrlWinsOverAlt) {
  const struct {
    std::initializer_list<int32_t> before;
    Qt::KeyboardModifiers keys;
    const char* after;
  } cases[] = {{{1, 2}, Qt::ShiftModifier, "1110"},
               {{2}, Qt::ControlModifier, "0010"},
               {{1, 2, 3}, Qt::AltModifier, "1000"},
               {{2}, Qt::ControlModifier | Qt::AltModifier, "0010"}};
  for (const auto& c : cases) {
    Mark(c.before);
    Drag(Qt::LeftButton, At(9, 1), At(11, 11), c.keys);  // around records 2 and 3
    EXPECT_EQ(Marks(), c.after) << c.keys.toInt();
  }
  EXPECT_EQ(Status(), "1 vertex selected");
}

// Each case marks `before`, clicks, and expects the marks of records 1 to 4.
TEST_F(MouseTest, ClicksMarkVerticesAndLineEndsAsTheKeysSay) {
  struct Case {
    const char* what;
    std::initializer_list<int32_t> before;
    QPoint at;
    Qt::KeyboardModifiers keys;
    const char* after;
  };
  const Case cases[] = {
      {"a vertex alone", {1}, At(10, 10, 2, 2), {}, "0010"},
      {"Shift adds a vertex", {3}, At(2, 10), Qt::ShiftModifier, "0011"},
      {"Alt never marks a vertex", {3, 4}, At(10, 2), Qt::AltModifier, "0011"},
      {"a marked vertex alone", {1, 2, 3}, At(10, 2), {}, "0100"},
      {"Ctrl unmarks a marked vertex", {2}, At(10, 2), Qt::ControlModifier, "0000"},
      {"both ends of a line alone", {2}, At(6, 10, 0, 2), {}, "0011"},
      {"Alt unmarks a line's ends", {3, 4}, At(6, 10), Qt::AltModifier, "0000"},
      {"Ctrl swaps a line's ends", {2}, At(10, 6, 3, 0), Qt::ControlModifier, "0010"},
      {"Shift keeps all on empty space", {2, 3}, At(6, 6), Qt::ShiftModifier, "0110"},
      {"empty space unmarks all", {2, 3}, At(6, 6), {}, "0000"},
  };
  for (const Case& c : cases) {
    Mark(c.before);
    Click(Qt::LeftButton, c.at, c.keys);
    EXPECT_EQ(Marks(), c.after) << c.what;
  }
  EXPECT_FALSE(doc.modified);
}

TEST_F(MouseTest, ARightOrMiddleDragMovesThePictureWithThePointer) {
  const QPoint before = At(10, 2);
  Drag(Qt::RightButton, At(5, 5), At(5, 5, 30, 20));
  EXPECT_EQ(At(10, 2), before + QPoint(30, 20));
  Drag(Qt::MiddleButton, At(5, 5), At(5, 5, -30, -20));
  EXPECT_EQ(At(10, 2), before);
  EXPECT_TRUE(popups_.menus.empty());  // a drag opens no menu
  EXPECT_FALSE(doc.modified);
}

TEST_F(MouseTest, TheFirstHoverAfterAReleaseShowsNoText) {
  Click(Qt::LeftButton, At(6, 6));
  const QString after_click = Status();
  Hover(At(3, 4));
  EXPECT_EQ(Status(), after_click);
  Hover(At(3, 4));
  EXPECT_EQ(Status(), "Mouse location X (3), Y (4)");
}

TEST_F(MouseTest, NoMenuOnEmptySpaceNorWithoutADocument) {
  Click(Qt::RightButton, At(6, 6));
  EXPECT_TRUE(popups_.menus.empty());
  StartWith({});
  area_ = Control<QWidget>(QStringLiteral("picDraw"));
  Click(Qt::RightButton, At(6, 2));
  Hover(At(6, 2));
  Hover(At(6, 2));
  EXPECT_TRUE(popups_.menus.empty());
  EXPECT_EQ(Status(), QString());
}

TEST_F(MouseTest, TwoPointsFromTheMenuCutTheLineInThree) {
  popups_.items = {"poUnSelectEdit_1", "poPoint_1"};
  Click(Qt::RightButton, At(6, 2, 0, 2));
  ASSERT_EQ(popups_.menus, std::vector<QString>{"mnUnSelectEdit"});
  EXPECT_EQ(popups_.pointers.at(0), Qt::ArrowCursor);  // not the busy one
  ASSERT_EQ(doc.layer(0).g_count, 7);
  EXPECT_NEAR(Record(3).x, 2 + 16.0 / 3, 1e-12);  // the even spread is checked by the CLI insert-points test
  EXPECT_TRUE(doc.modified);
  EXPECT_EQ(CheckConsistency(), "");
}

TEST_F(MouseTest, CopiedVerticesPasteBeforeTheLineRightClickedAndCtrlZTakesThemBack) {
  Mark({2});
  area_->setFocus();
  QTest::keyClick(window_.get(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "G1 X10 Y2 E8 F1200\n");
  popups_.items = {"poUnSelectEdit_0"};
  Click(Qt::RightButton, At(6, 10));  // the line that ends at record 4
  ASSERT_EQ(doc.layer(0).g_count, 6);
  EXPECT_EQ((std::pair{Record(4).x, Record(4).y}), (std::pair{10.0, 2.0}));
  EXPECT_EQ(CheckConsistency(), "");
  QTest::keyClick(window_.get(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(doc.layer(0).g_count, 5);
}

TEST_F(MouseTest, TheInsertPreviewIsWipedWhenTheMenuClosesUnused) {
  const QImage before = area_->grab().toImage();
  Click(Qt::RightButton, At(6, 2));
  EXPECT_GT(popups_.preview_pixels.at(0), 70);  // the 8 mm line and its arrow, in yellow
  EXPECT_EQ(area_->grab().toImage(), before);
  EXPECT_FALSE(doc.modified);
}

TEST_F(MouseTest, ChangeFeedrateWithZeroChangesAllMarkedAndWithAnOldValueOnlyThoseAtIt) {
  Mark({1, 2, 3});
  popups_.items = {"poSelectEdit_3"};
  popups_.answers = {Type({{"txt_0", "1800"}, {"txt_1", "2400"}})};
  Click(Qt::RightButton, At(10, 10));
  EXPECT_EQ(Field(&coor_data::f), (std::vector<double>{1200, 1200, 2400, 1800}));  // record 4 is not marked

  popups_.items = {"poSelectEdit_3"};
  popups_.answers = {[](QDialog& dialog) {
    EXPECT_EQ(dialog.findChild<QLineEdit*>("txt_0")->text(), "1800");  // remembered
    Type({{"txt_0", "0"}, {"txt_1", "600"}})(dialog);
  }};
  Click(Qt::RightButton, At(10, 10));
  EXPECT_EQ(Field(&coor_data::f), (std::vector<double>{600, 600, 600, 1800}));
  EXPECT_TRUE(doc.modified);
  // Centred over the window.
  const QPoint off = popups_.dialogs.at(0).center() - window_->frameGeometry().center();
  EXPECT_LE(off.manhattanLength(), 2);
}

TEST_F(MouseTest, EscapeOrOkWithoutAChangeLeavesTheDocumentUnmodified) {
  Mark({2});
  popups_.items = {"poSelectEdit_3"};
  Click(Qt::RightButton, At(10, 2));  // no answer queued: Escape
  popups_.items = {"poSelectEdit_2"};
  popups_.answers = {Type({})};
  Click(Qt::RightButton, At(10, 2));
  EXPECT_EQ(popups_.dialogs.size(), 2u);
  EXPECT_EQ(Record(2).f, 1200);
  EXPECT_FALSE(doc.modified);
}

TEST_F(MouseTest, EditingXByTwoWithThreeVerticesMarkedMovesAllThree) {
  Mark({2, 3, 4});
  popups_.items = {"poSelectEdit_2"};
  popups_.answers = {Type({{"txtX", "12"}})};
  Click(Qt::RightButton, At(10, 2));
  EXPECT_EQ(Field(&coor_data::x), (std::vector<double>{2, 12, 12, 4}));
  EXPECT_EQ(CheckConsistency(), "");
  EXPECT_TRUE(doc.modified);
}

TEST_F(MouseTest, AShakeOnAClickMovesNothingAndADragFollowsTheWholeOffsetFromThePress) {
  Mark({2});
  QTest::mousePress(area_, Qt::LeftButton, {}, At(10, 2));
  QTest::mouseMove(area_, At(10, 2, 2, -2));
  QTest::mouseRelease(area_, Qt::LeftButton, {}, At(10, 2, 2, -2));
  EXPECT_EQ(Field(&coor_data::x), (std::vector<double>{2, 10, 10, 2}));
  EXPECT_EQ(Marks(), "0100");  // a click on the marked vertex
  EXPECT_FALSE(doc.modified);

  QTest::mousePress(area_, Qt::LeftButton, {}, At(10, 2));
  QTest::mouseMove(area_, At(10, 2, 2, 0));
  EXPECT_FALSE(doc.modified);
  QTest::mouseMove(area_, At(10, 2, 3, 0));
  EXPECT_NEAR(Record(2).x, 10.3, 1e-12);
  QTest::mouseMove(area_, At(10, 2, 10, -5));
  EXPECT_EQ(Status(), "Movement dX (1), dY (0.5)");
  QTest::mouseRelease(area_, Qt::LeftButton, {}, At(10, 2, 10, -5));
  EXPECT_NEAR(Record(2).x, 11, 1e-12);
  EXPECT_NEAR(Record(2).y, 2.5, 1e-12);
  EXPECT_EQ(CheckConsistency(), "");
}

TEST_F(MouseTest, AfterEveryEditTheDataSliderReachesEachRecordAndTheStatusCountsTheMarks) {
  auto* slider = Control<QSlider>(QStringLiteral("scrData"));
  Mark({2});
  popups_.items = {"poSelectEdit_4"};
  Click(Qt::RightButton, At(10, 2));
  ASSERT_EQ(doc.layer(0).g_count, 4);
  EXPECT_EQ(slider->maximum(), 3);
  EXPECT_EQ(Status(1), "0 vertex selected");
  EXPECT_EQ(Status(3), "Multi Data");

  // One point on the line from (10, 10) to (2, 10), before record 3.
  popups_.items = {"poUnSelectEdit_1", "poPoint_0"};
  Click(Qt::RightButton, At(6, 10, 0, 2));
  ASSERT_EQ(doc.layer(0).g_count, 5);
  EXPECT_EQ(slider->maximum(), 4);
  EXPECT_EQ(Status(1), "1 vertex selected");
  EXPECT_EQ(Status(3), "Data 3");
}

TEST_F(MouseTest, EditSelectedDataAppliesOnlyTheFieldsTheUserChanged) {
  Mark({2, 3});  // at F1200 and F1800
  popups_.items = {"poSelectEdit_2"};
  popups_.answers = {Type({{"txtX", "11"}})};
  Click(Qt::RightButton, At(10, 2));
  EXPECT_EQ(Field(&coor_data::x), (std::vector<double>{2, 11, 11, 2}));
  EXPECT_EQ(Field(&coor_data::f), (std::vector<double>{1200, 1200, 1800, 1800}));
  EXPECT_DOUBLE_EQ(Field(&coor_data::e_delta)[2], 8);  // its length is still 8 mm
  EXPECT_EQ(Status(), "2 vertices selected");

  popups_.items = {"poSelectEdit_2"};
  popups_.answers = {[](QDialog& dialog) {
    dialog.findChild<QRadioButton*>("optGCode_0")->click();
    Type({{"txtF", "600"}})(dialog);
  }};
  Click(Qt::RightButton, At(11, 2));
  EXPECT_EQ(Field(&coor_data::f), (std::vector<double>{1200, 600, 600, 1800}));
  const layer_data& layer = doc.layer(0);
  EXPECT_EQ(layer.g[2].kind, line_kind::g0);
  EXPECT_EQ(layer.g[3].kind, line_kind::g0);
  EXPECT_EQ(layer.g[4].kind, line_kind::g1);
  EXPECT_EQ(CheckConsistency(), "");
}

TEST_F(MouseTest, TheRulerMeasuresADragInTheLocalesNumbersAndMarksAndMovesNothing) {
  QAction* ruler = Item(QStringLiteral("poTools_0"));
  ruler->trigger();
  EXPECT_TRUE(ruler->isChecked());
  Mark({2});
  const std::vector<double> xs = Field(&coor_data::x);
  // From the marked vertex (10, 2), 3 mm right and 4 mm up.
  Drag(Qt::LeftButton, At(10, 2), At(13, 6));
  EXPECT_EQ(Status(), QString::fromUtf8("Ruler: 5 mm, dX 3, dY 4, 53.1301\u00b0"));
  EXPECT_EQ(Marks(), "0100");
  EXPECT_EQ(Field(&coor_data::x), xs);
  EXPECT_FALSE(doc.modified);
  EXPECT_EQ(area_->grab().toImage().pixelColor(At(11.5, 4)), QColor(255, 255, 0));  // the measuring line
  doc.decimal_comma = true;
  Drag(Qt::LeftButton, At(13, 6), At(10, 2));
  EXPECT_EQ(Status(), QString::fromUtf8("Ruler: 5 mm, dX -3, dY -4, -126,8699\u00b0"));
  doc.decimal_comma = false;

  QTest::keyClick(area_, Qt::Key_Escape);
  EXPECT_FALSE(ruler->isChecked());
  Drag(Qt::LeftButton, At(9, 1), At(11, 3));  // a band again
  EXPECT_EQ(Marks(), "0100");
  EXPECT_TRUE(Status().startsWith("1 vertex selected"));
  ruler->trigger();
  ruler->trigger();
  EXPECT_FALSE(ruler->isChecked());
}

TEST_F(MouseTest, TheEditMenuOffersFeedrateAndItsShortcutsNeedADocument) {
  Mark({2});
  Click(Qt::RightButton, At(10, 2));
  ASSERT_EQ(popups_.enabled.size(), 1u);
  EXPECT_EQ(popups_.enabled[0],
            (QStringList{"poSelectEdit_0", "poSelectEdit_1", "poSelectEdit_2", "poSelectEdit_3", "poSelectEdit_4"}));

  StartWith({});
  for (const auto key : {Qt::Key_F, Qt::Key_E}) QTest::keyClick(window_.get(), key, Qt::ControlModifier);
  QTest::keyClick(window_.get(), Qt::Key_Delete);
  EXPECT_TRUE(popups_.dialogs.empty());
}

TEST_F(MouseTest, ATextRowIsEditedFromTheDataListAndTheShortcutsThenStillReachTheMarks) {
  window_->LoadCommand(Write("text.gcode", std::string("; begin\n") + square));
  const int32_t text_row = 1;
  ASSERT_EQ(doc.layer(0).g[text_row].kind, line_kind::text);
  auto* data = Control<ListBox>(QStringLiteral("lstData"));
  QTest::mouseClick(data->viewport(), Qt::LeftButton, {}, data->line_rect(text_row).center());
  popups_.items = {"poSelectEdit_2"};
  popups_.answers = {Type({{"txtS", "; start"}})};
  QTest::mouseClick(data->viewport(), Qt::RightButton, {}, data->line_rect(text_row).center());
  ASSERT_EQ(popups_.enabled.size(), 1u);
  EXPECT_EQ(popups_.enabled[0],
            (QStringList{"poSelectEdit_0", "poSelectEdit_1", "poSelectEdit_2", "poSelectEdit_4"}));
  EXPECT_EQ(std::string_view(doc.text_list[doc.layer(0).g[text_row].index]), "; start");
  EXPECT_EQ(Status(1), Q(DataLineText(text_row)));
  EXPECT_EQ(Status(3), "Data 1");

  DataViewCommand(4);  // every row on view again
  Mark({3});
  popups_.answers = {Type({{"txt_0", "0"}, {"txt_1", "900"}})};
  window_->activateWindow();  // the offscreen platform does not hand it back after a dialog
  ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  QTest::keyClick(window_.get(), Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(Record(3).f, 900);
}

// Undo and Redo from the keys, the Edit menu and the toolbar.
class UndoTest : public MouseTest {
 protected:
  void Key(Qt::Key key, Qt::KeyboardModifiers keys = {}) {
    window_->activateWindow();  // the offscreen platform does not hand it back after a dialog
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    QTest::keyClick(window_.get(), key, keys);
  }
  // The bytes a save would write, without saving.
  std::string Bytes() const {
    const std::string copy = (dir_ / "copy.gcode").string();
    EXPECT_TRUE(SaveGCode(copy, save_plain));
    std::ifstream in(copy, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
  }
  // A drag of the marked vertex 2, in two steps of the pointer.
  void DragVertex2() {
    QTest::mousePress(area_, Qt::LeftButton, {}, At(10, 2, 4, -2));
    QTest::mouseMove(area_, At(10, 2, 9, -12));
    QTest::mouseMove(area_, At(10, 2, 14, -22));
    QTest::mouseRelease(area_, Qt::LeftButton, {}, At(10, 2, 14, -22));
  }
  void ClickButton(int index) {
    QTest::mouseClick(Control<QWidget>(QStringLiteral("CoolButton1_%1").arg(index)), Qt::LeftButton);
  }
  QAction* UndoItem() const { return Item(QStringLiteral("poEdit_0")); }
  QAction* RedoItem() const { return Item(QStringLiteral("poEdit_1")); }
};

TEST_F(UndoTest, TheEditMenuStandsAfterFileAndItsButtonsAfterSave) {
  const QList<QAction*> menus = window_->menuBar()->actions();
  ASSERT_GE(menus.size(), 3);
  EXPECT_EQ(menus[0]->text(), "&File");
  EXPECT_EQ(menus[1]->text(), "&Edit");
  EXPECT_EQ(menus[2]->text(), "&View");
  EXPECT_EQ(RedoItem()->shortcuts(), (QList<QKeySequence>{QKeySequence(QStringLiteral("Ctrl+Y")),
                                                          QKeySequence(QStringLiteral("Ctrl+Shift+Z"))}));
  const auto x = [this](int index) { return Control<QWidget>(QStringLiteral("CoolButton1_%1").arg(index))->x(); };
  EXPECT_LT(x(1), x(12));
  EXPECT_LT(x(12), x(13));
  EXPECT_LT(x(13), x(2));
  EXPECT_EQ(Control<QWidget>(QStringLiteral("CoolButton1_12"))->toolTip(), "Undo");
  EXPECT_EQ(Control<QWidget>(QStringLiteral("CoolButton1_13"))->toolTip(), "Redo");
  EXPECT_FALSE(Control<QWidget>(QStringLiteral("CoolButton1_12"))->isEnabled());
}

TEST_F(UndoTest, AWholeDragIsOneStepThatCtrlZTakesBackAndCtrlYOrCtrlShiftZAppliesAgain) {
  const std::string untouched = Bytes();
  EXPECT_EQ(UndoItem()->text(), "&Undo");
  EXPECT_FALSE(UndoItem()->isEnabled());
  Mark({2, 3});
  DragVertex2();
  const std::vector<double> moved = Field(&coor_data::x);
  EXPECT_EQ(UndoItem()->text(), "&Undo Move");
  EXPECT_TRUE(UndoItem()->isEnabled());
  EXPECT_FALSE(RedoItem()->isEnabled());
  Mark({1});  // a change of marks is no step; Undo brings back those of the drag
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Field(&coor_data::x), (std::vector<double>{2, 10, 10, 2}));
  EXPECT_EQ(Marks(), "0110");
  EXPECT_EQ(Status(), "2 vertices selected");
  EXPECT_FALSE(doc.modified);
  EXPECT_EQ(UndoItem()->text(), "&Undo");
  EXPECT_FALSE(UndoItem()->isEnabled());
  EXPECT_EQ(RedoItem()->text(), "&Redo Move");
  Key(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(Field(&coor_data::x), moved);
  EXPECT_TRUE(doc.modified);
  Key(Qt::Key_Z, Qt::ControlModifier);
  Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Field(&coor_data::x), moved);
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Saved(), untouched);
}

TEST_F(UndoTest, EveryEditIsAStepThatTheMenuAndTheToolbarTakeBackAndApplyAgain) {
  const std::string untouched = Bytes();
  const struct {
    const char* step;
    std::function<void()> edit;
  } cases[] = {
      {"Change Feedrate",
       [&] {
         popups_.items = {"poSelectEdit_3"};
         popups_.answers = {Type({{"txt_0", "0"}, {"txt_1", "900"}})};
         Click(Qt::RightButton, At(10, 2));
       }},
      {"Edit Selected Data",
       [&] {
         popups_.items = {"poSelectEdit_2"};
         popups_.answers = {Type({{"txtX", "12"}})};
         Click(Qt::RightButton, At(10, 2));
       }},
      {"Delete Selected Data", [&] { Key(Qt::Key_Delete); }},
      {"Insert Point(s)",
       [&] {
         popups_.items = {"poUnSelectEdit_1", "poPoint_1"};
         Click(Qt::RightButton, At(6, 2, 0, 2));
       }},
      {"Translate All GCode",
       [&] {
         popups_.answers = {Type({{"txt_1", "5"}})};
         Item(QStringLiteral("poTools_1"))->trigger();
       }},
      {"Scale Extrusion Rate",
       [&] {
         popups_.answers = {Type({{"txt_0", "50"}})};
         emit Control<QMenu>(QStringLiteral("mnTools"))->aboutToShow();
         Item(QStringLiteral("poTools_2"))->trigger();
       }},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.step);
    Mark({2});
    c.edit();
    const std::string edited = Bytes();
    ASSERT_NE(edited, untouched);
    EXPECT_EQ(UndoItem()->text(), QStringLiteral("&Undo ") + QString::fromLatin1(c.step));
    ClickButton(12);
    EXPECT_EQ(Bytes(), untouched);
    EXPECT_FALSE(doc.modified);
    EXPECT_EQ(RedoItem()->text(), QStringLiteral("&Redo ") + QString::fromLatin1(c.step));
    ClickButton(13);
    EXPECT_EQ(Bytes(), edited);
    UndoItem()->trigger();
    EXPECT_EQ(Bytes(), untouched);
    RedoItem()->trigger();
    EXPECT_EQ(Bytes(), edited);
    UndoItem()->trigger();
  }
}

TEST_F(UndoTest, ScaleExtrusionRateAsksForAPercentageAndIsGreyedWithoutMarks) {
  QMenu* tools = Control<QMenu>(QStringLiteral("mnTools"));
  QAction* scale = Item(QStringLiteral("poTools_2"));
  emit tools->aboutToShow();
  EXPECT_FALSE(scale->isEnabled());
  Mark({2});
  emit tools->aboutToShow();
  ASSERT_TRUE(scale->isEnabled());
  popups_.answers = {[](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Scale Extrusion Rate");
    EXPECT_EQ(dialog.findChild<QLineEdit*>("txt_0")->text(), "100");
    Type({{"txt_0", "5000"}})(dialog);  // at most 1000 %
  }};
  scale->trigger();
  EXPECT_EQ(Record(2).e_delta, 80);
}

TEST_F(UndoTest, AReloadStartsANewHistory) {
  Mark({2});
  DragVertex2();
  dialogs_.answers = {QMessageBox::No};
  Item(QStringLiteral("poFile_6"))->trigger();
  EXPECT_EQ(dialogs_.seen.size(), 1u);
  EXPECT_FALSE(UndoItem()->isEnabled());
  EXPECT_FALSE(doc.modified);
}

TEST_F(UndoTest, UndoingBackToTheFileAsLoadedClosesWithoutAsking) {
  Mark({2});
  DragVertex2();
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(window_->close());
  EXPECT_TRUE(dialogs_.seen.empty());
}

TEST_F(UndoTest, UndoingPastTheLastSaveAsksAtClose) {
  Mark({2});
  DragVertex2();
  Saved();
  Key(Qt::Key_Z, Qt::ControlModifier);  // a save keeps the history
  EXPECT_TRUE(doc.modified);
  dialogs_.answers = {QMessageBox::No};
  EXPECT_TRUE(window_->close());
  EXPECT_EQ(dialogs_.seen.size(), 1u);
}

}  // namespace
}  // namespace korvexed::testing
