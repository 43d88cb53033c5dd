#include "app/icons/program_icon.h"

#include <QDirIterator>

namespace korvexed {

QIcon ProgramIcon() {
  QIcon icon;
  // One PNG per size, as the build rendered them.
  QDirIterator pictures(QStringLiteral(":/icons"), {QStringLiteral("*.png")}, QDir::Files,
                        QDirIterator::Subdirectories);
  while (pictures.hasNext()) icon.addFile(pictures.next());
  return icon;
}

}  // namespace korvexed
