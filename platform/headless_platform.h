#pragma once
#include <array>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/platform.h"

namespace korvexed {

// The platform without a window: messages are recorded, questions take the
// answers queued by the caller (or a default), key state and locale are set
// by the caller.
class HeadlessPlatform : public Platform {
 public:
  struct Message {
    std::string text;
    MsgIcon icon;
    MsgButtons buttons;
  };

  MsgAnswer message_box(std::string_view text, MsgIcon icon, MsgButtons buttons) override;
  void show_status(std::string_view text, int panel) override;
  void set_document_controls(bool enabled) override { controls_enabled = enabled; }
  bool document_controls_enabled() const override { return controls_enabled; }
  void set_export_enabled(bool enabled) override { export_enabled = enabled; }
  std::string ask_open_file_name() override { return next_file_name(); }
  std::string ask_save_file_name(const std::string&) override { return next_file_name(); }
  void beep() override { ++beeps; }
  void set_clipboard_text(const std::string& text) override { clipboard = text; }
  std::string clipboard_text() const override { return clipboard; }
  Modifiers key_state() const override { return modifiers; }
  void set_busy(bool busy) override { busy_depth += busy ? 1 : -1; }
  bool locale_decimal_comma() const override { return decimal_comma; }
  void list_row_inserted(ListId, int) override {}
  void list_rows_removed(ListId, std::span<const int32_t>) override {}
  void list_reset(ListId) override {}
  void list_refilled(ListId) override {}
  void set_list_button_enabled(ListId list, bool enabled) override { list_buttons[static_cast<size_t>(list)] = enabled; }
  void set_slider_range(SliderId slider, int maximum, bool enabled) override;
  void set_slider_value(SliderId slider, int value) override { sliders[static_cast<size_t>(slider)].value = value; }
  void set_menu_item_enabled(PopupMenu menu, int index, bool enabled) override;
  bool menu_item_enabled(PopupMenu menu, int index) const override;
  void popup_menu(PopupMenu menu) override;
  bool ask_values(ValueForm& form) override;
  bool ask_record(RecordForm& form) override;

  std::string next_file_name() {
    if (file_names.empty()) return {};
    std::string name = std::move(file_names.front());
    file_names.pop_front();
    return name;
  }

  // Called for every message box after it is recorded; the CLI prints it.
  virtual void on_message(const Message&) {}

  std::vector<Message> messages;
  std::deque<MsgAnswer> answers;               // taken front first by questions
  MsgAnswer default_answer = MsgAnswer::no;    // when no answer is queued
  std::deque<std::string> file_names;          // answers of the file choosers; "" (cancel) when none
  int beeps = 0;
  std::string clipboard;
  std::array<std::string, 4> status;           // panels 1 to 3
  bool controls_enabled = false;
  bool export_enabled = false;
  Modifiers modifiers;
  int busy_depth = 0;
  bool decimal_comma = false;
  // cmdLayer, cmdData, cmdSelect; scrLayer, scrData.
  std::array<bool, 3> list_buttons{};
  struct Slider {
    int value = 0, maximum = 0;
    bool enabled = false;
  };
  std::array<Slider, 2> sliders{};

  // Pop-up menus: item enabled states (all enabled until set), the menus
  // shown, and what the user does in each next one (nothing when none).
  std::array<std::array<bool, 8>, 2> menu_enabled = [] {
    std::array<std::array<bool, 8>, 2> all{};
    for (auto& menu : all) menu.fill(true);
    return all;
  }();
  std::vector<PopupMenu> menus_shown;
  std::deque<std::function<void()>> menu_choices;
  // Dialogs: the forms as shown, and the user's answers, front first; an
  // answer types into the form and returns OK. No answer left: Cancel.
  std::vector<ValueForm> value_forms;
  std::vector<RecordForm> record_forms;
  std::deque<std::function<bool(ValueForm&)>> value_answers;
  std::deque<std::function<bool(RecordForm&)>> record_answers;
};

// Installs a fresh HeadlessPlatform for the lifetime of the object (tests).
class ScopedHeadlessPlatform {
 public:
  ScopedHeadlessPlatform();
  ~ScopedHeadlessPlatform();
  HeadlessPlatform* operator->() { return &platform_; }
  HeadlessPlatform& get() { return platform_; }
  const HeadlessPlatform& get() const { return platform_; }

 private:
  HeadlessPlatform platform_;
  Platform* previous_;
};

}  // namespace korvexed
