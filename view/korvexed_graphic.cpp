#include "view/korvexed_graphic.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

#include "document/document.h"
#include "document/korvexed_general.h"
#include "editing/list_state.h"
#include "platform/platform.h"
#include "view/layer_drawing.h"
#include "view/world_view.h"

namespace korvexed {

namespace {

PictureScreen* screen = nullptr;

uint8_t Half(uint8_t component) { return static_cast<uint8_t>(RoundHalfEven(component / 2.0)); }
Rgb Half(Rgb c) { return RgbT(Half(c.red), Half(c.green), Half(c.blue)); }

void WorldLine(double x1, double y1, double x2, double y2, Rgb colour) {
  int32_t px1, py1, px2, py2;
  WorldToPixel(x1, y1, px1, py1);
  WorldToPixel(x2, y2, px2, py2);
  LineBitmap(drawing.picture, px1, py1, px2, py2, colour);
}

// Lines every `step` millimetres; none when they would be closer than
// 4 pixels. Positions are multiples of the step, so they never drift.
void DrawGrid(double step, Rgb colour) {
  if (step * view.view_scale < 4) return;
  const double first_x = std::floor(view.view_xmin / step);
  for (double k = 0, x = first_x * step; x < view.view_xmax; x = (first_x + ++k) * step)
    WorldLine(x, view.view_ymin, x, view.view_ymax, colour);
  const double first_y = std::floor(view.view_ymin / step);
  for (double k = 0, y = first_y * step; y < view.view_ymax; y = (first_y + ++k) * step)
    WorldLine(view.view_xmin, y, view.view_xmax, y, colour);
}

}  // namespace

PathColours Halved(const PathColours& c) {
  return {Half(c.extrusion), Half(c.vertex), Half(c.travel), Half(c.end_marker)};
}

const Palette palette;
DrawSettings draw_settings;
Drawing drawing;

void SetPictureScreen(PictureScreen* s) { screen = s; }

bool CreateDrawing(int32_t width, int32_t height) {
  if (!ResizeBitmap(drawing.picture, width, height) || !ResizeBitmap(drawing.saved, width, height)) {
    platform().message_box("Unable to create bitmap", MsgIcon::critical, MsgButtons::ok);
    return false;
  }
  InitView();
  ClearPicture();
  return true;
}

void ClearPicture() {
  FillBitmap(drawing.picture, palette.background);
  // Coarser grids on top of finer ones.
  DrawGrid(1, palette.grid_1);
  DrawGrid(10, palette.grid_10);
  DrawGrid(100, palette.grid_100);
  WorldLine(0, view.view_ymin, 0, view.view_ymax, palette.axes);
  WorldLine(view.view_xmin, 0, view.view_xmax, 0, palette.axes);
}

void RedrawView() {
  ClearPicture();
  if (IsDocumentLoaded()) {
    // Other layers underneath at half brightness, the current one on top.
    const int32_t current = doc.current_layer;
    for (int32_t i = 0; i < doc.layer_count && i < static_cast<int32_t>(lists.layer_selected.size()); ++i)
      if (lists.layer_selected[static_cast<size_t>(i)] && i != current) DrawLayer(i, false);
    if (current >= 0 && current < doc.layer_count) {
      DrawLayer(current, true);
      DrawSelectionSquares();
    }
  }
  ShowPicture();
}

void ShowPicture() {
  if (screen) screen->show_picture(drawing.picture);
}

void SavePicture() { CopyBitmap(drawing.saved, drawing.picture); }
void RestorePicture() { CopyBitmap(drawing.picture, drawing.saved); }

void DrawSquare(int32_t x, int32_t y, int32_t width, int32_t height, Rgb colour) {
  const int64_t left = int64_t{x} - width / 2, bottom = int64_t{y} - height / 2;
  const int64_t right = left + width - 1, top = bottom + height - 1;
  // Corners far off the bitmap saturate; such a square is not seen anyway.
  auto line = [&](int64_t x1, int64_t y1, int64_t x2, int64_t y2) {
    auto clamp = [](int64_t v) { return static_cast<int32_t>(std::clamp<int64_t>(v, INT32_MIN, INT32_MAX)); };
    LineBitmap(drawing.picture, clamp(x1), clamp(y1), clamp(x2), clamp(y2), colour);
  };
  line(left, bottom, left, top);
  if (right > left) {
    line(left + 1, top, right, top);
    if (top > bottom) line(left + 1, bottom, right, bottom);
    if (top - bottom > 1) line(right, bottom + 1, right, top - 1);
  }
}

void DrawArrow(int32_t x1, int32_t y1, int32_t x2, int32_t y2, double length_sq, Rgb colour) {
  // A quarter of the length, whole pixels: at least 4 (decided before the
  // square root, as most segments are short), at most 15.
  if (!HasArrow(length_sq)) return;
  double n = std::floor(std::sqrt(length_sq / 16));
  if (n > 15) n = 15;
  const double mx = RoundHalfEven((static_cast<double>(x1) + x2) / 2), my = RoundHalfEven((static_cast<double>(y1) + y2) / 2);

  constexpr double pi = std::numbers::pi;
  double theta;
  if (x1 == x2) {
    theta = y2 < y1 ? 3 * pi / 2 : pi / 2;
  } else if (y1 == y2) {
    theta = x2 < x1 ? pi : 0;
  } else {
    theta = std::atan((static_cast<double>(y2) - y1) / (static_cast<double>(x2) - x1));
    if (x2 < x1)
      theta += pi;
    else if (y2 < y1)
      theta += 2 * pi;
  }
  // Barbs at 20 degrees either side of the way back.
  constexpr double a = pi / 9;
  auto to_pixel = [](double v) { return static_cast<int32_t>(std::clamp(v, double{INT32_MIN}, double{INT32_MAX})); };
  const int32_t px = to_pixel(mx), py = to_pixel(my);
  LineBitmap(drawing.picture, px, py, to_pixel(mx - RoundHalfEven(n * std::cos(a - theta))),
             to_pixel(my + RoundHalfEven(n * std::sin(a - theta))), colour);
  LineBitmap(drawing.picture, px, py, to_pixel(mx - RoundHalfEven(n * std::cos(a + theta))),
             to_pixel(my - RoundHalfEven(n * std::sin(a + theta))), colour);
}

void DrawSegment(int32_t x1, int32_t y1, int32_t x2, int32_t y2, Rgb colour) {
  LineBitmap(drawing.picture, x1, y1, x2, y2, colour);
  if (!draw_settings.show_arrow) return;
  const double dx = static_cast<double>(x2) - x1, dy = static_cast<double>(y2) - y1;
  DrawArrow(x1, y1, x2, y2, dx * dx + dy * dy, colour);
}

}  // namespace korvexed
