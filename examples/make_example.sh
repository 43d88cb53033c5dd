#!/usr/bin/env bash
# Regenerates example.gcode, the bundled example print: a 20 mm ribbed tube
# of ten 0.3 mm layers, written by the project's own generator.
set -euo pipefail
source "$(dirname "$0")/../scripts/lib.sh"
korvexed_install_packages
korvexed_build korvexed-make-gcode
"$KORVEXED_BUILD_DIR/bench/korvexed-make-gcode" --size 20 --layers 10 --layer-height 0.3 \
  -o "$KORVEXED_ROOT/examples/example.gcode"
