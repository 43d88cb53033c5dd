#pragma once
// The one view of the drawing area: the mapping between world millimetres
// and pixels of the drawing bitmap (pixel y grows upwards from the bottom
// edge), and everything that zooms, pans, fits or resizes it.
#include <cstdint>

#include "document/korvexed_general.h"
#include "document/printed_part.h"

namespace korvexed {

struct WorldView {
  double view_xmin = -20, view_ymin = -20, view_xmax = 20, view_ymax = 20;
  double view_scale = 1;  // pixels per millimetre, both axes
  double view_offset_x = 20, view_offset_y = 20;
  // The last mouse-wheel position in drawing-area pixels, y downwards.
  int32_t wheel_anchor_x = 0, wheel_anchor_y = 0;
};

extern WorldView view;

inline constexpr double min_view_scale = 0.15;
inline constexpr double max_view_scale = 500000;

// A ruler beside the drawing area; it shows world values from its start
// value over its length (negative: the values fall along the ruler).
class RulerSink {
 public:
  virtual ~RulerSink() = default;
  virtual void set_start_value(double value) = 0;
  virtual void set_length(double length) = 0;
};

// The rulers that follow the view; null for none.
void SetRulers(RulerSink* horizontal, RulerSink* vertical);

// A pixel coordinate rounded to nearest, halves to even, saturating at the
// 32-bit limits (a point that far off is off the bitmap either way).
inline int32_t RoundPixel(double v) {
  if (v >= 2147483647.0) return INT32_MAX;
  if (!(v > -2147483648.0)) return INT32_MIN;  // not a number too
  return static_cast<int32_t>(RoundHalfEven(v));
}

void WorldToPixel(double x, double y, int32_t& px, int32_t& py);
void PixelToWorld(int32_t px, int32_t py, double& x, double& y);

// The start-up view: 40 mm across, centred on the origin.
void InitView();
// Scale from the width of the view; the height follows the drawing area.
void FitScaleToWidth();
// The edges from scale and offsets, published to the rulers. No redraw.
void UpdateViewBounds();
// Zooms by `factor` (clamped so the scale stays in its bounds), then pans
// the picture by (shift_px, shift_py) pixels, right and up.
void ZoomView(double factor, int32_t shift_px, int32_t shift_py, bool redraw);
// Fits the printed part (PartExtent) into the drawing area with a margin,
// whichever layers are on view, and redraws.
void ZoomFit();
// The same fit to `part`, without the redraw; a document that prints
// nothing is fitted with every move's end and the origin, edge to edge.
// Nothing happens while the drawing has no size yet.
void FitViewTo(const PlaneExtent& part);
// Zooms by the wheel's notches (at most 3 a turn) about the wheel anchor.
void MouseWheelZoom(double notches);
// The menu's "Zoom +" (notches 1) and "Zoom -" (-1), about the centre.
void ZoomAboutCentre(double notches);
// The drawing area is now width x height: both bitmaps follow, and the view
// widens or narrows about its centre at the same scale.
void ResizeView(int32_t width, int32_t height);

}  // namespace korvexed
