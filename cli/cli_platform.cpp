#include "cli/cli_platform.h"

#include <cstdio>
#include <string>

namespace korvexed::cli {

void CliPlatform::on_message(const Message& message) {
  // A box's line breaks would split the one line that scripts read.
  std::string line = "message: ";
  std::string_view text = message.text;
  for (size_t brk; (brk = text.find("\r\n")) != std::string_view::npos; text.remove_prefix(brk + 2)) {
    line.append(text.substr(0, brk)).push_back(' ');
  }
  line.append(text).push_back('\n');
  std::fwrite(line.data(), 1, line.size(), stderr);
}

InstalledPlatform::InstalledPlatform(Platform& p) : previous_(&platform()) { set_platform(&p); }
InstalledPlatform::~InstalledPlatform() { set_platform(previous_); }

}  // namespace korvexed::cli
