#pragma once
// The expression language behind the function values, and the evaluation of a finished text.
// Reader.h reads a text's tokens, Parser.h its grammar, Program.h compiles a text with x free
// into a program for many x, and SlotEvaluator.h puts them together for a slot's function.
//
// The language is the classic script arithmetic, as far as those texts need it:
// - numbers: "12", "3.5", ".5", "5.", "1E-07", "1.5E+20" (an "E" without exponent digits is no
//   part of the number); a number beyond the range of a Double is a failure, one below it is 0;
// - binary + - * / ^, unary - and +, parentheses, and sin, cos, tan, abs of a parenthesised
//   argument (names in any case, radians); blanks between tokens are skipped;
// - precedence from high to low: ^, unary minus and plus, * and /, binary + and -; all binary
//   operators are left-associative, so 2^3^2 is 64;
// - unary minus binds looser than ^, so -3^2 is -9 and 2*-3^2 is -18: a minus that follows a
//   binary operator takes the whole power that follows it. On the right of ^ a sign takes only the
//   next operand, and the chain of powers goes on from the left: 2^-2 is 0.25 and 2^-3^2 is
//   (2^-3)^2;
// - failures: division by zero (0/0 too), a result too large for a Double, a negative base with
//   a non-integer exponent, a zero base with a negative exponent, any syntax error (two numbers
//   side by side, an unknown name, a name without its parenthesis, "?", an unclosed group);
//   nesting deeper than MaxNesting counts as a syntax error;
// - 0^0 is 1; a power of 2 is worked out as a product and a power of .5 as a square root, both
//   exactly rounded, in every route alike;
// - a text of blanks only (or nothing) is an empty result, not a failure: a row without a
//   function shows no value in Evaluate f(x), where a failure would show "NA".

#include <cstdint>
#include <string_view>

namespace vt {

// The outcome of evaluating an expression.
struct EvalResult {
    enum Kind : std::uint8_t { Value, Empty, Failure };
    Kind kind = Failure;
    double value = 0;
};

// Groups and signs nested deeper than this make a text a syntax error.
constexpr int MaxNesting = 2500;

// Parse and evaluate a finished text at once: the reference for everything compiled.
EvalResult EvaluateExpression(std::string_view text);

} // namespace vt
