#include <QApplication>
#include <string>
#include <vector>

#include "app/program_title.h"
#include "app/summary_window.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName(QString::fromUtf8(korvexed::program_title));
  // Qt has taken its own options out of argv; the rest names the file.
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  korvexed::SummaryWindow window;
  window.OpenCommandLine(arguments);
  return QApplication::exec();
}
