#include "app/fm_main.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFile>
#include <QKeyEvent>
#include <QSlider>

#include "app/command_line.h"
#include "app/icons/program_icon.h"
#include "app/program_title.h"
#include "controls/cool_tab.h"
#include "controls/shrink_wnd.h"
#include "document/document.h"
#include "editing/list_state.h"
#include "view/draw_area.h"
#include "view/korvexed_graphic.h"
#include "view/mouse_gesture.h"
#include "view/ruler_bar.h"
#include "view/world_view.h"

namespace korvexed {

FmMain::FmMain(const std::vector<std::string>& arguments)
    : platform_(*this, QString::fromUtf8(program_title)), previous_platform_(&platform()) {
  setObjectName(QStringLiteral("fmMain"));
  const StartupCommand command = ReadCommandLine(arguments);
  command_file_ = command.file;
  debug_mode_ = command.debug;

  BuildToolbar();
  BuildSidePanel();
  BuildDrawingArea();
  BuildMenus();
  BuildPopupMenus();
  if (!debug_mode_) HideUnfinishedCommands();

  base_title_ = BaseTitle();
  setWindowTitle(QString::fromStdString(base_title_));
  setWindowIcon(ProgramIcon());

  set_platform(&platform_);
  ResetDocument(false);
  SetPictureScreen(picDraw_);
  SetRulers(horzRuler_, vertRuler_);
  // The drawing starts from the area's size, so it waits until there is one;
  // a file loaded before then is fitted now.
  connect(picDraw_, &DrawArea::first_sized, this, [](int width, int height) {
    if (!CreateDrawing(width, height)) return;
    if (IsDocumentLoaded())
      ZoomFit();
    else
      RedrawView();
  });
  lists.refresh_guard = false;
  for (int setting : {1, 2, 3}) poSetting_Click(setting);
  // Without the wheel's zoom the program can be stepped in a debugger
  // without the view jumping about.
  picDraw_->set_wheel_zoom(!debug_mode_);

  ConnectLists();
  ConnectDrawingArea();
  // The window sees "+" and "-" before the control that has the focus.
  qApp->installEventFilter(this);
  setAcceptDrops(true);
  // Fits a 1366 x 768 screen below its title bar and beside a desktop
  // panel; below the minimum the drawing with its rulers, the sliders and
  // the first status panel would no longer be of use.
  resize(1120, 680);
  setMinimumSize(720, 480);
}

FmMain::~FmMain() {
  qApp->removeEventFilter(this);
  SetRulers(nullptr, nullptr);
  SetPictureScreen(nullptr);
  set_platform(previous_platform_);
}

void FmMain::Start() {
  show();
  if (command_file_.empty()) return;
  QCoreApplication::processEvents();
  LoadCommand(command_file_);
}

void FmMain::closeEvent(QCloseEvent* event) {
  if (AskSaveChanges())
    event->accept();
  else
    event->ignore();
}

bool FmMain::eventFilter(QObject* watched, QEvent* event) {
  if (LayOut(watched, event)) return true;
  if (event->type() == QEvent::KeyPress && watched->isWidgetType() &&
      static_cast<QWidget*>(watched)->window() == this) {
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Escape && gesture.ruler) {
      poTools_Click(0);
      return true;
    }
    if (key->modifiers() == Qt::NoModifier || key->modifiers() == Qt::KeypadModifier ||
        key->modifiers() == Qt::ShiftModifier) {
      if (LayerSliderKey(key->key())) return true;
    }
  }
  return QMainWindow::eventFilter(watched, event);
}

bool FmMain::LayerSliderKey(int key) {
  if ((key != Qt::Key_Plus && key != Qt::Key_Minus) || !IsDocumentLoaded()) return false;
  const int value = scrLayer_->value();
  if (key == Qt::Key_Plus) {
    if (value < scrLayer_->maximum())
      scrLayer_->setValue(value + 1);
    else
      platform().beep();
  } else {
    // Compared with 1, whatever the slider's minimum.
    if (value >= 1)
      scrLayer_->setValue(value - 1);
    else
      platform().beep();
  }
  return true;
}

void FmMain::SetCaption() {
  const QString base = QString::fromStdString(base_title_);
  setWindowTitle(doc.file_name.empty() ? base : QFile::decodeName(QByteArray::fromStdString(doc.file_name)) +
                                                    QStringLiteral(" - ") + base);
}

}  // namespace korvexed
