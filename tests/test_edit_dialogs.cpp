// The editing dialogs answered as a user would: what they show, the clamps,
// OK without a change, and the commands that open them.
#include <gtest/gtest.h>

#include "editing/commands.h"
#include "editing/text_input.h"
#include "editing/value_input.h"
#include "tests/editing_fixture.h"

using namespace korvexed;
using korvexed::testing::EditingTest;

namespace {

// Records 1 to 4 of layer 0: (0, 0), then 3 mm extruding moves along X
// with one unit of E per millimetre; record 5 a line of text.
const char* const straight_doc = "G1 X0 Y0 F1200\nG1 X3 Y0 E3\nG1 X6 Y0 E6 F1800\nG1 X9 Y0 E9\nM104 S200\n";

class Dialogs : public EditingTest {
 protected:
  Dialogs() { load(straight_doc); }
  // The user types these texts into the value rows and presses OK.
  void type_values(std::array<std::string, 3> texts) {
    ui->value_answers.push_back([texts](ValueForm& form) {
      form.texts = texts;
      return true;
    });
  }
  // The user changes the record form with `edit` and presses OK.
  void edit_record(std::function<void(RecordForm&)> edit) {
    ui->record_answers.push_back([edit](RecordForm& form) {
      edit(form);
      return true;
    });
  }
  static std::array<double, 3> values(const std::array<ValueRow, 3>& rows) {
    return {rows[0].value, rows[1].value, rows[2].value};
  }
};

}  // namespace

TEST_F(Dialogs, ValueInputShowsGivenRowsAndClampsWhatIsTyped) {
  std::array<ValueRow, 3> rows{{{"A:", 1.5}, {"B:", -2}, {}}};
  type_values({"500000", "-500000", "7"});
  EXPECT_TRUE(ValueInput("Title", rows));
  const ValueForm& shown = ui->value_forms.at(0);
  EXPECT_EQ(shown.texts[0], "1.5");
  EXPECT_EQ(shown.prompts[1], "B:");
  EXPECT_FALSE(shown.shown[2]);
  EXPECT_EQ(values(rows), (std::array{328000.0, -328000.0, no_value}));  // a hidden row is left alone
}

TEST_F(Dialogs, ValueInputIgnoresTextsThatAreNoNumbersAndCancelStoresNothing) {
  std::array<ValueRow, 3> rows{{{"A:", 1}, {"B:", 2}, {"C:", 3}}};
  type_values({"x", " 4.25 ", "1,5"});
  EXPECT_TRUE(ValueInput("T", rows));
  EXPECT_EQ(values(rows), (std::array{1.0, 4.25, 3.0}));
  EXPECT_FALSE(ValueInput("T", rows));  // no answer: Cancel
  EXPECT_EQ(rows[1].value, 4.25);
}

TEST_F(Dialogs, ValueInputReadsAndWritesTheLocalesDecimalComma) {
  doc.decimal_comma = true;
  std::array<ValueRow, 3> rows{{{"A:", 1.5}, {"B:", 2}, {}}};
  type_values({"2,75", "2.5", ""});
  EXPECT_TRUE(ValueInput("T", rows));
  doc.decimal_comma = false;
  EXPECT_EQ(ui->value_forms.at(0).texts[0], "1,5");
  EXPECT_EQ(values(rows), (std::array{2.75, 2.0, no_value}));  // a period is no separator here
}

TEST_F(Dialogs, ChangeFeedrateAsksForTheOldAndTheNewFeedrateOnly) {
  mark({2, 3, 4});
  FeedrateMemory memory;
  type_values({"0", "2400", ""});
  EXPECT_TRUE(ChangeFeedrateDialog(memory));
  const ValueForm& shown = ui->value_forms.at(0);
  EXPECT_EQ(shown.title, "Change Feedrate F");
  EXPECT_EQ(shown.prompts[0], "Old Feedrate (0 = All):");
  EXPECT_EQ(shown.prompts[1], "New Feedrate:");
  EXPECT_EQ(shown.texts[1], "100");  // a remembered value below 1 opens as 100
  EXPECT_FALSE(shown.shown[2]);
  EXPECT_EQ(memory.new_f, 2400);
}

TEST_F(Dialogs, TranslateAfterCancelFindsNothingToDo) {
  EXPECT_FALSE(TranslateDialog());
  EXPECT_EQ(ui->value_forms.at(0).prompts[0], "Rotation (deg CCW +ve):");
  EXPECT_EQ(last_message(), "No translation is needed");
  type_values({"0", "5", "0"});
  EXPECT_TRUE(TranslateDialog());
  EXPECT_EQ(at(0, 2).x, 8);
}

TEST_F(Dialogs, TextInputShowsAMoveAsCoordinatesWithItsExtrusionPerSquaredMillimetre) {
  EXPECT_FALSE(TextInput(3));
  const RecordForm& shown = ui->record_forms.at(0);
  // E per square millimetre: 3 over 9.
  EXPECT_EQ(std::tuple(shown.caption, shown.x, shown.f, shown.e_label, shown.e, shown.kind),
            std::tuple("GCode Coordinate Editing...", "6", "1800", "dE/mm:", "0.333333333333333", RecordForm::g1));
}

TEST_F(Dialogs, TextInputClampsTheFeedrateAndSetsTheKindOfTheMarkedVertices) {
  mark({2, 4});
  edit_record([](RecordForm& form) {
    form.f = "0";
    form.kind = RecordForm::g0;
  });
  EXPECT_TRUE(TextInput(2));
  EXPECT_EQ(std::pair(at(0, 2).f, at(0, 4).f), std::pair(1.0, 1.0));
  EXPECT_EQ(std::tuple(kind(0, 2), kind(0, 3), kind(0, 4)), std::tuple(line_kind::g0, line_kind::g1, line_kind::g0));
}

TEST_F(Dialogs, TextInputChangesTheExtrusionOfAZeroLengthMoveByTheTypedDifference) {
  load("G1 X0 Y0 F1200\nG1 X0 Y0 E2\nG1 X3 Y0 E5\n");
  mark({2});
  edit_record([](RecordForm& form) { form.e = "2.5"; });
  EXPECT_TRUE(TextInput(2));
  EXPECT_EQ(std::tuple(ui->record_forms.at(0).e_label, ui->record_forms.at(0).e), std::tuple("dE:", "2"));
  EXPECT_DOUBLE_EQ(at(0, 2).e, 2.5);
  EXPECT_DOUBLE_EQ(at(0, 3).e, 5.5);
  EXPECT_CONSISTENT();
}

TEST_F(Dialogs, TextInputEditsALineOfTextOnlyWhenItChanged) {
  edit_record([](RecordForm&) {});
  EXPECT_FALSE(TextInput(5));
  EXPECT_EQ(std::tuple(ui->record_forms.at(0).caption, ui->record_forms.at(0).text),
            std::tuple("GCode Text Editing...", "M104 S200"));
  edit_record([](RecordForm& form) { form.text = "M104 S210"; });
  EXPECT_TRUE(TextInput(5));
  EXPECT_EQ(std::string_view(doc.text_list[doc.layer(0).g[5].index]), "M104 S210");
  EXPECT_TRUE(doc.modified);
}

TEST_F(Dialogs, EditSelectedDataWithLinesButNoneSelectedOpensNothing) {
  EXPECT_FALSE(EditSelectedDataDialog());
  EXPECT_TRUE(ui->record_forms.empty());
  on_view({5});  // no vertex on view: the data list's caret row is edited
  lists.data_caret = 5;
  EXPECT_FALSE(EditSelectedDataDialog());
  EXPECT_EQ(ui->record_forms.at(0).caption, "GCode Text Editing...");
}
