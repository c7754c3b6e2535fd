#pragma once
// RegressionObject: a least-squares polynomial through a stream of points. The points are not
// kept: each one is folded at once into running sums of powers of x, and the fit is the solution
// of the normal equations those sums define, found by Gaussian elimination with partial pivoting
// when a value is first asked for. The object is the one holder of the count of points.
//
// Failures never leave the object as exceptions. Writing Degree out of range and an overflow in
// XYAdd or RegVal are returned to the caller, who decides what they end; a singular system or an
// overflow inside the solution is dealt with by the object itself.

#include <array>
#include <optional>
#include <string>

namespace vt {

// A failure handed to the caller: the number, the source and the text the user would read.
struct RegressionFailure {
    int Number = 0;
    std::string Source;
    std::string Description;
};

// The number of a floating-point overflow, and of a property value out of range.
constexpr int OverflowFailure = 6;
constexpr int InvalidDegreeFailure = 6000;

class RegressionObject {
  public:
    // The greatest degree the object solves for.
    static constexpr int MaxDegree = 25;

    RegressionObject();

    // The fitted polynomial as text, highest power first: "f(x) =  x^2^", "f(x) = - 2x + 1".
    // Reads the coefficients as they stand; it starts no solution.
    std::string ReturnRegEq() const;

    // Empties the sums and the coefficients; keeps the degree.
    void Init();

    // The coefficient of x to the power |exponent|, solving first if needed; 0 above the
    // working degree.
    double Coeff(int exponent);

    int Degree() const { return degree_; }
    // Checks the range 0..MaxDegree, empties the object and sets the degree, also when the
    // value is unchanged. Out of range the object stays as it was and the failure is returned.
    std::optional<RegressionFailure> SetDegree(int value);

    // The number of points folded in.
    int XYCount() const;

    // Folds one point into the sums. An overflow stops the folding where it occurred and is
    // returned; the sums keep what had been added up to there.
    std::optional<RegressionFailure> XYAdd(double x, double y);

    // The fitted polynomial at x, solving first if needed; 0 with no points. No value when a
    // power or a product overflows.
    std::optional<double> RegVal(double x);

    // Whether the coefficients belong to the present sums.
    bool Solved() const { return solved_; }

  private:
    static constexpr int SumCount = 2 * MaxDegree + 1;

    // The degree the fit works at: Degree, or one less than the count when there are no more
    // points than Degree, so that a fit never has more coefficients than points.
    int WorkingDegree() const;

    // Each returns false where the arithmetic fails (a division by zero, an overflow); the
    // work then stops where it stood.
    bool GaussSolve(int m);
    void BuildMatrix(int m);
    void LoadRightSide(int m);
    void SolveFit();

    int degree_ = 2;
    bool solved_ = false;
    std::array<double, SumCount> powerSums_{};       // sum of x^k; [0] is the count
    std::array<double, MaxDegree + 1> momentSums_{}; // sum of y * x^k
    std::array<std::array<double, MaxDegree + 2>, MaxDegree + 1> matrix_{}; // augmented, row first
    std::array<double, MaxDegree + 1> coefficients_{};                      // [k] belongs to x^k
};

} // namespace vt
