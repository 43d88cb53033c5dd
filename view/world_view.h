#pragma once
// The mapping between world millimetres and pixels of the drawing bitmap.
// Pixel y grows upwards from the bottom edge.
#include <cstdint>

namespace korvexed {

struct WorldView {
  double view_xmin = -20, view_ymin = -20, view_xmax = 20, view_ymax = 20;
  double view_scale = 1;  // pixels per millimetre, both axes
  double view_offset_x = 20, view_offset_y = 20;
};

extern WorldView view;

void WorldToPixel(double x, double y, int32_t& px, int32_t& py);
void PixelToWorld(int32_t px, int32_t py, double& x, double& y);

}  // namespace korvexed
