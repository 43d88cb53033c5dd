#pragma once
// What the document and editing logic needs of the window system. The
// editor implements it with Qt; the CLI and the tests use HeadlessPlatform.
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/forms.h"

namespace korvexed {

enum class MsgIcon { critical, question, exclamation, information };
enum class MsgButtons { ok, yes_no, yes_no_cancel };
enum class MsgAnswer { ok, yes, no, cancel };

struct Modifiers {
  bool shift = false, ctrl = false, alt = false;
  bool any() const { return shift || ctrl || alt; }
};

// The three list boxes of the main window; they show the logic's list state.
enum class ListId { layer, data, select };
// The layer and data sliders below the drawing.
enum class SliderId { layer, data };

// The drawing area's two pop-up menus: on a marked vertex, and elsewhere.
enum class PopupMenu { select_edit, unselect_edit };

class Platform {
 public:
  virtual ~Platform() = default;

  virtual MsgAnswer message_box(std::string_view text, MsgIcon icon, MsgButtons buttons) = 0;
  virtual void show_status(std::string_view text, int panel) = 0;

  // Every control that needs a document ("&Save" among them).
  virtual void set_document_controls(bool enabled) = 0;
  virtual bool document_controls_enabled() const = 0;
  // The tagged export entry, offered only for files without tags.
  virtual void set_export_enabled(bool enabled) = 0;

  // The G-code file choosers: Open takes only an existing file, Save asks
  // before replacing one and starts from `suggested` (its folder and name).
  // "" when the user cancels.
  virtual std::string ask_open_file_name() = 0;
  virtual std::string ask_save_file_name(const std::string& suggested) = 0;
  virtual void beep() = 0;
  // The system clipboard, as plain text.
  virtual void set_clipboard_text(const std::string& text) = 0;
  virtual std::string clipboard_text() const = 0;

  virtual Modifiers key_state() const = 0;
  virtual void set_busy(bool busy) = 0;
  // True when the user's locale writes 1.1 with a decimal comma.
  virtual bool locale_decimal_comma() const = 0;

  // The list state changed: one row inserted at `row`, the rows `rows`
  // (ascending, numbered as before) removed, or anything at all (contents,
  // selection) for a reset.
  virtual void list_row_inserted(ListId list, int row) = 0;
  virtual void list_rows_removed(ListId list, std::span<const int32_t> rows) = 0;
  virtual void list_reset(ListId list) = 0;
  // The list holds new lines: it shows them from its first line.
  virtual void list_refilled(ListId list) = 0;
  // The button above a list that opens its view menu.
  virtual void set_list_button_enabled(ListId list, bool enabled) = 0;
  // A slider's range 0..maximum and whether it can be moved. Setting its
  // value does not raise its change: only the user's moves do.
  virtual void set_slider_range(SliderId slider, int maximum, bool enabled) = 0;
  virtual void set_slider_value(SliderId slider, int value) = 0;

  virtual void set_menu_item_enabled(PopupMenu menu, int index, bool enabled) = 0;
  virtual bool menu_item_enabled(PopupMenu menu, int index) const = 0;
  // Shows the menu at the pointer; returns when it closed, after the chosen
  // command (if any) ran.
  virtual void popup_menu(PopupMenu menu) = 0;

  // The editing dialogs, modal: true on OK, with the typed texts in `form`.
  virtual bool ask_values(ValueForm& form) = 0;
  virtual bool ask_record(RecordForm& form) = 0;

  // The steps that Undo and Redo would take ("" for none). Only the window
  // shows them.
  virtual void show_history(std::string_view /*undo_step*/, std::string_view /*redo_step*/) {}
};

// The platform in use. Until one is installed, a headless one answers.
Platform& platform();
void set_platform(Platform* p);

// Hourglass pointer for the lifetime of the guard.
class BusyPointer {
 public:
  BusyPointer() { platform().set_busy(true); }
  ~BusyPointer() { platform().set_busy(false); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;
};

}  // namespace korvexed
