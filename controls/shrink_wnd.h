#pragma once
// A side panel with a header (caption and a collapse button) that folds to
// a narrow strip with its caption turned on end, and opens again, animated.
// The panel sets its own width; its owner places it and gives it its height.
#include <QAbstractButton>
#include <QTimer>
#include <QWidget>

namespace korvexed {

class ShrinkButton;

class ShrinkWnd : public QWidget {
  Q_OBJECT

 public:
  explicit ShrinkWnd(QWidget* parent = nullptr);

  void set_caption(const QString& caption);
  QString caption() const;

  // Shown below the header while the panel is open; becomes a child.
  void set_content(QWidget* content);

  // The width when open, never below the collapsed strip's width.
  void set_expanded_width(int width);
  int expanded_width() const;
  int collapsed_width() const;

  // True also while the panel is still opening.
  bool is_expanded() const;
  void set_expanded(bool expanded);
  void toggle();

  QAbstractButton* header_button() const;

 signals:
  void width_changing(int width);
  void expanded_changed(bool expanded);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  void step_animation();
  void apply_width(int width);
  void place_children();
  bool fully_collapsed() const;

  QString caption_;
  QWidget* content_ = nullptr;
  ShrinkButton* header_button_;
  QTimer animation_;
  int expanded_width_ = 200;
  bool expanded_ = true;
  int start_width_ = 0;
  int frame_ = 0;
};

}  // namespace korvexed
