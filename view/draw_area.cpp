#include "view/draw_area.h"

#include <QMouseEvent>
#include <QPainter>
#include <QResizeEvent>
#include <QWheelEvent>
#include <cstring>

#include "document/document.h"
#include "view/mouse_gesture.h"
#include "view/world_view.h"

namespace korvexed {

namespace {

// The gestures count the buttons 1 left, 2 right, 4 middle.
int32_t gesture_buttons(Qt::MouseButtons buttons) {
  return (buttons.testFlag(Qt::LeftButton) ? left_button : 0) | (buttons.testFlag(Qt::RightButton) ? right_button : 0) |
         (buttons.testFlag(Qt::MiddleButton) ? middle_button : 0);
}

int32_t x_of(const QMouseEvent* event) { return RoundPixel(event->position().x()); }
int32_t y_of(const QMouseEvent* event) { return RoundPixel(event->position().y()); }

}  // namespace

DrawArea::DrawArea(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("picDraw"));
  setMouseTracking(true);  // the hover shows the pointer's world position
  setFocusPolicy(Qt::ClickFocus);
}

void DrawArea::show_picture(const Bitmap& picture) {
  const QSize size(picture.width, picture.height);
  if (painter_.width() < size.width() || painter_.height() < size.height())
    painter_ = QImage(size.expandedTo(painter_.size()), QImage::Format_BGR888);
  // A painter that could not be made shows nothing until one can be.
  shown_ = painter_.isNull() ? QSize() : size;
  // The bitmap's rows run bottom-up, the image's top-down.
  for (int y = 0; y < shown_.height(); ++y)
    std::memcpy(painter_.scanLine(shown_.height() - 1 - y), picture.row(y), static_cast<size_t>(3 * picture.width));
  update();
}

void DrawArea::paintEvent(QPaintEvent*) {
  if (shown_.isEmpty()) return;
  QPainter(this).drawImage(QPoint(0, 0), painter_, QRect(QPoint(0, 0), shown_));
}

void DrawArea::resizeEvent(QResizeEvent* event) {
  const QSize size = event->size();
  // A collapsed area keeps its bitmap.
  if (size.isEmpty()) return;
  if (!sized_) {
    sized_ = true;
    emit first_sized(size.width(), size.height());
    return;
  }
  ResizeView(size.width(), size.height());
}

void DrawArea::wheelEvent(QWheelEvent* event) {
  if (!wheel_zoom_ || !IsDocumentLoaded()) {
    event->ignore();
    return;
  }
  view.wheel_anchor_x = RoundPixel(event->position().x());
  view.wheel_anchor_y = RoundPixel(event->position().y());
  MouseWheelZoom(event->angleDelta().y() / 120.0);
  event->accept();
}

void DrawArea::mousePressEvent(QMouseEvent* event) {
  if (const int32_t button = gesture_buttons(event->button())) picDraw_MouseDown(button, x_of(event), y_of(event));
}

void DrawArea::mouseMoveEvent(QMouseEvent* event) {
  picDraw_MouseMove(gesture_buttons(event->buttons()), x_of(event), y_of(event));
}

void DrawArea::mouseReleaseEvent(QMouseEvent* event) {
  if (const int32_t button = gesture_buttons(event->button())) picDraw_MouseUp(button, x_of(event), y_of(event));
}

}  // namespace korvexed
