// The floor a loader is compared with: a bare program that reads the whole
// file into one buffer, splits it into lines with memchr and reads the
// X, Y, Z, E and F of each move with std::from_chars into a table per
// layer. It prints the layer and move counts, so that nothing is skipped.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <charconv>
#include <cstdio>
#include <cstring>
#include <string_view>
#include <vector>

namespace {

struct Move {
  double x = 0, y = 0, e = 0, f = 0;
};

struct Layer {
  double z = 0;
  std::vector<Move> moves;
};

bool ReadAll(const char* path, std::vector<char>& bytes) {
  const int fd = ::open(path, O_RDONLY);
  struct stat info {};
  if (fd < 0 || ::fstat(fd, &info) != 0) return false;
  bytes.resize(static_cast<size_t>(info.st_size));
  size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t got = ::read(fd, bytes.data() + done, bytes.size() - done);
    if (got <= 0) break;
    done += static_cast<size_t>(got);
  }
  ::close(fd);
  bytes.resize(done);
  return true;
}

// The number behind `key`, or `value` unchanged when the line has none.
void ReadField(std::string_view line, char key, double& value) {
  const size_t at = line.find(key, 3);
  if (at != std::string_view::npos) std::from_chars(line.data() + at + 1, line.data() + line.size(), value);
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<char> bytes;
  if (argc != 2 || !ReadAll(argv[1], bytes)) {
    std::fprintf(stderr, "usage: korvexed-naive-floor FILE\n");
    return 1;
  }
  std::vector<Layer> layers(1);
  Move last;
  double z = 0;
  const char* p = bytes.data();
  const char* const end = p + bytes.size();
  while (p < end) {
    const char* eol = static_cast<const char*>(std::memchr(p, '\n', static_cast<size_t>(end - p)));
    if (!eol) eol = end;
    std::string_view line(p, static_cast<size_t>(eol - p));
    p = eol + 1;
    line = line.substr(0, line.find(';'));
    if (!line.starts_with("G1 ") && !line.starts_with("G0 ")) continue;
    double line_z = z;
    ReadField(line, 'Z', line_z);
    if (line_z != z) {
      z = line_z;
      layers.push_back({z, {}});
    }
    ReadField(line, 'X', last.x);
    ReadField(line, 'Y', last.y);
    ReadField(line, 'E', last.e);
    ReadField(line, 'F', last.f);
    layers.back().moves.push_back(last);
  }
  size_t moves = 0;
  for (const Layer& layer : layers) moves += layer.moves.size();
  std::printf("layers: %zu\nmoves: %zu\n", layers.size(), moves);
  return 0;
}
