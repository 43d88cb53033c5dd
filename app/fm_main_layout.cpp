// The window's controls and where they stand: the toolbar across the top,
// the side panel on the left, the splitter, and the drawing area with its
// rulers and sliders filling the rest.
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <algorithm>

#include "app/fm_main.h"
#include "controls/container.h"
#include "controls/cool_button.h"
#include "controls/cool_tab.h"
#include "controls/line.h"
#include "controls/list_box.h"
#include "controls/shrink_wnd.h"
#include "controls/toolbar_pictures.h"
#include "view/draw_area.h"
#include "view/ruler_bar.h"

namespace korvexed {

namespace {

constexpr int margin = 5;
constexpr int splitter_width = 5;
constexpr int layer_list_width = 150;
constexpr int panel_width = 440;
// The side panel never gets narrower than its two lists can use, and leaves
// the drawing area at least this much.
constexpr int min_panel_width = 220;
constexpr int min_draw_width = 240;

struct ToolbarEntry {
  ToolbarPicture picture;
  const char* tip;
};

// The toolbar by button index; the groups are separated where `gap_before` is set.
constexpr ToolbarEntry toolbar[14] = {
    {ToolbarPicture::open_file, "Open File..."},
    {ToolbarPicture::save_file, "Save File"},
    {ToolbarPicture::view_all_layers, "View All Layers"},
    {ToolbarPicture::zoom_in, "Zoom +"},
    {ToolbarPicture::zoom_out, "Zoom -"},
    {ToolbarPicture::zoom_fit, "Zoom Fit"},
    {ToolbarPicture::layer_range_scroll, "Layer Range Scroll"},
    {ToolbarPicture::data_range_scroll, "Data Range Scroll"},
    {ToolbarPicture::show_movement, "Show Movement"},
    {ToolbarPicture::show_arrow, "Show Arrow"},
    {ToolbarPicture::help, "Help"},
    {ToolbarPicture::about, "About"},
    {ToolbarPicture::undo, "Undo"},
    {ToolbarPicture::redo, "Redo"},
};
constexpr bool gap_before[14] = {false, false, true, true, false, false, true,
                                 false, true,  false, true, false, true, false};
// Undo and Redo came after the others but stand beside Save.
constexpr int toolbar_order[14] = {0, 1, 12, 13, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};

QPushButton* CommandButton(const char* name, const QString& caption, QWidget* parent) {
  auto* button = new QPushButton(caption, parent);
  button->setObjectName(QString::fromLatin1(name));
  return button;
}

ListBox* List(const char* name, QWidget* parent) {
  auto* list = new ListBox(parent);
  list->setObjectName(QString::fromLatin1(name));
  return list;
}

}  // namespace

void FmMain::BuildToolbar() {
  body_ = new QWidget(this);
  body_->setObjectName(QStringLiteral("body"));
  setCentralWidget(body_);
  body_->installEventFilter(this);

  picTool_ = new QWidget(body_);
  picTool_->setObjectName(QStringLiteral("picTool"));
  picTool_->setBackgroundRole(QPalette::Button);
  picTool_->setAutoFillBackground(true);
  auto* column = new QVBoxLayout(picTool_);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  lineToolTop_ = new Line(Qt::Horizontal, Line::Style::raised, picTool_);
  lineToolTop_->setObjectName(QStringLiteral("lineToolTop"));
  lineToolBottom_ = new Line(Qt::Horizontal, Line::Style::sunken, picTool_);
  lineToolBottom_->setObjectName(QStringLiteral("lineToolBottom"));
  auto* row = new QHBoxLayout;
  row->setContentsMargins(margin, 3, margin, 3);
  row->setSpacing(2);
  for (const int i : toolbar_order) {
    if (gap_before[i]) {
      auto* separator = new Line(Qt::Vertical, Line::Style::sunken, picTool_);
      row->addSpacing(4);
      row->addWidget(separator);
      row->addSpacing(4);
    }
    auto* button = new CoolButton(picTool_);
    button->setObjectName(QStringLiteral("CoolButton1_%1").arg(i));
    button->setIcon(ToolbarIcon(toolbar[i].picture));
    button->setToolTip(QString::fromLatin1(toolbar[i].tip));
    connect(button, &CoolButton::clicked, this, [this, i] { CoolButton1_Click(i); });
    connect(button, &CoolButton::double_clicked, this, [this, i] { CoolButton1_Click(i); });
    row->addWidget(button);
    CoolButton1_[static_cast<size_t>(i)] = button;
    // Save, View All Layers and the zooms need a document.
    if (i >= 1 && i <= 5) platform_.add_document_control(button);
  }
  row->addStretch(1);
  column->addWidget(lineToolTop_);
  column->addLayout(row);
  column->addWidget(lineToolBottom_);
}

void FmMain::BuildSidePanel() {
  panelGCode_ = new ShrinkWnd(body_);
  panelGCode_->setObjectName(QStringLiteral("panelGCode"));
  panelGCode_->set_caption(QStringLiteral("GCode Control Panel"));
  panelGCode_->set_expanded_width(panel_width);
  panel_now_ = panel_width;
  tabGCode_ = new CoolTab;
  tabGCode_->setObjectName(QStringLiteral("tabGCode"));

  cntGCode_ = new Container;
  cntGCode_->setObjectName(QStringLiteral("cntGCode"));
  cmdLayer_ = CommandButton("cmdLayer", QStringLiteral("&Layer:"), cntGCode_);
  lstLayer_ = List("lstLayer", cntGCode_);
  cmdData_ = CommandButton("cmdData", QStringLiteral("&Data:"), cntGCode_);
  lstData_ = List("lstData", cntGCode_);
  cntGSelect_ = new Container;
  cntGSelect_->setObjectName(QStringLiteral("cntGSelect"));
  cmdSelect_ = CommandButton("cmdSelect", QStringLiteral("&Data:"), cntGSelect_);
  lstSelect_ = List("lstSelect", cntGSelect_);
  for (QWidget* control : std::initializer_list<QWidget*>{lstLayer_, lstData_, lstSelect_, cmdLayer_, cmdData_, cmdSelect_})
    platform_.add_document_control(control);
  cntGCode_->installEventFilter(this);
  cntGSelect_->installEventFilter(this);

  tabGCode_->add_tab(QStringLiteral("Viewer"), cntGCode_);
  tabGCode_->add_tab(QStringLiteral("Selection"), cntGSelect_);
  panelGCode_->set_content(tabGCode_);

  LeftPanelSize_ = new Line(Qt::Vertical, Line::Style::raised, body_);
  LeftPanelSize_->setObjectName(QStringLiteral("LeftPanelSize"));
  LeftPanelSize_->set_splitter(true);
  LeftPanelSize_->setCursor(Qt::SizeHorCursor);
  connect(LeftPanelSize_, &Line::dragged, this, [this](int dx) {
    if (!panelGCode_->is_expanded()) return;
    const int widest = std::max(min_panel_width, body_->width() - splitter_width - min_draw_width);
    panelGCode_->set_expanded_width(std::clamp(panelGCode_->expanded_width() + dx, min_panel_width, widest));
  });
  connect(panelGCode_, &ShrinkWnd::width_changing, this, [this](int width) {
    panel_now_ = width;
    ArrangeDrawArea();
  });
  connect(panelGCode_, &ShrinkWnd::expanded_changed, this, [this](bool expanded) {
    // A collapsed panel has no width to drag.
    LeftPanelSize_->setCursor(expanded ? Qt::SizeHorCursor : Qt::ArrowCursor);
    ArrangeDrawArea();
  });
}

void FmMain::BuildDrawingArea() {
  cntDraw_ = new Container(body_);
  cntDraw_->setObjectName(QStringLiteral("cntDraw"));
  horzRuler_ = new RulerBar(Qt::Horizontal, cntDraw_);
  horzRuler_->setObjectName(QStringLiteral("horzRuler"));
  horzRuler_->set_unit(QStringLiteral("cm"));
  vertRuler_ = new RulerBar(Qt::Vertical, cntDraw_);
  vertRuler_->setObjectName(QStringLiteral("vertRuler"));
  picDraw_ = new DrawArea(cntDraw_);
  lblLayerScr_ = new QLabel(QStringLiteral("Layer Slider:"), cntDraw_);
  lblLayerScr_->setObjectName(QStringLiteral("lblLayerScr"));
  lblDataScr_ = new QLabel(QStringLiteral("Data Slider:"), cntDraw_);
  lblDataScr_->setObjectName(QStringLiteral("lblDataScr"));
  // Sliders, not scroll bars: their handles keep one small size however
  // few layers or records they step through.
  scrLayer_ = new QSlider(Qt::Horizontal, cntDraw_);
  scrLayer_->setObjectName(QStringLiteral("scrLayer"));
  scrData_ = new QSlider(Qt::Horizontal, cntDraw_);
  scrData_->setObjectName(QStringLiteral("scrData"));
  for (QSlider* slider : {scrLayer_, scrData_}) {
    slider->setRange(0, 0);
    platform_.add_document_control(slider);
  }
  cntDraw_->installEventFilter(this);
}

void FmMain::ArrangeDrawArea() {
  const int top = picTool_->sizeHint().height();
  const int height = std::max(0, body_->height() - top);
  picTool_->setGeometry(0, 0, body_->width(), top);
  // A window made narrower than the panel was dragged wide still keeps its
  // drawing area.
  const int panel = std::min(panel_now_, std::max(0, body_->width() - splitter_width - min_draw_width));
  panelGCode_->setGeometry(0, top, panel, height);
  LeftPanelSize_->setGeometry(panel, top, splitter_width, height);
  const int left = panel + splitter_width;
  cntDraw_->setGeometry(left, top, std::max(0, body_->width() - left), height);
}

void FmMain::ArrangeSidePanel() {
  // Viewer: the layer list keeps its width, the data list takes the rest.
  const QSize viewer = cntGCode_->size();
  const int button_height = cmdLayer_->sizeHint().height();
  const int list_top = margin + button_height + 2;
  const int list_height = std::max(0, viewer.height() - list_top - margin);
  const int data_left = margin + layer_list_width + margin;
  const int data_width = std::max(0, viewer.width() - data_left - margin);
  cmdLayer_->setGeometry(margin, margin, layer_list_width, button_height);
  lstLayer_->setGeometry(margin, list_top, layer_list_width, list_height);
  cmdData_->setGeometry(data_left, margin, data_width, button_height);
  lstData_->setGeometry(data_left, list_top, data_width, list_height);
  // Selection: one list across the container.
  const QSize select = cntGSelect_->size();
  cmdSelect_->setGeometry(margin, margin, std::max(0, select.width() - 2 * margin), button_height);
  lstSelect_->setGeometry(margin, list_top, std::max(0, select.width() - 2 * margin),
                          std::max(0, select.height() - list_top - margin));
}

// Inside cntDraw, from the bottom up: the data slider, the layer slider,
// then the rulers and picDraw filling what is left.
void FmMain::ArrangeDrawingControls() {
  const int width = cntDraw_->width(), height = cntDraw_->height();
  const int slider_height = scrLayer_->sizeHint().height();
  const int label_width = std::max(lblLayerScr_->sizeHint().width(), lblDataScr_->sizeHint().width());
  const int slider_left = margin + label_width + 2 * margin;
  const int slider_width = std::max(0, width - slider_left - margin);
  const int data_top = height - margin - slider_height;
  const int layer_top = data_top - margin - slider_height;
  lblDataScr_->setGeometry(margin, data_top, label_width, slider_height);
  scrData_->setGeometry(slider_left, data_top, slider_width, slider_height);
  lblLayerScr_->setGeometry(margin, layer_top, label_width, slider_height);
  scrLayer_->setGeometry(slider_left, layer_top, slider_width, slider_height);

  const int ruler = horzRuler_->sizeHint().height();
  const int draw_left = margin + ruler, draw_top = margin + ruler;
  const int draw_width = std::max(0, width - draw_left - margin);
  const int draw_height = std::max(0, layer_top - margin - draw_top);
  horzRuler_->setGeometry(draw_left, margin, draw_width, ruler);
  vertRuler_->setGeometry(margin, draw_top, ruler, draw_height);
  picDraw_->setGeometry(draw_left, draw_top, draw_width, draw_height);
}

bool FmMain::LayOut(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Resize) return false;
  if (watched == body_) ArrangeDrawArea();
  else if (watched == cntDraw_) ArrangeDrawingControls();
  else if (watched == cntGCode_ || watched == cntGSelect_) ArrangeSidePanel();
  return false;
}

}  // namespace korvexed
