#include "document/korvexed_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string_view>
#include <system_error>

#include "document/korvexed_general.h"
#include "document/open_error.h"
#include "document/piece_reader.h"
#include "platform/platform.h"

namespace korvexed {

namespace {

void read_piece(std::string_view piece, int64_t& n) {
  std::string_view line = piece;
  const std::string_view comment = SplitComment(line);
  ++n;
  if (n % 10000 == 0) ShowStatus("Reading GCode line " + std::to_string(n), 1);
  // Only a ";LAYER:" behind the line's first ";" marks a tagged file.
  if (doc.layer_count <= 4 && doc.layer_tagged == 0 && comment.find(";LAYER:") != std::string_view::npos)
    doc.layer_tagged = 1;
  const line_kind command = CommandKind(line);
  if (command == line_kind::text) {
    AddTextRecord(line, comment);
    return;
  }
  const LineFields fields = ScanFields(line);
  if (command == line_kind::g92) {
    AddG92Record(line, fields, comment);
  } else if (const line_kind kind = ClassifyMove(command, line, fields, doc.current_z); kind == line_kind::layer_change) {
    AddLayer(line, fields, comment);
  } else {
    AddMoveRecord(kind, line, fields, comment);
  }
}

}  // namespace

void ShowOpenError(const std::string& path, int error) {
  platform().message_box("Unable to open " + path + "\r\nError " + std::to_string(error) + ": " + std::strerror(error),
                         MsgIcon::exclamation, MsgButtons::ok);
}

bool LoadGCode(const std::string& path) {
  const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) {
    ShowOpenError(path, errno);
    return false;
  }
  struct stat info {};
  if (::fstat(fd, &info) == 0 && S_ISDIR(info.st_mode)) {
    ::close(fd);
    ShowOpenError(path, EISDIR);
    return false;
  }

  doc.data_limit_hit = false;
  ResetDocument(false);
  int64_t n = 0;
  doc.decimal_comma = DetectDecimalComma();
  std::string error;
  try {
    PieceReader reader(fd);
    std::string_view piece;
    while (reader.next(piece)) read_piece(piece, n);
  } catch (const NumberError& e) {
    error = e.what();
  } catch (const std::system_error& e) {
    error = std::strerror(e.code().value());
  }
  ::close(fd);

  if (!error.empty()) {
    platform().message_box("Error while reading GCode file at line " + std::to_string(n) + ": " + error,
                           MsgIcon::exclamation, MsgButtons::ok);
    ResetDocument(false);
    return false;
  }
  if (doc.data_limit_hit) {
    const MsgAnswer answer = platform().message_box(
        "Data count limit has been reached. Only partial data have been collected. Saving the loaded data again to "
        "the original file will result in data loss. Are you sure to continue loading the partial data?",
        MsgIcon::exclamation, MsgButtons::yes_no);
    if (answer != MsgAnswer::yes) {
      ResetDocument(false);
      return false;
    }
  }
  ResetDocument(true);
  return true;
}

}  // namespace korvexed
