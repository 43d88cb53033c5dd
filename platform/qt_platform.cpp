#include "platform/qt_platform.h"

#include <QAbstractSlider>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLocale>
#include <QCursor>
#include <QMainWindow>
#include <QMenu>
#include <QMessageBox>
#include <QScreen>
#include <QSignalBlocker>
#include <QStatusBar>
#include <algorithm>

#include "controls/list_box.h"
#include "editing/fm_text_input.h"
#include "editing/fm_value_input.h"

namespace korvexed {

namespace {

QString ToQString(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

QMessageBox::Icon ToQtIcon(MsgIcon icon) {
  switch (icon) {
    case MsgIcon::critical: return QMessageBox::Critical;
    case MsgIcon::question: return QMessageBox::Question;
    case MsgIcon::exclamation: return QMessageBox::Warning;
    case MsgIcon::information: return QMessageBox::Information;
  }
  return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons ToQtButtons(MsgButtons buttons) {
  switch (buttons) {
    case MsgButtons::ok: return QMessageBox::Ok;
    case MsgButtons::yes_no: return QMessageBox::Yes | QMessageBox::No;
    case MsgButtons::yes_no_cancel: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
  }
  return QMessageBox::Ok;
}

MsgAnswer FromQtButton(int button) {
  switch (button) {
    case QMessageBox::Yes: return MsgAnswer::yes;
    case QMessageBox::No: return MsgAnswer::no;
    case QMessageBox::Cancel: return MsgAnswer::cancel;
    default: return MsgAnswer::ok;
  }
}

// The user answers a question, picks from a menu or fills a dialog with
// the normal pointer, even when a busy handler or a long operation opened it.
class NormalPointer {
 public:
  NormalPointer() { QApplication::setOverrideCursor(Qt::ArrowCursor); }
  ~NormalPointer() { QApplication::restoreOverrideCursor(); }
  NormalPointer(const NormalPointer&) = delete;
  NormalPointer& operator=(const NormalPointer&) = delete;
};

}  // namespace

QtPlatform::QtPlatform(QMainWindow& window, const QString& title) : window_(window), title_(title) {
  QStatusBar* bar = window.statusBar();
  for (size_t i = 0; i < panels_.size(); ++i) {
    panels_[i] = new QLabel(bar);
    panels_[i]->setMinimumWidth(100);
    // Panel 1 carries paths and progress, so it takes the spare width.
    bar->addPermanentWidget(panels_[i], i == 0 ? 1 : 0);
  }
}

void QtPlatform::add_document_control(QAction* action) { actions_.push_back(action); }
void QtPlatform::add_document_control(QWidget* widget) { widgets_.push_back(widget); }

void QtPlatform::set_save_action(QAction* save) {
  save_ = save;
  add_document_control(save);
}

void QtPlatform::set_export_action(QAction* tagged_export) { export_ = tagged_export; }

void QtPlatform::set_history_controls(std::array<QAction*, 2> items, std::array<QWidget*, 2> buttons) {
  history_items_ = items;
  history_buttons_ = buttons;
  show_history("", "");
}

void QtPlatform::show_history(std::string_view undo_step, std::string_view redo_step) {
  const std::array<std::string_view, 2> steps{undo_step, redo_step};
  const std::array<QString, 2> captions{QStringLiteral("&Undo"), QStringLiteral("&Redo")};
  for (size_t i = 0; i < 2; ++i) {
    const bool any = !steps[i].empty();
    if (history_items_[i]) {
      history_items_[i]->setText(any ? captions[i] + QLatin1Char(' ') + ToQString(steps[i]) : captions[i]);
      history_items_[i]->setEnabled(any);
    }
    if (history_buttons_[i]) history_buttons_[i]->setEnabled(any);
  }
}

QString QtPlatform::status_text(int panel) const {
  if (panel < 1 || panel > static_cast<int>(panels_.size())) return {};
  return panels_[static_cast<size_t>(panel - 1)]->text();
}

MsgAnswer QtPlatform::message_box(std::string_view text, MsgIcon icon, MsgButtons buttons) {
  QMessageBox box(ToQtIcon(icon), title_, ToQString(text), ToQtButtons(buttons), &window_);
  // As wide as its widest line (within the screen): a line is never broken
  // in the middle.
  if (auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))) {
    int widest = 0;
    for (const QString& line : box.text().split(QLatin1Char('\n')))
      widest = std::max(widest, label->fontMetrics().horizontalAdvance(line) + 1);
    label->setMinimumWidth(std::min(widest, window_.screen()->availableGeometry().width() * 4 / 5));
  }
  const NormalPointer pointer;
  return FromQtButton(box.exec());
}

void QtPlatform::show_status(std::string_view text, int panel) {
  if (panel < 1 || panel > static_cast<int>(panels_.size())) return;
  QLabel* label = panels_[static_cast<size_t>(panel - 1)];
  const QString value = ToQString(text);
  label->setText(value);
  label->setToolTip(value);
  // Progress is written from long loops that do not return to the event loop.
  label->repaint();
}

void QtPlatform::set_document_controls(bool enabled) {
  for (QAction* action : actions_) action->setEnabled(enabled);
  for (QWidget* widget : widgets_) widget->setEnabled(enabled);
}

bool QtPlatform::document_controls_enabled() const { return save_ && save_->isEnabled(); }

void QtPlatform::set_export_enabled(bool enabled) {
  if (export_) export_->setEnabled(enabled);
}

std::string QtPlatform::ask_open_file_name() {
  const std::string path = AskFileName(QFileDialog::AcceptOpen, last_folder_);
  if (!path.empty()) last_folder_ = QFileInfo(QFile::decodeName(path.c_str())).absolutePath();
  return path;
}

// Not remembered: a folder where the save then fails (one in /proc, say)
// must not be where the next chooser starts.
std::string QtPlatform::ask_save_file_name(const std::string& suggested) {
  return AskFileName(QFileDialog::AcceptSave, QFile::decodeName(suggested.c_str()));
}

std::string QtPlatform::AskFileName(QFileDialog::AcceptMode mode, const QString& start) {
  QFileDialog dialog(&window_, QString(), start, QStringLiteral("KISSlicer/Slic3r/Skeinforge/Cura GCode Output File (*.gcode *.g)"));
  dialog.setAcceptMode(mode);
  // Open takes only a file that exists; Save asks before replacing one.
  dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
  if (mode == QFileDialog::AcceptSave) dialog.setDefaultSuffix(QStringLiteral("gcode"));
  {
    const NormalPointer pointer;
    dialog.exec();
  }
  const QStringList chosen = dialog.selectedFiles();
  const bool accepted = dialog.result() == QDialog::Accepted && !chosen.isEmpty();
  // Qt remembers, for every chooser to come, the folder a chooser was left
  // in; a save chooser leaves that where it started.
  if (mode == QFileDialog::AcceptSave) dialog.setDirectory(QFileInfo(start).absolutePath());
  return accepted ? QFile::encodeName(chosen.front()).toStdString() : std::string();
}

void QtPlatform::beep() { QApplication::beep(); }

void QtPlatform::set_clipboard_text(const std::string& text) {
  QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

std::string QtPlatform::clipboard_text() const { return QGuiApplication::clipboard()->text().toStdString(); }

Modifiers QtPlatform::key_state() const {
  const Qt::KeyboardModifiers held = QGuiApplication::queryKeyboardModifiers();
  return {held.testFlag(Qt::ShiftModifier), held.testFlag(Qt::ControlModifier), held.testFlag(Qt::AltModifier)};
}

void QtPlatform::set_busy(bool busy) {
  if (busy)
    QApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QApplication::restoreOverrideCursor();
}

bool QtPlatform::locale_decimal_comma() const { return QLocale::system().decimalPoint() == QStringLiteral(","); }

void QtPlatform::set_list(ListId list, ListBox* box, QWidget* button) {
  lists_[static_cast<size_t>(list)] = box;
  list_buttons_[static_cast<size_t>(list)] = button;
}

void QtPlatform::set_slider(SliderId slider, QAbstractSlider* bar) { sliders_[static_cast<size_t>(slider)] = bar; }

void QtPlatform::list_row_inserted(ListId list, int row) {
  if (ListBox* box = lists_[static_cast<size_t>(list)]) box->row_inserted(row);
}

void QtPlatform::list_rows_removed(ListId list, std::span<const int32_t> rows) {
  if (ListBox* box = lists_[static_cast<size_t>(list)]) box->rows_removed(rows);
}

void QtPlatform::list_reset(ListId list) {
  if (ListBox* box = lists_[static_cast<size_t>(list)]) box->reset();
}

void QtPlatform::list_refilled(ListId list) {
  if (ListBox* box = lists_[static_cast<size_t>(list)]) box->refilled();
}

void QtPlatform::set_list_button_enabled(ListId list, bool enabled) {
  if (QWidget* button = list_buttons_[static_cast<size_t>(list)]) button->setEnabled(enabled);
}

void QtPlatform::set_slider_range(SliderId slider, int maximum, bool enabled) {
  QAbstractSlider* bar = sliders_[static_cast<size_t>(slider)];
  if (!bar) return;
  const QSignalBlocker quiet(bar);
  bar->setRange(0, maximum);
  bar->setEnabled(enabled);
}

void QtPlatform::set_slider_value(SliderId slider, int value) {
  QAbstractSlider* bar = sliders_[static_cast<size_t>(slider)];
  if (!bar) return;
  const QSignalBlocker quiet(bar);
  bar->setValue(value);
}

void QtPlatform::set_popup_menu(PopupMenu menu, QMenu* parent, std::vector<QAction*> items) {
  menus_[static_cast<size_t>(menu)] = parent;
  menu_items_[static_cast<size_t>(menu)] = std::move(items);
}

void QtPlatform::set_menu_item_enabled(PopupMenu menu, int index, bool enabled) {
  menu_items_[static_cast<size_t>(menu)].at(static_cast<size_t>(index))->setEnabled(enabled);
}

bool QtPlatform::menu_item_enabled(PopupMenu menu, int index) const {
  return menu_items_[static_cast<size_t>(menu)].at(static_cast<size_t>(index))->isEnabled();
}

void QtPlatform::popup_menu(PopupMenu menu) {
  const NormalPointer pointer;
  // The menu's own loop runs the chosen item's command before exec returns.
  if (QMenu* parent = menus_[static_cast<size_t>(menu)]) parent->exec(QCursor::pos());
}

bool QtPlatform::ask_values(ValueForm& form) {
  const NormalPointer pointer;
  return AskValues(form, &window_);
}

bool QtPlatform::ask_record(RecordForm& form) {
  const NormalPointer pointer;
  return AskRecord(form, &window_);
}

}  // namespace korvexed
