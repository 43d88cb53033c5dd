#pragma once
// A scratch folder and a headless platform for tests that load and save.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "document/korvexed_file.h"
#include "platform/headless_platform.h"

namespace korvexed::testing {

class FileTest : public ::testing::Test {
 protected:
  FileTest();
  ~FileTest() override;

  std::string path(const std::string& name) const { return (dir_ / name).string(); }
  std::string write(const std::string& name, const std::string& bytes) const;
  static std::string read(const std::string& file);
  // Loads G-code given as bytes; fails the test when the load fails.
  void load_text(const std::string& bytes);
  // The bytes SaveGCode writes for the document.
  std::string saved(uint8_t mode = save_plain);
  std::string last_message() const;

  ScopedHeadlessPlatform ui;

 private:
  std::filesystem::path dir_;
};

}  // namespace korvexed::testing
