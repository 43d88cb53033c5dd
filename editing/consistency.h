#pragma once
#include <string>

namespace korvexed {

// Checks the extrusion bookkeeping of the whole document: for every move,
// e equals the state's e before it plus e_delta, and d_delta equals the
// squared distance from that state. Returns "" when consistent, else a
// description of the first failure.
std::string CheckConsistency();

}  // namespace korvexed
