#include "editing/dialog_placement.h"

#include <QDialog>

namespace korvexed {

bool ExecCentred(QDialog& dialog, QWidget* main_window) {
  dialog.adjustSize();
  if (main_window) {
    const QRect outer = main_window->frameGeometry();
    // A dialog not yet shown has no frame; it gets one like the window's.
    const QSize framed = dialog.size() + (outer.size() - main_window->size());
    dialog.move(outer.left() + (outer.width() - framed.width()) / 2, outer.top() + (outer.height() - framed.height()) / 2);
  }
  return dialog.exec() == QDialog::Accepted;
}

}  // namespace korvexed
