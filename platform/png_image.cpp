#include "platform/png_image.h"

#include <png.h>

namespace korvexed {

std::string EncodePng(const Bitmap& bitmap) {
  if (bitmap.width <= 0 || bitmap.height <= 0) return {};
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(bitmap.width);
  image.height = static_cast<png_uint_32>(bitmap.height);
  image.format = PNG_FORMAT_BGR;
  // A negative stride says that the rows run bottom-up, as the bitmap's do.
  std::string bytes(PNG_IMAGE_PNG_SIZE_MAX(image), '\0');
  png_alloc_size_t size = bytes.size();
  if (!png_image_write_to_memory(&image, bytes.data(), &size, 0, bitmap.pixels.data(), -bitmap.stride(), nullptr))
    return {};
  bytes.resize(size);
  return bytes;
}

}  // namespace korvexed
