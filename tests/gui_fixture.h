#pragma once
// The editor window under test without a display: a scratch folder, the
// window itself, and a watcher that answers its message boxes.
#include <gtest/gtest.h>

#include <QMessageBox>
#include <QString>
#include <QTimer>
#include <deque>
#include <filesystem>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "app/summary_window.h"

// Readable QString values in failure messages.
inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }

class QAction;

namespace korvexed::testing {

// Answers every message box that opens, records it, and clicks the queued
// answer (or the box's only button).
class MessageBoxWatcher {
 public:
  struct Seen {
    QString title, text;
    QMessageBox::Icon icon;
    QMessageBox::StandardButtons buttons;
    Qt::CursorShape pointer;
  };

  MessageBoxWatcher();

  std::vector<Seen> seen;
  std::deque<QMessageBox::StandardButton> answers;

 private:
  void Answer();

  QTimer timer_;
};

class SummaryWindowTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  std::string Write(const std::string& name, const std::string& content);
  // The window's menu entry or action captioned `text`.
  QAction* Action(const QString& text) const;
  static QString Q(const std::string& s) { return QString::fromStdString(s); }

  std::filesystem::path dir_;
  MessageBoxWatcher boxes_;
  std::unique_ptr<SummaryWindow> window_;
};

}  // namespace korvexed::testing
