// The drawing area's mouse and the editing commands of its pop-up menus
// and of the Tools menu.
#include "app/fm_main.h"

namespace korvexed {

void FmMain::ConnectDrawingArea() {}
void FmMain::poSelectEdit_Click(int) {}
void FmMain::poUnSelectEdit_Click(int) {}
void FmMain::poPoint_Click(int) {}
void FmMain::poTools_Click(int) {}

}  // namespace korvexed
