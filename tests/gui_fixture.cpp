#include "tests/gui_fixture.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCursor>
#include <fstream>

#include <unistd.h>

#include "document/document.h"

namespace korvexed::testing {

namespace fs = std::filesystem;

MessageBoxWatcher::MessageBoxWatcher() {
  QObject::connect(&timer_, &QTimer::timeout, [this] { Answer(); });
  timer_.start(5);
}

void MessageBoxWatcher::Answer() {
  auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  if (!box) return;
  const QCursor* pointer = QApplication::overrideCursor();
  seen.push_back({box->windowTitle(), box->text(), box->icon(), box->standardButtons(),
                  pointer ? pointer->shape() : Qt::ArrowCursor});
  QMessageBox::StandardButton answer = QMessageBox::Ok;
  if (!answers.empty()) {
    answer = answers.front();
    answers.pop_front();
  }
  if (QAbstractButton* button = box->button(answer))
    button->click();
  else
    box->reject();
}

void SummaryWindowTest::SetUp() {
  dir_ = fs::temp_directory_path() / ("korvexed_gui_" + std::to_string(::getpid()));
  fs::create_directories(dir_);
  doc.file_name.clear();
  doc.modified = false;
  window_ = std::make_unique<SummaryWindow>();
}

void SummaryWindowTest::TearDown() {
  window_.reset();
  fs::remove_all(dir_);
}

std::string SummaryWindowTest::Write(const std::string& name, const std::string& content) {
  const fs::path path = dir_ / name;
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << content;
  return path.string();
}

QAction* SummaryWindowTest::Action(const QString& text) const {
  for (QAction* action : window_->findChildren<QAction*>())
    if (action->text() == text) return action;
  ADD_FAILURE() << "no action " << text.toStdString();
  return nullptr;
}

}  // namespace korvexed::testing
