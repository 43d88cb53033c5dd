// Renders the scalable program icon to PNGs at build time:
//   korvexed_render_icon ICON.svg OUT_DIR SIZE...
// writes OUT_DIR/SIZExSIZE/apps/korvexed.png for each size.
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

int main(int argc, char** argv) {
  if (argc < 4) {
    std::fprintf(stderr, "usage: %s ICON.svg OUT_DIR SIZE...\n", argv[0]);
    return 2;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");  // runs during the build, with no display
  QGuiApplication app(argc, argv);
  QSvgRenderer icon(QString::fromLocal8Bit(argv[1]));
  if (!icon.isValid()) {
    std::fprintf(stderr, "cannot read %s\n", argv[1]);
    return 1;
  }
  for (int i = 3; i < argc; ++i) {
    const int size = QByteArray(argv[i]).toInt();
    const QString folder = QStringLiteral("%1/%2x%2/apps").arg(QString::fromLocal8Bit(argv[2])).arg(size);
    QImage picture(size, size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    icon.render(&painter);
    painter.end();
    if (size <= 0 || !QDir().mkpath(folder) || !picture.save(folder + QStringLiteral("/korvexed.png"))) {
      std::fprintf(stderr, "cannot write the %s px icon under %s\n", argv[i], argv[2]);
      return 1;
    }
  }
  return 0;
}
