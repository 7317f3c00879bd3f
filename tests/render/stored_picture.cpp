#include "render/stored_picture.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace halvern::test {

namespace {

/// Whether two pixels are told apart by eye.
bool Differ(QRgb a, QRgb b) {
    return std::abs(qRed(a) - qRed(b)) > 48 || std::abs(qGreen(a) - qGreen(b)) > 48 ||
           std::abs(qBlue(a) - qBlue(b)) > 48;
}

}  // namespace

void ExpectAsStored(const QImage& picture, const std::string& name) {
    const std::filesystem::path made = std::filesystem::path(HALVERN_PICTURES_MADE) / (name + ".png");
    std::filesystem::create_directories(made.parent_path());
    ASSERT_TRUE(picture.save(QString::fromStdString(made.string())));
    const QImage stored(QString::fromStdString((std::filesystem::path(HALVERN_PICTURES) / (name + ".png")).string()));
    ASSERT_FALSE(stored.isNull()) << "no stored picture " << name;
    ASSERT_EQ(picture.size(), stored.size());
    int differing = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            differing += Differ(picture.pixel(x, y), stored.pixel(x, y)) ? 1 : 0;
    // All texts together cover some two hundredths of a picture.
    EXPECT_LT(differing, picture.width() * picture.height() / 200) << name;
}

}  // namespace halvern::test
