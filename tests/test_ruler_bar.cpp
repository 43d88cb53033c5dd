// The ruler widgets as the view feeds them: what they take from their size,
// and what they paint.
#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <QImage>
#include <QPalette>
#include <QtMath>
#include <algorithm>

#include "view/ruler_bar.h"

using namespace korvexed;

namespace {

// The pixels of `colour` in a rectangle of `image`.
int Count(const QImage& image, const QRect& area, QRgb colour) {
  int count = 0;
  for (int y = area.top(); y <= area.bottom(); ++y)
    for (int x = area.left(); x <= area.right(); ++x) count += image.pixel(x, y) == colour;
  return count;
}

QRgb Ink(const RulerBar& ruler) { return ruler.palette().color(QPalette::Text).rgb(); }
QRgb Paper(const RulerBar& ruler) { return ruler.palette().color(QPalette::Base).rgb(); }

TEST(RulerBar, HorizontalRulerSpreadsTheViewsLengthOverItsWidth) {
  RulerBar ruler(Qt::Horizontal);
  ruler.resize(400, ruler.sizeHint().height());
  ruler.set_unit("cm");
  ruler.set_start_value(-1.2);
  ruler.set_length(8);  // 50 px a centimetre
  const QImage image = ruler.grab().toImage();
  const QRgb ink = Ink(ruler);
  // Majors at -1, 0, 1... : 10, 60, 110 px, across the whole ruler.
  for (int x : {10, 60, 110, 360}) EXPECT_EQ(Count(image, QRect(x, 0, 1, image.height()), ink), image.height()) << x;
  // A minor tick rises from the bottom to half the height.
  EXPECT_EQ(Count(image, QRect(95, 0, 1, image.height()), ink), image.height() / 2 - 1);
  // The labels stand at the top right of their major ticks: "-1cm" after
  // 10 px, nothing before it.
  const int line = ruler.text_height();
  EXPECT_EQ(Count(image, QRect(0, 0, 10, line), Paper(ruler)), 10 * line);
  EXPECT_LT(Count(image, QRect(12, 0, 30, line), Paper(ruler)), 30 * line - 20);
}

TEST(RulerBar, VerticalRulerCountsDownFromItsTopEdge) {
  RulerBar ruler(Qt::Vertical);
  ruler.resize(ruler.sizeHint().width(), 500);
  ruler.set_start_value(2.5);
  ruler.set_length(-10);
  const QImage image = ruler.grab().toImage();
  // 2 stands 0.5 below the top: 25 px; 1 at 75 px.
  for (int y : {25, 75, 125}) EXPECT_EQ(Count(image, QRect(0, y, image.width(), 1), Ink(ruler)), image.width()) << y;
}

TEST(RulerBar, NoTickShowsInTheColumnOfAVerticalLabel) {
  RulerBar ruler(Qt::Vertical);
  ruler.set_orientation(3);
  ruler.resize(ruler.sizeHint().width(), 500);
  ruler.set_start_value(13.5);
  ruler.set_length(-10);  // "13" stands at 25 px, written from 27 px down
  const QImage image = ruler.grab().toImage();
  const QFontMetricsF metrics(ruler.font());
  const int left = qRound(ruler.width() - metrics.horizontalAdvance(QStringLiteral("13")) - 2);
  const int glyphs = qCeil(std::max(metrics.horizontalAdvance('1'), metrics.horizontalAdvance('3')));
  const QRect beside(left + glyphs, 27, ruler.width() - left - glyphs, 2 * ruler.text_height() - 4);
  EXPECT_EQ(Count(image, beside, Paper(ruler)), beside.width() * beside.height());
}

TEST(RulerBar, ResizingKeepsTheValuePerPixel) {
  RulerBar ruler(Qt::Horizontal);
  ruler.resize(400, 30);
  ruler.set_length(8);
  ruler.resize(800, 30);
  EXPECT_EQ(ruler.length_per_pixel(), 0.02);
  EXPECT_EQ(ruler.length(), 16);
}

TEST(RulerBar, DivisionReadsBackTheRoundedStartValueAndSetsTheStepsBase) {
  RulerBar ruler(Qt::Horizontal);
  ruler.set_start_value(7.6);
  EXPECT_EQ(ruler.division(), 8);
  ruler.set_length_per_pixel(1);
  ruler.set_division(2);
  EXPECT_EQ(ruler.step(), 8);  // the first power of 2 at least 6 px long
}

}  // namespace
