#pragma once
// Small G-code files for the korvexed-cli tests, with what the document
// holds after loading them.
#include <string_view>

// Layer 0: the start line G1 Z0, a text line and G92 E0 (records 0-2).
// Layer 1 at Z0.3: 0 G1 (0,0) F1200, 1 G1 (10,0) E1 ;edge, 2 G1 (10,10) E2,
// 3 G0 (0,10), 4 G1 (0,0) E3, 5 a text line.
// Layer 2 at Z0.6: 0 G1 (0,0), 1 G1 (10,0) E4, 2 G1 (10,10) E5.
inline constexpr std::string_view square_gcode =
    "; test square\n"
    "G92 E0\n"
    "G1 Z0.3 F1200\n"
    "G1 X10 Y0 E1 ;edge\n"
    "G1 X10 Y10 E2\n"
    "G0 X0 Y10\n"
    "G1 X0 Y0 E3\n"
    ";comment line\n"
    "G1 Z0.6\n"
    "G1 X10 Y0 E4\n"
    "G1 X10 Y10 E5\n";

// square_gcode as Save writes it: values the printer already has left out
// (Y0 is its first Y), Z in front.
inline constexpr std::string_view square_saved =
    "; test square\r\n"
    "G92 E0\r\n"
    "G1 Z0.3 F1200\r\n"
    "G1 X10 Y0 E1 ;edge\r\n"
    "G1 Y10 E2\r\n"
    "G0 X0\r\n"
    "G1 Y0 E3\r\n"
    ";comment line\r\n"
    "G1  Z0.6\r\n"
    "G1 X10 E4\r\n"
    "G1 Y10 E5\r\n";
