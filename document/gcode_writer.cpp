#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

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

// Puts " Z<z>" in front of the E field, else of the F field, else at the
// end of the line that begins at `start` of `s`.
void insert_z(std::string& s, size_t start, double z) {
  if (s.size() - start < 4) s += ' ';
  size_t p = s.find('E', start);
  if (p == std::string::npos) p = s.find('F', start);
  if (p == std::string::npos) p = s.size() + 1;  // one past a blank that is not there
  std::string field = " Z";
  AppendNumber(field, z, true);
  s.insert(p - 1, field);
}

// The values of doc.last_coor as the writer compares them, rounded to the
// fifth decimal once instead of at every comparison.
struct LastRounded {
  double x = 0, y = 0, e = 0, f = 0;
};

// Returns whether a line was written.
bool write_move(LineSink& sink, const coor_data& record, line_kind kind, bool drop_repeats,
                LastRounded& last, bool& z_needed, double z) {
  const LastRounded rounded{RoundTo5(record.x), RoundTo5(record.y), RoundTo5(record.e), RoundTo5(record.f)};
  coor_data shown = record;
  if (drop_repeats) {
    // Values that repeat the previous ones are left out of the line.
    if (rounded.x == last.x) shown.x = no_value;
    if (rounded.y == last.y) shown.y = no_value;
    if (rounded.e == last.e) shown.e = no_value;
    if (rounded.f == last.f) shown.f = no_value;
  }
  std::string& s = sink.begin_line();
  const size_t start = s.size();
  s += CoordinateHead(kind);
  AppendFields(s, shown, true);
  if (z_needed) {
    insert_z(s, start, z);
    z_needed = false;
  }
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
  doc.last_coor = record;
  last = rounded;
  return written;
}

// Writes the whole document; returns 0 or the errno of a failed write.
int write_document(int fd, uint8_t mode) {
  LineSink sink(fd);
  doc.last_coor.x = doc.last_coor.y = doc.last_coor.e = doc.last_coor.f = 0;
  doc.current_z = 0;
  doc.decimal_comma = DetectDecimalComma();
  const bool tagging = mode == save_tagged && doc.layer_tagged != 1;
  const bool drop_repeats = mode != save_tagged && doc.layer_tagged == 0;
  int64_t w = 0;
  bool z_needed = false;
  LastRounded last;
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
    int32_t first = 0;
    // The G1 Z0 line that every document starts with is not written.
    if (L == 0 && layer.g_count > 0 && is_coordinate(layer.g[0].kind)) {
      const coor_data& c = doc.coor(layer.g[0]);
      if (RoundTo5(c.x) == 0 && RoundTo5(c.y) == 0) first = 1;
    }
    for (int32_t j = first; j < layer.g_count; ++j) {
      if (j == 0) {
        if (layer.z != doc.current_z) z_needed = true;
        doc.current_z = layer.z;
      }
      const g_entry& entry = layer.g[static_cast<size_t>(j)];
      const coor_data* record = entry.kind == line_kind::text ? nullptr : &doc.coor(entry);
      if (entry.kind == line_kind::text) {
        sink.line(doc.text_list[entry.index]);
        ++w;
      } else if (entry.kind == line_kind::g92) {
        coor_data& given = doc.last_coor;
        if (record->x != no_value) last.x = RoundTo5(given.x = record->x);
        if (record->y != no_value) last.y = RoundTo5(given.y = record->y);
        if (record->e != no_value) last.e = RoundTo5(given.e = record->e);
        if (record->f != no_value) last.f = RoundTo5(given.f = record->f);
        sink.line(RecordText(entry, 0, false, true, false));
        ++w;
      } else if (is_move(entry.kind)) {
        if (write_move(sink, *record, entry.kind, drop_repeats, last, z_needed, layer.z)) ++w;
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
