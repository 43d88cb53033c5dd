#include "controls/container.h"

namespace korvexed {

Container::Container(QWidget* parent) : QWidget(parent) {
  setBackgroundRole(QPalette::Button);
  setAutoFillBackground(true);
}

}  // namespace korvexed
