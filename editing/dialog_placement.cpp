#include "editing/dialog_placement.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>

namespace korvexed {

QDialogButtonBox* OkCancelButtons(QDialog* dialog) {
  auto* buttons = new QDialogButtonBox(dialog);
  QPushButton* ok = buttons->addButton(QDialog::tr("OK"), QDialogButtonBox::AcceptRole);
  ok->setObjectName(QStringLiteral("cmdOk"));
  ok->setDefault(true);
  buttons->addButton(QDialog::tr("Cancel"), QDialogButtonBox::RejectRole)->setObjectName(QStringLiteral("cmdCancel"));
  QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
  return buttons;
}

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
