// korvexed-cli render: the PNG it writes, read back pixel by pixel.

#include <QImage>
#include <QString>
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string>

#include "cli_runner.h"
#include "tests/file_size_limit.h"

namespace {

// Layer 1 at Z0.2: a travel to (20,20), extrusion to (70,20), a G0 travel
// to (70,70), extrusion to (20,70) and on to (100,100). Layer 2 at Z0.4:
// one extrusion back to (20,20). Two layers of extrusion are the part:
// Zoom Fit puts 20 to 100 mm on 90 % of the picture, 9 px/mm.
constexpr std::string_view layers_gcode =
    "G1 Z0.2 F1200\n"
    "G1 X20 Y20\n"
    "G1 X70 Y20 E1\n"
    "G0 X70 Y70\n"
    "G1 X20 Y70 E2\n"
    "G1 X100 Y100 E3\n"
    "G1 Z0.4\n"
    "G1 X20 Y20 E4\n";

constexpr QRgb background = qRgb(30, 30, 30), extrusion = qRgb(128, 128, 255), travel = qRgb(255, 128, 0);
constexpr QRgb other_extrusion = qRgb(64, 64, 128);

class CliRender : public CliTest {
 protected:
  void SetUp() override {
    CliTest::SetUp();
    Write("in.gcode", layers_gcode);
  }
  // Renders with these options added and reads the picture back.
  QImage Render(std::vector<std::string> options) {
    std::vector<std::string> args{"render", "in.gcode", "-o", "out.png"};
    args.insert(args.end(), options.begin(), options.end());
    const CliResult result = Run(args);
    EXPECT_EQ(result.status, 0) << result.err;
    return QImage(QString::fromStdString(Path("out.png")));
  }
  // World millimetres to the picture's pixel, rows counted from the top.
  static QRgb At(const QImage& image, double x, double y) {
    const double left = 60 - 400 / 9.0;
    return image.pixel(static_cast<int>(std::lround((x - left) * 9)),
                       image.height() - 1 - static_cast<int>(std::lround((y - left) * 9)));
  }
  // How far `colour` reaches across the picture, as a share of its width
  // or of its height, whichever is more.
  static double Span(const QImage& image, QRgb colour) {
    int left = image.width(), right = -1, top = image.height(), bottom = -1;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        if (image.pixel(x, y) == colour) {
          left = std::min(left, x);
          right = std::max(right, x);
          top = std::min(top, y);
          bottom = std::max(bottom, y);
        }
    return std::max(double(right - left + 1) / image.width(), double(bottom - top + 1) / image.height());
  }
  static int Count(const QImage& image, QRgb colour) {
    int n = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x) n += image.pixel(x, y) == colour;
    return n;
  }
};

}  // namespace

TEST_F(CliRender, DrawsTheLayerAsTheWindowWouldAfterZoomFit) {
  // Without --layer: the first printed layer, as after Open.
  const QImage image = Render({});
  ASSERT_EQ(image.size(), QSize(800, 800));
  EXPECT_EQ(At(image, 45, 20), extrusion);
  EXPECT_EQ(At(image, 70, 45), travel);
  EXPECT_EQ(At(image, 45, 70), extrusion);
  EXPECT_EQ(At(image, 45.5, 45.5), background);  // between the 1 mm grid lines
  EXPECT_EQ(Count(image, other_extrusion), 0);
}

TEST_F(CliRender, SwitchesOtherLayersAndSizeChangeThePicture) {
  const QImage full = Render({"--layer", "1"});
  EXPECT_EQ(Count(Render({"--layer", "1", "--no-travel"}), travel), 0);
  EXPECT_LT(Count(Render({"--layer", "1", "--no-arrows"}), extrusion), Count(full, extrusion));
  EXPECT_GT(Count(Render({"--layer", "1", "--with", "2"}), other_extrusion), 0);
  // Layer 0 holds only the start line G1 Z0: no path of layer 1 is drawn.
  EXPECT_EQ(Count(Render({"--layer", "0"}), extrusion), 0);
  const std::string png = Run({"render", "in.gcode", "-o", "-", "--size", "300x200"}).out;
  EXPECT_EQ(QImage::fromData(QByteArray::fromStdString(png), "PNG").size(), QSize(300, 200)) << "to standard output";
}

TEST_F(CliRender, RefusesLayersTheFileDoesNotHaveAndReportsFailedWrites) {
  EXPECT_EQ(Run({"render", "in.gcode", "-o", "out.png", "--with", "1-3"}),
            (CliResult{2, "", "korvexed-cli: layer 3 does not exist (valid: 0 to 2)\n"}));
  EXPECT_FALSE(Exists("out.png"));
  EXPECT_EQ(Run({"render", "in.gcode", "-o", "no/such/dir/out.png"}),
            (CliResult{1, "", "message: Unable to open no/such/dir/out.png Error 2: No such file or directory\n"}));
}

TEST_F(CliRender, AFailedWriteKeepsTheOldPictureAndLeavesNothingBehind) {
  Write("out.png", "old picture");
  // The PNG cannot be written beyond 200 bytes.
  const CliResult result = [&] {
    const korvexed::testing::FileSizeLimit limit(200);
    return Run({"render", "in.gcode", "-o", "out.png"});
  }();
  EXPECT_EQ(result, (CliResult{1, "", "message: Error while writing the picture: File too large\n"}));
  EXPECT_EQ(Read("out.png"), "old picture");
  for (const auto& entry : std::filesystem::directory_iterator(Path("")))
    EXPECT_EQ(entry.path().filename().string().find("korvexed-"), std::string::npos) << entry.path();
}

// Real prints: the first printed layer fills the picture, and a middle
// layer stays large though the first layer's skirt lies far around it.
TEST_F(CliRender, TheFirstPictureOfARealPrintShowsThePartLarge) {
  for (const char* name : {"slic3r_box", "prusa_prism", "prusa_vase", "cura_ring", "cura_zhop_rel", "arc_cup"}) {
    SCOPED_TRACE(name);
    const std::string print = std::string(KORVEXED_TEST_DATA) + "/" + name + ".gcode";
    const CliResult first = Run({"render", print, "-o", "first.png"});
    ASSERT_EQ(first.status, 0) << first.err;
    EXPECT_GE(Span(QImage(QString::fromStdString(Path("first.png"))), extrusion), 0.85);
    const CliResult middle = Run({"render", print, "-o", "middle.png", "--layer", "6"});
    ASSERT_EQ(middle.status, 0) << middle.err;
    EXPECT_GE(Span(QImage(QString::fromStdString(Path("middle.png"))), extrusion), 0.6);
  }
}
