#pragma once
// A two-pixel raised or sunken separator. As a splitter it shows the sizing
// pointer and reports how far it is dragged across its length.
#include <QWidget>

namespace korvexed {

class Line : public QWidget {
  Q_OBJECT

 public:
  enum class Style { raised, sunken };

  Line(Qt::Orientation orientation, Style style, QWidget* parent = nullptr);

  void set_splitter(bool splitter);

  QSize sizeHint() const override;

 signals:
  // The movement across the line since the last signal, in logical pixels.
  void dragged(int dx);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  int across(const QPointF& global_position) const;

  Qt::Orientation orientation_;
  Style style_;
  bool splitter_ = false;
  bool dragging_ = false;
  int last_position_ = 0;
};

}  // namespace korvexed
