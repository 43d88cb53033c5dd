// The File menu: open, save, save under a new name, reload, the tagged
// export, and the question before the document is dropped.
#include <algorithm>

#include "app/fm_main.h"
#include "document/document.h"
#include "document/korvexed_file.h"
#include "document/printed_part.h"
#include "editing/history.h"
#include "editing/list_state.h"
#include "view/korvexed_graphic.h"
#include "view/world_view.h"

namespace korvexed {

namespace {
constexpr uint8_t code_save = 1, code_save_as = 2, code_export = 3;
}  // namespace

void FmMain::poFile_Click(int index) {
  switch (index) {
    case 0: {
      if (!AskSaveChanges()) return;
      const std::string path = platform().ask_open_file_name();
      if (path.empty()) return;
      // Painted before the load starts: no piece of the closed chooser
      // stays on screen while it runs.
      repaint();
      LoadCommand(path);
      break;
    }
    case 1: SaveFileFunc(code_save); break;
    case 2: SaveFileFunc(code_save_as); break;
    case 5: close(); break;
    case 6: ReloadCommand(); break;
    default: break;
  }
}

void FmMain::poExport_Click(int index) {
  if (index == 0) SaveFileFunc(code_export);
}

void FmMain::LoadCommand(const std::string& path) { LoadFile(path, std::nullopt); }

void FmMain::LoadFile(const std::string& path, std::optional<int32_t> keep_layer) {
  const BusyPointer busy;
  if (LoadGCode(path)) {
    doc.file_name = path;
    SetCaption();
    if (keep_layer) {
      FillLayerList(std::min(*keep_layer, doc.layer_count - 1));
    } else {
      // The print as it starts, the whole part in view.
      const PlaneExtent part = PartExtent();
      FitViewTo(part);
      FillLayerList(FirstPrintedLayer(part));
    }
    ShowStatus("Load successful " + doc.file_name, 1);
    doc.modified = false;
    history.clear();
    RememberFile();
    return;
  }
  if (IsDocumentLoaded()) {
    // The file could not be opened: the document before it is intact.
    ShowStatus("Load failed " + path, 1);
  } else {
    doc.file_name.clear();
    SetCaption();
    EmptyLists();
    ShowStatus("Load failed " + path, 1);
  }
  history.clear();
  RedrawView();
}

void FmMain::ReloadCommand() {
  if (doc.file_name.empty() || !AskSaveChanges()) return;
  // A copy: a failed load clears the document's name.
  const std::string path = doc.file_name;
  LoadFile(path, std::max(doc.current_layer, 0));
}

void FmMain::SaveFileFunc(uint8_t code) {
  const std::string name = code == code_save ? doc.file_name : AskNewSaveFileName();
  if (name.empty()) return;
  const BusyPointer busy;
  const bool exporting = code == code_export;
  if (!SaveGCode(name, exporting ? save_tagged : save_plain)) {
    ShowStatus((exporting ? "Export failed " : "Save failed ") + name, 1);
  } else if (exporting) {
    // The document stays bound to the file it came from.
    ShowStatus("Export successful " + name, 1);
  } else {
    doc.file_name = name;
    SetCaption();
    ShowStatus("Save successful " + doc.file_name, 1);
    history.saved();
    RememberFile();
  }
}

std::string FmMain::AskNewSaveFileName() { return platform().ask_save_file_name(doc.file_name); }

bool FmMain::AskSaveChanges() {
  if (!doc.modified) return true;
  const MsgAnswer answer = platform().message_box(doc.file_name + " has been modified. Save changes?",
                                                  MsgIcon::exclamation, MsgButtons::yes_no_cancel);
  if (answer == MsgAnswer::no) return true;
  if (answer == MsgAnswer::cancel) return false;
  const BusyPointer busy;
  if (!SaveGCode(doc.file_name, save_plain)) return false;
  history.saved();
  return true;
}

}  // namespace korvexed
