#pragma once
// fmValueInput as a dialog: up to three labelled text boxes, OK and Cancel.
// Enter is OK, Escape is Cancel.
#include <QDialog>
#include <array>

#include "platform/forms.h"

class QLabel;
class QLineEdit;

namespace korvexed {

class FmValueInput : public QDialog {
  Q_OBJECT

 public:
  // The rows that `form` shows; the typed texts go back into it on OK.
  FmValueInput(ValueForm& form, QWidget* parent);

 private:
  void cmdOk_Click();

  ValueForm& form_;
  std::array<QLabel*, 3> lbl_{};
  std::array<QLineEdit*, 3> txt_{};
};

// Shows the form centred over `main_window`; true on OK.
bool AskValues(ValueForm& form, QWidget* main_window);

}  // namespace korvexed
