#include "controls/cool_tab.h"

#include <QTabBar>

namespace korvexed {

CoolTab::CoolTab(QWidget* parent) : QWidget(parent), strip_(new QTabBar(this)) {
  strip_->setDocumentMode(true);
  strip_->setExpanding(false);
  strip_->setDrawBase(true);
  strip_->setFocusPolicy(Qt::NoFocus);
  connect(strip_, &QTabBar::currentChanged, this, [this](int index) {
    show_current();
    emit current_changed(index);
  });
}

int CoolTab::add_tab(const QString& caption, QWidget* container) {
  container->setParent(this);
  pages_.push_back(container);
  place_pages();
  // The first tab becomes current inside addTab and must find its page.
  const int index = strip_->addTab(caption);
  show_current();
  return index;
}

int CoolTab::current() const { return strip_->currentIndex(); }

void CoolTab::set_current(int index) { strip_->setCurrentIndex(index); }

QString CoolTab::caption(int index) const { return strip_->tabText(index); }

int CoolTab::count() const { return strip_->count(); }

QRect CoolTab::tab_rect(int index) const { return strip_->tabRect(index).translated(strip_->pos()); }

void CoolTab::resizeEvent(QResizeEvent*) { place_pages(); }

void CoolTab::show_current() {
  const int shown = current();
  for (int index = 0; index < static_cast<int>(pages_.size()); ++index) {
    pages_[index]->setVisible(index == shown);
  }
}

void CoolTab::place_pages() {
  const int strip_height = strip_->sizeHint().height();
  strip_->setGeometry(0, 0, width(), strip_height);
  for (QWidget* page : pages_) page->setGeometry(0, strip_height, width(), height() - strip_height);
}

}  // namespace korvexed
