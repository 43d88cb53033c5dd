#include "controls/cool_button.h"

#include <QEnterEvent>
#include <QMouseEvent>
#include <QPainter>

namespace korvexed {

namespace {

constexpr int kIconSide = 20;
constexpr int kButtonSide = 28;
constexpr qreal kCornerRadius = 4;

// How strongly the highlight colour tints the face and its border.
struct Face {
  int fill_alpha;
  int border_alpha;
};

Face FaceOf(CoolButton::Look look) {
  switch (look) {
    case CoolButton::Look::glow: return {40, 110};
    case CoolButton::Look::click: return {110, 200};
    case CoolButton::Look::pressed: return {60, 255};
    case CoolButton::Look::pressed_glow: return {90, 255};
    case CoolButton::Look::normal:
    case CoolButton::Look::disabled: break;
  }
  return {0, 0};
}

}  // namespace

CoolButton::CoolButton(QWidget* parent) : QAbstractButton(parent) {
  setFocusPolicy(Qt::NoFocus);
  setIconSize(QSize(kIconSide, kIconSide));
}

void CoolButton::set_pressed_state(bool pressed) {
  if (pressed_state_ == pressed) return;
  pressed_state_ = pressed;
  update();
}

bool CoolButton::pressed_state() const { return pressed_state_; }

CoolButton::Look CoolButton::look() const {
  if (!isEnabled()) return Look::disabled;
  if (isDown() || held_after_double_click_) return Look::click;
  if (pressed_state_) return hovered_ ? Look::pressed_glow : Look::pressed;
  return hovered_ ? Look::glow : Look::normal;
}

QSize CoolButton::sizeHint() const { return QSize(kButtonSide, kButtonSide); }

void CoolButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Face face = FaceOf(look());
  if (face.border_alpha > 0) {
    QColor fill = palette().color(QPalette::Highlight);
    QColor border = fill;
    fill.setAlpha(face.fill_alpha);
    border.setAlpha(face.border_alpha);
    painter.setPen(QPen(border, 1));
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCornerRadius, kCornerRadius);
  }
  QRect picture(QPoint(), iconSize());
  picture.moveCenter(rect().center());
  icon().paint(&painter, picture, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled,
               pressed_state_ ? QIcon::On : QIcon::Off);
}

void CoolButton::enterEvent(QEnterEvent* event) {
  hovered_ = true;
  update();
  QAbstractButton::enterEvent(event);
}

void CoolButton::leaveEvent(QEvent* event) {
  hovered_ = false;
  update();
  QAbstractButton::leaveEvent(event);
}

// The second press of a double click only reports the double click, so a
// double click runs a command once for the click and once for itself.
void CoolButton::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) {
    event->ignore();
    return;
  }
  held_after_double_click_ = true;
  update();
  emit double_clicked();
}

void CoolButton::mouseReleaseEvent(QMouseEvent* event) {
  if (held_after_double_click_ && event->button() == Qt::LeftButton) {
    held_after_double_click_ = false;
    update();
    return;
  }
  QAbstractButton::mouseReleaseEvent(event);
}

}  // namespace korvexed
