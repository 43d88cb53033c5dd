#pragma once
// A toolbar button: a flat picture that glows under the mouse, darkens while
// held down, and shows a framed "pressed" look for settings that are on.
#include <QAbstractButton>

namespace korvexed {

class CoolButton : public QAbstractButton {
  Q_OBJECT

 public:
  // What the button shows now; painting follows it.
  enum class Look { normal, glow, click, pressed, pressed_glow, disabled };

  explicit CoolButton(QWidget* parent = nullptr);

  // The look of a setting button whose setting is on.
  void set_pressed_state(bool pressed);
  bool pressed_state() const;

  Look look() const;
  QSize sizeHint() const override;

 signals:
  // The second press of a double click; the first one has already clicked.
  void double_clicked();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  bool pressed_state_ = false;
  bool hovered_ = false;
  bool held_after_double_click_ = false;
};

}  // namespace korvexed
