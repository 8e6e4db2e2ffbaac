#include "platform/vips/PaperLight.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace lumarin::vips {

namespace {

constexpr int Steps = 8;
constexpr float DarkestPaper = 0.95F;  // of the light found so far
constexpr float WeakestLight = 0.5F;   // of the brightest part
constexpr double Steadying = 1e-3;     // keeps the equations solvable, however few parts are paper

constexpr std::size_t Terms = 6;
using Vector = std::array<double, Terms>;
using Matrix = std::array<Vector, Terms>;

/// Of second order in the place.
Vector TermsAt(const Cells& cells, int column, int row) {
    const double x = 2.0 * column / cells.Across() - 1;
    const double y = 2.0 * row / cells.Down() - 1;
    return {1, x, y, x * x, x * y, y * y};
}

Vector Solve(Matrix matrix, Vector right) {
    for (std::size_t i = 0; i < Terms; ++i)
        for (std::size_t j = i + 1; j < Terms; ++j) {
            const double factor = matrix[j][i] / matrix[i][i];
            for (std::size_t k = i; k < Terms; ++k) matrix[j][k] -= factor * matrix[i][k];
            right[j] -= factor * right[i];
        }
    for (std::size_t i = Terms; i-- > 0;) {
        for (std::size_t k = i + 1; k < Terms; ++k) right[i] -= matrix[i][k] * right[k];
        right[i] /= matrix[i][i];
    }
    return right;
}

/// The least squares over the parts that are not darker than paper can be.
Vector Fit(const Cells& brightness, const Cells& light) {
    Matrix matrix{};
    Vector right{};
    for (int row = 0; row < light.Down(); ++row)
        for (int column = 0; column < light.Across(); ++column) {
            const float value = brightness.Near(column, row);
            if (value < DarkestPaper * light.Near(column, row)) continue;
            const Vector terms = TermsAt(light, column, row);
            for (std::size_t j = 0; j < Terms; ++j) {
                right[j] += terms[j] * static_cast<double>(value);
                for (std::size_t k = 0; k < Terms; ++k) matrix[j][k] += terms[j] * terms[k];
            }
        }
    for (std::size_t j = 0; j < Terms; ++j) matrix[j][j] += Steadying;
    return Solve(matrix, right);
}

}  // namespace

/// Paper is the brightest there is, so what is darker than the light found so far is left out step by step.
Cells PaperLight(const Cells& brightness) {
    Cells light = brightness;
    const float brightest = std::max(1.0F, *std::max_element(light.All().begin(), light.All().end()));
    std::fill(light.All().begin(), light.All().end(), 0.0F);
    for (int step = 0; step < Steps; ++step) {
        const Vector fitted = Fit(brightness, light);
        for (int row = 0; row < light.Down(); ++row)
            for (int column = 0; column < light.Across(); ++column) {
                const Vector terms = TermsAt(light, column, row);
                const double value = std::inner_product(terms.begin(), terms.end(), fitted.begin(), 0.0);
                light.At(column, row) =
                    std::clamp(static_cast<float>(value), WeakestLight * brightest, brightest);
            }
    }
    return light;
}

}  // namespace lumarin::vips
