// The GUI tests' entry: a QApplication around the whole run.
#include <gtest/gtest.h>

#include <QApplication>
#include <memory>

namespace {

// The application exists only while tests run, so listing them needs no display.
class QtApplicationEnvironment : public ::testing::Environment {
 public:
  void SetUp() override { app_ = std::make_unique<QApplication>(argc_, argv_); }
  void TearDown() override { app_.reset(); }

 private:
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
