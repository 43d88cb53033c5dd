#include "controls/line.h"

#include <QMouseEvent>
#include <QPainter>

namespace korvexed {

namespace {
constexpr int kThickness = 2;
}

Line::Line(Qt::Orientation orientation, Style style, QWidget* parent)
    : QWidget(parent), orientation_(orientation), style_(style) {
  if (orientation_ == Qt::Horizontal) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  } else {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
  }
}

void Line::set_splitter(bool splitter) {
  splitter_ = splitter;
  dragging_ = false;
  if (splitter_) {
    setCursor(orientation_ == Qt::Vertical ? Qt::SizeHorCursor : Qt::SizeVerCursor);
  } else {
    unsetCursor();
  }
}

QSize Line::sizeHint() const {
  return orientation_ == Qt::Horizontal ? QSize(16, kThickness) : QSize(kThickness, 16);
}

// A shadow and a light edge side by side, centred in the widget so that a
// wider splitter still shows a thin line.
void Line::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QColor shadow = palette().color(QPalette::Mid);
  const QColor light = palette().color(QPalette::Light);
  const QColor first = style_ == Style::sunken ? shadow : light;
  const QColor second = style_ == Style::sunken ? light : shadow;
  if (orientation_ == Qt::Horizontal) {
    const int y = (height() - kThickness) / 2;
    painter.fillRect(0, y, width(), 1, first);
    painter.fillRect(0, y + 1, width(), 1, second);
  } else {
    const int x = (width() - kThickness) / 2;
    painter.fillRect(x, 0, 1, height(), first);
    painter.fillRect(x + 1, 0, 1, height(), second);
  }
}

int Line::across(const QPointF& global_position) const {
  return qRound(orientation_ == Qt::Vertical ? global_position.x() : global_position.y());
}

void Line::mousePressEvent(QMouseEvent* event) {
  if (!splitter_ || event->button() != Qt::LeftButton) {
    event->ignore();
    return;
  }
  dragging_ = true;
  last_position_ = across(event->globalPosition());
}

void Line::mouseMoveEvent(QMouseEvent* event) {
  if (!dragging_) {
    event->ignore();
    return;
  }
  const int position = across(event->globalPosition());
  if (position == last_position_) return;
  const int moved = position - last_position_;
  last_position_ = position;
  emit dragged(moved);
}

void Line::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) dragging_ = false;
}

}  // namespace korvexed
