#include "cli/render.h"

#include <cstdio>
#include <string>

#include "cli/exit_status.h"
#include "cli/output.h"
#include "document/document.h"
#include "document/printed_part.h"
#include "editing/list_state.h"
#include "platform/png_image.h"
#include "platform/platform.h"
#include "view/korvexed_graphic.h"
#include "view/world_view.h"

namespace korvexed::cli {

namespace {

bool LayerExists(int32_t layer) {
  if (layer < doc.layer_count) return true;
  std::fprintf(stderr, "korvexed-cli: layer %d does not exist (valid: 0 to %d)\n", layer, doc.layer_count - 1);
  return false;
}

}  // namespace

int RenderPicture(const Arguments& args) {
  if (args.layer && !LayerExists(*args.layer)) return exit_usage;
  for (const auto& [first, last] : args.with)
    if (!LayerExists(last)) return exit_usage;

  const PlaneExtent part = PartExtent();
  ShowSingleLayer(args.layer ? *args.layer : FirstPrintedLayer(part));
  for (const auto& [first, last] : args.with)
    for (int32_t l = first; l <= last; ++l) lists.layer_selected[static_cast<size_t>(l)] = 1;
  draw_settings = {.show_movement = args.travel, .show_arrow = args.arrows};
  if (!CreateDrawing(args.width, args.height)) return exit_io;
  FitViewTo(part);
  RedrawView();

  const std::string png = EncodePng(drawing.picture);
  if (png.empty()) {
    platform().message_box("Unable to encode the picture as PNG", MsgIcon::critical, MsgButtons::ok);
    return exit_io;
  }
  return WriteBytesTo(args.out, png, "the picture") ? exit_ok : exit_io;
}

}  // namespace korvexed::cli
