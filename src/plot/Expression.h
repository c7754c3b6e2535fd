#pragma once
// The expression evaluator behind the function values: a parser for the arithmetic texts that the
// expression builder makes, an evaluator of a finished text, and a compiled program that
// evaluates one text with x free for many x.
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
#include <string>
#include <string_view>
#include <vector>

namespace vt {

// The outcome of evaluating an expression.
struct EvalResult {
    enum Kind : std::uint8_t { Value, Empty, Failure };
    Kind kind = Failure;
    double value = 0;
};

// Groups and signs nested deeper than this make a text a syntax error.
constexpr int MaxNesting = 2500;

// The reference route: parse and evaluate a finished text at once.
EvalResult EvaluateExpression(std::string_view text);

// One text turned into a small stack program, with x free.
class ExpressionProgram {
  public:
    // How a lower-case "x" of the text is read: not at all (it is a letter like any other), as
    // the value, or as a minus sign followed by the value, which is how the text of a negative x
    // reads once spliced in.
    enum class XMode : std::uint8_t { Letter, Value, NegatedValue };

    static ExpressionProgram Compile(std::string_view text, XMode mode);
    // x is what stands for each "x": the value itself, or its magnitude for NegatedValue.
    EvalResult Run(double x) const;

    // Run for up to Lanes values of x at once, out[i] for x[i] with the same bits as Run gives.
    // Each step works through all the values before the next step, so that a sweep of x pays
    // for the stepping once per batch and the simple operators run side by side.
    static constexpr int Lanes = 64;
    void RunMany(const double* x, int n, EvalResult* out) const;

    // Operators from Add on take two operands: both from the stack, or one of them a constant
    // folded into the step.
    enum class Code : std::uint8_t { Const, X, Neg, Abs, Sin, Cos, Tan, Add, Sub, Mul, Div, Pow };
    enum class Operands : std::uint8_t { Stack, ConstantRight, ConstantLeft };
    struct Step {
        Code code;
        Operands operands;
        double constant;
    };

  private:
    EvalResult RunDeep(double x) const;
    template <class Stack> EvalResult RunOn(Stack& stack, double x) const;
    void RunManyOn(double (*stack)[Lanes], const double* x, int n, EvalResult* out) const;

    EvalResult::Kind kind_ = EvalResult::Failure; // Value: run the steps; otherwise the outcome
    std::vector<Step> steps_;
    int depth_ = 0; // the deepest the value stack gets
};

// A slot's text compiled once for all x. It applies only where the text of x, spliced in, stays
// a number of its own: every "x" stands between characters that cannot join it (not a letter,
// digit or "."). Elsewhere ("x3.1415926538", a word holding an x) the caller splices the text.
class CompiledScript {
  public:
    void Compile(std::string_view text);
    bool IsCompiledFrom(std::string_view text) const { return compiled_ && text == source_; }
    bool Applies() const { return applies_; }
    // The value at an x given as the Double its text reads back as (see RoundToNumberText).
    EvalResult Evaluate(double xRead) const {
        return xRead < 0 ? negated_.Run(-xRead) : plain_.Run(xRead);
    }
    // Evaluate for up to ExpressionProgram::Lanes values at once.
    void EvaluateMany(const double* xRead, int n, EvalResult* out) const;

  private:
    std::string source_;
    bool compiled_ = false;
    bool applies_ = false;
    ExpressionProgram plain_;   // for x at or above 0: "x" reads as the number
    ExpressionProgram negated_; // for x below 0: "x" reads as "-" and the magnitude
};

} // namespace vt
