#include "comparePictures.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

PictureDifference comparePictures(const QImage& a, const QImage& b)
{
    constexpr int side = 4;
    const QSize cells = a.size() / side;
    const auto coarse = [&](const QImage& image) {
        return image.convertToFormat(QImage::Format_RGB32)
            .scaled(cells, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    };
    const QImage first = coarse(a), second = coarse(b);
    constexpr int square = 50; // cells
    const int across = (cells.width() + square - 1) / square;
    std::vector<int> far(static_cast<std::size_t>(across * ((cells.height() + square - 1) / square)));
    double sum = 0.0;
    for (int y = 0; y < cells.height(); ++y)
        for (int x = 0; x < cells.width(); ++x) {
            const QRgb p = first.pixel(x, y), q = second.pixel(x, y);
            const int difference =
                std::max({std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)), std::abs(qBlue(p) - qBlue(q))});
            sum += difference / 255.0;
            far[static_cast<std::size_t>(y / square * across + x / square)] += difference >= 32;
        }
    return {sum / (cells.width() * cells.height()), *std::ranges::max_element(far) / double(square * square)};
}
