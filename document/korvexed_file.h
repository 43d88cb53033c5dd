#pragma once
// Loading a G-code file into the document and writing it back.
#include <cstdint>
#include <string>

#include "document/document.h"

namespace korvexed {

inline constexpr uint8_t save_plain = 0;
inline constexpr uint8_t save_tagged = 1;

// Reads `path` into the document. False when it could not be opened (the
// document is untouched), when reading failed or the user refused partial
// data (the document is emptied).
bool LoadGCode(const std::string& path);

// Writes the document to `path` (mode save_tagged: Cura-style tagged
// export). The file is written beside the target and renamed over it only
// when complete, so a failure leaves the old file as it was.
bool SaveGCode(const std::string& path, uint8_t mode);

// Writes the document to an open file descriptor (standard output for the
// CLI). Reports a failure as SaveGCode does.
bool WriteGCode(int fd, uint8_t mode);

// The G-code text of one entry, or its numbered form of the lists
// ("U", "D" or "R", the number and "> ").
std::string RecordText(const g_entry& entry, int32_t number, bool numbered, bool to_period, bool no_comment);

}  // namespace korvexed
