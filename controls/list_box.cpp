#include "controls/list_box.h"

#include <QFontDatabase>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

namespace korvexed {

namespace {

QFont ListFont() {
  const QString courier = QStringLiteral("Courier New");
  if (QFontDatabase::families().contains(courier)) return QFont(courier, 10);
  return QFontDatabase::systemFont(QFontDatabase::FixedFont);
}

// Text that starts this far right of the line's left edge.
constexpr int text_margin = 3;

}  // namespace

ListBox::ListBox(QWidget* parent) : QAbstractScrollArea(parent) {
  setFont(ListFont());
  line_height_ = fontMetrics().height() + 1;
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setBackgroundRole(QPalette::Base);
  viewport()->setAutoFillBackground(true);
  verticalScrollBar()->setSingleStep(1);
  horizontalScrollBar()->setSingleStep(fontMetrics().averageCharWidth());
  // A selecting drag held past the top or bottom edge goes on by itself.
  edge_scroll_.setInterval(50);
  connect(&edge_scroll_, &QTimer::timeout, this, [this] { DragTo(drag_y_); });
}

void ListBox::set_source(std::vector<uint8_t>* selected, int32_t* caret, LineText text) {
  selected_ = selected;
  caret_ = caret;
  text_ = std::move(text);
  anchor_ = 0;
  reset();
}

int ListBox::line_count() const { return selected_ ? static_cast<int>(selected_->size()) : 0; }

int ListBox::top_line() const { return verticalScrollBar()->value(); }

void ListBox::set_top_line(int line) { verticalScrollBar()->setValue(line); }

int ListBox::line_at(QPoint viewport_pos) const {
  if (viewport_pos.y() < 0) return -1;
  const int line = top_line() + viewport_pos.y() / line_height_;
  return line < line_count() ? line : -1;
}

QRect ListBox::line_rect(int line) const {
  return QRect(0, (line - top_line()) * line_height_, viewport()->width(), line_height_);
}

void ListBox::row_inserted(int row) {
  // The lines on screen stay where they are.
  if (row < top_line()) set_top_line(top_line() + 1);
  if (anchor_ >= row) ++anchor_;
  ResetSoon();
}

void ListBox::rows_removed(std::span<const int32_t> rows) {
  // The lines on screen stay where they are.
  const auto before = [&](int line) { return static_cast<int>(std::lower_bound(rows.begin(), rows.end(), line) - rows.begin()); };
  set_top_line(top_line() - before(top_line()));
  anchor_ -= before(anchor_);
  ResetSoon();
}

void ListBox::ResetSoon() {
  if (reset_pending_) return;
  reset_pending_ = true;
  QMetaObject::invokeMethod(
      this,
      [this] {
        reset_pending_ = false;
        reset();
      },
      Qt::QueuedConnection);
}

void ListBox::reset() {
  if (!updating()) return;
  SyncScrollRange();
  anchor_ = std::clamp(anchor_, 0, std::max(line_count() - 1, 0));
  const int32_t caret = caret_ ? *caret_ : -1;
  // A caret moved by the owner (a slider, a layer click) comes into view,
  // and a Shift-click then reaches from it.
  if (caret != shown_caret_) {
    ShowLine(caret);
    if (caret >= 0) anchor_ = caret;
  }
  shown_caret_ = caret;
  viewport()->update();
}

void ListBox::refilled() {
  refill_pending_ = true;
  if (!updating()) return;
  refill_pending_ = false;
  SyncScrollRange();
  set_top_line(0);
  widest_text_ = 0;
  SyncSidewaysRange();
  horizontalScrollBar()->setValue(0);
  shown_caret_ = -1;
  reset();
}

void ListBox::HideListBox() { ++hidden_; }

void ListBox::ShowListBox() {
  if (hidden_ > 0) --hidden_;
  if (refill_pending_)
    refilled();
  else
    reset();
}

int ListBox::VisibleLines() const { return std::max(1, viewport()->height() / line_height_); }

void ListBox::SyncScrollRange() {
  QScrollBar* bar = verticalScrollBar();
  const int page = VisibleLines();
  bar->setPageStep(page);
  bar->setRange(0, std::max(0, line_count() - page));
}

void ListBox::SyncSidewaysRange() {
  QScrollBar* bar = horizontalScrollBar();
  bar->setPageStep(viewport()->width());
  bar->setRange(0, std::max(0, widest_text_ + 2 * text_margin - viewport()->width()));
}

void ListBox::ShowLine(int line) {
  if (line < 0) return;
  if (line < top_line())
    set_top_line(line);
  else if (line >= top_line() + VisibleLines())
    set_top_line(line - VisibleLines() + 1);
}

void ListBox::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  SyncScrollRange();
  SyncSidewaysRange();
}

void ListBox::paintEvent(QPaintEvent*) {
  if (!selected_ || !updating()) return;
  QPainter painter(viewport());
  const QPalette::ColorGroup group = hasFocus() ? QPalette::Active : QPalette::Inactive;
  const QColor highlight = palette().color(group, QPalette::Highlight);
  const QColor highlighted_text = palette().color(group, QPalette::HighlightedText);
  const QColor text = palette().color(group, QPalette::Text);
  const int last = std::min(line_count(), top_line() + VisibleLines() + 1);
  const int left = text_margin - horizontalScrollBar()->value();
  const int widest_before = widest_text_;
  for (int line = top_line(); line < last; ++line) {
    const QRect rect = line_rect(line);
    const bool selected = (*selected_)[static_cast<size_t>(line)] != 0;
    if (selected) painter.fillRect(rect, highlight);
    painter.setPen(selected ? highlighted_text : text);
    const QString line_text = QString::fromStdString(text_(line));
    widest_text_ = std::max(widest_text_, fontMetrics().horizontalAdvance(line_text));
    painter.drawText(QRect(left, rect.top(), widest_text_ + text_margin, rect.height()),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, line_text);
  }
  if (widest_text_ > widest_before) SyncSidewaysRange();
  // The caret of a focused list: a dotted frame in the line's text colour,
  // drawn whatever the style, since Shift and Ctrl clicks work from it.
  if (hasFocus() && caret_ && *caret_ >= top_line() && *caret_ < last) {
    const bool selected = (*selected_)[static_cast<size_t>(*caret_)] != 0;
    painter.setPen(QPen(selected ? highlighted_text : text, 1, Qt::DotLine));
    painter.drawRect(line_rect(*caret_).adjusted(0, 0, -1, -1));
  }
}

void ListBox::SelectRange(int from, int to) {
  if (from > to) std::swap(from, to);
  std::fill(selected_->begin() + from, selected_->begin() + to + 1, 1);
}

void ListBox::Choose(int line, Pick pick) {
  if (!selected_ || line < 0 || line >= line_count()) return;
  auto& selected = *selected_;
  switch (pick) {
    case Pick::only:
      std::fill(selected.begin(), selected.end(), 0);
      selected[static_cast<size_t>(line)] = 1;
      anchor_ = line;
      break;
    case Pick::toggle:
      selected[static_cast<size_t>(line)] = !selected[static_cast<size_t>(line)];
      anchor_ = line;
      break;
    case Pick::range:
      std::fill(selected.begin(), selected.end(), 0);
      SelectRange(anchor_, line);
      break;
    case Pick::add_range:
      SelectRange(anchor_, line);
      break;
    case Pick::caret_only:
      break;
  }
  *caret_ = line;
  shown_caret_ = line;
  ShowLine(line);
  viewport()->update();
  if (pick != Pick::caret_only) emit clicked();
}

void ListBox::mousePressEvent(QMouseEvent* event) {
  pressed_button_ = event->button();
  if (event->button() != Qt::LeftButton) return;
  const int line = line_at(event->position().toPoint());
  if (line < 0) return;
  const Qt::KeyboardModifiers mods = event->modifiers();
  const bool shift = mods.testFlag(Qt::ShiftModifier), ctrl = mods.testFlag(Qt::ControlModifier);
  dragging_ = !ctrl;
  Choose(line, shift ? (ctrl ? Pick::add_range : Pick::range) : ctrl ? Pick::toggle : Pick::only);
}

void ListBox::mouseMoveEvent(QMouseEvent* event) {
  if (!dragging_ || !(event->buttons() & Qt::LeftButton) || !caret_) return;
  drag_y_ = static_cast<int>(std::floor(event->position().y()));
  DragTo(drag_y_);
  const bool past_edge = drag_y_ < 0 || drag_y_ >= viewport()->height();
  if (past_edge && !edge_scroll_.isActive()) edge_scroll_.start();
  if (!past_edge) edge_scroll_.stop();
}

void ListBox::DragTo(int y) {
  // Dragging stretches the range from the pressed line; past an edge the
  // caret's line scrolls into view, so the next step reaches one further.
  const int offset = y >= 0 ? y / line_height_ : (y + 1) / line_height_ - 1;
  const int line = std::clamp(top_line() + offset, 0, line_count() - 1);
  if (line != *caret_) Choose(line, Pick::range);
}

void ListBox::mouseReleaseEvent(QMouseEvent* event) {
  dragging_ = false;
  edge_scroll_.stop();
  // A press elsewhere that ends over the list is no click on it.
  const bool right_click = event->button() == Qt::RightButton && pressed_button_ == Qt::RightButton;
  pressed_button_ = Qt::NoButton;
  if (right_click) emit right_clicked(event->globalPosition().toPoint());
}

void ListBox::keyPressEvent(QKeyEvent* event) {
  if (!caret_ || line_count() == 0) return QAbstractScrollArea::keyPressEvent(event);
  const Qt::KeyboardModifiers mods = event->modifiers();
  const bool shift = mods.testFlag(Qt::ShiftModifier), ctrl = mods.testFlag(Qt::ControlModifier);
  const int caret = std::max(*caret_, 0);
  const int page = VisibleLines();
  int target = -1;
  switch (event->key()) {
    case Qt::Key_Up: target = caret - 1; break;
    case Qt::Key_Down: target = caret + 1; break;
    case Qt::Key_PageUp: target = caret - page; break;
    case Qt::Key_PageDown: target = caret + page; break;
    case Qt::Key_Home: target = 0; break;
    case Qt::Key_End: target = line_count() - 1; break;
    case Qt::Key_Space:
      Choose(caret, ctrl ? Pick::toggle : shift ? Pick::range : Pick::only);
      return;
    case Qt::Key_A:
      if (!ctrl) return QAbstractScrollArea::keyPressEvent(event);
      std::fill(selected_->begin(), selected_->end(), 1);
      Choose(caret, Pick::add_range);
      return;
    default: return QAbstractScrollArea::keyPressEvent(event);
  }
  target = std::clamp(target, 0, line_count() - 1);
  Choose(target, shift ? Pick::range : ctrl ? Pick::caret_only : Pick::only);
}

void ListBox::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  viewport()->update();
}

void ListBox::focusOutEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusOutEvent(event);
  viewport()->update();
}

}  // namespace korvexed
