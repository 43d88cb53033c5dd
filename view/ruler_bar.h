#pragma once
// A ruler strip beside the drawing area: evenly spaced ticks and whole-number
// labels for the values from its left (or top) edge on, as the view tells it.
#include <QString>
#include <QWidget>

#include "view/ruler_scale.h"
#include "view/world_view.h"

namespace korvexed {

class RulerBar : public QWidget, public RulerSink {
  Q_OBJECT

 public:
  // Horizontal rulers get orientation 0, vertical ones 3.
  explicit RulerBar(Qt::Orientation orientation, QWidget* parent = nullptr);

  // The height of "AZhy19" in the ruler's font.
  int text_height() const;

  // 0 to 3, see IsVerticalRuler.
  int orientation() const { return orientation_; }
  void set_orientation(int orientation);

  double length_per_pixel() const { return scale_.length_per_pixel(); }
  void set_length_per_pixel(double value);

  double start_value() const { return scale_.start_value(); }
  void set_start_value(double value) override;

  // The values over the whole ruler; negative when they fall along it.
  double length() const { return scale_.length(extent()); }
  void set_length(double length) override;

  // Written behind every label ("cm").
  const QString& unit() const { return unit_; }
  void set_unit(const QString& unit);

  // Subdivisions of a labelled step, and the base of its powers. Reading
  // gives the start value rounded, as this property always has; nothing
  // reads it.
  int division() const;
  void set_division(int value);

  // What the next redraw labels.
  double step() const { return scale_.step(); }
  double first_value() const { return scale_.first_value(); }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int extent() const { return IsVerticalRuler(orientation_) ? height() : width(); }
  int thickness() const { return IsVerticalRuler(orientation_) ? width() : height(); }
  QString LabelText(double value) const;
  // The label's length along the ruler; a vertical label stands one
  // character under the other.
  int LabelLength(const QString& text) const;

  int orientation_;
  RulerScale scale_;
  QString unit_;
};

}  // namespace korvexed
