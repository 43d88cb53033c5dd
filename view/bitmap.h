#pragma once
// The drawing bitmap: 24-bit pixels in blue-green-red order, rows stored
// bottom-up and padded to a multiple of 4 bytes, so that pixel y grows
// upwards as world Y does. With it the few primitives the view draws with.
#include <cstddef>
#include <cstdint>
#include <vector>

namespace korvexed {

struct Rgb {
  uint8_t red = 0, green = 0, blue = 0;
  friend bool operator==(const Rgb&, const Rgb&) = default;
};

constexpr Rgb RgbT(uint8_t red, uint8_t green, uint8_t blue) { return {red, green, blue}; }

struct Bitmap {
  int32_t width = 0;
  int32_t height = 0;
  int32_t row_padding = 0;      // bytes after each row: (4 - 3 * width mod 4) mod 4
  std::vector<uint8_t> pixels;  // row 0 is the bottom row

  int32_t stride() const { return 3 * width + row_padding; }
  const uint8_t* row(int32_t y) const { return pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(stride()); }
  uint8_t* row(int32_t y) { return pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(stride()); }
};

// Negative sizes fail, as does a bitmap too large to allocate; the same
// size keeps the pixels; otherwise the pixels start black.
bool ResizeBitmap(Bitmap& bitmap, int32_t width, int32_t height);

void FillBitmap(Bitmap& bitmap, Rgb colour);
// A one-pixel line with both ends, clipped to the bitmap; the work done is
// that of the pixels inside. True when a pixel was drawn.
bool LineBitmap(Bitmap& bitmap, int32_t x1, int32_t y1, int32_t x2, int32_t y2, Rgb colour);
// The vertex dot: 3 x 3 pixels centred on (x, y), clipped.
void PointBitmap(Bitmap& bitmap, int32_t x, int32_t y, Rgb colour);
// Both bitmaps have the same size.
void CopyBitmap(Bitmap& destination, const Bitmap& source);

// The colour at a pixel inside the bitmap.
Rgb PixelAt(const Bitmap& bitmap, int32_t x, int32_t y);

}  // namespace korvexed
