#include "app/recent_files.h"

#include <QFileInfo>
#include <QSettings>

namespace korvexed {

namespace {

const QString key = QStringLiteral("recent_files");

// The same place whoever starts the window (the program, the tests).
QSettings Settings() { return QSettings(QStringLiteral("Korvex"), QStringLiteral("korvexed")); }

}  // namespace

RecentFiles::RecentFiles() {
  paths_ = Settings().value(key).toStringList();
  if (paths_.size() > most) paths_.resize(most);
}

void RecentFiles::Add(const QString& path) {
  // Absolute: a name given relative to where the program started still
  // finds the file from anywhere later.
  const QString absolute = QFileInfo(path).absoluteFilePath();
  paths_.removeAll(absolute);
  paths_.prepend(absolute);
  if (paths_.size() > most) paths_.resize(most);
  Store();
}

void RecentFiles::Clear() {
  paths_.clear();
  Store();
}

void RecentFiles::Store() const { Settings().setValue(key, paths_); }

}  // namespace korvexed
