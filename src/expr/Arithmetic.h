#pragma once
// The arithmetic of each operator, shared by the direct evaluation of a text, the folding of
// constants and the compiled program, so that all three give the same bits.

#include <cmath>
#include <cstdint>

namespace vt {

// The operators of a compiled program; from Add on they take two operands.
enum class Code : std::uint8_t { Const, X, Neg, Abs, Sin, Cos, Tan, Add, Sub, Mul, Div, Pow };

// False: the operation fails.
inline bool ApplyUnary(Code code, double a, double& r) {
    switch (code) {
    case Code::Neg:
        r = -a;
        return true;
    case Code::Sin:
        r = std::sin(a);
        return true;
    case Code::Cos:
        r = std::cos(a);
        return true;
    case Code::Tan:
        r = std::tan(a);
        return std::isfinite(r);
    case Code::Abs:
        r = std::fabs(a);
        return true;
    default:
        return false;
    }
}

inline bool ApplyBinary(Code code, double a, double b, double& r) {
    switch (code) {
    case Code::Add:
        r = a + b;
        break;
    case Code::Sub:
        r = a - b;
        break;
    case Code::Mul:
        r = a * b;
        break;
    case Code::Div:
        if (b == 0) return false;
        r = a / b;
        break;
    case Code::Pow:
        // A negative base has no real power of a fraction; a zero base none of a negative
        // exponent. 0^0 is 1, as pow gives it. The square and the square root, the powers that
        // the equations hold most, are worked out directly: both are then exactly rounded, and
        // cheap.
        if (a < 0 && b != std::trunc(b)) return false;
        if (a == 0 && b < 0) return false;
        if (b == 2)
            r = a * a;
        else if (b == 0.5)
            r = std::sqrt(a);
        else
            r = std::pow(a, b);
        break;
    default:
        return false;
    }
    return std::isfinite(r);
}

} // namespace vt
