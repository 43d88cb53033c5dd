// The summary window driven as the user would: command line, File menu,
// message boxes answered by a watcher, status panels read back.
#include <gtest/gtest.h>

#include <QAbstractItemModel>
#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QLabel>
#include <QStatusBar>
#include <QTableView>
#include <filesystem>
#include <string>

#include "document/document.h"
#include "tests/gui_fixture.h"

namespace korvexed::testing {
namespace {

namespace fs = std::filesystem;

const QString base_title = QStringLiteral("Korvex Visual GCode Editor (V1.0.3)");

// Two layers above layer 0; three extruding moves inside X 10..20, Y 10..20
// and a travel that leaves that square.
const char* const two_layers =
    "; made by hand\n"
    "G21\n"
    "G90\n"
    "M82\n"
    "G92 E0\n"
    "G1 Z0.2 F1800\n"
    "G1 X10 Y10 F3000\n"
    "G1 X20 Y10 E1\n"
    "G1 X20 Y20 E2\n"
    "G1 Z0.4\n"
    "G1 X10 Y20 E3\n"
    "G0 X5 Y5\n";

// The summary's own views of the document.
class SummaryTest : public SummaryWindowTest {
 protected:
  QString Summary() const { return window_->findChild<QLabel*>(QStringLiteral("lblSummary"))->text(); }
  QAbstractItemModel* Layers() const { return window_->findChild<QTableView*>(QStringLiteral("tblLayers"))->model(); }
  QString Cell(int row, int column) const { return Layers()->index(row, column).data().toString(); }
  QString Status() const { return dynamic_cast<QtPlatform&>(platform()).status_text(1); }
};

TEST_F(SummaryTest, StartsEmptyWithTheDocumentControlsDisabled) {
  window_->OpenCommandLine({});
  EXPECT_EQ(window_->windowTitle(), base_title);
  EXPECT_FALSE(IsDocumentLoaded());
  EXPECT_FALSE(Action(QStringLiteral("&Save"))->isEnabled());
  EXPECT_FALSE(Action(QStringLiteral("Save &As..."))->isEnabled());
  EXPECT_FALSE(Action(QStringLiteral("Export"))->isEnabled());
  EXPECT_TRUE(Action(QStringLiteral("&Open..."))->isEnabled());
  EXPECT_EQ(Summary(), QStringLiteral("No document loaded."));
  EXPECT_EQ(Layers()->rowCount(), 0);
  EXPECT_TRUE(boxes_.seen.empty());
}

TEST_F(SummaryTest, OpensAQuotedCommandLineFileAndSummarizesIt) {
  const std::string path = Write("print.gcode", two_layers);
  window_->OpenCommandLine({"\"" + path + "\""});

  EXPECT_TRUE(boxes_.seen.empty());
  EXPECT_EQ(window_->windowTitle(), Q(path) + " - " + base_title);
  EXPECT_EQ(Status(), "Load successful " + Q(path));
  EXPECT_TRUE(IsDocumentLoaded());
  EXPECT_TRUE(Action(QStringLiteral("&Save"))->isEnabled());
  EXPECT_TRUE(Action(QStringLiteral("Cura <;TAG:> Compatible GCode"))->isEnabled());
  EXPECT_EQ(Summary(), "File: " + Q(path) +
                           "\nLayers: 3\nRecords: 13\nMoves: 8\nTagged: no\n"
                           "Printed X: 10 to 20 mm\nPrinted Y: 10 to 20 mm");

  ASSERT_EQ(Layers()->rowCount(), 3);
  EXPECT_EQ(Layers()->headerData(1, Qt::Vertical).toInt(), 1);
  EXPECT_EQ(Cell(1, 0), "0.2");  // z
  EXPECT_EQ(Cell(2, 1), "0.2");  // dz
  EXPECT_EQ(Cell(0, 2), "6");    // records: G1 Z0, the comment and four commands
  EXPECT_EQ(Cell(0, 3), "1");    // moves
  EXPECT_EQ(Cell(1, 3), "4");
}

TEST_F(SummaryTest, JoinsAnUnquotedCommandLineSplitAtBlanks) {
  const std::string path = Write("two words/my print.gcode", two_layers);
  const std::string folder = (dir_ / "two").string();
  window_->OpenCommandLine({folder, "words/my", "print.gcode"});
  EXPECT_EQ(window_->windowTitle(), Q(path) + " - " + base_title);
  EXPECT_TRUE(IsDocumentLoaded());
}

TEST_F(SummaryTest, IgnoresACommandLineThatNamesNoFile) {
  window_->OpenCommandLine({(dir_ / "missing.gcode").string()});
  window_->OpenCommandLine({dir_.string()});
  EXPECT_TRUE(boxes_.seen.empty());
  EXPECT_EQ(window_->windowTitle(), base_title);
  EXPECT_FALSE(IsDocumentLoaded());
  EXPECT_EQ(Status(), QString());
}

TEST_F(SummaryTest, AFailedLoadEmptiesTheDocumentAndTheTitle) {
  const std::string good = Write("good.gcode", two_layers);
  const std::string bad = Write("bad.gcode", "G21\nG1 X1\nG1 Xabc\n");
  window_->LoadCommand(good);
  window_->LoadCommand(bad);

  ASSERT_EQ(boxes_.seen.size(), 1u);
  EXPECT_EQ(boxes_.seen[0].title, QStringLiteral("Korvex Visual GCode Editor"));
  EXPECT_EQ(boxes_.seen[0].icon, QMessageBox::Warning);
  EXPECT_EQ(boxes_.seen[0].buttons, QMessageBox::Ok);
  EXPECT_TRUE(boxes_.seen[0].text.startsWith(QStringLiteral("Error while reading GCode file at line 3: ")));
  EXPECT_EQ(Status(), "Load failed " + Q(bad));
  EXPECT_EQ(window_->windowTitle(), base_title);
  EXPECT_FALSE(Action(QStringLiteral("&Save"))->isEnabled());
  EXPECT_EQ(Summary(), QStringLiteral("No document loaded."));
  EXPECT_EQ(Layers()->rowCount(), 0);
}

TEST_F(SummaryTest, AFileThatCannotBeOpenedKeepsThePreviousDocument) {
  const std::string good = Write("good.gcode", two_layers);
  const std::string missing = (dir_ / "missing.gcode").string();
  window_->LoadCommand(good);
  window_->LoadCommand(missing);

  ASSERT_EQ(boxes_.seen.size(), 1u);
  EXPECT_TRUE(boxes_.seen[0].text.startsWith("Unable to open " + Q(missing)));
  EXPECT_EQ(Status(), "Load failed " + Q(missing));
  EXPECT_EQ(window_->windowTitle(), Q(good) + " - " + base_title);
  EXPECT_TRUE(Action(QStringLiteral("&Save"))->isEnabled());
  EXPECT_EQ(Layers()->rowCount(), 3);
}

TEST_F(SummaryTest, OffersTheTaggedExportOnlyForUntaggedFiles) {
  window_->LoadCommand(Write("tagged.gcode", "G1 Z0.2 ;;LAYER:0\nG1 X1 Y1 E1\n"));
  EXPECT_TRUE(Summary().contains(QStringLiteral("Tagged: yes")));
  EXPECT_TRUE(Action(QStringLiteral("Export"))->isEnabled());
  EXPECT_FALSE(Action(QStringLiteral("Cura <;TAG:> Compatible GCode"))->isEnabled());
}

TEST_F(SummaryTest, SaveWritesTheLoadedFileWithoutAsking) {
  const std::string path = Write("print.gcode", two_layers);
  window_->LoadCommand(path);
  fs::remove(path);
  doc.modified = true;
  Action(QStringLiteral("&Save"))->trigger();

  EXPECT_TRUE(boxes_.seen.empty());
  EXPECT_EQ(Status(), "Save successful " + Q(path));
  EXPECT_FALSE(doc.modified);
  EXPECT_TRUE(fs::is_regular_file(path));
}

TEST_F(SummaryTest, ClosingAModifiedDocumentAsksFirst) {
  const std::string path = Write("print.gcode", two_layers);
  window_->OpenCommandLine({path});
  doc.modified = true;

  boxes_.answers = {QMessageBox::Cancel};
  EXPECT_FALSE(window_->close());
  ASSERT_EQ(boxes_.seen.size(), 1u);
  EXPECT_EQ(boxes_.seen[0].text, Q(path) + " has been modified. Save changes?");
  EXPECT_EQ(boxes_.seen[0].icon, QMessageBox::Warning);
  EXPECT_EQ(boxes_.seen[0].buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
  EXPECT_TRUE(window_->isVisible());
  EXPECT_TRUE(doc.modified);

  fs::remove(path);
  boxes_.answers = {QMessageBox::Yes};
  EXPECT_TRUE(window_->close());
  EXPECT_FALSE(doc.modified);
  EXPECT_TRUE(fs::is_regular_file(path));
}

// The platform of the window, seen through the interface the logic uses.
using QtPlatformTest = SummaryTest;

TEST_F(QtPlatformTest, QuestionsReturnTheButtonClicked) {
  boxes_.answers = {QMessageBox::No, QMessageBox::Yes, QMessageBox::Cancel};
  EXPECT_EQ(platform().message_box("Go on?", MsgIcon::question, MsgButtons::yes_no), MsgAnswer::no);
  EXPECT_EQ(platform().message_box("Go on?", MsgIcon::critical, MsgButtons::yes_no), MsgAnswer::yes);
  EXPECT_EQ(platform().message_box("Go on?", MsgIcon::information, MsgButtons::yes_no_cancel), MsgAnswer::cancel);
  EXPECT_EQ(platform().message_box("Done.", MsgIcon::exclamation, MsgButtons::ok), MsgAnswer::ok);

  ASSERT_EQ(boxes_.seen.size(), 4u);
  EXPECT_EQ(boxes_.seen[0].icon, QMessageBox::Question);
  EXPECT_EQ(boxes_.seen[0].buttons, QMessageBox::Yes | QMessageBox::No);
  EXPECT_EQ(boxes_.seen[1].icon, QMessageBox::Critical);
  EXPECT_EQ(boxes_.seen[2].icon, QMessageBox::Information);
  EXPECT_EQ(boxes_.seen[3].icon, QMessageBox::Warning);
  EXPECT_EQ(boxes_.seen[3].text, QStringLiteral("Done."));
}

TEST_F(QtPlatformTest, BusyPointerGivesWayToQuestions) {
  {
    BusyPointer busy;
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    platform().message_box("Go on?", MsgIcon::question, MsgButtons::yes_no);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  }
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  ASSERT_EQ(boxes_.seen.size(), 1u);
  EXPECT_EQ(boxes_.seen[0].pointer, Qt::ArrowCursor);
}

TEST_F(QtPlatformTest, StatusPanelsShowTextAndToolTip) {
  ShowStatus("Layer 3", 2);
  ShowStatus("Data 7", 3);
  ShowStatus("nowhere", 4);
  const QList<QLabel*> panels = window_->statusBar()->findChildren<QLabel*>();
  ASSERT_EQ(panels.size(), 3);
  EXPECT_EQ(panels[1]->text(), QStringLiteral("Layer 3"));
  EXPECT_EQ(panels[1]->toolTip(), QStringLiteral("Layer 3"));
  EXPECT_EQ(panels[2]->toolTip(), QStringLiteral("Data 7"));
  EXPECT_EQ(panels[0]->text(), QString());
}

}  // namespace
}  // namespace korvexed::testing
