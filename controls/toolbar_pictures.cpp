#include "controls/toolbar_pictures.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QTransform>
#include <algorithm>

namespace korvexed {

namespace {

// Every picture is drawn on a 24 by 24 grid and scaled to the target.
constexpr qreal kGrid = 24;
constexpr qreal kStroke = 1.8;
constexpr int kTintAlpha = 90;

// Line work in the text colour, with an accent in the highlight colour;
// a disabled picture is all in the disabled text colour.
class Pen {
 public:
  Pen(QPainter& painter, QIcon::Mode mode) : painter_(painter) {
    const QPalette palette = QGuiApplication::palette();
    const bool disabled = mode == QIcon::Disabled;
    ink_ = palette.color(disabled ? QPalette::Disabled : QPalette::Normal, QPalette::ButtonText);
    accent_ = disabled ? ink_ : palette.color(QPalette::Normal, QPalette::Highlight);
  }

  void stroke(const QPainterPath& path, bool accent = false) {
    painter_.setBrush(Qt::NoBrush);
    painter_.setPen(QPen(accent ? accent_ : ink_, kStroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter_.drawPath(path);
  }

  // Short accent dashes; the round caps lengthen each dash by one stroke width.
  void dashed(const QPainterPath& path) {
    QPen pen(accent_, kStroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    pen.setDashPattern({0.4, 1.6});
    painter_.setBrush(Qt::NoBrush);
    painter_.setPen(pen);
    painter_.drawPath(path);
  }

  // A light tint of the accent under an outline.
  void tint(const QPainterPath& path) {
    QColor tint = accent_;
    tint.setAlpha(kTintAlpha);
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(tint);
    painter_.drawPath(path);
  }

  void dot(QPointF centre, qreal radius, bool accent = false) {
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(accent ? accent_ : ink_);
    painter_.drawEllipse(centre, radius, radius);
  }

 private:
  QPainter& painter_;
  QColor ink_;
  QColor accent_;
};

QPainterPath Polyline(std::initializer_list<QPointF> points) {
  QPainterPath path;
  path.addPolygon(QPolygonF(points));
  return path;
}

QPainterPath Polygon(std::initializer_list<QPointF> points) {
  QPainterPath path = Polyline(points);
  path.closeSubpath();
  return path;
}

QPainterPath Circle(QPointF centre, qreal radius) {
  QPainterPath path;
  path.addEllipse(centre, radius, radius);
  return path;
}

void DrawMagnifier(Pen& pen, bool with_plus) {
  const QPainterPath glass = Circle(QPointF(10, 10), 6.5);
  pen.tint(glass);
  pen.stroke(glass);
  pen.stroke(Polyline({{14.8, 14.8}, {20.5, 20.5}}));
  pen.stroke(Polyline({{7, 10}, {13, 10}}));
  if (with_plus) pen.stroke(Polyline({{10, 7}, {10, 13}}));
}

void DrawZoomFit(Pen& pen) {
  pen.stroke(Polyline({{3, 8}, {3, 3}, {8, 3}}));
  pen.stroke(Polyline({{16, 3}, {21, 3}, {21, 8}}));
  pen.stroke(Polyline({{21, 16}, {21, 21}, {16, 21}}));
  pen.stroke(Polyline({{8, 21}, {3, 21}, {3, 16}}));
  QPainterPath page;
  page.addRoundedRect(QRectF(8, 8, 8, 8), 1.5, 1.5);
  pen.tint(page);
  pen.stroke(page, true);
}

void DrawOpenFile(Pen& pen) {
  pen.stroke(Polyline({{2.5, 19}, {2.5, 5}, {8.5, 5}, {10.5, 7}, {18.5, 7}, {18.5, 10}}));
  const QPainterPath flap = Polygon({{2.5, 19}, {6, 10}, {21.5, 10}, {18, 19}});
  pen.tint(flap);
  pen.stroke(flap);
}

void DrawSaveFile(Pen& pen) {
  pen.stroke(Polygon({{3.5, 3.5}, {17, 3.5}, {20.5, 7}, {20.5, 20.5}, {3.5, 20.5}}));
  pen.stroke(Polyline({{7.5, 3.5}, {7.5, 8.5}, {15, 8.5}, {15, 3.5}}));
  QPainterPath label;
  label.addRect(QRectF(7, 13, 10, 7.5));
  pen.tint(label);
  pen.stroke(label);
}

// A stack of layers seen from an angle, the top one tinted.
void DrawLayers(Pen& pen, qreal left, qreal right) {
  const qreal middle = (left + right) / 2;
  const qreal rise = (right - left) / 4;
  const QPainterPath top = Polygon({{middle, 3.5}, {right, 3.5 + rise}, {middle, 3.5 + 2 * rise}, {left, 3.5 + rise}});
  pen.tint(top);
  pen.stroke(top);
  for (const qreal y : {12.0, 16.5}) pen.stroke(Polyline({{left, y}, {middle, y + rise}, {right, y}}));
}

void DrawUpDownArrow(Pen& pen) {
  pen.stroke(Polyline({{19.5, 4}, {19.5, 20}}), true);
  pen.stroke(Polyline({{17, 6.5}, {19.5, 4}, {22, 6.5}}), true);
  pen.stroke(Polyline({{17, 17.5}, {19.5, 20}, {22, 17.5}}), true);
}

void DrawDataRows(Pen& pen) {
  for (const qreal y : {5.0, 9.5, 14.0, 18.5}) {
    pen.dot(QPointF(3.5, y), 1.2);
    pen.stroke(Polyline({{7, y}, {14.5, y}}));
  }
}

// Printed lines joined by a dashed travel move.
void DrawMovement(Pen& pen) {
  pen.stroke(Polyline({{3, 21}, {3, 15}, {8, 15}}));
  pen.dashed(Polyline({{8, 15}, {16, 8}}));
  pen.stroke(Polyline({{16, 8}, {21, 8}, {21, 3}}));
  pen.dot(QPointF(8, 15), 2);
  pen.dot(QPointF(16, 8), 2);
}

// A back-and-forth path with its direction marked on each pass.
void DrawArrows(Pen& pen) {
  pen.stroke(Polyline({{3, 6}, {21, 6}, {21, 18}, {3, 18}}));
  pen.stroke(Polyline({{10, 2.5}, {13.5, 6}, {10, 9.5}}), true);
  pen.stroke(Polyline({{14, 14.5}, {10.5, 18}, {14, 21.5}}), true);
}

void DrawBadge(Pen& pen) {
  const QPainterPath badge = Circle(QPointF(12, 12), 9.5);
  pen.tint(badge);
  pen.stroke(badge);
}

void DrawHelp(Pen& pen) {
  DrawBadge(pen);
  QPainterPath hook(QPointF(9, 9));
  hook.arcTo(QRectF(9, 6, 6, 6), 180, -240);
  hook.lineTo(12, 13.2);
  hook.lineTo(12, 14.3);
  pen.stroke(hook);
  pen.dot(QPointF(12, 17.3), 1.3);
}

void DrawAbout(Pen& pen) {
  DrawBadge(pen);
  pen.dot(QPointF(12, 7.5), 1.3);
  pen.stroke(Polyline({{12, 11}, {12, 17}}));
}

// An arrow turning back over the top: to the left for Undo, mirrored to
// the right for Redo.
void DrawTurnArrow(Pen& pen, bool mirrored) {
  QPainterPath bend;
  bend.moveTo(15.5, 18.1);
  bend.arcTo(QRectF(5, 5, 14, 14), -60, 240);
  QPainterPath head = Polyline({{2, 9.5}, {5, 13}, {8, 9.5}});
  if (mirrored) {
    const QTransform mirror(-1, 0, 0, 1, kGrid, 0);
    bend = mirror.map(bend);
    head = mirror.map(head);
  }
  pen.stroke(bend);
  pen.stroke(head, true);
}

void DrawPicture(Pen& pen, ToolbarPicture picture) {
  switch (picture) {
    case ToolbarPicture::zoom_in: return DrawMagnifier(pen, true);
    case ToolbarPicture::open_file: return DrawOpenFile(pen);
    case ToolbarPicture::save_file: return DrawSaveFile(pen);
    case ToolbarPicture::zoom_out: return DrawMagnifier(pen, false);
    case ToolbarPicture::zoom_fit: return DrawZoomFit(pen);
    case ToolbarPicture::view_all_layers: return DrawLayers(pen, 3, 21);
    case ToolbarPicture::layer_range_scroll:
      DrawLayers(pen, 1.5, 14.5);
      return DrawUpDownArrow(pen);
    case ToolbarPicture::data_range_scroll:
      DrawDataRows(pen);
      return DrawUpDownArrow(pen);
    case ToolbarPicture::show_movement: return DrawMovement(pen);
    case ToolbarPicture::show_arrow: return DrawArrows(pen);
    case ToolbarPicture::help: return DrawHelp(pen);
    case ToolbarPicture::about: return DrawAbout(pen);
    case ToolbarPicture::undo: return DrawTurnArrow(pen, false);
    case ToolbarPicture::redo: return DrawTurnArrow(pen, true);
  }
}

// Paints the picture afresh for every size and pixel ratio asked for.
class PictureEngine : public QIconEngine {
 public:
  explicit PictureEngine(ToolbarPicture picture) : picture_(picture) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    const qreal side = std::min(rect.width(), rect.height());
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(rect.x() + (rect.width() - side) / 2, rect.y() + (rect.height() - side) / 2);
    painter->scale(side / kGrid, side / kGrid);
    Pen pen(*painter, mode);
    DrawPicture(pen, picture_);
    painter->restore();
  }

  // Asked for in device pixels; the icon sets the pixel ratio afterwards.
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }

  QIconEngine* clone() const override { return new PictureEngine(picture_); }

 private:
  ToolbarPicture picture_;
};

}  // namespace

QIcon ToolbarIcon(ToolbarPicture picture) { return QIcon(new PictureEngine(picture)); }

}  // namespace korvexed
