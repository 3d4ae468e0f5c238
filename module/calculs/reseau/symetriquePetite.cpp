#include "calculs/reseau/symetriquePetite.h"

#include <cmath>

bool inverserSymetrique(std::vector<double>& m, std::size_t n)
{
    std::vector<double> l(n * n, 0.0);
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t j = 0; j <= i; ++j) {
            double s = m[i * n + j];
            for (std::size_t k = 0; k < j; ++k)
                s -= l[i * n + k] * l[j * n + k];
            if (i != j)
                l[i * n + j] = s / l[j * n + j];
            else if (!(s > 1e-14 * m[i * n + i]))
                return false;
            else
                l[i * n + i] = std::sqrt(s);
        }
    // Columns of the inverse, one triangular system after the other.
    for (std::size_t c = 0; c < n; ++c) {
        std::vector<double> x(n, 0.0);
        for (std::size_t i = c; i < n; ++i) {
            double s = i == c ? 1.0 : 0.0;
            for (std::size_t k = c; k < i; ++k)
                s -= l[i * n + k] * x[k];
            x[i] = s / l[i * n + i];
        }
        for (std::size_t i = n; i-- > 0;) {
            for (std::size_t k = i + 1; k < n; ++k)
                x[i] -= l[k * n + i] * x[k];
            x[i] /= l[i * n + i];
        }
        for (std::size_t i = 0; i < n; ++i)
            m[i * n + c] = x[i];
    }
    return true;
}
