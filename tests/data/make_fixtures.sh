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

# Slic3r 1.3: its defaults; the ring with a comment behind every move; the
# prism with relative E and comments.
slic3r --no-gui "${common[@]}" --output "$here/slic3r_box.gcode" "$models/box.stl"
slic3r --no-gui "${common[@]}" --gcode-comments --output "$here/slic3r_ring.gcode" "$models/ring.stl"
slic3r --no-gui "${common[@]}" --use-relative-e-distances --gcode-comments \
  --output "$here/slic3r_rel.gcode" "$models/prism.stl"

# PrusaSlicer 2.5: absolute E; then relative E, which it only writes with
# G92 E0 at every layer: the ring, also with a 0.4 mm lift on every
# retraction, and a spiral vase (one wall, no infill, no top).
relative=(--use-relative-e-distances --layer-gcode 'G92 E0')
prusa-slicer --export-gcode "${common[@]}" --output "$here/prusa_prism.gcode" "$models/prism.stl"
prusa-slicer --export-gcode "${common[@]}" "${relative[@]}" --output "$here/prusa_ring.gcode" "$models/ring.stl"
prusa-slicer --export-gcode "${common[@]}" "${relative[@]}" --retract-lift 0.4 \
  --output "$here/prusa_zhop_rel.gcode" "$models/ring.stl"
prusa-slicer --export-gcode "${common[@]}" "${relative[@]}" --spiral-vase --perimeters 1 --top-solid-layers 0 \
  --fill-density 0 --output "$here/prusa_vase.gcode" "$models/vase.stl"

# CuraEngine 4.13 over Cura's generic printer, run in models/ so that its
# ;MESH: lines name the model alone, wherever the checkout is.
cura=(-j "$definitions/fdmprinter.def.json" -s layer_height=0.3 -s layer_height_0=0.3
      -s retraction_enable=true -s retraction_amount=2 -s material_diameter=1.75)
export CURA_ENGINE_SEARCH_PATH="$definitions:$extruders"
cura_slice() {  # MODEL OUTPUT [-s SETTING=VALUE...]
  local model="$1" output="$2"
  shift 2
  (cd "$models" && CuraEngine slice "${cura[@]}" "$@" -e0 -l "$model" -o "$here/$output") 2>"$work/cura.log"
}
cura_slice box.stl cura_box.gcode
cura_slice ring.stl cura_ring.gcode -s infill_pattern=zigzag -s infill_sparse_density=30
# Relative E with a lift on every retraction; combing off, so that travels
# retract (and lift) instead of staying inside the part.
cura_slice ring.stl cura_zhop_rel.gcode -s relative_extrusion=true -s retraction_hop_enabled=true \
  -s retraction_combing=off
# A spiral with relative E, over 3 bottom layers instead of Cura's 6 to keep the file small.
cura_slice vase.stl cura_vase.gcode -s relative_extrusion=true -s magic_spiralize=true -s bottom_layers=3 \
  -s initial_bottom_layers=3

# Arcs: no slicer in Debian writes them, so the tests write their own print.
python3 "$here/make_arc_print.py" "$here/arc_cup.gcode"

ls -l "$here"/*.gcode
