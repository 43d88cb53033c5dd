#!/usr/bin/env bash
# Regenerates example.gcode, the bundled example print: a 60 mm ribbed tube
# of ten 0.3 mm layers, written by the project's own generator, and
# example.png, the editor's picture of its sixth layer after Zoom Fit.
set -euo pipefail
source "$(dirname "$0")/../scripts/lib.sh"
korvexed_install_packages
korvexed_build korvexed-make-gcode korvexed-cli
"$KORVEXED_BUILD_DIR/bench/korvexed-make-gcode" --size 60 --layers 10 --layer-height 0.3 \
  -o "$KORVEXED_ROOT/examples/example.gcode"
"$KORVEXED_BUILD_DIR/cli/korvexed-cli" render "$KORVEXED_ROOT/examples/example.gcode" --layer 5 \
  -o "$KORVEXED_ROOT/examples/example.png"
