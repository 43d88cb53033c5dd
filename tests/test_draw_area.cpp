// The drawing area of the window, driven by real events: what it shows,
// the wheel, the View and Settings menus, and resizing.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QImage>
#include <QTest>
#include <QWheelEvent>

#include "document/document.h"
#include "editing/list_state.h"
#include "tests/gui_fixture.h"
#include "view/korvexed_graphic.h"
#include "view/world_view.h"

namespace korvexed::testing {
namespace {

// Layer 1: a travel from the origin to (-10, 5), extrusion to (30, 5) and
// (30, 25), a travel to (40, -15). Layer 2: extrusion back to the origin.
// The moves span X -10..40 and Y -15..25.
const char* const print =
    "G21\nG90\nG92 E0\nG1 Z0.2 F1800\n"
    "G0 X-10 Y5\nG1 X30 Y5 E2\nG1 X30 Y25 E3\nG0 X40 Y-15\n"
    "G1 Z0.4\nG1 X0 Y0 E4\n";

constexpr Rgb extrusion = RgbT(128, 128, 255);
constexpr Rgb travel = RgbT(255, 128, 0);

struct WorldPoint {
  double x, y;
};

class DrawAreaTest : public FmMainTest {
 protected:
  void SetUp() override {
    FmMainTest::SetUp();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
    area_ = Control<QWidget>(QStringLiteral("picDraw"));
  }

  void Load() { window_->LoadCommand(Write("print.gcode", print)); }
  // Layer 1 alone, zoomed to fit.
  void LoadLayerOne() {
    Load();
    ShowSingleLayer(1);
    Item(QStringLiteral("poView_2"))->trigger();
  }

  // Sends the wheel turn to the area; true when the area took it, false
  // when it left it to others.
  bool Wheel(QPointF at, int angle_delta) {
    QWheelEvent event(at, area_->mapToGlobal(at), QPoint(), QPoint(0, angle_delta), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(area_, &event);
    return event.isAccepted();
  }

  // The world point shown at a position of the area (y downwards).
  static WorldPoint WorldAt(QPoint at) {
    WorldPoint p;
    PixelToWorld(at.x(), drawing.picture.height - at.y(), p.x, p.y);
    return p;
  }

  // The position still shows the world point, to within a pixel.
  static void ExpectShows(QPoint at, WorldPoint world) {
    const WorldPoint now = WorldAt(at);
    EXPECT_NEAR(now.x, world.x, 1 / view.view_scale);
    EXPECT_NEAR(now.y, world.y, 1 / view.view_scale);
  }

  // The picture's colour for a position of the area (y downwards).
  static QColor PictureAt(int x, int y) {
    const Rgb c = PixelAt(drawing.picture, x, drawing.picture.height - 1 - y);
    return QColor(c.red, c.green, c.blue);
  }

  QWidget* area_ = nullptr;
};

TEST_F(DrawAreaTest, ShowsTheDrawingBitmapTopDown) {
  LoadLayerOne();
  ASSERT_GT(CountPixels(extrusion), 0);
  const QImage shown = area_->grab().toImage();
  ASSERT_EQ(shown.size(), QSize(drawing.picture.width, drawing.picture.height));
  int differing = 0;
  for (int y = 0; y < shown.height(); ++y)
    for (int x = 0; x < shown.width(); ++x) differing += shown.pixelColor(x, y) != PictureAt(x, y);
  EXPECT_EQ(differing, 0);
}

TEST_F(DrawAreaTest, AWheelTurnZoomsAboutThePointer) {
  Load();
  const double scale = view.view_scale;
  const QPoint anchor(200, 151);
  const WorldPoint before = WorldAt(anchor);
  // Five notches count as three: 1.6, not 2.0.
  EXPECT_TRUE(Wheel(QPointF(200.4, 150.6), 600));
  EXPECT_EQ(view.wheel_anchor_x, 200);
  EXPECT_EQ(view.wheel_anchor_y, 151);
  EXPECT_EQ(view.view_scale, scale * 1.6);
  ExpectShows(anchor, before);

  // Seven notches back count as three; half a notch counts as half.
  EXPECT_TRUE(Wheel(QPointF(200, 151), -840));
  EXPECT_DOUBLE_EQ(view.view_scale, scale * 1.6 * 0.4);
  EXPECT_TRUE(Wheel(QPointF(200, 151), 60));
  EXPECT_DOUBLE_EQ(view.view_scale, scale * 1.6 * 0.4 * 1.1);
}

TEST_F(DrawAreaTest, AWheelTurnWithoutADocumentOrInDebugModeChangesNothingAndIsPassedOn) {
  const WorldView before = view;
  EXPECT_FALSE(Wheel(QPointF(200.4, 150.6), 600));
  StartWith({"DEBUG"});
  area_ = Control<QWidget>(QStringLiteral("picDraw"));
  Load();
  const double scale = view.view_scale;
  EXPECT_FALSE(Wheel(QPointF(200.4, 150.6), 600));
  EXPECT_EQ(view.view_scale, scale);
  EXPECT_EQ(view.wheel_anchor_x, before.wheel_anchor_x);
}

TEST_F(DrawAreaTest, ZoomFromTheMenuKeepsTheCentreAndClearsTheBusyPointer) {
  Load();
  const QPoint centre(area_->width() / 2, area_->height() / 2);
  const double scale = view.view_scale;
  const WorldPoint before = WorldAt(centre);

  Item(QStringLiteral("poView_0"))->trigger();
  EXPECT_EQ(view.view_scale, scale * 1.2);
  ExpectShows(centre, before);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);

  Item(QStringLiteral("poView_1"))->trigger();
  EXPECT_EQ(view.view_scale, scale * 1.2 * 0.8);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(DrawAreaTest, GrowingTheAreaShowsMoreWorldAtTheSameScale) {
  LoadLayerOne();
  const WorldView before = view;
  const int width = area_->width(), height = area_->height();

  window_->resize(window_->width() + 100, window_->height());
  QTRY_COMPARE(area_->width(), width + 100);
  ASSERT_EQ(area_->height(), height);
  ASSERT_EQ(drawing.picture.width, width + 100);
  EXPECT_DOUBLE_EQ(view.view_scale, before.view_scale);
  EXPECT_DOUBLE_EQ(view.view_xmin, before.view_xmin - 50 / before.view_scale);
  EXPECT_DOUBLE_EQ(view.view_xmax, before.view_xmax + 50 / before.view_scale);
  EXPECT_DOUBLE_EQ(view.view_ymin, before.view_ymin);
  // The new columns are on screen too.
  const QImage shown = area_->grab().toImage();
  for (int y = 0; y < height; y += 50) EXPECT_EQ(shown.pixelColor(width + 99, y), PictureAt(width + 99, y)) << y;
}

TEST_F(DrawAreaTest, TheDrawingIsAsLargeAsTheAreaAndACollapsedAreaKeepsIt) {
  EXPECT_EQ(drawing.picture.width, area_->width());
  EXPECT_EQ(drawing.picture.height, area_->height());
  const QSize size = window_->size();
  const int width = area_->width();
  window_->resize(size.width(), 150);
  QTRY_COMPARE(area_->height(), 0);
  EXPECT_EQ(drawing.picture.width, width);
  window_->resize(size);
  QTRY_VERIFY(area_->height() > 0);
  EXPECT_EQ(drawing.picture.width, area_->width());
  EXPECT_EQ(drawing.picture.height, area_->height());
}

TEST_F(DrawAreaTest, ShowMovementTogglesTheTravelMoves) {
  LoadLayerOne();
  EXPECT_GT(CountPixels(travel), 100);

  Item(QStringLiteral("poSetting_2"))->trigger();
  EXPECT_FALSE(draw_settings.show_movement);
  EXPECT_EQ(CountPixels(travel), 0);
  EXPECT_GT(CountPixels(extrusion), 100);
}

}  // namespace
}  // namespace korvexed::testing
