#pragma once
// One expression text with x free, compiled into a small stack program that is evaluated for
// many x: bit for bit and failure for failure what EvaluateExpression gives for the text with x
// written in.

#include <cstdint>
#include <string_view>
#include <vector>

#include "expr/Arithmetic.h"
#include "expr/Expression.h"
#include "expr/Reader.h"

namespace vt {

class ExpressionProgram {
  public:
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

} // namespace vt
