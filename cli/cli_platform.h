#pragma once
#include "platform/headless_platform.h"

namespace korvexed::cli {

// The headless platform that writes every message box to standard error
// as one line, "message: " and its text. Questions take default_answer.
class CliPlatform : public HeadlessPlatform {
 public:
  void on_message(const Message& message) override;
};

// Installs a platform for the lifetime of the object.
class InstalledPlatform {
 public:
  explicit InstalledPlatform(Platform& p);
  ~InstalledPlatform();
  InstalledPlatform(const InstalledPlatform&) = delete;
  InstalledPlatform& operator=(const InstalledPlatform&) = delete;

 private:
  Platform* previous_;
};

}  // namespace korvexed::cli
