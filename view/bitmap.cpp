#include "view/bitmap.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <new>
#include <stdexcept>

namespace korvexed {

namespace {

// Products of two 32-bit spans need more than 64 bits.
__extension__ using wide = __int128;

void Put(uint8_t* p, Rgb colour) {
  p[0] = colour.blue;
  p[1] = colour.green;
  p[2] = colour.red;
}

// ceil(a / b) for b > 0.
wide CeilDiv(wide a, wide b) {
  const wide q = a / b;
  return a % b != 0 && a > 0 ? q + 1 : q;
}

// The steps i of [first, last] that stay inside the bitmap.
struct Steps {
  int64_t first, last;
};

int64_t Narrow(wide value, int64_t low, int64_t high) {
  return static_cast<int64_t>(std::clamp<wide>(value, low, high));
}

// The allowed values of sign * v when start + sign * v must lie in
// [0, size - 1].
Steps Allowed(int64_t start, int sign, int64_t size) {
  if (sign < 0) return {start - (size - 1), start};
  return {-start, size - 1 - start};
}

// A line walks its major axis one pixel per step i (0 to `major`); its
// minor coordinate moves q(i) = floor((2 i minor + major) / (2 major))
// pixels, i * minor / major rounded halves up. These are the steps whose
// minor coordinate is in the bitmap: q(i) is monotone, so they form one
// interval, found by solving q(i) >= low and q(i) <= high for i.
Steps MinorSteps(Steps q, int64_t major, int64_t minor) {
  if (minor == 0) return q.first <= 0 && 0 <= q.last ? Steps{0, major} : Steps{1, 0};
  const wide two_minor = 2 * static_cast<wide>(minor);
  const wide first = CeilDiv((2 * static_cast<wide>(q.first) - 1) * major, two_minor);
  const wide last = CeilDiv((2 * static_cast<wide>(q.last) + 1) * major, two_minor) - 1;
  return {Narrow(first, -1, major + 1), Narrow(last, -1, major + 1)};
}

// Puts count + 1 pixels from p: one step along the major axis each, and
// one along the minor axis whenever the remainder reaches 2 major.
void Walk(uint8_t* p, ptrdiff_t major_step, ptrdiff_t minor_step, int64_t minor, int64_t two_major, int64_t remainder,
          int64_t count, Rgb colour) {
  for (;;) {
    Put(p, colour);
    if (count-- == 0) break;
    p += major_step;
    remainder += 2 * minor;
    if (remainder >= two_major) {
      remainder -= two_major;
      p += minor_step;
    }
  }
}

// A line with an end outside the bitmap: only the steps whose pixels are
// inside are walked. Kept out of the common path, whose lines are short and
// many.
[[gnu::noinline]] bool ClippedLine(Bitmap& bitmap, int32_t x1, int32_t y1, int32_t x2, int32_t y2, Rgb colour) {
  const int32_t w = bitmap.width, h = bitmap.height;
  if ((x1 < 0 && x2 < 0) || (x1 >= w && x2 >= w) || (y1 < 0 && y2 < 0) || (y1 >= h && y2 >= h)) return false;

  const int64_t dx = int64_t{x2} - x1, dy = int64_t{y2} - y1;
  const int sx = dx < 0 ? -1 : 1, sy = dy < 0 ? -1 : 1;
  const bool x_major = std::abs(dx) >= std::abs(dy);
  const int64_t major = x_major ? std::abs(dx) : std::abs(dy);
  const int64_t minor = x_major ? std::abs(dy) : std::abs(dx);

  const Steps along = x_major ? Allowed(x1, sx, w) : Allowed(y1, sy, h);
  const Steps across = MinorSteps(x_major ? Allowed(y1, sy, h) : Allowed(x1, sx, w), major, minor);
  const int64_t first = std::max({int64_t{0}, along.first, across.first});
  const int64_t last = std::min({major, along.last, across.last});
  if (first > last) return false;

  // q and its remainder at the first step.
  const int64_t two_major = 2 * std::max<int64_t>(major, 1);
  const wide start = 2 * static_cast<wide>(first) * minor + major;
  const int64_t q = static_cast<int64_t>(start / two_major);
  const int64_t remainder = static_cast<int64_t>(start % two_major);

  const int64_t x = x1 + sx * (x_major ? first : q);
  const int64_t y = y1 + sy * (x_major ? q : first);
  const ptrdiff_t across_x = 3 * sx, across_y = static_cast<ptrdiff_t>(sy) * bitmap.stride();
  Walk(bitmap.row(static_cast<int32_t>(y)) + 3 * x, x_major ? across_x : across_y, x_major ? across_y : across_x, minor,
       two_major, remainder, last - first, colour);
  return true;
}

}  // namespace

bool ResizeBitmap(Bitmap& bitmap, int32_t width, int32_t height) {
  if (width < 0 || height < 0) return false;
  if (width == bitmap.width && height == bitmap.height) return true;
  const int32_t padding = (4 - 3 * width % 4) % 4;
  try {
    std::vector<uint8_t> pixels((3 * static_cast<size_t>(width) + padding) * static_cast<size_t>(height));
    bitmap.pixels.swap(pixels);
  } catch (const std::bad_alloc&) {
    return false;
  } catch (const std::length_error&) {
    return false;
  }
  bitmap.width = width;
  bitmap.height = height;
  bitmap.row_padding = padding;
  return true;
}

void FillBitmap(Bitmap& bitmap, Rgb colour) {
  if (bitmap.width == 0 || bitmap.height == 0) return;
  uint8_t* first = bitmap.row(0);
  for (int32_t x = 0; x < bitmap.width; ++x) Put(first + 3 * x, colour);
  for (int32_t y = 1; y < bitmap.height; ++y) std::copy_n(first, bitmap.stride(), bitmap.row(y));
}

bool LineBitmap(Bitmap& bitmap, int32_t x1, int32_t y1, int32_t x2, int32_t y2, Rgb colour) {
  // 0 <= v < size in one comparison each, negative values turned huge.
  const auto w = static_cast<uint32_t>(bitmap.width), h = static_cast<uint32_t>(bitmap.height);
  const bool inside = static_cast<uint32_t>(x1) < w && static_cast<uint32_t>(x2) < w && static_cast<uint32_t>(y1) < h &&
                      static_cast<uint32_t>(y2) < h;
  if (!inside) return ClippedLine(bitmap, x1, y1, x2, y2, colour);
  // The common line, wholly inside: from the first end, where q is 0 and
  // the remainder is major.
  const int32_t dx = x2 - x1, dy = y2 - y1;
  const ptrdiff_t across_x = dx < 0 ? -3 : 3, across_y = dy < 0 ? -bitmap.stride() : bitmap.stride();
  uint8_t* const p = bitmap.row(y1) + 3 * x1;
  const int64_t adx = std::abs(dx), ady = std::abs(dy);
  if (adx >= ady)
    Walk(p, across_x, across_y, ady, 2 * std::max<int64_t>(adx, 1), adx, adx, colour);
  else
    Walk(p, across_y, across_x, adx, 2 * ady, ady, ady, colour);
  return true;
}

void PointBitmap(Bitmap& bitmap, int32_t x, int32_t y, Rgb colour) {
  if (x >= 1 && y >= 1 && x < bitmap.width - 1 && y < bitmap.height - 1) {
    // The whole dot, the common case.
    uint8_t* const p = bitmap.row(y) + 3 * x;
    const ptrdiff_t stride = bitmap.stride();
    for (const ptrdiff_t row : {-stride, ptrdiff_t{0}, stride}) {
      Put(p + row - 3, colour);
      Put(p + row, colour);
      Put(p + row + 3, colour);
    }
    return;
  }
  const int64_t left = std::max<int64_t>(int64_t{x} - 1, 0), right = std::min<int64_t>(int64_t{x} + 1, bitmap.width - 1);
  const int64_t bottom = std::max<int64_t>(int64_t{y} - 1, 0), top = std::min<int64_t>(int64_t{y} + 1, bitmap.height - 1);
  for (int64_t row = bottom; row <= top; ++row)
    for (int64_t column = left; column <= right; ++column) Put(bitmap.row(static_cast<int32_t>(row)) + 3 * column, colour);
}

void CopyBitmap(Bitmap& destination, const Bitmap& source) {
  std::copy(source.pixels.begin(), source.pixels.end(), destination.pixels.begin());
}

Rgb PixelAt(const Bitmap& bitmap, int32_t x, int32_t y) {
  const uint8_t* p = bitmap.row(y) + 3 * x;
  return {p[2], p[1], p[0]};
}

}  // namespace korvexed
