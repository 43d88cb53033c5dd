#include "document/record_text.h"

#include "document/korvexed_file.h"
#include "document/korvexed_general.h"

namespace korvexed {

std::string_view CoordinateHead(line_kind kind) {
  switch (kind) {
    case line_kind::g1: return "G1";
    case line_kind::g0: return "G0";
    case line_kind::g2: return "G2";
    case line_kind::g3: return "G3";
    case line_kind::g92: return "G92";
    default: return "";
  }
}

void AppendFields(std::string& out, const coor_data& c, bool to_period, const arc_data* centre) {
  // Built on the stack and appended once: this runs for every move saved.
  char buf[6 * (2 + max_number_chars)];
  char* end = buf;
  // A relative move's E word is its own extrusion.
  const double e = c.e_relative && c.e != no_value ? c.e_delta : c.e;
  const double i = centre ? centre->i : no_value, j = centre ? centre->j : no_value;
  const std::pair<char, double> fields[] = {{'X', c.x}, {'Y', c.y}, {'I', i}, {'J', j}, {'E', e}, {'F', c.f}};
  for (const auto& [key, value] : fields) {
    if (value == no_value) continue;
    *end++ = ' ';
    *end++ = key;
    end = WriteNumber(end, value, to_period);
  }
  out.append(buf, end);
}

std::string RecordText(const g_entry& entry, int32_t number, bool numbered, bool to_period, bool no_comment) {
  std::string s;
  if (entry.kind == line_kind::text) {
    if (numbered) s = "U" + std::to_string(number) + "> ";
    s += doc.text_list[entry.index];
    return s;
  }
  const std::string_view head = CoordinateHead(entry.kind);
  if (head.empty()) return s;
  if (numbered) s = (entry.kind == line_kind::g92 ? "R" : "D") + std::to_string(number) + "> ";
  s += head;
  const coor_data& c = doc.coor(entry);
  AppendFields(s, c, to_period, is_arc(entry.kind) ? &doc.arc(entry.index) : nullptr);
  const std::string_view comment = doc.comment(c);
  if (!no_comment && !comment.empty()) {
    s += " ;";
    s += comment;
  }
  return s;
}

}  // namespace korvexed
