#pragma once
// A tab strip above a page area: each tab owns a container, and only the
// current tab's container is shown.
#include <QWidget>
#include <vector>

class QTabBar;

namespace korvexed {

class CoolTab : public QWidget {
  Q_OBJECT

 public:
  explicit CoolTab(QWidget* parent = nullptr);

  // The container becomes a child, shown while its tab is current.
  int add_tab(const QString& caption, QWidget* container);
  int current() const;
  void set_current(int index);
  QString caption(int index) const;
  int count() const;

  // Where tab index sits, in this widget's coordinates.
  QRect tab_rect(int index) const;

 signals:
  void current_changed(int index);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void show_current();
  void place_pages();

  QTabBar* strip_;
  std::vector<QWidget*> pages_;
};

}  // namespace korvexed
