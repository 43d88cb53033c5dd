#include "platform/headless_platform.h"

#include <algorithm>

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

void HeadlessPlatform::set_slider_range(SliderId slider, int maximum, bool enabled) {
  Slider& s = sliders[static_cast<size_t>(slider)];
  s.maximum = maximum;
  s.value = std::min(s.value, maximum);
  s.enabled = enabled;
}

void HeadlessPlatform::set_menu_item_enabled(PopupMenu menu, int index, bool enabled) {
  menu_enabled.at(static_cast<size_t>(menu)).at(static_cast<size_t>(index)) = enabled;
}

bool HeadlessPlatform::menu_item_enabled(PopupMenu menu, int index) const {
  return menu_enabled.at(static_cast<size_t>(menu)).at(static_cast<size_t>(index));
}

namespace {

// Takes the front of `queue`, or nothing when it is empty.
template <typename T>
T take_front(std::deque<T>& queue) {
  if (queue.empty()) return {};
  T front = std::move(queue.front());
  queue.pop_front();
  return front;
}

}  // namespace

void HeadlessPlatform::popup_menu(PopupMenu menu) {
  menus_shown.push_back(menu);
  if (const auto choice = take_front(menu_choices)) choice();
}

bool HeadlessPlatform::ask_values(ValueForm& form) {
  value_forms.push_back(form);  // as shown
  const auto answer = take_front(value_answers);
  return answer && answer(form);
}

bool HeadlessPlatform::ask_record(RecordForm& form) {
  record_forms.push_back(form);  // as shown
  const auto answer = take_front(record_answers);
  return answer && answer(form);
}

ScopedHeadlessPlatform::ScopedHeadlessPlatform() : previous_(&platform()) { set_platform(&platform_); }
ScopedHeadlessPlatform::~ScopedHeadlessPlatform() { set_platform(previous_); }

}  // namespace korvexed
