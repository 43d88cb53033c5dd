#pragma once
// A multi-select list that shows lines owned by someone else: one selected
// byte per line and a caret line, with each line's text asked for only when
// it is painted. So a list of 100,000 lines costs no more than one of 10.
#include <QAbstractScrollArea>
#include <QTimer>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace korvexed {

class ListBox : public QAbstractScrollArea {
  Q_OBJECT

 public:
  // The line text, computed when a line is painted.
  using LineText = std::function<std::string(int32_t line)>;

  explicit ListBox(QWidget* parent = nullptr);

  // Shows `selected` (one byte per line; the line count is its size) and the
  // caret `caret`, both owned by the caller.
  void set_source(std::vector<uint8_t>* selected, int32_t* caret, LineText text);

  // The owner changed the lines: keep the top line and the scroll range in
  // step, and repaint.
  void row_inserted(int row);
  // `rows`: ascending, numbered as before the removal.
  void rows_removed(std::span<const int32_t> rows);
  void reset();
  // New lines: shown from the first.
  void refilled();

  int line_count() const;
  int line_height() const { return line_height_; }
  int top_line() const;
  void set_top_line(int line);
  // The line under a point of the viewport, or -1 below the last line.
  int line_at(QPoint viewport_pos) const;
  // The line's rectangle in viewport coordinates.
  QRect line_rect(int line) const;

  // No repaint while the owner rebuilds the lines; Show catches up.
  void HideListBox();
  void ShowListBox();

 signals:
  // The user changed the selection or the caret (click, Shift-click,
  // Ctrl-click, keys).
  void clicked();
  // A right button pressed and released over the list, for the pop-up
  // menus.
  void right_clicked(QPoint global_pos);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  enum class Pick { only, range, toggle, add_range, caret_only };

  // Moves the caret to `line` and changes the selection as `pick` says;
  // reports the change.
  void Choose(int line, Pick pick);
  void SelectRange(int from, int to);
  void ShowLine(int line);
  // A selecting drag at viewport height `y`.
  void DragTo(int y);
  // An edit removes or inserts rows one by one: the scroll range follows
  // once, when the edit is over, as each change of it costs an event.
  void ResetSoon();
  void SyncScrollRange();
  // Lines wider than the list scroll sideways; the range follows the widest
  // line painted since the list was filled.
  void SyncSidewaysRange();
  int VisibleLines() const;
  bool updating() const { return hidden_ == 0; }

  std::vector<uint8_t>* selected_ = nullptr;
  int32_t* caret_ = nullptr;
  LineText text_;
  // The line a Shift-click or Shift-key range starts from.
  int anchor_ = 0;
  // The caret as last shown; a reset with a moved caret scrolls to it.
  int32_t shown_caret_ = -1;
  int line_height_ = 1;
  int hidden_ = 0;
  bool refill_pending_ = false;
  bool reset_pending_ = false;
  bool dragging_ = false;
  int drag_y_ = 0;
  QTimer edge_scroll_;
  // The button of the latest press on the list.
  Qt::MouseButton pressed_button_ = Qt::NoButton;
  int widest_text_ = 0;
};

}  // namespace korvexed
