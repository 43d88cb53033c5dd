// The window's own controls driven by real mouse events on real widgets.
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QPixmap>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <vector>

#include "controls/container.h"
#include "controls/cool_button.h"
#include "controls/cool_tab.h"
#include "controls/line.h"
#include "controls/shrink_wnd.h"
#include "controls/toolbar_pictures.h"

namespace korvexed {
namespace {

using Look = CoolButton::Look;

// A shown window with one button and room around it to move away to.
class CoolButtonTest : public ::testing::Test {
 protected:
  void SetUp() override {
    window_.resize(100, 60);
    button_ = new CoolButton(&window_);
    button_->setIcon(ToolbarIcon(ToolbarPicture::zoom_in));
    button_->move(10, 10);
    button_->resize(button_->sizeHint());
    window_.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
  }

  // The next test's window opens under the same pointer: leave it outside.
  void TearDown() override {
    leave();
    QTest::qWait(0);
  }

  QPoint centre() const { return button_->rect().center(); }
  void hover() { QTest::mouseMove(button_, centre()); }
  void leave() { QTest::mouseMove(&window_, QPoint(90, 50)); }

  QWidget window_;
  CoolButton* button_ = nullptr;
};

TEST_F(CoolButtonTest, GlowsWhileTheMouseIsOverShowsTheClickLookWhileHeldAndClicksOnRelease) {
  QSignalSpy clicked(button_, &QAbstractButton::clicked);
  EXPECT_EQ(button_->look(), Look::normal);
  hover();
  EXPECT_EQ(button_->look(), Look::glow);
  QTest::mousePress(button_, Qt::LeftButton, {}, centre());
  EXPECT_EQ(button_->look(), Look::click);
  EXPECT_EQ(clicked.count(), 0);
  QTest::mouseRelease(button_, Qt::LeftButton, {}, centre());
  EXPECT_EQ(clicked.count(), 1);
  EXPECT_EQ(button_->look(), Look::glow);
  leave();
  EXPECT_EQ(button_->look(), Look::normal);
}

TEST_F(CoolButtonTest, DoubleClickClicksOnceThenReportsTheDoubleClick) {
  QSignalSpy clicked(button_, &QAbstractButton::clicked);
  QSignalSpy double_clicked(button_, &CoolButton::double_clicked);
  // Through the window, so the platform turns the second press into the double click.
  QTest::mouseDClick(window_.windowHandle(), Qt::LeftButton, {}, button_->mapTo(&window_, centre()));
  EXPECT_EQ(clicked.count(), 1);
  EXPECT_EQ(double_clicked.count(), 1);
  EXPECT_FALSE(button_->isDown());
  EXPECT_NE(button_->look(), Look::click);
  // The next single click is an ordinary click again.
  QTest::qWait(QApplication::doubleClickInterval() + 50);
  QTest::mouseClick(button_, Qt::LeftButton, {}, centre());
  EXPECT_EQ(clicked.count(), 2);
  EXPECT_EQ(double_clicked.count(), 1);
}

TEST_F(CoolButtonTest, DisabledLooksGreyAndIgnoresTheMouse) {
  QSignalSpy clicked(button_, &QAbstractButton::clicked);
  QSignalSpy double_clicked(button_, &CoolButton::double_clicked);
  button_->setEnabled(false);
  hover();
  QTest::mouseClick(button_, Qt::LeftButton, {}, centre());
  QTest::mouseDClick(window_.windowHandle(), Qt::LeftButton, {}, button_->mapTo(&window_, centre()));
  EXPECT_EQ(button_->look(), Look::disabled);
  EXPECT_EQ(clicked.count(), 0);
  EXPECT_EQ(double_clicked.count(), 0);
}

TEST_F(CoolButtonTest, PressedStateStaysUntilTheOwnerChangesIt) {
  button_->set_pressed_state(true);
  EXPECT_EQ(button_->look(), Look::pressed);
  hover();
  EXPECT_EQ(button_->look(), Look::pressed_glow);
  QTest::mouseClick(button_, Qt::LeftButton, {}, centre());
  EXPECT_TRUE(button_->pressed_state());
  button_->set_pressed_state(false);
  EXPECT_EQ(button_->look(), Look::glow);
}

TEST_F(CoolButtonTest, EachLookPaintsDifferently) {
  auto picture = [this] { return button_->grab().toImage(); };
  std::vector<QImage> looks{picture()};  // normal
  hover();
  looks.push_back(picture());  // glow
  button_->set_pressed_state(true);
  looks.push_back(picture());  // pressed glow
  leave();
  looks.push_back(picture());  // pressed
  button_->setEnabled(false);
  looks.push_back(picture());  // disabled
  for (std::size_t a = 0; a < looks.size(); ++a) {
    for (std::size_t b = a + 1; b < looks.size(); ++b) EXPECT_NE(looks[a], looks[b]) << a << " and " << b;
  }
}

TEST(ToolbarPictures, TwelveDistinctPicturesDrawnAtThePixelRatioAskedFor) {
  std::vector<QImage> pictures;
  for (int index = 0; index < 12; ++index) {
    const QPixmap pixmap = ToolbarIcon(static_cast<ToolbarPicture>(index)).pixmap(QSize(20, 20), 2.0);
    EXPECT_EQ(pixmap.size(), QSize(40, 40));
    for (const QImage& earlier : pictures) EXPECT_NE(pixmap.toImage(), earlier) << "picture " << index;
    pictures.push_back(pixmap.toImage());
  }
}

TEST(ToolbarPictures, DisabledPictureHasNoAccentColour) {
  auto most_saturated = [](QIcon::Mode mode) {
    const QImage image = ToolbarIcon(ToolbarPicture::zoom_fit).pixmap(QSize(24, 24), mode).toImage();
    int most = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        if (image.pixelColor(x, y).alpha() == 255) most = std::max(most, image.pixelColor(x, y).hsvSaturation());
    return most;
  };
  EXPECT_GT(most_saturated(QIcon::Normal), 100);
  EXPECT_LT(most_saturated(QIcon::Disabled), 40);
}

// A shown panel holding a content widget, with the signals recorded.
class ShrinkWndTest : public ::testing::Test {
 protected:
  void SetUp() override {
    window_.resize(400, 300);
    panel_ = new ShrinkWnd(&window_);
    panel_->set_caption("GCode Control Panel");
    content_ = new Container;
    panel_->set_content(content_);
    panel_->set_expanded_width(180);
    panel_->resize(panel_->width(), 300);
    window_.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
  }

  static std::vector<int> widths(const QSignalSpy& spy) {
    std::vector<int> result;
    for (const QList<QVariant>& arguments : spy) result.push_back(arguments.at(0).toInt());
    return result;
  }

  QWidget window_;
  ShrinkWnd* panel_ = nullptr;
  Container* content_ = nullptr;
};

TEST_F(ShrinkWndTest, CollapsesStepByStepToTheStripThenSignalsOnce) {
  QSignalSpy changing(panel_, &ShrinkWnd::width_changing);
  QSignalSpy changed(panel_, &ShrinkWnd::expanded_changed);
  QTest::mouseClick(panel_->header_button(), Qt::LeftButton);
  EXPECT_FALSE(panel_->is_expanded());
  ASSERT_TRUE(changed.wait(1000));
  const std::vector<int> steps = widths(changing);
  ASSERT_GE(steps.size(), 3u);
  EXPECT_TRUE(std::is_sorted(steps.rbegin(), steps.rend()));
  EXPECT_LT(steps.front(), 180);
  EXPECT_EQ(steps.back(), panel_->width());
  EXPECT_EQ(panel_->width(), panel_->collapsed_width());
  ASSERT_EQ(changed.count(), 1);
  EXPECT_FALSE(changed.at(0).at(0).toBool());
  EXPECT_FALSE(content_->isVisible());
  QTest::qWait(100);
  EXPECT_EQ(changed.count(), 1);
}

// The window's tests open it with the header button; here a click on the strip.
TEST_F(ShrinkWndTest, ExpandsBackToItsWidthAndCountsAsOpenAtOnce) {
  panel_->set_expanded(false);
  QSignalSpy changed(panel_, &ShrinkWnd::expanded_changed);
  ASSERT_TRUE(changed.wait(1000));
  QTest::mouseClick(panel_, Qt::LeftButton, {}, QPoint(panel_->width() / 2, 150));
  EXPECT_TRUE(panel_->is_expanded());
  EXPECT_LT(panel_->width(), 180);
  ASSERT_TRUE(changed.wait(1000));
  EXPECT_TRUE(changed.last().at(0).toBool());
  EXPECT_EQ(panel_->width(), 180);
  EXPECT_TRUE(content_->isVisible());
  EXPECT_EQ(content_->width(), 180);
}

TEST_F(ShrinkWndTest, ReversingMidwayEndsOpen) {
  QSignalSpy changed(panel_, &ShrinkWnd::expanded_changed);
  panel_->set_expanded(false);
  QTest::qWait(40);
  panel_->set_expanded(true);
  ASSERT_TRUE(changed.wait(1000));
  EXPECT_EQ(changed.count(), 1);
  EXPECT_TRUE(changed.at(0).at(0).toBool());
  EXPECT_EQ(panel_->width(), 180);
}

TEST_F(ShrinkWndTest, NewWidthAppliesAtOnceWhenOpenAndOnOpeningWhenCollapsed) {
  QSignalSpy changing(panel_, &ShrinkWnd::width_changing);
  panel_->set_expanded_width(240);
  EXPECT_EQ(panel_->width(), 240);
  EXPECT_EQ(widths(changing), std::vector<int>{240});

  panel_->set_expanded(false);
  QSignalSpy changed(panel_, &ShrinkWnd::expanded_changed);
  ASSERT_TRUE(changed.wait(1000));
  changing.clear();
  panel_->set_expanded_width(150);
  EXPECT_EQ(panel_->width(), panel_->collapsed_width());
  EXPECT_EQ(widths(changing), std::vector<int>{panel_->collapsed_width()});
  panel_->set_expanded(true);
  ASSERT_TRUE(changed.wait(1000));
  EXPECT_EQ(panel_->width(), 150);

  panel_->set_expanded_width(1);
  EXPECT_EQ(panel_->expanded_width(), panel_->collapsed_width());
}

class CoolTabTest : public ::testing::Test {
 protected:
  void SetUp() override {
    tab_.resize(200, 150);
    viewer_ = new Container;
    selection_ = new Container;
    EXPECT_EQ(tab_.add_tab("Viewer", viewer_), 0);
    EXPECT_EQ(tab_.add_tab("Selection", selection_), 1);
    tab_.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&tab_));
  }

  void click_tab(int index) {
    QWidget* strip = tab_.childAt(tab_.tab_rect(index).center());
    ASSERT_NE(strip, nullptr);
    QTest::mouseClick(strip, Qt::LeftButton, {}, strip->mapFrom(&tab_, tab_.tab_rect(index).center()));
  }

  CoolTab tab_;
  Container* viewer_ = nullptr;
  Container* selection_ = nullptr;
};

TEST_F(CoolTabTest, FirstTabShowsItsContainerBelowTheStripAtTheTabsSize) {
  EXPECT_EQ(tab_.current(), 0);
  EXPECT_TRUE(viewer_->isVisible());
  EXPECT_FALSE(selection_->isVisible());
  EXPECT_GE(viewer_->y(), tab_.tab_rect(0).bottom());
  EXPECT_EQ(viewer_->width(), tab_.width());
  tab_.resize(260, 300);
  EXPECT_EQ(viewer_->width(), 260);
  EXPECT_EQ(viewer_->geometry().bottom(), 299);
}

TEST_F(CoolTabTest, ClickingATabSwitchesContainers) {
  QSignalSpy changed(&tab_, &CoolTab::current_changed);
  click_tab(1);
  EXPECT_EQ(tab_.current(), 1);
  EXPECT_FALSE(viewer_->isVisible());
  EXPECT_TRUE(selection_->isVisible());
  ASSERT_EQ(changed.count(), 1);
  EXPECT_EQ(changed.at(0).at(0).toInt(), 1);

  tab_.set_current(0);
  EXPECT_TRUE(viewer_->isVisible());
  EXPECT_FALSE(selection_->isVisible());
  EXPECT_EQ(changed.count(), 2);
}

class LineTest : public ::testing::Test {
 protected:
  void SetUp() override {
    window_.resize(200, 100);
    line_ = new Line(Qt::Vertical, Line::Style::raised, &window_);
    line_->setGeometry(100, 0, 5, 100);
    window_.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
  }

  // Press on the line, move across it twice, release, and move once more.
  void drag() {
    QTest::mousePress(line_, Qt::LeftButton, {}, QPoint(2, 50));
    QTest::mouseMove(line_, QPoint(12, 50));
    QTest::mouseMove(line_, QPoint(7, 70));
    QTest::mouseMove(line_, QPoint(7, 20));
    QTest::mouseRelease(line_, Qt::LeftButton, {}, QPoint(7, 20));
    QTest::mouseMove(line_, QPoint(30, 20));
  }

  QWidget window_;
  Line* line_ = nullptr;
};

TEST_F(LineTest, ASplitterReportsEachMovementAcrossItUntilReleasedAPlainLineNone) {
  line_->set_splitter(true);
  EXPECT_EQ(line_->cursor().shape(), Qt::SizeHorCursor);
  QSignalSpy dragged(line_, &Line::dragged);
  drag();
  ASSERT_EQ(dragged.count(), 2);
  EXPECT_EQ(dragged.at(0).at(0).toInt(), 10);
  EXPECT_EQ(dragged.at(1).at(0).toInt(), -5);
  line_->set_splitter(false);
  EXPECT_EQ(line_->cursor().shape(), Qt::ArrowCursor);
  drag();
  EXPECT_EQ(dragged.count(), 2);
}

}  // namespace
}  // namespace korvexed
