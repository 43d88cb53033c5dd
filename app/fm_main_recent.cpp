// File > Open Recent: the files loaded or saved last, by name, with their
// folder in the tool tip; one that is gone is shown greyed.
#include <QFile>
#include <QFileInfo>
#include <QMenu>

#include "app/fm_main.h"
#include "document/document.h"

namespace korvexed {

void FmMain::BuildRecentMenu(QMenu* mnFile, QAction* before) {
  mnRecent_ = new QMenu(QStringLiteral("Open Rec&ent"), mnFile);
  mnRecent_->setObjectName(QStringLiteral("mnRecent"));
  mnRecent_->setToolTipsVisible(true);
  mnFile->insertMenu(before, mnRecent_);
  // Filled as it opens, so that it shows which files are still there.
  connect(mnRecent_, &QMenu::aboutToShow, this, &FmMain::FillRecentMenu);
}

void FmMain::FillRecentMenu() {
  mnRecent_->clear();
  const QStringList& paths = recent_.paths();
  for (int k = 0; k < paths.size(); ++k) {
    const QFileInfo file(paths[k]);
    QAction* item = mnRecent_->addAction(file.fileName().replace(QLatin1Char('&'), QStringLiteral("&&")));
    item->setObjectName(QStringLiteral("poRecent_%1").arg(k));
    item->setToolTip(file.absolutePath());
    item->setEnabled(file.exists());
    const std::string path = QFile::encodeName(paths[k]).toStdString();
    connect(item, &QAction::triggered, this, [this, path] { OpenAfterAsking(path); });
  }
  mnRecent_->addSeparator();
  QAction* clear = mnRecent_->addAction(QStringLiteral("Clear List"));
  clear->setObjectName(QStringLiteral("poRecent_clear"));
  clear->setEnabled(!paths.empty());
  connect(clear, &QAction::triggered, this, [this] { recent_.Clear(); });
}

void FmMain::RememberFile() { recent_.Add(QFile::decodeName(QByteArray::fromStdString(doc.file_name))); }

void FmMain::OpenAfterAsking(const std::string& path) {
  if (AskSaveChanges()) LoadCommand(path);
}

}  // namespace korvexed
