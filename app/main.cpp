#include <QApplication>
#include <string>
#include <vector>

#include "app/fm_main.h"
#include "app/program_title.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName(QString::fromUtf8(korvexed::program_title));
  QApplication::setDesktopFileName(QStringLiteral("korvexed"));
  // Qt has taken its own options out of argv; the rest is the command line.
  korvexed::FmMain window(std::vector<std::string>(argv + 1, argv + argc));
  window.Start();
  return QApplication::exec();
}
