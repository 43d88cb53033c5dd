// The GUI tests' entry: a QApplication around the whole run.
#include <gtest/gtest.h>

#include <QApplication>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

namespace {

// The application exists only while tests run, so listing them needs no display.
// Its settings, and Qt's own (the file dialogs' last folder), go to a
// folder of the run's own, never to the user's.
class QtApplicationEnvironment : public ::testing::Environment {
 public:
  void SetUp() override {
    std::string config = (std::filesystem::temp_directory_path() / "korvexed_gui_config_XXXXXX").string();
    if (::mkdtemp(config.data())) {
      config_ = config;
      ::setenv("XDG_CONFIG_HOME", config_.c_str(), 1);
    }
    app_ = std::make_unique<QApplication>(argc_, argv_);
  }
  void TearDown() override {
    app_.reset();
    if (!config_.empty()) std::filesystem::remove_all(config_);
  }

 private:
  std::string config_;
  int argc_ = 1;
  char name_[19] = "korvexed_gui_tests";
  char* argv_[2] = {name_, nullptr};
  std::unique_ptr<QApplication> app_;
};

}  // namespace

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  ::testing::AddGlobalTestEnvironment(new QtApplicationEnvironment);
  return RUN_ALL_TESTS();
}
