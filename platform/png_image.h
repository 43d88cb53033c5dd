#pragma once
// A drawing bitmap as a PNG file's bytes.
#include <string>

#include "view/bitmap.h"

namespace korvexed {

// Empty when the picture cannot be encoded.
std::string EncodePng(const Bitmap& bitmap);

}  // namespace korvexed
