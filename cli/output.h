#pragma once
// Writing the document to a path, where "-" is standard output. Failures
// are reported in message boxes, as the editor reports them.
#include <cstdint>
#include <string>

namespace korvexed::cli {

// G-code as Save writes it (mode save_plain) or the tagged export.
bool WriteGCodeTo(const std::string& path, uint8_t mode);

// The dump format.
bool WriteDumpTo(const std::string& path);

// Any bytes; `what` names them in the message of a failed write.
bool WriteBytesTo(const std::string& path, const std::string& bytes, const char* what);

}  // namespace korvexed::cli
