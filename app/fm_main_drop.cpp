// A G-code file dropped on the window opens as File > Open would open it.
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QMimeData>
#include <QTimer>

#include "app/fm_main.h"

namespace korvexed {

namespace {

// The first file of the drop when it is a G-code file; empty otherwise.
QString DroppedGCode(const QMimeData* mime) {
  if (!mime || !mime->hasUrls() || mime->urls().isEmpty() || !mime->urls().first().isLocalFile()) return {};
  const QString path = mime->urls().first().toLocalFile();
  const QString suffix = QFileInfo(path).suffix();
  const bool gcode = suffix.compare(QStringLiteral("gcode"), Qt::CaseInsensitive) == 0 ||
                     suffix.compare(QStringLiteral("g"), Qt::CaseInsensitive) == 0;
  return gcode ? path : QString();
}

}  // namespace

void FmMain::dragEnterEvent(QDragEnterEvent* event) {
  if (!DroppedGCode(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void FmMain::dragMoveEvent(QDragMoveEvent* event) {
  if (!DroppedGCode(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void FmMain::dropEvent(QDropEvent* event) {
  const QString path = DroppedGCode(event->mimeData());
  if (path.isEmpty()) return;
  event->acceptProposedAction();
  // Once the drop is over: the file manager is not kept waiting while the
  // save question is open and the file loads.
  const std::string name = QFile::encodeName(path).toStdString();
  QTimer::singleShot(0, this, [this, name] { OpenAfterAsking(name); });
}

}  // namespace korvexed
