#pragma once

#include <QImage>

#include <algorithm>
#include <cstdlib>

namespace TestSupport {

/// The largest difference of any channel of two pixels, their transparency apart.
inline int difference(QRgb p, QRgb q)
{
    return std::max({std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                     std::abs(qBlue(p) - qBlue(q))});
}

/// Of all pixels; 256 when the sizes are not the same.
inline int largestDifference(const QImage& a, const QImage& b)
{
    if (a.size() != b.size())
        return 256;
    int largest = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x)
            largest = std::max(largest, difference(a.pixel(x, y), b.pixel(x, y)));
    }
    return largest;
}

} // namespace TestSupport
