#include "editing/fm_text_input.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

#include "editing/dialog_placement.h"

namespace korvexed {

namespace {

// The extrusion label tells its two modes apart by colour as well.
const char* const per_mm_colour = "color: #1f5fbf;";
const char* const per_move_colour = "color: #b05a00;";

}  // namespace

FmTextInput::FmTextInput(RecordForm& form, QWidget* parent) : QDialog(parent), form_(form) {
  setObjectName(QStringLiteral("fmTextInput"));
  setWindowTitle(QString::fromStdString(form.caption));
  auto* fields = new QFormLayout;
  if (form.coordinates) {
    txtX_ = AddRow(fields, "lblX", tr("X:"), "txtX", form.x);
    txtY_ = AddRow(fields, "lblY", tr("Y:"), "txtY", form.y);
    txtE_ = AddRow(fields, "lblE", QString::fromStdString(form.e_label), "txtE", form.e);
    fields->labelForField(txtE_)->setStyleSheet(form.e_label == "dE:" ? per_move_colour : per_mm_colour);
    txtF_ = AddRow(fields, "lblF", tr("F:"), "txtF", form.f);
    auto* kinds = new QHBoxLayout;
    auto* group = new QButtonGroup(this);
    for (int i = 0; i < 2; ++i) {
      optGCode_[i] = new QRadioButton(i == 0 ? tr("G&0") : tr("G&1"), this);
      optGCode_[i]->setObjectName(QStringLiteral("optGCode_%1").arg(i));
      optGCode_[i]->setChecked(form.kind == i);
      group->addButton(optGCode_[i]);
      kinds->addWidget(optGCode_[i]);
    }
    // A G92 line is neither: the pair then starts with none chosen.
    fields->addRow(kinds);
  } else {
    txtS_ = AddRow(fields, "lblS", tr("Text:"), "txtS", form.text);
    txtS_->setMinimumWidth(360);
  }
  auto* line = new QFrame(this);
  line->setObjectName(QStringLiteral("Line1"));
  line->setFrameShape(QFrame::HLine);
  line->setFrameShadow(QFrame::Sunken);

  QDialogButtonBox* buttons = OkCancelButtons(this);
  connect(buttons, &QDialogButtonBox::accepted, this, &FmTextInput::cmdOk_Click);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(fields);
  layout->addWidget(line);
  layout->addWidget(buttons);
  setMinimumWidth(280);
}

QLineEdit* FmTextInput::AddRow(QFormLayout* layout, const char* label_name, const QString& caption, const char* text_name,
                               const std::string& text) {
  auto* label = new QLabel(caption, this);
  label->setObjectName(QLatin1String(label_name));
  auto* edit = new QLineEdit(QString::fromStdString(text), this);
  edit->setObjectName(QLatin1String(text_name));
  label->setBuddy(edit);
  layout->addRow(label, edit);
  return edit;
}

void FmTextInput::cmdOk_Click() {
  if (form_.coordinates) {
    form_.x = txtX_->text().toStdString();
    form_.y = txtY_->text().toStdString();
    form_.e = txtE_->text().toStdString();
    form_.f = txtF_->text().toStdString();
    if (optGCode_[0]->isChecked()) form_.kind = RecordForm::g0;
    if (optGCode_[1]->isChecked()) form_.kind = RecordForm::g1;
  } else {
    form_.text = txtS_->text().toStdString();
  }
  accept();
}

bool AskRecord(RecordForm& form, QWidget* main_window) {
  FmTextInput dialog(form, main_window);
  return ExecCentred(dialog, main_window);
}

}  // namespace korvexed
