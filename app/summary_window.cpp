#include "app/summary_window.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>

#include "app/command_line.h"
#include "document/document_summary.h"
#include "app/layer_table_model.h"
#include "app/program_title.h"
#include "document/korvexed_file.h"
#include "document/korvexed_general.h"
#include "editing/list_state.h"
#include "view/draw_area.h"
#include "view/korvexed_graphic.h"
#include "view/world_view.h"

namespace korvexed {

namespace {

constexpr uint8_t code_save = 1, code_save_as = 2, code_export = 3;

const QString file_filter = QStringLiteral("KISSlicer/Slic3r/Skeinforge/Cura GCode Output File (*.gcode *.g)");

QString PathText(const std::string& path) { return QFile::decodeName(QByteArray::fromStdString(path)); }
std::string PathBytes(const QString& path) { return QFile::encodeName(path).toStdString(); }
QString Number(double value) { return QString::fromStdString(FormatNumber(value, false)); }

QString SummaryText(const DocumentSummary& s) {
  QString text = QStringLiteral("File: %1\nLayers: %2\nRecords: %3\nMoves: %4\nTagged: %5\n")
                     .arg(PathText(doc.file_name))
                     .arg(s.layers)
                     .arg(s.records)
                     .arg(s.moves)
                     .arg(s.tagged ? QStringLiteral("yes") : QStringLiteral("no"));
  const Extent& p = s.printed;
  if (p.empty) return text + QStringLiteral("Nothing printed");
  return text + QStringLiteral("Printed X: %1 to %2 mm\nPrinted Y: %3 to %4 mm")
                    .arg(Number(p.x_min), Number(p.x_max), Number(p.y_min), Number(p.y_max));
}

}  // namespace

SummaryWindow::SummaryWindow()
    : platform_(*this, QString::fromUtf8(program_title)),
      previous_platform_(&platform()),
      summary_(new QLabel),
      layers_(new LayerTableModel(this)) {
  QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
  file->addAction(QStringLiteral("&Open..."), this, &SummaryWindow::OpenFile);
  platform_.set_save_action(file->addAction(QStringLiteral("&Save"), this, [this] { SaveFileFunc(code_save); }));
  platform_.add_document_control(
      file->addAction(QStringLiteral("Save &As..."), this, [this] { SaveFileFunc(code_save_as); }));
  QMenu* export_menu = file->addMenu(QStringLiteral("Export"));
  platform_.add_document_control(export_menu->menuAction());
  platform_.set_export_action(export_menu->addAction(QStringLiteral("Cura <;TAG:> Compatible GCode"), this,
                                                     [this] { SaveFileFunc(code_export); }));
  file->addSeparator();
  file->addAction(QStringLiteral("&Quit"), this, &QWidget::close);

  QMenu* view_menu = menuBar()->addMenu(QStringLiteral("&View"));
  view_menu->addAction(QStringLiteral("&Zoom +"), this, [] { ZoomAboutCentre(1); platform().set_busy(false); });
  view_menu->addAction(QStringLiteral("Zoom -"), this, [] { ZoomAboutCentre(-1); platform().set_busy(false); });
  view_menu->addAction(QStringLiteral("Zoom &Fit"), this, [] { ZoomFit(); platform().set_busy(false); });
  QMenu* setting = menuBar()->addMenu(QStringLiteral("&Setting"));

  summary_->setObjectName(QStringLiteral("lblSummary"));
  summary_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* table = new QTableView;
  table->setObjectName(QStringLiteral("tblLayers"));
  table->setModel(layers_);
  table->setSelectionBehavior(QAbstractItemView::SelectRows);
  table->setSelectionMode(QAbstractItemView::SingleSelection);
  table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  platform_.add_document_control(table);
  connect(table, &QTableView::clicked, this, [](const QModelIndex& index) {
    ShowSingleLayer(index.row());
    RedrawView();
  });

  auto* side = new QWidget;
  auto* layout = new QVBoxLayout(side);
  layout->addWidget(summary_);
  layout->addWidget(table, 1);
  auto* area = new DrawArea;
  auto* splitter = new QSplitter;
  splitter->addWidget(side);
  splitter->addWidget(area);
  // The drawing area takes whatever room the window gains.
  splitter->setStretchFactor(1, 1);
  splitter->setSizes({320, 680});
  setCentralWidget(splitter);
  resize(1000, 640);

  set_platform(&platform_);
  SetCaption();
  ResetDocument(false);
  SetPictureScreen(area);
  // The view starts from the area's size, so it waits until there is one.
  connect(area, &DrawArea::first_sized, this, [](int width, int height) {
    if (CreateDrawing(width, height)) RedrawView();
  });
  AddSetting(setting, QStringLiteral("Show &Movement"), Qt::Key_F7, draw_settings.show_movement);
  AddSetting(setting, QStringLiteral("Show &Arrow"), Qt::Key_F8, draw_settings.show_arrow);
  ShowDocument();
}

SummaryWindow::~SummaryWindow() {
  SetPictureScreen(nullptr);
  set_platform(previous_platform_);
}

void SummaryWindow::OpenCommandLine(const std::vector<std::string>& arguments) {
  const std::string path = CommandLineFile(arguments);
  show();
  if (path.empty()) return;
  QCoreApplication::processEvents();
  LoadCommand(path);
}

void SummaryWindow::LoadCommand(const std::string& path) {
  BusyPointer busy;
  if (LoadGCode(path)) {
    FillLayerList();
    doc.file_name = path;
    ShowStatus("Load successful " + doc.file_name, 1);
    doc.modified = false;
  } else {
    // A file that could not be opened leaves the previous document loaded.
    if (!IsDocumentLoaded()) doc.file_name.clear();
    ShowStatus("Load failed " + path, 1);
  }
  SetCaption();
  ShowDocument();
  RedrawView();
}

void SummaryWindow::closeEvent(QCloseEvent* event) {
  if (AskSaveChanges())
    event->accept();
  else
    event->ignore();
}

void SummaryWindow::OpenFile() {
  if (!AskSaveChanges()) return;
  const QString path = QFileDialog::getOpenFileName(this, QString(), QString(), file_filter);
  if (!path.isEmpty()) LoadCommand(PathBytes(path));
}

void SummaryWindow::SaveFileFunc(uint8_t code) {
  const std::string name = code == code_save ? doc.file_name : AskNewSaveFileName();
  if (name.empty()) return;
  BusyPointer busy;
  const bool exporting = code == code_export;
  if (!SaveGCode(name, exporting ? save_tagged : save_plain)) {
    ShowStatus((exporting ? "Export failed " : "Save failed ") + name, 1);
  } else if (exporting) {
    // The document stays bound to the file it came from.
    ShowStatus("Export successful " + name, 1);
  } else {
    doc.file_name = name;
    SetCaption();
    ShowStatus("Save successful " + doc.file_name, 1);
    doc.modified = false;
    ShowDocument();
  }
}

std::string SummaryWindow::AskNewSaveFileName() {
  return PathBytes(QFileDialog::getSaveFileName(this, QString(), QString(), file_filter));
}

bool SummaryWindow::AskSaveChanges() {
  if (!doc.modified) return true;
  const MsgAnswer answer = platform().message_box(doc.file_name + " has been modified. Save changes?",
                                                  MsgIcon::exclamation, MsgButtons::yes_no_cancel);
  if (answer == MsgAnswer::no) return true;
  if (answer == MsgAnswer::cancel) return false;
  BusyPointer busy;
  if (!SaveGCode(doc.file_name, save_plain)) return false;
  doc.modified = false;
  return true;
}

void SummaryWindow::SetCaption() {
  const QString base = QString::fromStdString(BaseTitle());
  setWindowTitle(doc.file_name.empty() ? base : PathText(doc.file_name) + QStringLiteral(" - ") + base);
}

void SummaryWindow::ShowDocument() {
  summary_->setText(IsDocumentLoaded() ? SummaryText(SummarizeDocument(doc)) : QStringLiteral("No document loaded."));
  layers_->Reload();
}

void SummaryWindow::AddSetting(QMenu* menu, const QString& text, const QKeySequence& key, bool& setting) {
  QAction* action = menu->addAction(text);
  action->setShortcut(key);
  action->setCheckable(true);
  connect(action, &QAction::toggled, this, [&setting](bool on) {
    setting = on;
    RedrawView();
  });
  action->setChecked(true);
}

}  // namespace korvexed
