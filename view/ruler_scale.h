#pragma once
// The arithmetic of a ruler beside the drawing area: its settings and the
// rules by which they take written values, the labelled step, the first
// labelled value, and where every tick and label stands. No drawing here.
#include <cstdint>
#include <functional>
#include <vector>

namespace korvexed {

// 0: horizontal, ticks rise from the bottom edge, labels at the top;
// 1: horizontal, ticks hang from the top edge, labels at the bottom;
// 2: vertical, ticks start at the right edge;
// 3: vertical, ticks start at the left edge, labels right-aligned.
inline bool IsVerticalRuler(int32_t orientation) { return (orientation & 2) != 0; }

// A tick covers the pixels [from, to) across the ruler.
struct TickSpan {
  int32_t from, to;
};

// The three tick lengths of a ruler `thickness` pixels thick.
struct TickSpans {
  TickSpan minor, half, major;
};
TickSpans TickSpansFor(int32_t orientation, int32_t thickness);

struct RulerTick {
  int32_t position;  // pixels along the ruler from its left or top edge
  TickSpan span;
};

struct RulerLabel {
  int32_t position;  // of its major tick; the text starts 2 pixels further on
  double value;      // a whole number
};

struct RulerMarks {
  std::vector<RulerTick> ticks;
  std::vector<RulerLabel> labels;
};

// How many pixels a label's text takes along the ruler.
using LabelLength = std::function<int32_t(double value)>;

class RulerScale {
 public:
  double length_per_pixel() const { return length_per_pixel_; }
  double start_value() const { return start_value_; }
  int32_t division() const { return division_; }
  // The values over `extent` pixels.
  double length(int32_t extent) const { return extent * length_per_pixel_; }

  // Each setter answers whether the picture changes. Values of magnitude
  // 1e-6 or less per pixel or per ruler, and divisions below 1, are ignored.
  bool set_length_per_pixel(double value);
  bool set_start_value(double value);
  bool set_length(double value, int32_t extent);
  bool set_division(int32_t value);

  // The smallest power of the division, from 1 up, whose subdivisions are
  // at least 3 pixels apart.
  double step() const;
  // The labelled value at or just before the start edge.
  double first_value() const;

  // Every tick and label over `extent` pixels. Labels stand on every
  // major tick, or on every 2nd, 5th, 10th... one where the longest label
  // and `gap` pixels would not fit between two of them.
  RulerMarks Marks(int32_t extent, const TickSpans& spans, const LabelLength& label_length, int32_t gap) const;

 private:
  double length_per_pixel_ = 0.02;
  double start_value_ = 0;
  int32_t division_ = 10;
};

}  // namespace korvexed
