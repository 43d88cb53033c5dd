// The pixel buffer and its primitives: layout, lines with both ends and
// clipping at any distance, the vertex dot.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <random>
#include <set>
#include <utility>

#include "view/bitmap.h"

using namespace korvexed;

namespace {

constexpr Rgb black{}, red = RgbT(255, 0, 0), white = RgbT(255, 255, 255);

Bitmap Blank(int32_t width, int32_t height) {
  Bitmap b;
  EXPECT_TRUE(ResizeBitmap(b, width, height));
  return b;
}

using Pixels = std::set<std::pair<int32_t, int32_t>>;

Pixels Coloured(const Bitmap& b, Rgb colour) {
  Pixels set;
  for (int32_t y = 0; y < b.height; ++y)
    for (int32_t x = 0; x < b.width; ++x)
      if (PixelAt(b, x, y) == colour) set.emplace(x, y);
  return set;
}

// The whole line, pixel by pixel, kept where it falls inside: the major
// axis one pixel a step, the minor one the nearest pixel (halves up).
Pixels ReferenceLine(const Bitmap& b, int64_t x1, int64_t y1, int64_t x2, int64_t y2) {
  const int64_t dx = x2 - x1, dy = y2 - y1;
  const int64_t sx = dx < 0 ? -1 : 1, sy = dy < 0 ? -1 : 1;
  const bool x_major = std::abs(dx) >= std::abs(dy);
  const int64_t major = std::max(std::abs(dx), std::abs(dy)), minor = std::min(std::abs(dx), std::abs(dy));
  Pixels set;
  for (int64_t i = 0; i <= major; ++i) {
    const int64_t q = major == 0 ? 0 : (2 * i * minor + major) / (2 * major);
    const int64_t x = x1 + sx * (x_major ? i : q), y = y1 + sy * (x_major ? q : i);
    if (x >= 0 && x < b.width && y >= 0 && y < b.height) set.emplace(x, y);
  }
  return set;
}

}  // namespace

TEST(Bitmap, RowsArePaddedToFourBytesAndStoredBottomUp) {
  for (const auto& [width, padding] : {std::pair{1, 1}, {2, 2}, {3, 3}, {4, 0}, {5, 1}}) {
    const Bitmap b = Blank(width, 2);
    EXPECT_EQ(b.row_padding, padding) << width;
    EXPECT_EQ(b.pixels.size(), static_cast<size_t>(b.stride() * 2));
  }
  Bitmap b = Blank(3, 2);
  FillBitmap(b, RgbT(1, 2, 3));
  LineBitmap(b, 0, 0, 0, 0, red);
  // Blue, green, red from the first byte of the bottom row; padding untouched.
  EXPECT_EQ(b.pixels[0], 0);
  EXPECT_EQ(b.pixels[2], 255);
  EXPECT_EQ(b.pixels[3], 3);
  EXPECT_EQ(b.pixels[5], 1);
  EXPECT_EQ(b.pixels[9], 0);
}

TEST(Bitmap, ResizeRefusesNegativeSizesAndKeepsPixelsOnlyAtTheSameSize) {
  Bitmap b = Blank(4, 4);
  FillBitmap(b, white);
  EXPECT_FALSE(ResizeBitmap(b, -1, 4));
  EXPECT_EQ(b.width, 4);
  EXPECT_TRUE(ResizeBitmap(b, 4, 4));
  EXPECT_EQ(PixelAt(b, 3, 3), white);
  EXPECT_TRUE(ResizeBitmap(b, 5, 3));
  EXPECT_EQ(Coloured(b, black).size(), 15u);
  EXPECT_TRUE(ResizeBitmap(b, 0, 0));
  EXPECT_FALSE(ResizeBitmap(b, 2000000000, 2000000000));  // cannot be allocated
  EXPECT_EQ(b.width, 0);
}

TEST(Bitmap, LinesIncludeBothEndsWhicheverWayTheyRun) {
  // Right, down, a single point, up right: 6, 8, 1 and 10 pixels.
  for (const auto& [x1, y1, x2, y2, length] :
       {std::array{2, 3, 7, 3, 6}, {4, 8, 4, 1, 8}, {5, 5, 5, 5, 1}, {0, 9, 9, 0, 10}}) {
    Bitmap b = Blank(10, 10);
    EXPECT_TRUE(LineBitmap(b, x1, y1, x2, y2, red));
    EXPECT_EQ(Coloured(b, red), ReferenceLine(b, x1, y1, x2, y2)) << x1 << "," << y1;
    EXPECT_EQ(Coloured(b, red).size(), static_cast<size_t>(length)) << x1 << "," << y1;
  }
}

TEST(Bitmap, ClippedLinesDrawExactlyTheirPixelsInside) {
  std::mt19937 random(7);
  std::uniform_int_distribution<int32_t> near(-60, 100), far(-3000, 3000);
  for (int n = 0; n < 4000; ++n) {
    auto& coordinate = n % 2 ? near : far;
    const int32_t x1 = coordinate(random), y1 = coordinate(random), x2 = coordinate(random), y2 = coordinate(random);
    Bitmap b = Blank(37, 23);
    const Pixels expected = ReferenceLine(b, x1, y1, x2, y2);
    EXPECT_EQ(LineBitmap(b, x1, y1, x2, y2, red), !expected.empty());
    ASSERT_EQ(Coloured(b, red), expected) << x1 << "," << y1 << " to " << x2 << "," << y2;
  }
}

TEST(Bitmap, LinesFromTheEndsOfThe32BitRangeStayOnTheirCourse) {
  Bitmap b = Blank(50, 40);
  // Slope 1/2 across the whole range: y = floor((x + 1) / 2) where seen.
  LineBitmap(b, INT32_MIN, -(1 << 30), INT32_MAX - 1, (1 << 30) - 1, red);
  Pixels expected;
  for (int32_t x = 0; x < 50; ++x)
    if ((x + 1) / 2 < 40) expected.emplace(x, (x + 1) / 2);
  EXPECT_EQ(Coloured(b, red), expected);

  b = Blank(50, 40);
  LineBitmap(b, INT32_MAX, INT32_MAX, INT32_MIN, INT32_MIN, red);
  Pixels diagonal;
  for (int32_t k = 0; k < 40; ++k) diagonal.emplace(k, k);
  EXPECT_EQ(Coloured(b, red), diagonal);

  b = Blank(50, 40);
  EXPECT_FALSE(LineBitmap(b, INT32_MIN, INT32_MAX, INT32_MAX, INT32_MAX - 5, red));
  EXPECT_FALSE(LineBitmap(b, -1000000, 100, 1000000, 2000000, red));
  EXPECT_TRUE(Coloured(b, red).empty());
}

TEST(Bitmap, VertexDotIsThreeByThreeAndClipped) {
  Bitmap b = Blank(6, 6);
  PointBitmap(b, 3, 3, red);
  EXPECT_EQ(Coloured(b, red).size(), 9u);
  EXPECT_EQ(PixelAt(b, 2, 2), red);
  EXPECT_EQ(PixelAt(b, 4, 4), red);
  b = Blank(6, 6);
  PointBitmap(b, 0, 5, red);
  EXPECT_EQ(Coloured(b, red), (Pixels{{0, 5}, {1, 5}, {0, 4}, {1, 4}}));
  PointBitmap(b, INT32_MIN, INT32_MAX, white);
  EXPECT_TRUE(Coloured(b, white).empty());
}
