#pragma once

#include <QImage>

/// How far two pictures of one size differ, seen from a little further away: both are first brought down to cells of
/// 4 × 4 pixels, which takes fonts and smoothing out. Shares of the whole way from black to white.
struct PictureDifference {
    double mean = 0.0; ///< of all cells
    double worst =
        0.0; ///< greatest share, in any square of 200 × 200 pixels, of cells that differ by an eighth or more
};
PictureDifference comparePictures(const QImage& a, const QImage& b);
