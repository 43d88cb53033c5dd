// The layer, data and selection lists with their sliders, buttons and
// pop-up menus.
#include "app/fm_main.h"
#include "controls/list_box.h"
#include "document/document.h"
#include "document/korvexed_file.h"
#include "editing/list_state.h"

namespace korvexed {

void FmMain::ConnectLists() {
  platform_.set_list(ListId::layer, lstLayer_);
  platform_.set_list(ListId::data, lstData_);
  platform_.set_list(ListId::select, lstSelect_);
  lstLayer_->set_source(&lists.layer_selected, &lists.layer_caret, LayerLineText);
}

void FmMain::poLstlayer_Click(int) {}
void FmMain::poLstData_Click(int index) { DataViewCommand(index); }
void FmMain::poLstSelect_Click(int index) { SelectCommand(index); }
void FmMain::poPopLayer_Click(int) {}

}  // namespace korvexed
