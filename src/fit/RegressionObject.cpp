#include "fit/RegressionObject.h"

#include <climits>
#include <cmath>
#include <cstdlib>

#include "base/NumberText.h"

namespace vt {

namespace {

// Arithmetic that fails where the result is no finite Double, as an overflow or a division by
// zero does: the target keeps its value and the caller stops there.
bool Product(double a, double b, double& out) {
    const double result = a * b;
    if (!std::isfinite(result)) return false;
    out = result;
    return true;
}

bool Sum(double a, double b, double& out) {
    const double result = a + b;
    if (!std::isfinite(result)) return false;
    out = result;
    return true;
}

bool Difference(double a, double b, double& out) {
    const double result = a - b;
    if (!std::isfinite(result)) return false;
    out = result;
    return true;
}

bool Quotient(double a, double b, double& out) {
    if (b == 0) return false; // 0/0 as much as any other division by zero
    const double result = a / b;
    if (!std::isfinite(result)) return false;
    out = result;
    return true;
}

// target += a * b, or false with target unchanged.
bool AddProduct(double& target, double a, double b) {
    double product;
    return Product(a, b, product) && Sum(target, product, target);
}

RegressionFailure Overflow() {
    return {OverflowFailure, "RegressionObject", "Overflow"};
}

// One term of the equation text, " + 3x^2^" or " - 0.5x".
std::string Term(int power, double value) {
    std::string text = value < 0 ? " - " : " + ";
    text += NumberText(std::fabs(value));
    if (power == 1) text += "x";
    if (power >= 2) text += "x^" + std::to_string(power) + "^";
    return text;
}

void ReplaceAll(std::string& text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

} // namespace

RegressionObject::RegressionObject() {
    Init();
    degree_ = 2;
}

void RegressionObject::Init() {
    powerSums_.fill(0);
    momentSums_.fill(0);
    coefficients_.fill(0);
    solved_ = false;
}

std::optional<RegressionFailure> RegressionObject::SetDegree(int value) {
    if (value < 0 || value > MaxDegree)
        return RegressionFailure{
            InvalidDegreeFailure, "RegressionObject",
            std::to_string(value) +
                " is an invalid property value! Use 0<= Degree <= " + std::to_string(MaxDegree)};
    Init();
    degree_ = value;
    return std::nullopt;
}

int RegressionObject::XYCount() const {
    const double count = powerSums_[0];
    return count >= static_cast<double>(INT_MAX) ? INT_MAX : static_cast<int>(count);
}

std::optional<RegressionFailure> RegressionObject::XYAdd(double x, double y) {
    solved_ = false;
    powerSums_[0] += 1;
    if (!Sum(momentSums_[0], y, momentSums_[0])) return Overflow();
    double t = 1;
    for (int i = 1; i <= degree_; ++i) {
        if (!Product(t, x, t)) return Overflow();
        if (!Sum(powerSums_[i], t, powerSums_[i])) return Overflow();
        if (!AddProduct(momentSums_[i], t, y)) return Overflow();
    }
    for (int i = degree_ + 1; i <= 2 * degree_; ++i) {
        if (!Product(t, x, t)) return Overflow();
        if (!Sum(powerSums_[i], t, powerSums_[i])) return Overflow();
    }
    return std::nullopt;
}

int RegressionObject::WorkingDegree() const {
    const int count = XYCount();
    return count <= degree_ ? count - 1 : degree_;
}

double RegressionObject::Coeff(int exponent) {
    if (!solved_) SolveFit();
    const long long power = std::llabs(static_cast<long long>(exponent));
    return power <= WorkingDegree() ? coefficients_[static_cast<std::size_t>(power)] : 0;
}

std::optional<double> RegressionObject::RegVal(double x) {
    if (!solved_) SolveFit();
    const int m = WorkingDegree();
    double value = 0;
    for (int i = 0; i <= m; ++i) {
        // x^0 is 1, also at x = 0.
        const double power = i == 0 ? 1.0 : std::pow(x, static_cast<double>(i));
        if (!std::isfinite(power)) return std::nullopt;
        if (!AddProduct(value, power, coefficients_[static_cast<std::size_t>(i)]))
            return std::nullopt;
    }
    return value;
}

void RegressionObject::BuildMatrix(int m) {
    for (int r = 0; r <= m; ++r)
        for (int c = 0; c <= m; ++c)
            matrix_[r][c] = powerSums_[static_cast<std::size_t>(r + c)];
    LoadRightSide(m);
}

void RegressionObject::LoadRightSide(int m) {
    for (int r = 0; r <= m; ++r)
        matrix_[r][m + 1] = momentSums_[static_cast<std::size_t>(r)];
}

bool RegressionObject::GaussSolve(int m) {
    auto& a = matrix_;
    for (int k = 0; k <= m; ++k) {
        // The largest magnitude in the column; the first of equal ones wins.
        double best = std::fabs(a[k][k]);
        int p = k;
        for (int r = k + 1; r <= m; ++r) {
            if (std::fabs(a[r][k]) > best) {
                best = std::fabs(a[r][k]);
                p = r;
            }
        }
        if (p > k)
            for (int c = k; c <= m + 1; ++c)
                std::swap(a[k][c], a[p][c]);
        // Only an exact zero pivot is singular, and it fails here only with rows below it.
        for (int r = k + 1; r <= m; ++r) {
            double f;
            if (!Quotient(a[r][k], a[k][k], f)) return false;
            a[r][k] = 0;
            for (int c = k + 1; c <= m + 1; ++c) {
                double product;
                if (!Product(f, a[k][c], product)) return false;
                if (!Difference(a[r][c], product, a[r][c])) return false;
            }
        }
    }
    for (int i = m; i >= 0; --i) {
        double s = a[i][m + 1];
        for (int j = i + 1; j <= m; ++j) {
            double product;
            if (!Product(a[i][j], coefficients_[static_cast<std::size_t>(j)], product))
                return false;
            if (!Difference(s, product, s)) return false;
        }
        // A zero on the last diagonal never reached a division above: that power gets 0.
        double& coefficient = coefficients_[static_cast<std::size_t>(i)];
        if (a[i][i] == 0)
            coefficient = 0;
        else if (!Quotient(s, a[i][i], coefficient))
            return false;
    }
    solved_ = true;
    return true;
}

void RegressionObject::SolveFit() {
    int m = WorkingDegree();
    if (m < 0) return;
    BuildMatrix(m);
    // A failed elimination gets one retreat: the constant is cleared and the right side is
    // loaded for one degree less, but the elimination is not run again. The coefficients stay
    // as they stood, and Solved stays false so that the next value asked for tries again.
    if (!GaussSolve(m) && m > 1) {
        coefficients_[0] = 0;
        --m;
        LoadRightSide(m);
    }
}

std::string RegressionObject::ReturnRegEq() const {
    std::string s;
    for (int i = 0; i <= MaxDegree; ++i) {
        const double coefficient = coefficients_[static_cast<std::size_t>(i)];
        const double rounded = RoundHalfEven(coefficient, 10);
        // A coefficient too small for ten decimals is shown as it is rather than dropped.
        const double v = rounded == 0 && coefficient != 0 ? coefficient : rounded;
        if (v == 0) continue;
        s = Term(i, v) + s;
    }
    if (s.empty() && XYCount() > 0) s = " 0";
    s = "f(x) =" + s;
    // A leading plus goes, but its blank stays: "f(x) =  3x".
    if (s.compare(0, 8, "f(x) = +") == 0) ReplaceAll(s, "f(x) = +", "f(x) = ");
    ReplaceAll(s, " 1x", " x");
    return s;
}

} // namespace vt
