#include "controls/shrink_wnd.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace korvexed {

namespace {

constexpr int kButtonSide = 20;
constexpr int kMargin = 2;
constexpr int kHeaderHeight = kButtonSide + 2 * kMargin;
constexpr int kCaptionIndent = 6;
constexpr int kFrameCount = 6;
constexpr int kFrameMilliseconds = 25;

}  // namespace

// The header's collapse button: a chevron pointing the way the panel will go.
class ShrinkButton : public QAbstractButton {
 public:
  explicit ShrinkButton(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
    setFixedSize(kButtonSide, kButtonSide);
  }

  void set_points_left(bool points_left) {
    points_left_ = points_left;
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor glow = palette().color(QPalette::Highlight);
    if (isDown() || underMouse()) {
      glow.setAlpha(isDown() ? 110 : 40);
      painter.setPen(Qt::NoPen);
      painter.setBrush(glow);
      painter.drawRoundedRect(QRectF(rect()), 3, 3);
    }
    painter.setPen(QPen(palette().color(QPalette::ButtonText), 1.5, Qt::SolidLine, Qt::RoundCap,
                        Qt::RoundJoin));
    // Two chevrons on a 20 by 20 grid, scaled with the button.
    painter.scale(width() / 20.0, height() / 20.0);
    const qreal tip = points_left_ ? 5.5 : 14.5;
    const qreal back = points_left_ ? 3.5 : -3.5;
    for (const qreal offset : {0.0, 5.0}) {
      const qreal x = tip + (points_left_ ? offset : -offset);
      painter.drawPolyline(QPolygonF({QPointF(x + back, 6), QPointF(x, 10), QPointF(x + back, 14)}));
    }
  }

 private:
  bool points_left_ = true;
};

ShrinkWnd::ShrinkWnd(QWidget* parent) : QWidget(parent), header_button_(new ShrinkButton(this)) {
  setBackgroundRole(QPalette::Button);
  setAutoFillBackground(true);
  setFixedWidth(expanded_width_);
  animation_.setInterval(kFrameMilliseconds);
  connect(&animation_, &QTimer::timeout, this, &ShrinkWnd::step_animation);
  connect(header_button_, &QAbstractButton::clicked, this, &ShrinkWnd::toggle);
  place_children();
}

void ShrinkWnd::set_caption(const QString& caption) {
  caption_ = caption;
  update();
}

QString ShrinkWnd::caption() const { return caption_; }

void ShrinkWnd::set_content(QWidget* content) {
  content_ = content;
  content_->setParent(this);
  place_children();
}

void ShrinkWnd::set_expanded_width(int width) {
  expanded_width_ = std::max(width, collapsed_width());
  if (expanded_ && !animation_.isActive()) {
    apply_width(expanded_width_);
  } else {
    place_children();
    emit width_changing(this->width());
  }
}

int ShrinkWnd::expanded_width() const { return expanded_width_; }

int ShrinkWnd::collapsed_width() const { return kHeaderHeight; }

bool ShrinkWnd::is_expanded() const { return expanded_; }

void ShrinkWnd::set_expanded(bool expanded) {
  if (expanded_ == expanded) return;
  expanded_ = expanded;
  header_button_->set_points_left(expanded_);
  start_width_ = width();
  frame_ = 0;
  animation_.start();
}

void ShrinkWnd::toggle() { set_expanded(!expanded_); }

QAbstractButton* ShrinkWnd::header_button() const { return header_button_; }

// Eases out: fast at first, settling gently on the final width.
void ShrinkWnd::step_animation() {
  ++frame_;
  const double progress = static_cast<double>(frame_) / kFrameCount;
  const double eased = 1.0 - (1.0 - progress) * (1.0 - progress);
  const int target = expanded_ ? expanded_width_ : collapsed_width();
  apply_width(start_width_ + static_cast<int>(std::lround((target - start_width_) * eased)));
  if (frame_ < kFrameCount) return;
  animation_.stop();
  emit expanded_changed(expanded_);
}

void ShrinkWnd::apply_width(int width) {
  setFixedWidth(width);
  place_children();
  update();
  emit width_changing(width);
}

bool ShrinkWnd::fully_collapsed() const { return width() <= collapsed_width(); }

// The content keeps its open width while the panel moves, so it slides
// under the edge instead of being laid out again at every frame.
void ShrinkWnd::place_children() {
  header_button_->move(width() - kMargin - kButtonSide, kMargin);
  if (content_ == nullptr) return;
  content_->setGeometry(0, kHeaderHeight + 1, expanded_width_, std::max(0, height() - kHeaderHeight - 1));
  content_->setVisible(!fully_collapsed());
}

void ShrinkWnd::resizeEvent(QResizeEvent*) { place_children(); }

void ShrinkWnd::mousePressEvent(QMouseEvent* event) {
  if (fully_collapsed() && event->button() == Qt::LeftButton) {
    set_expanded(true);
    return;
  }
  event->ignore();
}

void ShrinkWnd::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  QFont bold = font();
  bold.setBold(true);
  painter.setFont(bold);
  painter.setPen(palette().color(QPalette::ButtonText));
  if (fully_collapsed()) {
    // Reads from top to bottom below the button.
    const QFontMetrics metrics = painter.fontMetrics();
    painter.translate((width() - metrics.ascent() + metrics.descent()) / 2.0, kHeaderHeight + kCaptionIndent);
    painter.rotate(90);
    painter.drawText(0, 0, caption_);
    return;
  }
  const QRect text_area(kCaptionIndent, 0, width() - kCaptionIndent - kButtonSide - 2 * kMargin, kHeaderHeight);
  const QString shown = painter.fontMetrics().elidedText(caption_, Qt::ElideRight, text_area.width());
  painter.drawText(text_area, Qt::AlignVCenter | Qt::AlignLeft, shown);
  painter.fillRect(0, kHeaderHeight, width(), 1, palette().color(QPalette::Mid));
}

}  // namespace korvexed
