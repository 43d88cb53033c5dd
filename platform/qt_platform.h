#pragma once
// The platform of the editor window: Qt message boxes, the window's status
// panels, the controls that follow the document state, the busy pointer.
#include <QFileDialog>
#include <QString>
#include <array>
#include <vector>

#include "platform/platform.h"

class QAction;
class QLabel;
class QMenu;
class QMainWindow;
class QAbstractSlider;
class QWidget;

namespace korvexed {

class ListBox;

class QtPlatform : public Platform {
 public:
  // Adds three status panels to the window's status bar; message boxes are
  // titled `title` and centred on the window.
  QtPlatform(QMainWindow& window, const QString& title);

  // The controls enabled only while a document is loaded. `save` is the
  // "&Save" action, from which the loaded state is read back.
  void add_document_control(QAction* action);
  void add_document_control(QWidget* widget);
  void set_save_action(QAction* save);
  void set_export_action(QAction* tagged_export);

  QString status_text(int panel) const;

  MsgAnswer message_box(std::string_view text, MsgIcon icon, MsgButtons buttons) override;
  void show_status(std::string_view text, int panel) override;
  void set_document_controls(bool enabled) override;
  bool document_controls_enabled() const override;
  void set_export_enabled(bool enabled) override;
  std::string ask_open_file_name() override;
  std::string ask_save_file_name(const std::string& suggested) override;
  void beep() override;
  void set_clipboard_text(const std::string& text) override;
  std::string clipboard_text() const override;
  Modifiers key_state() const override;
  void set_busy(bool busy) override;
  bool locale_decimal_comma() const override;
  void list_row_inserted(ListId list, int row) override;
  void list_rows_removed(ListId list, std::span<const int32_t> rows) override;
  void list_reset(ListId list) override;
  void list_refilled(ListId list) override;
  void set_list_button_enabled(ListId list, bool enabled) override;
  void set_slider_range(SliderId slider, int maximum, bool enabled) override;
  void set_slider_value(SliderId slider, int value) override;
  void set_menu_item_enabled(PopupMenu menu, int index, bool enabled) override;
  bool menu_item_enabled(PopupMenu menu, int index) const override;
  void popup_menu(PopupMenu menu) override;
  bool ask_values(ValueForm& form) override;
  bool ask_record(RecordForm& form) override;

  // The list control that shows `list`, and the button above it.
  void set_list(ListId list, ListBox* box, QWidget* button);
  void set_slider(SliderId slider, QAbstractSlider* bar);
  // A pop-up menu of the drawing area and its items by index.
  void set_popup_menu(PopupMenu menu, QMenu* parent, std::vector<QAction*> items);
  // The Undo and Redo items and their toolbar buttons.
  void set_history_controls(std::array<QAction*, 2> items, std::array<QWidget*, 2> buttons);
  void show_history(std::string_view undo_step, std::string_view redo_step) override;

 private:
  // `start`: a folder, or a file whose folder and name the chooser starts from.
  std::string AskFileName(QFileDialog::AcceptMode mode, const QString& start);

  QMainWindow& window_;
  QString title_;
  // The Open chooser opens where the last file was opened.
  QString last_folder_;
  std::array<QLabel*, 3> panels_{};
  std::vector<QAction*> actions_;
  std::vector<QWidget*> widgets_;
  QAction* save_ = nullptr;
  QAction* export_ = nullptr;
  std::array<QAction*, 2> history_items_{};
  std::array<QWidget*, 2> history_buttons_{};
  std::array<ListBox*, 3> lists_{};
  std::array<QWidget*, 3> list_buttons_{};
  std::array<QAbstractSlider*, 2> sliders_{};
  std::array<QMenu*, 2> menus_{};
  std::array<std::vector<QAction*>, 2> menu_items_;
};

}  // namespace korvexed
