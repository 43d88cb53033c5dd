#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <algorithm>
#include <string>

#include "document/gcode_line.h"
#include "document/korvexed_file.h"
#include "document/korvexed_general.h"
#include "document/record_text.h"
#include "document/replace_file.h"
#include "platform/platform.h"

namespace korvexed {

namespace {

// Collects lines and writes them in large blocks; remembers the first
// write error.
class LineSink {
 public:
  explicit LineSink(int fd) : fd_(fd) { buffer_.reserve(flush_bytes + 4096); }

  void line(std::string_view text) {
    buffer_ += text;
    end_line();
  }

  // A line can also be built in place: begin_line() gives the buffer to
  // append to and the line's start, end_line() or drop_line() ends it.
  std::string& begin_line() { return buffer_; }
  void end_line() {
    buffer_ += "\r\n";
    if (buffer_.size() >= flush_bytes) flush();
  }
  void drop_line(size_t start) { buffer_.resize(start); }

  // Returns 0 or the errno of the first failed write.
  int flush() {
    size_t done = 0;
    while (error_ == 0 && done < buffer_.size()) {
      const ssize_t wrote = ::write(fd_, buffer_.data() + done, buffer_.size() - done);
      if (wrote >= 0) {
        done += static_cast<size_t>(wrote);
      } else if (errno != EINTR) {
        error_ = errno;
      }
    }
    buffer_.clear();
    return error_;
  }

  int error() const { return error_; }

 private:
  static constexpr size_t flush_bytes = 1 << 20;
  int fd_;
  std::string buffer_;
  int error_ = 0;
};

// Puts " Z<z>" in front of an arc's I field, else the E field, else the
// F field, else at the end of the line that begins at `start` of `s`.
void insert_z(std::string& s, size_t start, double z) {
  if (s.size() - start < 4) s += ' ';
  size_t p = s.find('I', start);
  if (p == std::string::npos) p = s.find('E', start);
  if (p == std::string::npos) p = s.find('F', start);
  if (p == std::string::npos) p = s.size() + 1;  // one past a blank that is not there
  std::string field = " Z";
  AppendNumber(field, z, true);
  s.insert(p - 1, field);
}

// What the writer knows of the printer: for each of X, Y, Z, E and F
// whether its value is known, and the last value written (rounded to the
// fifth decimal, as written values are compared; Z exactly).
struct PrinterState {
  enum Field { x, y, z, e, f };
  bool known[5] = {};
  double last[5] = {};
  bool e_relative = false;

  void forget() { std::fill(std::begin(known), std::end(known), false); }
  void set(Field field, double value) {
    known[field] = true;
    last[field] = value;
  }

  // A text line: an extrusion mode switch forgets E, and a line that may
  // move the head forgets everything.
  void follow(std::string_view text) {
    const CommandWord word = ReadCommandWord(text);
    if (word.letter == 'M' && (word.number == 82 || word.number == 83) && e_relative != (word.number == 83)) {
      e_relative = word.number == 83;
      known[e] = false;
    }
    if (!KeepsPosition(text, word)) forget();
  }
  // A G92 record makes the positions it names known; a bare one leaves
  // nothing known, since firmware differ on what it does.
  void follow(const coor_data& reset) {
    if (reset.x == no_value && reset.y == no_value && reset.e == no_value && reset.f == no_value) forget();
    if (reset.x != no_value) set(x, RoundTo5(reset.x));
    if (reset.y != no_value) set(y, RoundTo5(reset.y));
    if (reset.e != no_value) set(e, RoundTo5(reset.e));
  }
};

// How the writer chooses a move's fields: a plain save of an untagged file
// leaves out what the printer already has; a tagged file writes every
// field whose value is stated or known. Neither writes a value that is
// neither.
struct MoveRule {
  bool all_known;  // tagged export, or any save of a tagged file

  bool write(PrinterState& state, PrinterState::Field field, double value, bool given) const {
    const double rounded = RoundTo5(value);
    const bool known = state.known[field];
    const bool wanted = all_known ? given || known : (given && !known) || (known && rounded != state.last[field]);
    if (wanted) state.set(field, rounded);
    return wanted;
  }
};

// Returns whether a line was written. `layer_start`: the record is the
// first move of a layer from layer 1 on; `z` is the move's own height.
bool write_move(LineSink& sink, const g_entry& entry, MoveRule rule, PrinterState& state, bool layer_start, double z) {
  const coor_data& record = doc.coor(entry);
  coor_data shown = record;
  using F = PrinterState::Field;
  // An arc's end is never left to the printer's memory where it is known.
  const MoveRule xy_rule{rule.all_known || is_arc(entry.kind)};
  if (!xy_rule.write(state, F::x, record.x, record.given & given_x)) shown.x = no_value;
  if (!xy_rule.write(state, F::y, record.y, record.given & given_y)) shown.y = no_value;
  if (record.e_relative) {
    if (RoundTo5(record.e_delta) == 0 && !(record.given & given_e)) shown.e = no_value;
  } else if (!rule.write(state, F::e, record.e, record.given & given_e)) {
    shown.e = no_value;
  }
  if (!rule.write(state, F::f, record.f, record.given & given_f)) shown.f = no_value;
  // The first move of a layer states its height; a lift and its return
  // are written as read.
  const bool z_unknown = !state.known[F::z];
  const bool write_z = (layer_start && (z_unknown || z != state.last[F::z])) ||
                       ((record.given & given_z) && z_unknown) || (!z_unknown && RoundTo5(z) != RoundTo5(state.last[F::z]));
  if (write_z) state.set(F::z, z);

  const arc_data* centre = is_arc(entry.kind) ? &doc.arc(entry.index) : nullptr;
  std::string& s = sink.begin_line();
  const size_t start = s.size();
  s += CoordinateHead(entry.kind);
  AppendFields(s, shown, true, centre);
  if (write_z) insert_z(s, start, z);
  // An arc without a centre is refused by the printer, which stays put.
  if (centre && centre->i == 0 && centre->j == 0) state.forget();
  // A move with nothing left but its G word would not move the machine.
  const bool written = s.size() - start > 3;
  if (written) {
    const std::string_view comment = doc.comment(record);
    if (!comment.empty()) {
      s += " ;";
      s += comment;
    }
    sink.end_line();
  } else {
    sink.drop_line(start);
  }
  return written;
}

// Writes the whole document; returns 0 or the errno of a failed write.
int write_document(int fd, uint8_t mode) {
  LineSink sink(fd);
  doc.decimal_comma = DetectDecimalComma();
  const bool tagging = mode == save_tagged && doc.layer_tagged != 1;
  const MoveRule rule{mode == save_tagged || doc.layer_tagged != 0};
  PrinterState state;
  int64_t w = 0;
  for (int32_t L = 0; L < doc.layer_count && sink.error() == 0; ++L) {
    const layer_data& layer = doc.layer(L);
    if (tagging && L >= 1) {
      if (L == 1) {
        sink.line(";Layer count: " + std::to_string(doc.layer_count - 1));
        ++w;
      }
      sink.line(";LAYER:" + std::to_string(L - 1));
      sink.line(L % 2 == 1 ? ";TYPE:FILL" : ";TYPE:WALL-OUTER");
      w += 2;
    }
    bool layer_start = L >= 1;
    for (int32_t j = 0; j < layer.g_count; ++j) {
      const g_entry& entry = layer.g[static_cast<size_t>(j)];
      if (entry.kind == line_kind::text) {
        const std::string_view text = doc.text_list[entry.index];
        sink.line(text);
        state.follow(text);
        ++w;
      } else if (entry.kind == line_kind::g92) {
        state.follow(doc.coor(entry));
        sink.line(RecordText(entry, 0, false, true, false));
        ++w;
      } else if (is_move(entry.kind) && !is_reset_line(entry)) {
        if (write_move(sink, entry, rule, state, layer_start, doc.move_z(entry, layer))) ++w;
        layer_start = false;
      }
      if (w % 10000 == 0) ShowStatus("Saving GCode line " + std::to_string(w), 1);
    }
  }
  return sink.flush();
}

void show_save_error(int error) {
  platform().message_box(std::string("Error while saving GCode file: ") + std::strerror(error), MsgIcon::exclamation,
                         MsgButtons::ok);
}

}  // namespace

bool WriteGCode(int fd, uint8_t mode) {
  const int error = write_document(fd, mode);
  if (error) show_save_error(error);
  return error == 0;
}

bool SaveGCode(const std::string& path, uint8_t mode) {
  return ReplaceFile(path, [mode](int fd) { return write_document(fd, mode); }, show_save_error);
}

}  // namespace korvexed
