#include "editing/fm_value_input.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "editing/dialog_placement.h"

namespace korvexed {

FmValueInput::FmValueInput(ValueForm& form, QWidget* parent) : QDialog(parent), form_(form) {
  setObjectName(QStringLiteral("fmValueInput"));
  setWindowTitle(QString::fromStdString(form.title));
  auto* rows = new QFormLayout;
  for (size_t i = 0; i < lbl_.size(); ++i) {
    lbl_[i] = new QLabel(QString::fromStdString(form.prompts[i]), this);
    lbl_[i]->setObjectName(QStringLiteral("lbl_%1").arg(i));
    txt_[i] = new QLineEdit(QString::fromStdString(form.texts[i]), this);
    txt_[i]->setObjectName(QStringLiteral("txt_%1").arg(i));
    lbl_[i]->setBuddy(txt_[i]);
    if (form.shown[i]) {
      rows->addRow(lbl_[i], txt_[i]);
    } else {
      lbl_[i]->hide();
      txt_[i]->hide();
    }
  }
  QDialogButtonBox* buttons = OkCancelButtons(this);
  connect(buttons, &QDialogButtonBox::accepted, this, &FmValueInput::cmdOk_Click);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(rows);
  layout->addWidget(buttons);
  setMinimumWidth(280);
}

void FmValueInput::cmdOk_Click() {
  for (size_t i = 0; i < txt_.size(); ++i) form_.texts[i] = txt_[i]->text().toStdString();
  accept();
}

bool AskValues(ValueForm& form, QWidget* main_window) {
  FmValueInput dialog(form, main_window);
  return ExecCentred(dialog, main_window);
}

}  // namespace korvexed
