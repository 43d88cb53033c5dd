#include "view/ruler_scale.h"

#include <algorithm>
#include <cmath>

#include "view/world_view.h"

namespace korvexed {

namespace {

constexpr double negligible_length = 1e-6;

bool Usable(double length) { return std::isfinite(length) && std::fabs(length) > negligible_length; }

int32_t Round(double v) { return RoundPixel(v); }

// Pixels from `from` towards `to`, `to` itself left out.
TickSpan Between(int32_t from, int32_t to) { return from <= to ? TickSpan{from, to} : TickSpan{to + 1, from + 1}; }

// 1, 2, 5, 10, 20, 50...: labels on round values.
double NextStride(double stride) {
  const double decade = std::pow(10.0, std::floor(std::log10(stride)));
  const double digit = RoundHalfEven(stride / decade);
  return (digit == 1 ? 2 : digit == 2 ? 5 : 10) * decade;
}

}  // namespace

TickSpans TickSpansFor(int32_t orientation, int32_t thickness) {
  const bool from_far_edge = (orientation & 1) == 0;  // bottom or right
  const double t = thickness;
  const int32_t base = from_far_edge ? thickness : -1;
  const int32_t minor_end = Round(t / 2);
  const int32_t half_end = Round(from_far_edge ? t / 4 : 3 * t / 4);
  const int32_t major_end = from_far_edge ? -1 : thickness;
  return {Between(base, minor_end), Between(base, half_end), Between(base, major_end)};
}

bool RulerScale::set_length_per_pixel(double value) {
  if (!Usable(value) || value == length_per_pixel_) return false;
  length_per_pixel_ = value;
  return true;
}

bool RulerScale::set_start_value(double value) {
  if (!std::isfinite(value) || value == start_value_) return false;
  start_value_ = value;
  return true;
}

bool RulerScale::set_length(double value, int32_t extent) {
  // A ruler not laid out yet has no pixels to share the length among.
  if (extent <= 0 || !Usable(value) || value == length(extent)) return false;
  // Only the length must not be negligible: at the deepest zoom a pixel
  // stands for far less than a negligible length.
  length_per_pixel_ = value / extent;
  return true;
}

bool RulerScale::set_division(int32_t value) {
  if (value < 1 || value == division_) return false;
  division_ = value;
  return true;
}

double RulerScale::step() const {
  const double per_pixel = std::fabs(length_per_pixel_);
  const double widest = 3.0 * division_;
  double step = 1;
  // A division of 1 never grows the step.
  while (division_ > 1 && RoundHalfEven(step / per_pixel) < widest) step *= division_;
  return step;
}

double RulerScale::first_value() const {
  const double dir = length_per_pixel_ > 0 ? 1 : -1;
  const double step = this->step();
  double q = std::trunc(std::trunc(start_value_) / step);
  if (!(q * dir > 0)) q -= dir;
  return q * step;
}

RulerMarks RulerScale::Marks(int32_t extent, const TickSpans& spans, const LabelLength& label_length,
                             int32_t gap) const {
  RulerMarks marks;
  const double step = this->step();
  if (extent <= 0 || !std::isfinite(step)) return marks;
  const double lpp = length_per_pixel_;
  const double dir = lpp > 0 ? 1 : -1;
  const double spacing = step / std::fabs(lpp);  // pixels between major ticks
  const double sub = spacing / division_;
  const auto add_tick = [&](int32_t position, TickSpan span) {
    if (position >= 0 && position < extent) marks.ticks.push_back({position, span});
  };

  // The first value lies at most two steps before the start edge; the
  // count also ends the walk where values no longer change in a double.
  const double majors = std::min(extent / spacing + 4, static_cast<double>(extent) + 4);
  const double first = first_value();
  for (int32_t i = 0; i < majors; ++i) {
    const double value = first + i * step * dir;
    const double offset = value - start_value_;
    // Only the subdivisions that land on the ruler.
    const double from_value = offset / lpp;
    const double k_first = std::max(1.0, std::floor((-1 - from_value) / sub));
    const double k_last = std::min(division_ - 1.0, std::ceil((extent + 1 - from_value) / sub));
    for (double k = k_first; k <= k_last; ++k) add_tick(Round((offset + k * step * dir / division_) / lpp), spans.minor);
    add_tick(Round((offset + step * dir / 2) / lpp), spans.half);
    const int32_t p0 = Round(offset / lpp);
    if (p0 > extent) break;
    add_tick(p0, spans.major);
    marks.labels.push_back({p0, value});
  }

  int32_t longest = 0;
  for (const RulerLabel& label : marks.labels) longest = std::max(longest, label_length(label.value));
  double stride = 1;
  while (stride * spacing - 1 < static_cast<double>(longest) + gap) stride = NextStride(stride);
  if (stride > 1) {
    std::erase_if(marks.labels, [&](const RulerLabel& label) {
      return std::fmod(RoundHalfEven(label.value / step), stride) != 0;
    });
  }
  return marks;
}

}  // namespace korvexed
