#include "platform/png_image.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <algorithm>

namespace korvexed {

std::string EncodePng(const Bitmap& bitmap) {
  QImage image(bitmap.width, bitmap.height, QImage::Format_BGR888);
  if (image.isNull()) return {};
  // The bitmap's rows run bottom-up, the image's top-down.
  for (int32_t y = 0; y < bitmap.height; ++y) {
    const uint8_t* source = bitmap.row(bitmap.height - 1 - y);
    std::copy_n(source, 3 * bitmap.width, image.scanLine(y));
  }
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  if (!image.save(&buffer, "PNG")) return {};
  return bytes.toStdString();
}

}  // namespace korvexed
