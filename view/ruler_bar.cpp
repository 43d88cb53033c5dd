#include "view/ruler_bar.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QtMath>
#include <algorithm>

#include "document/korvexed_general.h"

namespace korvexed {

RulerBar::RulerBar(Qt::Orientation orientation, QWidget* parent)
    : QWidget(parent), orientation_(orientation == Qt::Horizontal ? 0 : 3) {
  // White on the usual palette; a dark desktop theme gets its own.
  setBackgroundRole(QPalette::Base);
  setForegroundRole(QPalette::Text);
  setAutoFillBackground(true);
  setSizePolicy(IsVerticalRuler(orientation_) ? QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding)
                                              : QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed));
}

int RulerBar::text_height() const {
  return qRound(QFontMetricsF(font()).size(Qt::TextSingleLine, QStringLiteral("AZhy19")).height());
}

void RulerBar::set_orientation(int orientation) {
  orientation_ = orientation;
  update();
}

void RulerBar::set_length_per_pixel(double value) {
  if (scale_.set_length_per_pixel(value)) update();
}

void RulerBar::set_start_value(double value) {
  if (scale_.set_start_value(value)) update();
}

void RulerBar::set_length(double length) {
  if (scale_.set_length(length, extent())) update();
}

void RulerBar::set_unit(const QString& unit) {
  if (unit == unit_) return;
  unit_ = unit;
  update();
}

int RulerBar::division() const { return static_cast<int>(RoundHalfEven(scale_.start_value())); }

void RulerBar::set_division(int value) {
  if (scale_.set_division(value)) update();
}

QSize RulerBar::sizeHint() const {
  // Labels across one half, the short ticks across the other.
  // The size policy stretches the length.
  const int across = 2 * text_height();
  return QSize(across, across);
}

QString RulerBar::LabelText(double value) const { return QString::number(value, 'f', 0) + unit_; }

int RulerBar::LabelLength(const QString& text) const {
  if (!IsVerticalRuler(orientation_)) return qCeil(QFontMetricsF(font()).horizontalAdvance(text));
  const int line = text_height();
  return static_cast<int>(text.size() - 1) * (line - 2) + line;
}

void RulerBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QColor ink = palette().color(foregroundRole());
  const QColor paper = palette().color(backgroundRole());
  const bool vertical = IsVerticalRuler(orientation_);
  const int across = thickness();
  const int line = text_height();
  const RulerMarks marks = scale_.Marks(
      extent(), TickSpansFor(orientation_, across), [this](double value) { return LabelLength(LabelText(value)); },
      line / 2);

  for (const RulerTick& tick : marks.ticks) {
    const int depth = tick.span.to - tick.span.from;
    painter.fillRect(vertical ? QRect(tick.span.from, tick.position, depth, 1)
                              : QRect(tick.position, tick.span.from, 1, depth),
                     ink);
  }

  // Labels last, each on its own patch of background, so that no tick
  // runs through a digit.
  const QFontMetricsF metrics(font());
  painter.setPen(ink);
  const auto write = [&](const QRectF& box, const QString& text) {
    painter.fillRect(box, paper);
    painter.drawText(box, Qt::AlignLeft | Qt::AlignTop | Qt::TextDontClip, text);
  };
  for (const RulerLabel& label : marks.labels) {
    const QString text = LabelText(label.value);
    const int start = label.position + 2;
    if (!vertical) {
      const int top = orientation_ == 1 ? across - line : 0;
      write(QRectF(start, top, metrics.horizontalAdvance(text), line), text);
      continue;
    }
    // One character under the other, a little closer than text lines; a
    // column at the left edge is right-aligned by the whole label's width.
    const double left =
        orientation_ == 3 ? std::max(2, qRound(width() - metrics.horizontalAdvance(text) - 2)) : 2;
    // The whole column keeps the ticks out, not only each character's box:
    // a narrow digit would leave a longer tick showing beside it.
    painter.fillRect(QRectF(left, start, width() - left, LabelLength(text)), paper);
    double top = start;
    for (const QChar character : text) {
      write(QRectF(left, top, metrics.horizontalAdvance(character), line), QString(character));
      top += line - 2;
    }
  }
}

}  // namespace korvexed
