// Turning and placing the whole print: every move rotated about the plan
// origin, then offset.
#include <cmath>
#include <string>

#include "editing/korvexed_data.h"
#include "editing/step_record.h"

namespace korvexed {

void translate_all(double rotation, double ox, double oy) {
  const bool rotate = std::fabs(rotation) > negligible;
  const bool offset = std::fabs(ox) > negligible || std::fabs(oy) > negligible;
  // The program's own truncated pi, so that results agree to the last digit.
  const double angle = rotation * 3.14159265358979 / 180;
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  for (int32_t l = 0; l < doc.layer_count; ++l) {
    if (l % 5 == 0) ShowStatus("Translating GCode at Layer " + std::to_string(l), 1);
    const layer_data& ly = doc.layer(l);
    for (int32_t i = 0; i < ly.g_count; ++i) {
      const g_entry& entry = ly.g[static_cast<size_t>(i)];
      if (!is_move(entry.kind)) continue;
      // A rigid motion keeps every length: nothing needs re-deriving.
      save_for_undo(&StepRecord::save_xy, entry.index);
      coor_data& m = doc.coor(entry);
      if (rotate) {
        const double x = m.x;
        m.x = c * x - s * m.y;
        m.y = s * x + c * m.y;
        if (is_arc(entry.kind)) {
          // The centre's offset turns with the points; nothing is refitted.
          save_for_undo(&StepRecord::save_arc, entry.index);
          arc_data& centre = doc.arc(entry.index);
          const double i = centre.i;
          centre.i = c * i - s * centre.j;
          centre.j = s * i + c * centre.j;
        }
      }
      if (offset) {
        m.x += ox;
        m.y += oy;
      }
    }
  }
}

}  // namespace korvexed
