#pragma once
// A plain panel in the window's button-face colour.
#include <QWidget>

namespace korvexed {

class Container : public QWidget {
  Q_OBJECT

 public:
  explicit Container(QWidget* parent = nullptr);
};

}  // namespace korvexed
