#pragma once
// korvexed-cli render: the drawing area's picture of a layer, as a PNG.
#include "cli/arguments.h"

namespace korvexed::cli {

// Draws the loaded document as the window would show it after Zoom Fit,
// and writes the PNG to args.out. Returns the exit status.
int RenderPicture(const Arguments& args);

}  // namespace korvexed::cli
