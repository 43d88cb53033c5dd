#include "editing/dialog_placement.h"

#include <QDialog>

namespace korvexed {

bool ExecCentred(QDialog& dialog, QWidget* main_window) {
  dialog.adjustSize();
  if (main_window) {
    const QRect outer = main_window->frameGeometry();
    dialog.move(outer.left() + (outer.width() - dialog.frameGeometry().width()) / 2,
                outer.top() + (outer.height() - dialog.frameGeometry().height()) / 2);
  }
  return dialog.exec() == QDialog::Accepted;
}

}  // namespace korvexed
