#pragma once
// The toolbar's pictures, drawn as vector paths in the palette's text colour
// so that they stay sharp at every size and follow light and dark themes.
#include <QIcon>

namespace korvexed {

enum class ToolbarPicture {
  zoom_in,
  open_file,
  save_file,
  zoom_out,
  zoom_fit,
  view_all_layers,
  layer_range_scroll,
  data_range_scroll,
  show_movement,
  show_arrow,
  help,
  about,
  undo,
  redo,
};

QIcon ToolbarIcon(ToolbarPicture picture);

}  // namespace korvexed
