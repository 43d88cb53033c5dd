#include "tests/file_fixture.h"

#include <fstream>
#include <sstream>

namespace korvexed::testing {

FileTest::FileTest() {
  std::string pattern = (std::filesystem::temp_directory_path() / "korvexed-test-XXXXXX").string();
  dir_ = ::mkdtemp(pattern.data());
  doc.decimal_comma = false;
}

FileTest::~FileTest() { std::filesystem::remove_all(dir_); }

std::string FileTest::write(const std::string& name, const std::string& bytes) const {
  std::ofstream(path(name), std::ios::binary) << bytes;
  return path(name);
}

std::string FileTest::read(const std::string& file) {
  std::ostringstream bytes;
  bytes << std::ifstream(file, std::ios::binary).rdbuf();
  return bytes.str();
}

void FileTest::load_text(const std::string& bytes) {
  ASSERT_TRUE(LoadGCode(write("in.gcode", bytes))) << last_message();
}

std::string FileTest::saved(uint8_t mode) {
  const std::string out = path("out.gcode");
  EXPECT_TRUE(SaveGCode(out, mode)) << last_message();
  return read(out);
}

std::string FileTest::last_message() const { return ui.get().messages.empty() ? "" : ui.get().messages.back().text; }

}  // namespace korvexed::testing
