#include "platform/headless_platform.h"

namespace korvexed {

MsgAnswer HeadlessPlatform::message_box(std::string_view text, MsgIcon icon, MsgButtons buttons) {
  messages.push_back({std::string(text), icon, buttons});
  on_message(messages.back());
  if (buttons == MsgButtons::ok) return MsgAnswer::ok;
  if (answers.empty()) return default_answer;
  const MsgAnswer answer = answers.front();
  answers.pop_front();
  return answer;
}

void HeadlessPlatform::show_status(std::string_view text, int panel) {
  if (panel >= 1 && panel < static_cast<int>(status.size())) status[static_cast<size_t>(panel)] = text;
}

ScopedHeadlessPlatform::ScopedHeadlessPlatform() : previous_(&platform()) { set_platform(&platform_); }
ScopedHeadlessPlatform::~ScopedHeadlessPlatform() { set_platform(previous_); }

}  // namespace korvexed
