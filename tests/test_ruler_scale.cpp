// The ruler's arithmetic: the labelled step, the first value, where ticks
// and labels fall, how written settings are taken, and labels that would
// run into each other.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "view/ruler_scale.h"

using namespace korvexed;

namespace {

constexpr int32_t thickness = 20;

RulerScale Scale(double start, double length_per_pixel, int32_t division = 10) {
  RulerScale scale;
  scale.set_length_per_pixel(length_per_pixel);
  scale.set_start_value(start);
  scale.set_division(division);
  return scale;
}

// Labels of a few pixels: every major tick is labelled.
RulerMarks MarksOf(const RulerScale& scale, int32_t extent, int32_t label_length = 10) {
  return scale.Marks(
      extent, TickSpansFor(0, thickness), [&](double) { return label_length; }, 4);
}

std::vector<int32_t> Positions(const RulerMarks& marks, int32_t span_from) {
  std::vector<int32_t> positions;
  for (const RulerTick& tick : marks.ticks)
    if (tick.span.from == span_from) positions.push_back(tick.position);
  return positions;
}

std::vector<double> Values(const RulerMarks& marks) {
  std::vector<double> values;
  for (const RulerLabel& label : marks.labels) values.push_back(label.value);
  return values;
}

TEST(RulerScale, DefaultsLabelEveryFiftyPixelsWithTicksEveryFive) {
  RulerScale scale;
  EXPECT_EQ(scale.step(), 1);
  EXPECT_EQ(scale.first_value(), -1);
  const RulerMarks marks = MarksOf(scale, 120);
  const TickSpans spans = TickSpansFor(0, thickness);
  EXPECT_EQ(Positions(marks, spans.major.from), (std::vector<int32_t>{0, 50, 100}));
  // Half steps stand over the middle subdivision; both are kept.
  EXPECT_EQ(Positions(marks, spans.half.from), (std::vector<int32_t>{25, 75}));
  std::vector<int32_t> minor;  // every 5 px below 120 but the majors
  for (int32_t position = 5; position < 120; position += 5)
    if (position % 50 != 0) minor.push_back(position);
  EXPECT_EQ(Positions(marks, spans.minor.from), minor);
  EXPECT_EQ(Values(marks), (std::vector<double>{-1, 0, 1, 2}));
}

TEST(RulerScale, StepIsTheSmallestPowerOfTheDivisionThirtyPixelsLong) {
  EXPECT_EQ(Scale(0, 0.5).step(), 100);  // 2, 20, then 200 pixels
  EXPECT_EQ(Scale(0, 1.0 / 30).step(), 1);
  EXPECT_EQ(Scale(0, 1.0 / 29).step(), 10);
  EXPECT_EQ(Scale(0, -0.5).step(), 100);  // falling values, same step
  EXPECT_EQ(Scale(0, 0.5, 4).step(), 16);  // 32 px, at least 12
  EXPECT_EQ(Scale(0, 0.5, 1).step(), 1);
}

TEST(RulerScale, FirstValueLiesAtOrJustBeforeTheStartEdge) {
  EXPECT_EQ(Scale(2.5, 0.02).first_value(), 2);
  EXPECT_EQ(Scale(-2.5, 0.02).first_value(), -3);
  EXPECT_EQ(Scale(0, 0.5).first_value(), -100);
  EXPECT_EQ(Scale(250, 0.5).first_value(), 200);
  // Falling values: "before" is above.
  EXPECT_EQ(Scale(2.5, -0.02).first_value(), 3);
  EXPECT_EQ(Scale(-2.5, -0.02).first_value(), -2);
}

TEST(RulerScale, FallingRulerLabelsDecreaseDownwards) {
  const RulerMarks marks = MarksOf(Scale(3.3, -0.02), 200);
  EXPECT_EQ(Values(marks), (std::vector<double>{4, 3, 2, 1, 0}));
  // 3 stands 0.3 below the top edge: 15 pixels.
  EXPECT_EQ(marks.labels[1].position, 15);
  EXPECT_EQ(marks.labels[2].position, 65);
}

TEST(RulerScale, SettingsIgnoreNegligibleAndUnchangedValues) {
  RulerScale scale;
  EXPECT_FALSE(scale.set_length(0, 400));
  EXPECT_FALSE(scale.set_length(1e-6, 400));
  EXPECT_FALSE(scale.set_length_per_pixel(0));
  EXPECT_FALSE(scale.set_length_per_pixel(-1e-6));
  EXPECT_FALSE(scale.set_division(0));
  EXPECT_FALSE(scale.set_division(10));
  EXPECT_FALSE(scale.set_start_value(0));
  EXPECT_FALSE(scale.set_length(8, 400));  // already 400 x 0.02
  EXPECT_FALSE(scale.set_length(8, 0));    // not laid out yet
  EXPECT_EQ(scale.length_per_pixel(), 0.02);

  EXPECT_TRUE(scale.set_length(-20, 400));
  EXPECT_EQ(scale.length_per_pixel(), -0.05);
  // 600 pixels at 500,000 a millimetre, in centimetres.
  EXPECT_TRUE(scale.set_length(1.2e-4, 600));
  EXPECT_DOUBLE_EQ(scale.length_per_pixel(), 2e-7);
  EXPECT_TRUE(scale.set_division(5));
  EXPECT_TRUE(scale.set_start_value(7.6));
}

// Minor ticks to half the height and majors across are checked on the painted rulers.
TEST(RulerScale, HalfTicksRiseThreeQuartersAcrossAndVerticalRulersTickLikeHorizontalOnes) {
  const TickSpans bottom = TickSpansFor(0, thickness), top = TickSpansFor(1, thickness);
  EXPECT_EQ(bottom.half.from, 6);
  EXPECT_EQ(top.minor.to, 10);
  EXPECT_EQ(top.half.to, 15);
  // Vertical rulers: 2 from the right edge like 0, 3 from the left like 1.
  EXPECT_EQ(TickSpansFor(2, thickness).half.from, bottom.half.from);
  EXPECT_EQ(TickSpansFor(3, thickness).half.to, top.half.to);
}

TEST(RulerScale, WideLabelsGoOnRoundMultiplesOfTheStepWithoutTouching) {
  // 50 px a step; 70 px labels fit on every 2nd major tick.
  const RulerMarks marks = MarksOf(Scale(-3.5, 0.02), 600, 70);
  EXPECT_EQ(Values(marks), (std::vector<double>{-4, -2, 0, 2, 4, 6, 8}));
  // 130 px labels: every 5th.
  EXPECT_EQ(Values(MarksOf(Scale(-3.5, 0.02), 600, 130)), (std::vector<double>{0, 5}));
  // Labels that just fit stay on every tick.
  EXPECT_EQ(MarksOf(Scale(0, 0.02), 600, 45).labels.size(), 14u);  // -1 to 12
  for (int32_t length : {46, 90, 260, 900}) {
    const RulerMarks wide = MarksOf(Scale(-3.5, 0.02), 600, length);
    for (size_t i = 1; i < wide.labels.size(); ++i)
      EXPECT_GE(wide.labels[i].position - wide.labels[i - 1].position, length + 4) << length;
  }
}

TEST(RulerScale, ExtremeSettingsEndWithFewMarks) {
  // Values beyond a double's whole numbers no longer change with a step.
  EXPECT_LE(MarksOf(Scale(1e300, 0.02), 1000).labels.size(), 30u);
  // One step would hold two billion ticks.
  EXPECT_LE(MarksOf(Scale(0, 0.02, 2000000000), 1000).ticks.size(), 1000u);
  // Every major tick on the same few pixels.
  EXPECT_LE(MarksOf(Scale(0, 1e6, 1), 1000).ticks.size(), 2 * 1004u);
  EXPECT_TRUE(MarksOf(Scale(0, 0.02), 0).ticks.empty());
}

}  // namespace
