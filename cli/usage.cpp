#include "cli/usage.h"

namespace korvexed::cli {

std::string_view HelpText() {
  return R"(Usage: korvexed-cli COMMAND FILE [OPTIONS]

The korvexed G-code editor's document operations without a window: FILE is
read as the editor's Open reads it, and written as its Save writes it.

Commands:
  info FILE                   summary: layers, records, moves, extent
  dump FILE [-o OUT]          the loaded document, one line per record
  convert FILE -o OUT [--tagged]
                              write back as Save does, or as the Cura-style
                              tagged export
  translate FILE -o OUT [--rotate DEG] [--dx MM] [--dy MM]
                              rotate every move about the origin (degrees,
                              counter-clockwise), then offset it
  render FILE -o OUT.png [--layer N] [--with LAYERS] [--size WxH]
                 [--no-travel] [--no-arrows]
                              the picture of the drawing area after Zoom
                              Fit: layer N (default: the first printed
                              layer, as after Open) current, LAYERS
                              (such as 0,3-5) on view as other layers
  edit FILE SCRIPT            run an edit script (SCRIPT '-' reads standard
                              input)

Options:
  -o OUT              output file; '-' is standard output
  --tagged            convert to the Cura-style tagged export
  --rotate DEG, --dx MM, --dy MM
                      the Translate values (missing ones are 0)
  --layer N           render: the current layer
  --with LAYERS       render: other layers on view, comma-separated
                      indices and ranges A-B
  --size WxH          render: the picture's size (default 800x800)
  --no-travel         render: hide travel moves (Show Movement off)
  --no-arrows         render: no direction arrows (Show Arrow off)
  --accept-partial    keep partial data when a count limit is reached
                      (otherwise such a file is refused)
  --decimal-comma     read numbers written with a decimal comma
  -h, --help          show this help and exit
  --version           show the version and exit

Edit script commands (one a line, '#' starts a comment line; R is a
record, L a layer, both 0-based; a range A-B may stand for an index):
  layer L                     make layer L current, all of it on view
  rows all|none|invert|extruded|selected|R...
                              which data rows of the layer are on view
  select all|none|invert|R... which vertices on view are marked
  rect X1 Y1 X2 Y2 [shift+ctrl+alt]
                              rubber-band marking over a world rectangle
  move DX DY [DE]             move the marked vertices
  delete-vertices             delete the marked vertices
  delete-rows                 delete the G92 and text rows on view
  feedrate OLD NEW            change the feedrate of the marked vertices
                              (OLD 0: all of them)
  kind G0|G1                  set the kind of the marked vertices
  insert-point R X Y          insert a vertex at (X, Y) before record R
  insert-points R N           insert N (1 to 5) vertices evenly before R
  text R TEXT...              replace text record R
  delete-layers L...          delete layers; no layer is current after it
  translate DEG DX DY         rotate and offset the whole document
  save PATH | export PATH | dump PATH
                              write G-code, tagged G-code or the dump
                              (PATH '-' is standard output)

Messages of the editor are written to standard error as 'message: TEXT'.
Exit status: 0 success, 1 a file could not be read or written, 2 a wrong
command line or script line.
)";
}

std::string_view VersionText() { return "korvexed-cli " KORVEXED_VERSION "\n"; }

}  // namespace korvexed::cli
