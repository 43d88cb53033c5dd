// What a person waits for in the window, each in a fresh process:
//   korvexed_bench_window startup FILE  process start to the shown window with FILE loaded
//   korvexed_bench_window window FILE   the window's Open of FILE, to the filled layer list
//   korvexed_bench_window load FILE     the loader alone on FILE, for comparison
// Prints one line "<what> <seconds>".
#include <QApplication>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <string>

#include <unistd.h>

#include "app/fm_main.h"
#include "document/document.h"
#include "document/korvexed_file.h"
#include "platform/headless_platform.h"

namespace {

double Now() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// Seconds since this process started, from the kernel's record of its start.
double SinceProcessStart() {
  std::ifstream stat("/proc/self/stat");
  std::string field;
  // The command name may hold blanks; the fields after it are plain.
  std::getline(stat, field, ')');
  for (int i = 0; i < 20 && stat >> field;) ++i;
  const double started = std::stod(field) / static_cast<double>(::sysconf(_SC_CLK_TCK));
  timespec boot{};
  ::clock_gettime(CLOCK_BOOTTIME, &boot);
  return static_cast<double>(boot.tv_sec) + static_cast<double>(boot.tv_nsec) * 1e-9 - started;
}

int Usage() {
  std::fprintf(stderr, "usage: korvexed_bench_window startup|window|load FILE\n");
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return Usage();
  const std::string what = argv[1], file = argv[2];
  if (what == "load") {
    const korvexed::ScopedHeadlessPlatform headless;
    // The empty document the window starts with, made before the clock
    // starts, as it is before the window's Open.
    korvexed::ResetDocument(false);
    const double start = Now();
    if (!korvexed::LoadGCode(file)) return 1;
    std::printf("load %.3f\n", Now() - start);
    return 0;
  }
  if (what != "startup" && what != "window") return Usage();

  int qt_argc = 1;
  QApplication app(qt_argc, argv);
  if (what == "startup") {
    korvexed::FmMain window({file});
    window.Start();
    QApplication::processEvents();
    std::printf("startup %.3f\n", SinceProcessStart());
    return korvexed::IsDocumentLoaded() ? 0 : 1;
  }
  korvexed::FmMain window({});
  window.Start();
  QApplication::processEvents();
  const double start = Now();
  window.LoadCommand(file);
  QApplication::processEvents();
  std::printf("window %.3f\n", Now() - start);
  return korvexed::IsDocumentLoaded() ? 0 : 1;
}
