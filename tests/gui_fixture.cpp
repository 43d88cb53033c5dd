#include "tests/gui_fixture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QSettings>
#include <QTest>
#include <algorithm>
#include <fstream>

#include <unistd.h>

#include "document/document.h"
#include "view/korvexed_graphic.h"

namespace korvexed::testing {

namespace fs = std::filesystem;

DialogWatcher::DialogWatcher() {
  QObject::connect(&timer_, &QTimer::timeout, [this] { Answer(); });
  timer_.start(5);
}

void DialogWatcher::Answer() {
  QWidget* modal = QApplication::activeModalWidget();
  if (auto* chooser = qobject_cast<QFileDialog*>(modal)) {
    choosers.push_back({chooser->acceptMode(), chooser->fileMode(), chooser->nameFilters(),
                        chooser->selectedFiles().value(0)});
    if (paths.empty()) return chooser->reject();
    chooser->selectFile(paths.front());
    paths.pop_front();
    return static_cast<QDialog*>(chooser)->accept();  // public on QDialog, protected on QFileDialog
  }
  auto* box = qobject_cast<QMessageBox*>(modal);
  if (!box) return;
  const auto* label = box->findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
  int widest = 0;
  for (const QString& line : box->text().split(QLatin1Char('\n')))
    widest = std::max(widest, label->fontMetrics().horizontalAdvance(line));
  seen.push_back({box->text(), box->icon(), box->standardButtons(), label->width() >= widest});
  const QMessageBox::StandardButton answer = answers.empty() ? QMessageBox::Ok : answers.front();
  if (!answers.empty()) answers.pop_front();
  if (QAbstractButton* button = box->button(answer))
    button->click();
  else
    box->reject();
}

int CountPixels(Rgb colour) {
  int count = 0;
  for (int32_t y = 0; y < drawing.picture.height; ++y)
    for (int32_t x = 0; x < drawing.picture.width; ++x) count += PixelAt(drawing.picture, x, y) == colour;
  return count;
}

void FmMainTest::SetUp() {
  dir_ = fs::temp_directory_path() / ("korvexed_gui_" + std::to_string(::getpid()));
  fs::create_directories(dir_);
  // Each test's settings in a folder of their own: every window starts
  // with no recent files.
  static int test_number = 0;
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                     QString::fromStdString((dir_ / ("settings_" + std::to_string(++test_number))).string()));
  StartWith({});
}

void FmMainTest::StartWith(const std::vector<std::string>& arguments) {
  window_.reset();
  doc.file_name.clear();
  doc.modified = false;
  window_ = std::make_unique<FmMain>(arguments);
  window_->Start();
  // Shortcuts reach only the active window.
  window_->activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
}

void FmMainTest::TearDown() {
  // Nothing asks before the window goes.
  doc.modified = false;
  window_.reset();
  fs::remove_all(dir_);
}

std::string FmMainTest::Write(const std::string& name, const std::string& content) {
  const fs::path path = dir_ / name;
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << content;
  return path.string();
}

QString FmMainTest::Status(int panel) const { return dynamic_cast<QtPlatform&>(platform()).status_text(panel); }

}  // namespace korvexed::testing
