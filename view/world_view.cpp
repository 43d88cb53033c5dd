#include "view/world_view.h"

#include <algorithm>
#include <cmath>

#include "document/document.h"
#include "platform/platform.h"
#include "view/korvexed_graphic.h"

namespace korvexed {

namespace {

RulerSink* horizontal_ruler = nullptr;
RulerSink* vertical_ruler = nullptr;

double Width() { return drawing.picture.width; }
double Height() { return drawing.picture.height; }

// An axis on which everything lies at one value gets 20 mm about it.
void OpenFlatAxis(double& min, double& max) {
  if (min < max) return;
  max = min + 10;
  min = min - 10;
}

// A document that prints nothing: every move's end and the origin, edge to
// edge.
void FitEveryMove() {
  // From the origin, so that it is always in the fitted view.
  double min_x = 0, max_x = 0, min_y = 0, max_y = 0;
  for (int32_t l = 0; l < doc.layer_count; ++l) {
    const layer_data& ly = doc.layer(l);
    for (int32_t j = 0; j < ly.g_count; ++j) {
      const g_entry& entry = ly.g[static_cast<size_t>(j)];
      if (!is_move(entry.kind)) continue;
      const coor_data& c = doc.coor(entry);
      if (min_x > c.x)
        min_x = c.x;
      else if (max_x < c.x)
        max_x = c.x;
      if (min_y > c.y)
        min_y = c.y;
      else if (max_y < c.y)
        max_y = c.y;
    }
  }
  OpenFlatAxis(min_x, max_x);
  OpenFlatAxis(min_y, max_y);
  const double sx = Width() / (max_x - min_x), sy = Height() / (max_y - min_y);
  double scale;
  if (sx <= sy) {
    scale = sx;
    min_y = min_y - (Height() / sx - (max_y - min_y)) / 2;
  } else {
    scale = sy;
    min_x = min_x - (Width() / sy - (max_x - min_x)) / 2;
  }
  view.view_offset_x = -min_x;
  view.view_offset_y = -min_y;
  view.view_scale = scale;
  UpdateViewBounds();
}

}  // namespace

WorldView view;

void SetRulers(RulerSink* horizontal, RulerSink* vertical) {
  horizontal_ruler = horizontal;
  vertical_ruler = vertical;
}

void WorldToPixel(double x, double y, int32_t& px, int32_t& py) {
  px = RoundPixel((view.view_offset_x + x) * view.view_scale);
  py = RoundPixel((view.view_offset_y + y) * view.view_scale);
}

void PixelToWorld(int32_t px, int32_t py, double& x, double& y) {
  x = px / view.view_scale - view.view_offset_x;
  y = py / view.view_scale - view.view_offset_y;
}

void InitView() {
  view.view_xmin = -20.0;
  view.view_xmax = 20.0;
  const double ratio = Height() / Width();
  view.view_ymin = -20.0 * ratio;
  view.view_ymax = 20.0 * ratio;
  FitScaleToWidth();
  UpdateViewBounds();
}

void FitScaleToWidth() {
  view.view_scale = Width() / (view.view_xmax - view.view_xmin);
  view.view_offset_x = -view.view_xmin;
  view.view_offset_y = -view.view_ymin;
}

void UpdateViewBounds() {
  view.view_xmin = -view.view_offset_x;
  view.view_ymin = -view.view_offset_y;
  view.view_xmax = Width() / view.view_scale - view.view_offset_x;
  view.view_ymax = Height() / view.view_scale - view.view_offset_y;
  // The rulers count in tens of millimetres; the vertical one runs from
  // the top edge down.
  if (horizontal_ruler) {
    horizontal_ruler->set_start_value(view.view_xmin / 10);
    horizontal_ruler->set_length((view.view_xmax - view.view_xmin) / 10);
  }
  if (vertical_ruler) {
    vertical_ruler->set_start_value(view.view_ymax / 10);
    vertical_ruler->set_length((view.view_ymin - view.view_ymax) / 10);
  }
}

void ZoomView(double factor, int32_t shift_px, int32_t shift_py, bool redraw) {
  const double wanted = view.view_scale * factor;
  if (wanted < min_view_scale) factor = min_view_scale / view.view_scale;
  if (wanted > max_view_scale) factor = max_view_scale / view.view_scale;
  view.view_scale = view.view_scale * factor;
  view.view_offset_x = (shift_px / view.view_scale + view.view_offset_x) / factor;
  view.view_offset_y = (shift_py / view.view_scale + view.view_offset_y) / factor;
  UpdateViewBounds();
  if (redraw) RedrawView();
}

void ZoomFit() {
  FitViewTo(PartExtent());
  RedrawView();
}

void FitViewTo(const PlaneExtent& part) {
  if (Width() == 0 || Height() == 0) return;
  if (part.empty()) return FitEveryMove();
  double min_x = part.min_x, max_x = part.max_x, min_y = part.min_y, max_y = part.max_y;
  OpenFlatAxis(min_x, max_x);
  OpenFlatAxis(min_y, max_y);
  // A twentieth of the area stays free on every side.
  constexpr double used = 0.9;
  const double scale = std::min(used * Width() / (max_x - min_x), used * Height() / (max_y - min_y));
  view.view_offset_x = Width() / scale / 2 - (min_x + max_x) / 2;
  view.view_offset_y = Height() / scale / 2 - (min_y + max_y) / 2;
  view.view_scale = scale;
  UpdateViewBounds();
}

void MouseWheelZoom(double notches) {
  if (std::fabs(notches) > 3) notches = std::copysign(3.0, notches);
  const int32_t anchor_y = static_cast<int32_t>(Height()) - view.wheel_anchor_y;
  double x0, y0, x1, y1;
  PixelToWorld(view.wheel_anchor_x, anchor_y, x0, y0);
  ZoomView(1 + 0.2 * notches, 0, 0, false);
  PixelToWorld(view.wheel_anchor_x, anchor_y, x1, y1);
  // The world point under the anchor goes back under it.
  const int32_t dy = RoundPixel((y1 - y0) * view.view_scale);
  const int32_t dx = RoundPixel((x1 - x0) * view.view_scale);
  ZoomView(1, dx, dy, true);
}

void ZoomAboutCentre(double notches) {
  view.wheel_anchor_x = RoundPixel(Width() / 2);
  view.wheel_anchor_y = RoundPixel(Height() / 2);
  MouseWheelZoom(notches);
}

void ResizeView(int32_t width, int32_t height) {
  const double w0 = Width(), h0 = Height();
  if (w0 == 0 || h0 == 0) return;
  if (!ResizeBitmap(drawing.picture, width, height) || !ResizeBitmap(drawing.saved, width, height)) {
    platform().message_box("Unable to resize bitmap", MsgIcon::critical, MsgButtons::ok);
    return;
  }
  // More of the world at the same scale, about the same centre.
  double d = (width / w0 - 1) * (view.view_xmax - view.view_xmin) / 2;
  view.view_xmax += d;
  view.view_xmin -= d;
  d = (height / h0 - 1) * (view.view_ymax - view.view_ymin) / 2;
  view.view_ymax += d;
  view.view_ymin -= d;
  FitScaleToWidth();
  UpdateViewBounds();
  RedrawView();
}

}  // namespace korvexed
