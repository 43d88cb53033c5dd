// Looks at the screen as a person would and lists the vertex dots of the
// drawing (3 x 3 squares in the current layer's vertex colour) that stand
// alone: one "x y" line each, the dot's centre in screen pixels, the
// loneliest first. A dot counts when no other pixel of that colour lies
// within `--apart` pixels of its centre.
#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

struct Point {
  int x, y;
};

struct Dot {
  Point centre;
  long lonely = 1L << 40;  // squared distance to the nearest pixel of another dot or line
};

class VertexPixels {
 public:
  explicit VertexPixels(const QImage& screen) : width_(screen.width()), height_(screen.height()) {
    on_.resize(static_cast<size_t>(width_) * height_);
    for (int y = 0; y < height_; ++y) {
      const auto* line = reinterpret_cast<const QRgb*>(screen.constScanLine(y));
      for (int x = 0; x < width_; ++x) on_[Index(x, y)] = (line[x] & 0xffffff) == 0x00ff00;
    }
  }

  // The pixels of the colour, as groups of touching pixels.
  std::vector<std::vector<Point>> Groups() const {
    std::vector<std::vector<Point>> groups;
    std::vector<bool> seen(on_.size());
    for (int y = 0; y < height_; ++y)
      for (int x = 0; x < width_; ++x) {
        if (!on_[Index(x, y)] || seen[Index(x, y)]) continue;
        std::vector<Point> group{{x, y}};
        seen[Index(x, y)] = true;
        for (size_t i = 0; i < group.size(); ++i)
          for (int dy = -1; dy <= 1; ++dy)
            for (int dx = -1; dx <= 1; ++dx) {
              const int nx = group[i].x + dx, ny = group[i].y + dy;
              if (nx < 0 || ny < 0 || nx >= width_ || ny >= height_ || !on_[Index(nx, ny)] || seen[Index(nx, ny)])
                continue;
              seen[Index(nx, ny)] = true;
              group.push_back({nx, ny});
            }
        groups.push_back(std::move(group));
      }
    return groups;
  }

 private:
  size_t Index(int x, int y) const { return static_cast<size_t>(y) * width_ + x; }

  int width_, height_;
  std::vector<bool> on_;
};

// A whole dot: nine pixels in a 3 x 3 square.
bool IsDot(const std::vector<Point>& group, Point& centre) {
  if (group.size() != 9) return false;
  const auto [min_x, max_x] = std::minmax_element(group.begin(), group.end(), [](Point a, Point b) { return a.x < b.x; });
  const auto [min_y, max_y] = std::minmax_element(group.begin(), group.end(), [](Point a, Point b) { return a.y < b.y; });
  centre = {min_x->x + 1, min_y->y + 1};
  return max_x->x - min_x->x == 2 && max_y->y - min_y->y == 2;
}

}  // namespace

int main(int argc, char** argv) {
  const int apart = argc == 3 && std::strcmp(argv[1], "--apart") == 0 ? std::atoi(argv[2]) : 0;
  if (apart <= 0) {
    std::fprintf(stderr, "usage: screen_vertices --apart PIXELS\n");
    return 2;
  }
  QGuiApplication app(argc, argv);
  const QImage screen = QGuiApplication::primaryScreen()->grabWindow(0).toImage().convertToFormat(QImage::Format_RGB32);
  const auto groups = VertexPixels(screen).Groups();
  std::vector<Dot> dots;
  for (size_t g = 0; g < groups.size(); ++g) {
    Dot dot;
    if (!IsDot(groups[g], dot.centre)) continue;
    for (size_t other = 0; other < groups.size(); ++other) {
      if (other == g) continue;
      for (const Point p : groups[other]) {
        const long dx = p.x - dot.centre.x, dy = p.y - dot.centre.y;
        dot.lonely = std::min(dot.lonely, dx * dx + dy * dy);
      }
    }
    dots.push_back(dot);
  }
  std::stable_sort(dots.begin(), dots.end(), [](const Dot& a, const Dot& b) { return a.lonely > b.lonely; });
  for (const Dot& d : dots)
    if (d.lonely >= static_cast<long>(apart) * apart) std::printf("%d %d\n", d.centre.x, d.centre.y);
  return 0;
}
