#pragma once
// The picture of the drawing area: built in memory by one full redraw
// (background, grids, axes, the layers on view, the marked vertices) and
// then handed to the screen in one go, so no partial picture is ever seen.
#include <cstdint>

#include "view/bitmap.h"

namespace korvexed {

// The colours of a tool path.
struct PathColours {
  Rgb extrusion, vertex, travel, end_marker;
};

// Each component halved, halves rounded to even: other layers than the
// current one are drawn at half brightness.
PathColours Halved(const PathColours& colours);

struct Palette {
  Rgb background = RgbT(30, 30, 30);
  Rgb grid_1 = RgbT(50, 50, 50);
  Rgb grid_10 = RgbT(70, 70, 70);
  Rgb grid_100 = RgbT(90, 90, 90);
  Rgb axes = RgbT(128, 0, 128);
  PathColours current_path{RgbT(128, 128, 255), RgbT(0, 255, 0), RgbT(255, 128, 0), RgbT(200, 0, 0)};
  PathColours other_path = Halved(current_path);
  Rgb selected = RgbT(255, 255, 0);
};
extern const Palette palette;

// The Settings menu's drawing options: travel moves, direction arrows.
struct DrawSettings {
  bool show_movement = false;
  bool show_arrow = false;
};
extern DrawSettings draw_settings;

// The drawing area of the window, or whatever else shows the picture.
class PictureScreen {
 public:
  virtual ~PictureScreen() = default;
  virtual void show_picture(const Bitmap& picture) = 0;
};
// Null: the picture is shown nowhere (the CLI, the tests).
void SetPictureScreen(PictureScreen* screen);

// The picture, and the copy of it that gestures restore to wipe the marks
// they drew.
struct Drawing {
  Bitmap picture;
  Bitmap saved;
};
extern Drawing drawing;

// Makes both bitmaps width x height, sets the start-up view and clears the
// picture. "Unable to create bitmap" when they cannot be made.
bool CreateDrawing(int32_t width, int32_t height);

void ClearPicture();
// The one full redraw, ending with ShowPicture.
void RedrawView();
void ShowPicture();
void SavePicture();
void RestorePicture();

// An outline of width x height pixels centred on (x, y); no pixel drawn twice.
void DrawSquare(int32_t x, int32_t y, int32_t width, int32_t height, Rgb colour);
// Segments shorter than 16 pixels (squared length under 256) get no
// direction mark.
inline bool HasArrow(double length_sq) { return length_sq >= 256; }
// The direction mark at the middle of the segment from p1 to p2, whose
// length in pixels squared is `length_sq`.
void DrawArrow(int32_t x1, int32_t y1, int32_t x2, int32_t y2, double length_sq, Rgb colour);
// A gesture's line, with its arrow when arrows are shown.
void DrawSegment(int32_t x1, int32_t y1, int32_t x2, int32_t y2, Rgb colour);

}  // namespace korvexed
