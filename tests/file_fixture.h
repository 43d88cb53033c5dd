#pragma once
// A scratch folder and a headless platform for tests that load and save.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

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
  // One field of records first to last of a layer, to compare a run of them at once.
  template <typename T>
  static std::vector<T> column(T coor_data::*field, int32_t layer, int32_t first, int32_t last) {
    std::vector<T> values;
    for (int32_t r = first; r <= last; ++r) values.push_back(doc.coor(layer, r).*field);
    return values;
  }

  ScopedHeadlessPlatform ui;

 private:
  std::filesystem::path dir_;
};

}  // namespace korvexed::testing
