#include "view/layer_drawing.h"

#include <algorithm>
#include <cmath>

#include "document/document.h"
#include "view/arc_path.h"
#include "editing/korvexed_data.h"
#include "editing/list_state.h"
#include "view/korvexed_graphic.h"
#include "view/world_view.h"

namespace korvexed {

namespace {

constexpr int32_t marker_size = 11;

// A point in pixels before rounding, so that a segment reaching far off
// the bitmap can be cut before its ends are made 32-bit.
struct PixelPoint {
  double x, y;
};

// Ends within this distance are drawn as they round; longer segments are
// first cut to it, which moves what is seen by far less than a pixel.
constexpr double guard = 0x1p30;

// Cuts the segment to the guard square (Liang-Barsky); false when nothing
// of it is left or it is not a number.
bool CutToGuard(PixelPoint& a, PixelPoint& b) {
  double t0 = 0, t1 = 1;
  const double dx = b.x - a.x, dy = b.y - a.y;
  auto clip = [&](double p, double q) {
    if (p == 0) return q >= 0;
    const double t = q / p;
    if (p < 0) {
      if (t > t1) return false;
      t0 = std::max(t0, t);
    } else {
      if (t < t0) return false;
      t1 = std::min(t1, t);
    }
    return true;
  };
  if (!(clip(-dx, a.x + guard) && clip(dx, guard - a.x) && clip(-dy, a.y + guard) && clip(dy, guard - a.y)))
    return false;
  const PixelPoint start = a;
  if (t1 < 1) b = {start.x + t1 * dx, start.y + t1 * dy};
  if (t0 > 0) a = {start.x + t0 * dx, start.y + t0 * dy};
  return true;
}

bool Inside(const PixelPoint& p) { return std::fabs(p.x) < guard && std::fabs(p.y) < guard; }

PixelPoint Pixel(double x, double y) {
  return {(view.view_offset_x + x) * view.view_scale, (view.view_offset_y + y) * view.view_scale};
}

struct Rounded {
  int32_t x, y;
};

Rounded Round(const PixelPoint& p) { return {RoundPixel(p.x), RoundPixel(p.y)}; }

// A point of the path, rounded and checked once when the walk reaches it,
// as each one ends a segment and starts the next.
struct PathPoint {
  PixelPoint exact;
  Rounded px;
  bool inside;  // within the guard: drawn as it rounds
};

PathPoint At(const PixelPoint& p) { return {p, Round(p), Inside(p)}; }

// True when the line reached the bitmap; its drawn ends come back. A line
// reaching far off the bitmap is cut first.
bool Line(const PathPoint& a, const PathPoint& b, Rgb colour, Rounded& a_px, Rounded& b_px) {
  a_px = a.px;
  b_px = b.px;
  if (!(a.inside && b.inside)) {
    PixelPoint cut_a = a.exact, cut_b = b.exact;
    if (!CutToGuard(cut_a, cut_b)) return false;
    a_px = Round(cut_a);
    b_px = Round(cut_b);
  }
  return LineBitmap(drawing.picture, a_px.x, a_px.y, b_px.x, b_px.y, colour);
}

Rounded RoundedAt(PlanePoint p) { return Round(Pixel(p.x, p.y)); }

// An arc as its chords, with the arrow (for `arrow_length_sq` above 0)
// along its middle.
void DrawArc(const Arc& arc, Rgb colour, double arrow_length_sq) {
  PathPoint from = At(Pixel(arc.start.x, arc.start.y));
  ForEachArcChord(arc, view.view_scale, [&](PlanePoint p) {
    const PathPoint to = At(Pixel(p.x, p.y));
    Rounded a, b;
    Line(from, to, colour, a, b);
    from = to;
  });
  if (arrow_length_sq <= 0) return;
  const double half = arc.sweep() / 2;
  if (!Inside(Pixel(arc.at(half).x, arc.at(half).y))) return;
  // The tangent at the middle, from two points about 16 pixels apart.
  const double spread = std::min(half, 8 / std::max(arc.radius() * view.view_scale, 1.0));
  const Rounded a = RoundedAt(arc.at(half - spread)), b = RoundedAt(arc.at(half + spread));
  DrawArrow(a.x, a.y, b.x, b.y, arrow_length_sq, colour);
}

// The walk over one layer's entries.
class LayerPainter {
 public:
  LayerPainter(const PathColours& colours, PlanePoint start)
      : colours_(colours), world_(start), previous_(At(Pixel(start.x, start.y))), start_(previous_.px),
        last_move_(start_) {}

  // A move that is drawn: its line or arc, its arrow, and the dot of the
  // vertex before it, so that each dot lies on both lines that meet there.
  void Move(const g_entry& entry, const coor_data& record) {
    const PathPoint current = At(Pixel(record.x, record.y));
    const Rgb colour = record.e_delta > 0 ? colours_.extrusion : colours_.travel;
    if (record.e_delta > 0 || draw_settings.show_movement) {
      const double length_sq = record.d_delta * view.view_scale * view.view_scale;
      const bool arrow = draw_settings.show_arrow && HasArrow(length_sq);
      if (is_arc(entry.kind)) {
        DrawArc(doc.arc_from(world_, entry), colour, arrow ? length_sq : 0);
      } else if (Rounded a, b; Line(previous_, current, colour, a, b) && arrow) {
        DrawArrow(a.x, a.y, b.x, b.y, length_sq, colour);
      }
    }
    if (has_pending_) Dot(pending_);
    pending_ = current.px;
    has_pending_ = true;
    Advance(current, record);
  }
  // A move whose row is off view: the path goes on from its end.
  void Skip(const coor_data& record) { Advance(At(Pixel(record.x, record.y)), record); }
  // A position reset: the axes it names.
  void Reset(const coor_data& record) {
    if (record.x != no_value) world_.x = record.x;
    if (record.y != no_value) world_.y = record.y;
    previous_ = At(Pixel(world_.x, world_.y));
  }
  void Finish() {
    if (has_pending_) Dot(pending_);
    DrawSquare(start_.x, start_.y, marker_size, marker_size, colours_.vertex);
    DrawSquare(last_move_.x, last_move_.y, marker_size, marker_size, colours_.end_marker);
  }

 private:
  void Advance(const PathPoint& p, const coor_data& record) {
    previous_ = p;
    last_move_ = p.px;
    world_ = {record.x, record.y};
  }

  void Dot(const Rounded& p) { PointBitmap(drawing.picture, p.x, p.y, colours_.vertex); }


  const PathColours colours_;
  PlanePoint world_;  // where the tool is, in millimetres
  PathPoint previous_;
  Rounded start_, last_move_, pending_{};
  bool has_pending_ = false;
};

bool AnyRowOnView() {
  return std::any_of(lists.data_selected.begin(), lists.data_selected.end(), [](uint8_t on) { return on != 0; });
}

}  // namespace

void DrawLayer(int32_t layer, bool current) {
  const layer_data& ly = doc.layer(layer);
  if (current ? !AnyRowOnView() : ly.g_count == 0) return;

  // The path starts where the layers before left the tool.
  int32_t walked = layer;
  const coor_data start = get_state_before(walked, -1);
  LayerPainter painter(current ? palette.current_path : palette.other_path, {start.x, start.y});
  const size_t rows_on_view = lists.data_selected.size();
  for (int32_t j = 0; j < ly.g_count; ++j) {
    const g_entry& entry = ly.g[static_cast<size_t>(j)];
    if (is_move(entry.kind)) {
      const coor_data& record = doc.coor(entry);
      if (current && !(static_cast<size_t>(j) < rows_on_view && lists.data_selected[static_cast<size_t>(j)]))
        painter.Skip(record);
      else
        painter.Move(entry, record);
    } else if (entry.kind == line_kind::g92) {
      painter.Reset(doc.coor(entry));
    }
  }
  painter.Finish();
}

void DrawMoveOver(PlanePoint from, const g_entry& entry, Rgb colour) {
  if (is_arc(entry.kind)) {
    const Arc arc = doc.arc_from(from, entry);
    const double length_sq = arc.length_sq() * view.view_scale * view.view_scale;
    DrawArc(arc, colour, draw_settings.show_arrow && HasArrow(length_sq) ? length_sq : 0);
    return;
  }
  const coor_data& end = doc.coor(entry);
  int32_t x1, y1, x2, y2;
  WorldToPixel(from.x, from.y, x1, y1);
  WorldToPixel(end.x, end.y, x2, y2);
  DrawSegment(x1, y1, x2, y2, colour);
}

void DrawSelectionSquares() {
  const layer_data& ly = doc.layer(doc.current_layer);
  const size_t count = std::min(lists.select_flag.size(), static_cast<size_t>(ly.g_count));
  for (size_t j = 0; j < count; ++j) {
    if (!lists.select_flag[j] || !is_coordinate(ly.g[j].kind)) continue;
    const coor_data& record = doc.coor(ly.g[j]);
    int32_t x, y;
    WorldToPixel(record.x, record.y, x, y);
    DrawSquare(x, y, marker_size, marker_size, palette.selected);
  }
}

}  // namespace korvexed
