#pragma once
// The editor window under test without a display: a scratch folder, the
// window itself, and watchers that answer its message boxes and file
// choosers.
#include <gtest/gtest.h>

#include <QAction>
#include <QFileDialog>
#include <QMessageBox>
#include <QString>
#include <QTimer>
#include <deque>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "app/fm_main.h"
#include "view/bitmap.h"

// Readable QString values in failure messages.
inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }

namespace korvexed::testing {

// The bytes of a file.
inline std::string Read(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

// Answers every modal message box and file chooser that opens, records
// it, and clicks the queued answer (or the box's only button; a chooser
// with no queued path is cancelled).
class DialogWatcher {
 public:
  struct Seen {
    QString text;
    QMessageBox::Icon icon;
    QMessageBox::StandardButtons buttons;
    bool lines_whole;  // the box is wide enough for each line of its text
  };
  struct Chooser {
    QFileDialog::AcceptMode mode;
    QFileDialog::FileMode file_mode;
    QStringList filters;
    QString start;  // the file (or folder) chosen when it opened
  };

  DialogWatcher();

  std::vector<Seen> seen;
  std::deque<QMessageBox::StandardButton> answers;
  std::vector<Chooser> choosers;
  std::deque<QString> paths;

 private:
  void Answer();

  QTimer timer_;
};

// How many pixels of the drawing area's picture have this colour.
int CountPixels(Rgb colour);

class FmMainTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // A fresh window started from this command line.
  void StartWith(const std::vector<std::string>& arguments);
  std::string Write(const std::string& name, const std::string& content);
  // The window's control or menu item with this object name.
  template <typename T>
  T* Control(const QString& name) const {
    T* control = window_->findChild<T*>(name);
    if (!control) ADD_FAILURE() << "no control " << name.toStdString();
    return control;
  }
  QAction* Item(const QString& name) const { return Control<QAction>(name); }
  QString Status(int panel = 1) const;
  static QString Q(const std::string& s) { return QString::fromStdString(s); }

  std::filesystem::path dir_;
  DialogWatcher dialogs_;
  std::unique_ptr<FmMain> window_;
};

}  // namespace korvexed::testing
