#!/usr/bin/env bash
# Re-creates the slicer fixtures of this folder from the models in models/:
# real output of Debian's slic3r, prusa-slicer and cura-engine, with 0.3 mm
# layers and retraction on. Only the date in the first line of the Slic3r
# and PrusaSlicer files changes from run to run.
set -euo pipefail
here="$(cd "$(dirname "$0")" && pwd)"
models="$here/models"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

missing=()
command -v slic3r >/dev/null || missing+=(slic3r)
command -v prusa-slicer >/dev/null || missing+=(prusa-slicer)
command -v CuraEngine >/dev/null || missing+=(cura-engine)
if ((${#missing[@]})); then
  apt-get update -qq
  DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}"
fi

# CuraEngine needs the printer definitions that Debian ships in the cura
# package; take its data files without installing the whole application.
definitions=/usr/share/cura/resources/definitions
extruders=/usr/share/cura/resources/extruders
if [[ ! -f "$definitions/fdmprinter.def.json" ]]; then
  (cd "$work" && apt-get download -o APT::Sandbox::User=root cura >/dev/null)
  dpkg-deb -x "$work"/cura_*.deb "$work/cura"
  definitions="$work/cura$definitions"
  extruders="$work/cura$extruders"
fi

python3 "$models/make_models.py" "$models"

common=(--layer-height 0.3 --first-layer-height 0.3 --retract-length 2)

# Slic3r 1.3: its defaults; the ring with a comment behind every move.
slic3r --no-gui "${common[@]}" --output "$here/slic3r_box.gcode" "$models/box.stl"
slic3r --no-gui "${common[@]}" --gcode-comments --output "$here/slic3r_ring.gcode" "$models/ring.stl"

# PrusaSlicer 2.5: absolute E; the ring with relative E and G92 E0 at every layer.
prusa-slicer --export-gcode "${common[@]}" --output "$here/prusa_prism.gcode" "$models/prism.stl"
prusa-slicer --export-gcode "${common[@]}" --use-relative-e-distances --layer-gcode 'G92 E0' \
  --output "$here/prusa_ring.gcode" "$models/ring.stl"

# CuraEngine 4.13 over Cura's generic printer.
cura=(-j "$definitions/fdmprinter.def.json" -s layer_height=0.3 -s layer_height_0=0.3
      -s retraction_enable=true -s retraction_amount=2 -s material_diameter=1.75)
export CURA_ENGINE_SEARCH_PATH="$definitions:$extruders"
CuraEngine slice "${cura[@]}" -e0 -l "$models/box.stl" -o "$here/cura_box.gcode" 2>"$work/cura.log"
CuraEngine slice "${cura[@]}" -s infill_pattern=zigzag -s infill_sparse_density=30 \
  -e0 -l "$models/ring.stl" -o "$here/cura_ring.gcode" 2>"$work/cura.log"

ls -l "$here"/*.gcode
