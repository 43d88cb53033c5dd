#include "cli_runner.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

extern char** environ;

void CliTest::SetUp() {
  std::string pattern = (std::filesystem::temp_directory_path() / "korvexed-cli-XXXXXX").string();
  ASSERT_NE(mkdtemp(pattern.data()), nullptr);
  dir_ = pattern;
}

void CliTest::TearDown() { std::filesystem::remove_all(dir_); }

std::string CliTest::Path(std::string_view name) const { return dir_ + "/" + std::string(name); }

std::string CliTest::Write(std::string_view name, std::string_view content) const {
  const std::string path = Path(name);
  std::ofstream(path, std::ios::binary) << content;
  return path;
}

std::string CliTest::Read(std::string_view name) const {
  std::ifstream in(Path(name), std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

bool CliTest::Exists(std::string_view name) const { return std::filesystem::exists(Path(name)); }

CliResult CliTest::Run(const std::vector<std::string>& args, std::string_view input) const {
  const std::string in = Write(".stdin", input), out = Path(".stdout"), err = Path(".stderr");
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addchdir_np(&actions, dir_.c_str());
  posix_spawn_file_actions_addopen(&actions, 0, in.c_str(), O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, 1, out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
  posix_spawn_file_actions_addopen(&actions, 2, err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
  std::vector<char*> argv{const_cast<char*>(KORVEXED_CLI)};
  for (const std::string& arg : args) argv.push_back(const_cast<char*>(arg.c_str()));
  argv.push_back(nullptr);

  CliResult result;
  pid_t pid = 0;
  const int spawned = posix_spawn(&pid, KORVEXED_CLI, &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  EXPECT_EQ(spawned, 0) << "cannot start " << KORVEXED_CLI;
  int wait_status = 0;
  if (spawned == 0 && waitpid(pid, &wait_status, 0) == pid && WIFEXITED(wait_status)) {
    result.status = WEXITSTATUS(wait_status);
  }
  result.out = Read(".stdout");
  result.err = Read(".stderr");
  return result;
}

CliResult CliTest::Edit(std::string_view gcode, std::string_view script) const {
  Write("in.gcode", gcode);
  Write("script.txt", script);
  return Run({"edit", "in.gcode", "script.txt"});
}

void PrintTo(const CliResult& result, std::ostream* os) {
  *os << "status " << result.status << ", out \"" << result.out << "\", err \"" << result.err << '"';
}

std::vector<std::string> CrLfLines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const size_t end = text.find("\r\n");
    EXPECT_NE(end, std::string_view::npos) << "no CR LF after: " << text;
    if (end == std::string_view::npos) break;
    lines.emplace_back(text.substr(0, end));
    EXPECT_EQ(lines.back().find_first_of("\r\n"), std::string::npos) << "stray line end in: " << lines.back();
    text.remove_prefix(end + 2);
  }
  return lines;
}
