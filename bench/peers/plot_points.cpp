#include "bench/peers/plot_points.h"

#include <chrono>
#include <cstdio>
#include <fstream>

namespace halvern::bench {

namespace {

constexpr double kRadiusMin = 5.95, kRadiusMax = 7.2;
constexpr double kMiddle = (kRadiusMin + kRadiusMax) / 2.0, kEighth = (kRadiusMax - kRadiusMin) / 8.0;

constexpr PictureRow kPictures[] = {
    {"repaint 665x500", 665, 500, kRadiusMin, kRadiusMax},
    {"repaint 1250x700", 1250, 700, kRadiusMin, kRadiusMax},
    {"zoom 665x500", 665, 500, kMiddle - kEighth, kMiddle + kEighth},
    {"zoom 1250x700", 1250, 700, kMiddle - kEighth, kMiddle + kEighth},
};

std::vector<double> ReadArray(const std::string& path) {
    std::vector<float> values(std::size_t{kScans} * kPoints);
    std::ifstream file(path, std::ios::binary);
    file.read(reinterpret_cast<char*>(values.data()), static_cast<std::streamsize>(values.size() * sizeof values[0]));
    return {values.begin(), values.end()};
}

}  // namespace

PlotPoints ReadPlotPoints(const std::string& folder) {
    return {ReadArray(folder + "/plot.x"), ReadArray(folder + "/plot.y")};
}

void MeasurePictures(const char* way, const std::function<void(const PictureRow&)>& draw) {
    for (const auto& picture : kPictures) {
        const auto start = std::chrono::steady_clock::now();
        draw(picture);
        const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
        std::printf("%s/500/%s %.3f\n", picture.row, way, taken.count());
    }
}

unsigned ColourOf(int scan) {
    constexpr unsigned kColours[] = {0x000000, 0xFF0000, 0x0000FF, 0x008000, 0x800080,
                                     0x008080, 0x808000, 0xFF00FF, 0x800000, 0x000080};
    return kColours[scan % 10];
}

}  // namespace halvern::bench
