// The layer, data and selection lists of the window, worked with the mouse
// and keys on the real controls: their lines, sliders, buttons and menus.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QSlider>
#include <QWheelEvent>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QTest>
#include <QTimer>
#include <string>

#include "controls/list_box.h"
#include "document/document.h"
#include "editing/list_state.h"
#include "tests/gui_fixture.h"

namespace korvexed::testing {
namespace {

// Layer 0 holds the set-up lines, layers 1 to 4 a Z move and two
// extruding moves each.
const char* const five_layers =
    "G21\nG92 E0\n"
    "G1 X10 Y10 Z0.2\nG1 X20 Y10 E1\nG1 X20 Y20 E2\n"
    "G1 X10 Y10 Z0.4\nG1 X20 Y10 E3\nG1 X20 Y20 E4\n"
    "G1 X10 Y10 Z0.6\nG1 X20 Y10 E5\nG1 X20 Y20 E6\n"
    "G1 X10 Y10 Z0.8\nG1 X20 Y10 E7\nG1 X20 Y20 E8\n";

using U8 = std::vector<uint8_t>;

class ListsTest : public FmMainTest {
 protected:
  void SetUp() override {
    FmMainTest::SetUp();
    window_->LoadCommand(Write("five.gcode", five_layers));
    QApplication::processEvents();
  }
  ListBox* List(const char* name) const { return Control<ListBox>(QString::fromLatin1(name)); }
  QSlider* Slider(const char* name) const { return Control<QSlider>(QString::fromLatin1(name)); }
  QPushButton* Button(const char* name) const { return Control<QPushButton>(QString::fromLatin1(name)); }

  static void ClickLine(ListBox* list, int line, Qt::KeyboardModifiers keys = Qt::NoModifier,
                        Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(list->viewport(), button, keys, list->line_rect(line).center());
  }
  // The slider's handle and groove as its style draws them.
  static std::pair<QRect, QRect> HandleAndGroove(QSlider* slider) {
    QStyleOptionSlider option;
    option.initFrom(slider);
    option.orientation = slider->orientation();
    option.minimum = slider->minimum();
    option.maximum = slider->maximum();
    option.sliderPosition = option.sliderValue = slider->value();
    option.pageStep = slider->pageStep();
    const QStyle* style = slider->style();
    return {style->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, slider),
            style->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, slider)};
  }
  // Drags the slider's handle from its place to `value`, one step at a time.
  static void DragSlider(QSlider* slider, int value) {
    const auto [thumb, groove] = HandleAndGroove(slider);
    const int from = slider->value();
    auto at = [&](int v) {
      const int along = QStyle::sliderPositionFromValue(slider->minimum(), slider->maximum(), v, groove.width() - thumb.width());
      return QPoint(groove.left() + thumb.width() / 2 + along, thumb.center().y());
    };
    QTest::mousePress(slider, Qt::LeftButton, Qt::NoModifier, at(from));
    const int step = value > from ? 1 : -1;
    for (int v = from + step; v != value + step; v += step) QTest::mouseMove(slider, at(v));
    QTest::mouseRelease(slider, Qt::LeftButton, Qt::NoModifier, at(value));
  }
  // Answers the next menu that opens: notes its name and enabled items,
  // then chooses the item captioned `caption`, or closes the menu with Escape.
  void AnswerMenu(const QString& caption) {
    opened_.clear();
    QTimer::singleShot(0, [this, caption] {
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      if (!menu) return;
      opened_ = menu->objectName();
      enabled_items_.clear();
      QAction* chosen = nullptr;
      for (QAction* item : menu->actions()) {
        if (item->isEnabled()) enabled_items_ << item->text();
        if (item->text() == caption) chosen = item;
      }
      if (chosen) menu->setActiveAction(chosen);
      QTest::keyClick(menu, chosen ? Qt::Key_Return : Qt::Key_Escape);
    });
  }
  void ChooseFromMenu(QPushButton* button, const QString& caption) {
    AnswerMenu(caption);
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_FALSE(opened_.isEmpty()) << "no menu for " << caption.toStdString();
  }
  // Right-clicks the line and answers the menu: its name, or empty when none opened.
  QString RightClickMenu(ListBox* list, int line, const QString& caption = {}) {
    AnswerMenu(caption);
    ClickLine(list, line, Qt::NoModifier, Qt::RightButton);
    QApplication::processEvents();
    return opened_;
  }
  bool ToggleSetting(int index) {
    Item(QStringLiteral("poSetting_%1").arg(index))->trigger();
    return window_->setting(index);
  }
  int DebugMessages() const {
    int n = 0;
    for (const auto& box : dialogs_.seen) n += box.text.startsWith(QStringLiteral("for debug purpose"));
    return n;
  }

  QString opened_;
  QStringList enabled_items_;
};

}  // namespace

TEST_F(ListsTest, ALayerClickFillsTheDataListAndTheStatus) {
  ASSERT_EQ(List("lstLayer")->line_count(), 5);
  ClickLine(List("lstLayer"), 2);
  EXPECT_EQ(doc.current_layer, 2);
  EXPECT_EQ(List("lstData")->line_count(), 3);
  EXPECT_EQ(List("lstSelect")->line_count(), 3);
  EXPECT_EQ(Slider("scrLayer")->value(), 2);
  EXPECT_EQ(Slider("scrData")->maximum(), 2);
  EXPECT_EQ(Status(2), QStringLiteral("Layer 2"));
  EXPECT_EQ(Status(1), QStringLiteral("L2> Z0.4"));
  EXPECT_EQ(Status(3), QStringLiteral("Data 0"));
  ChooseFromMenu(Button("cmdSelect"), QStringLiteral("Select &All"));
  EXPECT_EQ(enabled_items_, (QStringList{QStringLiteral("Select &Invert"), QStringLiteral("Select &All")}));
  EXPECT_EQ(Status(1), QStringLiteral("3 vertices selected"));
}

TEST_F(ListsTest, TheLayerListWritesTheLocalesDecimalSeparatorAsTheDataListDoes) {
  doc.decimal_comma = true;  // as a load in a decimal-comma locale finds it
  ClickLine(List("lstLayer"), 2);
  EXPECT_EQ(Status(1), QStringLiteral("L2> Z0,4"));
  doc.decimal_comma = false;
}

TEST_F(ListsTest, DeselectingTheCurrentLayerMovesToTheNearestSelectedBelowElseAbove) {
  ListBox* layers = List("lstLayer");
  ClickLine(layers, 1, Qt::ControlModifier);  // the only one, the first printed, stays
  EXPECT_EQ(lists.layer_selected, (U8{0, 1, 0, 0, 0}));
  EXPECT_EQ(doc.current_layer, 1);
  ClickLine(layers, 1);
  ClickLine(layers, 4, Qt::ShiftModifier);
  ClickLine(layers, 2, Qt::ControlModifier);
  EXPECT_EQ(lists.layer_selected, (U8{0, 1, 0, 1, 1}));
  ClickLine(layers, 4, Qt::ControlModifier);
  ClickLine(layers, 4, Qt::ControlModifier);
  EXPECT_EQ(doc.current_layer, 4);
  ClickLine(layers, 4, Qt::ControlModifier);
  EXPECT_EQ(doc.current_layer, 3);
  EXPECT_EQ(Status(2), QStringLiteral("Layer 3"));
  ClickLine(layers, 3);
  ClickLine(layers, 2, Qt::ControlModifier);
  ClickLine(layers, 2, Qt::ControlModifier);
  EXPECT_EQ(doc.current_layer, 3);
  EXPECT_EQ(DebugMessages(), 0);
}

TEST_F(ListsTest, ALayerWithoutRecordsDisablesTheDataControls) {
  doc.layer(3).g_count = 0;
  ClickLine(List("lstLayer"), 3);
  EXPECT_FALSE(Button("cmdData")->isEnabled());
  EXPECT_FALSE(Slider("scrData")->isEnabled());
  EXPECT_EQ(List("lstData")->line_count(), 0);
  ClickLine(List("lstLayer"), 2);
  EXPECT_TRUE(Button("cmdData")->isEnabled());
  EXPECT_TRUE(Slider("scrData")->isEnabled());
}

TEST_F(ListsTest, TheLayerSliderAddsLayersOnlyWithRangeScroll) {
  QSlider* slider = Slider("scrLayer");
  DragSlider(slider, 1);
  ASSERT_TRUE(ToggleSetting(0));
  DragSlider(slider, 3);
  EXPECT_EQ(lists.layer_selected, (U8{0, 1, 1, 1, 0}));
  EXPECT_EQ(doc.current_layer, 3);
  EXPECT_EQ(List("lstLayer")->line_count(), 5);
  ASSERT_FALSE(ToggleSetting(0));
  DragSlider(slider, 4);
  EXPECT_EQ(lists.layer_selected, (U8{0, 0, 0, 0, 1}));
  EXPECT_EQ(Status(2), QStringLiteral("Layer 4"));
  // The keyboard stays with the drawing.
  EXPECT_EQ(QApplication::focusWidget(), Control<QWidget>(QStringLiteral("picDraw")));
}

TEST_F(ListsTest, RangeScrollAddsEveryLayerAndRowPassedOverByATrackClickOrTheWheel) {
  ASSERT_TRUE(ToggleSetting(0));
  QSlider* layers = Slider("scrLayer");
  const auto [handle, groove] = HandleAndGroove(layers);
  EXPECT_LT(handle.width(), groove.width() / 8);  // a small handle, not half the track
  // From the first printed layer to the last.
  QTest::mouseClick(layers, Qt::LeftButton, {}, QPoint(groove.right() - 2, handle.center().y()));
  EXPECT_EQ(lists.layer_selected, (U8{0, 1, 1, 1, 1}));
  EXPECT_EQ(doc.current_layer, 4);

  ChooseFromMenu(Button("cmdData"), QStringLiteral("View &None"));
  QSlider* rows = Slider("scrData");
  QWheelEvent wheel(QPointF(rows->rect().center()), QPointF(rows->mapToGlobal(rows->rect().center())), {}, {0, 120},
                    Qt::NoButton, {}, Qt::NoScrollPhase, false);
  QApplication::sendEvent(rows, &wheel);
  EXPECT_EQ(lists.data_selected, (U8{0, 1, 1}));
}

TEST_F(ListsTest, TheDataSliderAddsRowsOnlyWithRangeScrollAndAShiftClickReachesFromItsRow) {
  ClickLine(List("lstLayer"), 1);
  ChooseFromMenu(Button("cmdData"), QStringLiteral("View &None"));
  QSlider* slider = Slider("scrData");
  ASSERT_TRUE(window_->setting(1));
  DragSlider(slider, 2);
  EXPECT_EQ(lists.data_selected, (U8{0, 1, 1}));
  ASSERT_FALSE(ToggleSetting(1));
  DragSlider(slider, 1);
  EXPECT_EQ(lists.data_selected, (U8{0, 1, 0}));
  EXPECT_EQ(Status(3), QStringLiteral("Data 1"));
  ClickLine(List("lstData"), 2, Qt::ShiftModifier);
  EXPECT_EQ(lists.data_selected, (U8{0, 1, 1}));
}

TEST_F(ListsTest, ViewSingleKeepsTheCurrentLayerAndInvertOfAllLeavesLayerZero) {
  ChooseFromMenu(Button("cmdLayer"), QStringLiteral("View &All"));
  EXPECT_EQ(lists.layer_selected, (U8{1, 1, 1, 1, 1}));
  ClickLine(List("lstLayer"), 3, Qt::ControlModifier);
  ClickLine(List("lstLayer"), 3, Qt::ControlModifier);
  ChooseFromMenu(Button("cmdLayer"), QStringLiteral("View &Single"));
  EXPECT_EQ(lists.layer_selected, (U8{0, 0, 0, 1, 0}));
  ChooseFromMenu(Button("cmdLayer"), QStringLiteral("View &All"));
  ChooseFromMenu(Button("cmdLayer"), QStringLiteral("View &Invert"));
  EXPECT_EQ(enabled_items_, (QStringList{QStringLiteral("View &Single"), QStringLiteral("View &Invert")}));
  EXPECT_EQ(lists.layer_selected, (U8{1, 0, 0, 0, 0}));
  EXPECT_EQ(doc.current_layer, 0);
  EXPECT_EQ(List("lstData")->line_count(), doc.layer(0).g_count);
}

TEST_F(ListsTest, ViewNoneThenAClickOnOneLine) {
  ClickLine(List("lstLayer"), 2);
  ChooseFromMenu(Button("cmdData"), QStringLiteral("View &None"));
  EXPECT_EQ(enabled_items_, (QStringList{QStringLiteral("View &None"), QStringLiteral("View &Invert"),
                                         QStringLiteral("View &Extruded")}));
  EXPECT_EQ(List("lstSelect")->line_count(), 0);
  ClickLine(List("lstData"), 1);
  EXPECT_EQ(lists.data_selected, (U8{0, 1, 0}));
  EXPECT_EQ(Status(3), QStringLiteral("Data 1"));
  EXPECT_EQ(List("lstSelect")->line_count(), 1);
}

TEST_F(ListsTest, AVertexOffViewKeepsItsMark) {
  ClickLine(List("lstLayer"), 2);
  ClickLine(List("lstSelect"), 1);
  EXPECT_EQ(Status(1), QString::fromStdString(SelectLineText(1)));
  ClickLine(List("lstSelect"), 2, Qt::ControlModifier);
  // A click on the selection list ends by showing its caret line.
  EXPECT_EQ(Status(1), QString::fromStdString(SelectLineText(2)));
  EXPECT_EQ(CountSelected(lists.select_flag), 2);
  ChooseFromMenu(Button("cmdData"), QStringLiteral("View &None"));
  ClickLine(List("lstData"), 0);
  ChooseFromMenu(Button("cmdSelect"), QStringLiteral("Select &All"));
  EXPECT_EQ(Status(1), QStringLiteral("1 vertex selected"));
  ChooseFromMenu(Button("cmdData"), QStringLiteral("View &All"));
  EXPECT_EQ(lists.select_line, (U8{1, 1, 1}));
  EXPECT_EQ(DebugMessages(), 0);
}

TEST_F(ListsTest, KeysMoveTheCaretAndExtendTheSelection) {
  ListBox* data = List("lstData");
  ClickLine(List("lstLayer"), 1);
  ClickLine(data, 0);
  QTest::keyClick(data, Qt::Key_Down, Qt::ShiftModifier);
  QTest::keyClick(data, Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(lists.data_selected, (U8{1, 1, 1}));
  QTest::keyClick(data, Qt::Key_Home);
  EXPECT_EQ(lists.data_selected, (U8{1, 0, 0}));
  QTest::keyClick(data, Qt::Key_End, Qt::ControlModifier);
  QTest::keyClick(data, Qt::Key_Space, Qt::ControlModifier);
  EXPECT_EQ(lists.data_selected, (U8{1, 0, 1}));
  EXPECT_EQ(Status(3), QStringLiteral("Data 2"));
  QTest::keyClick(data, Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(lists.data_selected, (U8{1, 1, 1}));
}

TEST_F(ListsTest, ARightClickOnTheDataListMarksEveryListedVertex) {
  ClickLine(List("lstLayer"), 2);
  EXPECT_EQ(RightClickMenu(List("lstSelect"), 1), QString());  // nothing marked yet
  EXPECT_EQ(RightClickMenu(List("lstData"), 1), QStringLiteral("mnSelectEdit"));
  EXPECT_EQ(lists.select_flag, (U8{1, 1, 1}));
  EXPECT_EQ(lists.select_line, (U8{1, 1, 1}));
  EXPECT_EQ(Status(1), QStringLiteral("3 vertices selected"));
  EXPECT_EQ(Status(3), QStringLiteral("Multi Data"));
  // Nothing on view: no menu, and the marks stay.
  ChooseFromMenu(Button("cmdData"), QStringLiteral("View &None"));
  EXPECT_EQ(RightClickMenu(List("lstData"), 1), QString());
  EXPECT_EQ(CountSelected(lists.select_flag), 3);
}

TEST_F(ListsTest, ASelectingDragHeldBelowTheListGoesOnScrollingAndSelecting) {
  std::string notes;
  for (int i = 0; i < 200; ++i) notes += "; note\n";
  window_->LoadCommand(Write("notes.gcode", notes));
  ListBox* data = List("lstData");
  const int below = data->viewport()->height() + 5;
  QTest::mousePress(data->viewport(), Qt::LeftButton, {}, data->line_rect(0).center());
  QMouseEvent held(QEvent::MouseMove, QPointF(10, below), data->viewport()->mapToGlobal(QPointF(10, below)),
                   Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(data->viewport(), &held);
  const int reached = lists.data_caret;
  QTest::qWait(300);  // the pointer stays where it is
  EXPECT_GE(lists.data_caret, reached + 3);
  EXPECT_GT(data->top_line(), 0);
  EXPECT_EQ(CountSelected(lists.data_selected), lists.data_caret + 1);
  QTest::mouseRelease(data->viewport(), Qt::LeftButton, {}, QPoint(10, below));
  const int released = lists.data_caret;
  QTest::qWait(150);
  EXPECT_EQ(lists.data_caret, released);
}

TEST_F(ListsTest, LinesWiderThanTheListScrollSideways) {
  ListBox* data = List("lstData");
  data->resize(80, data->height());
  data->grab();
  QScrollBar* sideways = data->horizontalScrollBar();
  EXPECT_TRUE(sideways->isVisible());
  EXPECT_GE(sideways->maximum() + data->viewport()->width(),
            data->fontMetrics().horizontalAdvance(QString::fromStdString(DataLineText(0))));
}

TEST_F(ListsTest, DeleteSelectedLayersFromTheLayerListsMenu) {
  ListBox* layers = List("lstLayer");
  ClickLine(layers, 2);
  ClickLine(layers, 3, Qt::ControlModifier);
  EXPECT_EQ(RightClickMenu(layers, 3, QStringLiteral("&Delete Selected Layers")), QStringLiteral("popLstLayer"));
  EXPECT_EQ(doc.layer_count, 3);
  EXPECT_EQ(layers->line_count(), 3);
  EXPECT_EQ(Slider("scrLayer")->maximum(), 2);
  // The layer now in the place of the first deleted one is current.
  EXPECT_EQ(doc.current_layer, 2);
  EXPECT_EQ(lists.layer_selected, (U8{0, 0, 1}));
  EXPECT_EQ(List("lstData")->line_count(), 3);
  EXPECT_TRUE(Button("cmdData")->isEnabled());
  EXPECT_EQ(Status(1), QStringLiteral("L2> Z0.4"));
  EXPECT_EQ(Status(2), QStringLiteral("Layer 2"));
  EXPECT_EQ(Status(3), QStringLiteral("Data 0"));
  // Without a layer after the deleted ones, the last one.
  RightClickMenu(layers, 2, QStringLiteral("&Delete Selected Layers"));
  EXPECT_EQ(doc.current_layer, 1);
  EXPECT_EQ(Status(2), QStringLiteral("Layer 1"));
}

TEST_F(ListsTest, ViewAllAndSingleBringTheCaretBackAndKeepTheRowsOnViewAndTheMarks) {
  ListBox* layers = List("lstLayer");
  ClickLine(layers, 2);
  ChooseFromMenu(Button("cmdData"), QStringLiteral("View &None"));
  ClickLine(List("lstData"), 1);
  ClickLine(List("lstSelect"), 0);
  const struct {
    Qt::Key key;
    const char* command;
    U8 layers;
  } cases[] = {{Qt::Key_Down, "View &All", {1, 1, 1, 1, 1}}, {Qt::Key_Up, "View &Single", {0, 0, 1, 0, 0}}};
  for (const auto& c : cases) {
    QTest::keyClick(layers, c.key, Qt::ControlModifier);
    ASSERT_NE(lists.layer_caret, 2);
    ChooseFromMenu(Button("cmdLayer"), QString::fromLatin1(c.command));
    EXPECT_EQ(lists.layer_caret, 2) << c.command;
    EXPECT_EQ(lists.layer_selected, c.layers) << c.command;
    EXPECT_EQ(lists.data_selected, (U8{0, 1, 0})) << c.command;
    EXPECT_EQ(lists.select_flag, (U8{0, 1, 0})) << c.command;
  }
}

}  // namespace korvexed::testing
