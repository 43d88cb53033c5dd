#include "platform/platform.h"

#include "platform/headless_platform.h"

namespace korvexed {

namespace {
Platform* installed = nullptr;
}

Platform& platform() {
  static HeadlessPlatform fallback;
  return installed ? *installed : fallback;
}

void set_platform(Platform* p) { installed = p; }

}  // namespace korvexed
