#include "view/world_view.h"

#include <cmath>

namespace korvexed {

WorldView view;

void WorldToPixel(double x, double y, int32_t& px, int32_t& py) {
  // Round to nearest, ties to even (the default rounding mode).
  px = static_cast<int32_t>(std::nearbyint((view.view_offset_x + x) * view.view_scale));
  py = static_cast<int32_t>(std::nearbyint((view.view_offset_y + y) * view.view_scale));
}

void PixelToWorld(int32_t px, int32_t py, double& x, double& y) {
  x = px / view.view_scale - view.view_offset_x;
  y = py / view.view_scale - view.view_offset_y;
}

}  // namespace korvexed
