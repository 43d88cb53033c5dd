#include "cli/dump.h"

#include <charconv>
#include <string>
#include <string_view>

#include "document/document.h"

namespace korvexed::cli {

namespace {

// Text is gathered and written in pieces of about this size.
constexpr size_t flush_size = 1 << 20;

void AppendDumpNumber(std::string& out, double value) {
  if (value == no_value) {
    out += "none";
    return;
  }
  // to_chars with a precision writes exactly what printf's "%.17g" writes,
  // several times faster.
  char text[32];
  char* end = std::to_chars(text, text + sizeof text, value, std::chars_format::general, 17).ptr;
  out.append(text, static_cast<size_t>(end - text));
}

void AppendField(std::string& out, std::string_view name, double value) {
  out.append(" ").append(name).push_back('=');
  AppendDumpNumber(out, value);
}

std::string_view KindName(line_kind kind) {
  switch (kind) {
    case line_kind::g0:
      return "G0";
    case line_kind::g92:
      return "G92";
    case line_kind::g2:
      return "G2";
    case line_kind::g3:
      return "G3";
    default:
      return "G1";
  }
}

// The extrusion mode and the fields the line stated, as " rel=1 given=XYEF".
void AppendMoveFlags(std::string& out, const coor_data& c) {
  out.append(c.e_relative ? " rel=1" : " rel=0").append(" given=");
  const size_t start = out.size();
  for (const auto& [bit, letter] : {std::pair{given_x, 'X'}, {given_y, 'Y'}, {given_z, 'Z'}, {given_e, 'E'}, {given_f, 'F'}})
    if (c.given & bit) out.push_back(letter);
  if (out.size() == start) out.push_back('-');
}

void AppendEntry(std::string& out, int32_t j, const g_entry& entry, const layer_data& layer) {
  out.append("  ").append(std::to_string(j)).push_back(' ');
  if (entry.kind == line_kind::text) {
    out.append("text ").append(doc.text_list[entry.index]).push_back('\n');
    return;
  }
  const coor_data& c = doc.coor(entry);
  out.append(KindName(entry.kind));
  AppendField(out, "x", c.x);
  AppendField(out, "y", c.y);
  if (is_move(entry.kind)) AppendField(out, "z", doc.move_z(entry, layer));
  if (is_arc(entry.kind)) {
    const arc_data& centre = doc.arc(entry.index);
    AppendField(out, "i", centre.i);
    AppendField(out, "j", centre.j);
  }
  AppendField(out, "e", c.e);
  AppendField(out, "f", c.f);
  AppendField(out, "e_delta", c.e_delta);
  AppendField(out, "d_delta", c.d_delta);
  out.append(c.no_extrude ? " no_extrude=1" : " no_extrude=0");
  if (entry.kind != line_kind::g92) AppendMoveFlags(out, c);
  out.append(" comment=").append(doc.comment(c)).push_back('\n');
}

void AppendLayerHead(std::string& out, int32_t i, const layer_data& layer) {
  out.append("layer ").append(std::to_string(i));
  AppendField(out, "z", layer.z);
  AppendField(out, "dz", layer.dz);
  out.append(" records=").append(std::to_string(layer.g_count));
  out.append(" moves=").append(std::to_string(layer.coor_count)).push_back('\n');
}

bool Flush(std::string& text, std::FILE* out) {
  const bool written = std::fwrite(text.data(), 1, text.size(), out) == text.size();
  text.clear();
  return written;
}

}  // namespace

bool WriteDump(std::FILE* out) {
  std::string text =
      "document layers=" + std::to_string(doc.layer_count) + " tagged=" + std::to_string(doc.layer_tagged) + "\n";
  for (int32_t i = 0; i < doc.layer_count; ++i) {
    const layer_data& layer = doc.layer(i);
    AppendLayerHead(text, i, layer);
    for (int32_t j = 0; j < layer.g_count; ++j) {
      AppendEntry(text, j, layer.g[static_cast<size_t>(j)], layer);
      if (text.size() >= flush_size && !Flush(text, out)) return false;
    }
  }
  return Flush(text, out) && std::fflush(out) == 0;
}

}  // namespace korvexed::cli
