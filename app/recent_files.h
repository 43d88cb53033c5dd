#pragma once
// The files loaded or saved last, newest first, kept between runs in the
// program's settings: the one thing the editor remembers.
#include <QString>
#include <QStringList>

namespace korvexed {

class RecentFiles {
 public:
  static constexpr int most = 8;

  // The list as the last run left it.
  RecentFiles();

  const QStringList& paths() const { return paths_; }
  // `path` comes first, and only once.
  void Add(const QString& path);
  void Clear();

 private:
  void Store() const;

  QStringList paths_;
};

}  // namespace korvexed
