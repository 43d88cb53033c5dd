#pragma once
// The drawing area "picDraw": shows the drawing bitmap, makes the view
// follow its size, zooms with the mouse wheel and hands the mouse's
// presses, moves and releases to the gestures.
#include <QImage>
#include <QSize>
#include <QWidget>

#include "view/korvexed_graphic.h"

namespace korvexed {

class DrawArea : public QWidget, public PictureScreen {
  Q_OBJECT

 public:
  explicit DrawArea(QWidget* parent = nullptr);

  void show_picture(const Bitmap& picture) override;
  // Whether the wheel zooms the view (while a document is loaded).
  void set_wheel_zoom(bool on) { wheel_zoom_ = on; }

 signals:
  // The area has its first real size: the drawing can be made that large.
  void first_sized(int width, int height);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  // The painter: never smaller than the picture, never shrunk, so that
  // resizing does not reallocate it each time. Null once it could not be made.
  QImage painter_;
  QSize shown_;  // the picture's part of the painter
  bool sized_ = false;
  bool wheel_zoom_ = true;
};

}  // namespace korvexed
