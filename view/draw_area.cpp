#include "view/draw_area.h"

#include <QPainter>
#include <QResizeEvent>
#include <QWheelEvent>
#include <cstring>

#include "document/document.h"
#include "view/world_view.h"

namespace korvexed {

DrawArea::DrawArea(QWidget* parent) : QWidget(parent) { setObjectName(QStringLiteral("picDraw")); }

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

}  // namespace korvexed
