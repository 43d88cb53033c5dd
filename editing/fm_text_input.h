#pragma once
// fmTextInput as a dialog: a record's coordinates (X, Y, extrusion,
// feedrate, G0 or G1) or its line of text. Enter is OK, Escape is Cancel.
#include <QDialog>

#include "platform/forms.h"

class QFormLayout;
class QLineEdit;
class QRadioButton;

namespace korvexed {

class FmTextInput : public QDialog {
  Q_OBJECT

 public:
  // Shows `form`; the typed texts and the chosen kind go back into it on OK.
  FmTextInput(RecordForm& form, QWidget* parent);

 private:
  void cmdOk_Click();
  QLineEdit* AddRow(QFormLayout* layout, const char* label_name, const QString& caption, const char* text_name,
                    const std::string& text);

  RecordForm& form_;
  QLineEdit* txtS_ = nullptr;
  QLineEdit* txtX_ = nullptr;
  QLineEdit* txtY_ = nullptr;
  QLineEdit* txtE_ = nullptr;
  QLineEdit* txtF_ = nullptr;
  QRadioButton* optGCode_[2] = {};
};

// Shows the form centred over `main_window`; true on OK.
bool AskRecord(RecordForm& form, QWidget* main_window);

}  // namespace korvexed
