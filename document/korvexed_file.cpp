#include "document/korvexed_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string_view>
#include <system_error>

#include "document/gcode_line.h"
#include "document/korvexed_general.h"
#include "document/layer_finder.h"
#include "document/open_error.h"
#include "document/piece_reader.h"
#include "platform/platform.h"

namespace korvexed {

namespace {

// Lines that look like moves but whose numbers cannot be read: the first
// is named after the load.
struct Unreadable {
  int64_t count = 0;
  int64_t first_line = 0;
  std::string first_text;

  void add(std::string_view line, int64_t n) {
    if (count++ > 0) return;
    first_line = n;
    first_text = std::string(line.substr(0, utf8_prefix(line, 80)));
  }
  // The longest start of `text` of at most `bytes` bytes that does not cut a
  // character in two.
  static size_t utf8_prefix(std::string_view text, size_t bytes) {
    if (text.size() <= bytes) return text.size();
    while (bytes > 0 && (static_cast<unsigned char>(text[bytes]) & 0xc0) == 0x80) --bytes;
    return bytes;
  }
  void report() const {
    if (count == 0) return;
    const std::string where = "line " + std::to_string(first_line) + ": " + first_text;
    platform().message_box(count == 1 ? "1 line could not be read as a move and is kept unchanged as text: " + where
                                      : std::to_string(count) +
                                            " lines could not be read as moves and are kept unchanged as text; the "
                                            "first is " + where,
                           MsgIcon::exclamation, MsgButtons::ok);
  }
};

// Follows the modes a text line switches: extrusion (M82, M83) and
// relative positioning (G91 until G90), under which every line is text.
void follow_modes(const CommandWord& word) {
  if (word.letter == 'M' && (word.number == 82 || word.number == 83)) doc.e_relative = word.number == 83;
  if (word.is('G', 91)) doc.g91_block = true;
  if (word.is('G', 90)) doc.g91_block = false;
  if (word.letter == 'G' && word.number >= 17 && word.number <= 19) doc.arcs_in_plane = word.number == 17;
}

// Puts the centre of an arc line into its I and J; false for an arc the
// printer would not run in the plane (another plane, no centre), which
// stays text.
bool find_arc_centre(line_kind kind, MoveFields& fields) {
  return doc.arcs_in_plane && FindArcCentre(kind, {doc.last_coor.x, doc.last_coor.y}, fields);
}

// Cuts the file into its printed layers, and tells whether its ";LAYER:"
// tags start within the first of them.
void find_layers() {
  FindLayers();
  if (doc.layer_tag_position == UINT32_MAX) return;
  const g_entry* tag = doc.layer(0).g.begin() + doc.layer_tag_position;
  if (doc.layer_count <= 4 || tag < doc.layer(4).g.begin()) doc.layer_tagged = 1;
}

void read_piece(std::string_view piece, int64_t& n, Unreadable& unreadable, std::string& scratch) {
  std::string_view code = piece;
  const std::string_view comment = SplitComment(code);
  ++n;
  if (n % 10000 == 0) ShowStatus("Reading GCode line " + std::to_string(n), 1);
  // Only a ";LAYER:" behind the line's first ";" marks a tagged file (when
  // it stands in the first layers, which are known at the end).
  if (doc.layer_tag_position == UINT32_MAX && comment.find(";LAYER:") != std::string_view::npos)
    doc.layer_tag_position = static_cast<uint32_t>(doc.layer(0).g_count);
  const CommandWord word = ReadCommandWord(code);
  const bool in_block = doc.g91_block;
  follow_modes(word);
  ReadLine line = in_block ? ReadLine{} : ReadMoveLine(word, code, comment, scratch);
  if (line.read == LineRead::move && is_arc(line.kind) && !find_arc_centre(line.kind, line.fields)) {
    AddTextRecord(piece);
  } else if (line.read != LineRead::move) {
    if (line.read == LineRead::unreadable) unreadable.add(piece, n);
    AddTextRecord(piece);
  } else if (line.kind == line_kind::g92) {
    AddG92Record(line.fields, line.comment);
  } else {
    AddMoveRecord(line.kind, line.fields, line.comment);
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
  Unreadable unreadable;
  std::string error, scratch;
  try {
    PieceReader reader(fd);
    std::string_view piece;
    while (reader.next(piece)) read_piece(piece, n, unreadable, scratch);
  } catch (const std::system_error& e) {
    error = std::strerror(e.code().value());
  }
  ::close(fd);
  if (error.empty()) find_layers();

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
  unreadable.report();
  return true;
}

}  // namespace korvexed
