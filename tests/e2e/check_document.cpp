// Loads a G-code file as Open does and runs the document's consistency
// check on it: exit 0 when it holds, 1 with the first failure otherwise.
#include <cstdio>
#include <string>

#include "document/korvexed_file.h"
#include "editing/consistency.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: check_document FILE\n");
    return 2;
  }
  if (!korvexed::LoadGCode(argv[1])) return 1;
  const std::string failure = korvexed::CheckConsistency();
  if (!failure.empty()) std::fprintf(stderr, "%s\n", failure.c_str());
  return failure.empty() ? 0 : 1;
}
