#include "expr/Program.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>

#include "expr/Parser.h"

namespace vt {

namespace {

using Operands = ExpressionProgram::Operands;

// Emits the stack program. Operations on constants alone are worked out here; an operation
// with one constant operand takes the constant into its step. A constant part that fails makes
// the whole text fail for every x, exactly as evaluating it would.
class ProgramSink {
  public:
    using Step = ExpressionProgram::Step;
    using Operands = ExpressionProgram::Operands;
    std::vector<Step> steps;

    bool Number(double v) {
        starts_.push_back(steps.size());
        steps.push_back({Code::Const, Operands::Stack, v});
        return true;
    }
    bool X() {
        starts_.push_back(steps.size());
        steps.push_back({Code::X, Operands::Stack, 0});
        return true;
    }
    bool Unary(Code code) {
        // An operand whose last step is a constant is that constant alone: any larger operand
        // ends in its operator.
        if (steps.back().code == Code::Const)
            return ApplyUnary(code, steps.back().constant, steps.back().constant);
        steps.push_back({code, Operands::Stack, 0});
        return true;
    }
    bool Binary(Code code) {
        const std::size_t right = starts_.back();
        starts_.pop_back();
        const std::size_t left = starts_.back();
        const bool rightConstant = steps.back().code == Code::Const;
        const bool leftConstant = right == left + 1 && steps[left].code == Code::Const;
        if (leftConstant && rightConstant) {
            const double b = steps.back().constant;
            steps.pop_back();
            return ApplyBinary(code, steps.back().constant, b, steps.back().constant);
        }
        if (rightConstant) {
            steps.back() = {code, Operands::ConstantRight, steps.back().constant};
        } else if (leftConstant) {
            const double a = steps[left].constant;
            steps.erase(steps.begin() + static_cast<std::ptrdiff_t>(left));
            steps.push_back({code, Operands::ConstantLeft, a});
        } else {
            steps.push_back({code, Operands::Stack, 0});
        }
        return true;
    }

  private:
    std::vector<std::size_t> starts_; // first step of each operand on the stack
};

} // namespace

ExpressionProgram ExpressionProgram::Compile(std::string_view text, XMode mode) {
    ProgramSink sink;
    ExpressionParser<ProgramSink> parser(text, mode, sink);
    ExpressionProgram program;
    program.kind_ = parser.Parse();
    if (program.kind_ != EvalResult::Value) return program;
    program.steps_ = std::move(sink.steps);
    int depth = 0;
    for (const Step& step : program.steps_) {
        if (step.code == Code::Const || step.code == Code::X)
            ++depth;
        else if (step.code >= Code::Add && step.operands == Operands::Stack)
            --depth;
        if (depth > program.depth_) program.depth_ = depth;
    }
    return program;
}

namespace {

// One case label per operator and operand layout, so that the loop dispatches once per step.
constexpr int Dispatch(Code code, Operands operands) {
    return static_cast<int>(code) * 3 + static_cast<int>(operands);
}

} // namespace

template <class Stack> EvalResult ExpressionProgram::RunOn(Stack& stack, double x) const {
    constexpr EvalResult failure{EvalResult::Failure, 0};
    int top = 0; // the values from stack[1] on; stack[0] is there so that t always exists
    for (const Step& step : steps_) {
        double& t = stack[top];
        switch (Dispatch(step.code, step.operands)) {
        case Dispatch(Code::Const, Operands::Stack):
            stack[++top] = step.constant;
            break;
        case Dispatch(Code::X, Operands::Stack):
            stack[++top] = x;
            break;
        case Dispatch(Code::Neg, Operands::Stack):
            t = -t;
            break;
        case Dispatch(Code::Abs, Operands::Stack):
            t = std::fabs(t);
            break;
        case Dispatch(Code::Sin, Operands::Stack):
            if (!ApplyUnary(Code::Sin, t, t)) return failure;
            break;
        case Dispatch(Code::Cos, Operands::Stack):
            if (!ApplyUnary(Code::Cos, t, t)) return failure;
            break;
        case Dispatch(Code::Tan, Operands::Stack):
            if (!ApplyUnary(Code::Tan, t, t)) return failure;
            break;
#define VT_BINARY_CASES(op)                                                                        \
    case Dispatch(op, Operands::Stack):                                                            \
        --top;                                                                                     \
        if (!ApplyBinary(op, stack[top], t, stack[top])) return failure;                           \
        break;                                                                                     \
    case Dispatch(op, Operands::ConstantRight):                                                    \
        if (!ApplyBinary(op, t, step.constant, t)) return failure;                                 \
        break;                                                                                     \
    case Dispatch(op, Operands::ConstantLeft):                                                     \
        if (!ApplyBinary(op, step.constant, t, t)) return failure;                                 \
        break;
            VT_BINARY_CASES(Code::Add)
            VT_BINARY_CASES(Code::Sub)
            VT_BINARY_CASES(Code::Mul)
            VT_BINARY_CASES(Code::Div)
            VT_BINARY_CASES(Code::Pow)
#undef VT_BINARY_CASES
        default:
            return failure;
        }
    }
    return {EvalResult::Value, stack[1]};
}

namespace {

bool Finite(double r) {
    return std::fabs(r) <= std::numeric_limits<double>::max(); // false for NaN too
}

// One lane of a binary step in a batch: ApplyBinary's arithmetic and failures, written without
// branches for + - * / so that the compiler runs the lanes side by side. A lane that fails goes
// on with harmless numbers (a division by zero divides by 1) and is marked.
template <Code C> double Lane(double a, double b, bool& bad) {
    if constexpr (C == Code::Add || C == Code::Sub || C == Code::Mul) {
        const double r = C == Code::Add ? a + b : C == Code::Sub ? a - b : a * b;
        bad = !Finite(r);
        return r;
    } else if constexpr (C == Code::Div) {
        const bool zero = b == 0;
        const double r = a / (zero ? 1.0 : b);
        bad = zero || !Finite(r);
        return r;
    } else {
        double r = 0;
        bad = !ApplyBinary(C, a, b, r);
        return r;
    }
}

// A binary step over n lanes: t is the top row of the stack, below the row under it.
template <Code C>
void BinaryLanes(Operands operands, double c, double* below, double* t, int n,
                 unsigned char* failed) {
    bool bad = false;
    switch (operands) {
    case Operands::Stack:
        for (int i = 0; i < n; ++i) {
            below[i] = Lane<C>(below[i], t[i], bad);
            failed[i] |= bad;
        }
        break;
    case Operands::ConstantRight:
        for (int i = 0; i < n; ++i) {
            t[i] = Lane<C>(t[i], c, bad);
            failed[i] |= bad;
        }
        break;
    case Operands::ConstantLeft:
        for (int i = 0; i < n; ++i) {
            t[i] = Lane<C>(c, t[i], bad);
            failed[i] |= bad;
        }
        break;
    }
}

// The binary steps over lanes, in the order of Code from Add on.
using LanesStep = void (*)(Operands, double, double*, double*, int, unsigned char*);
constexpr LanesStep BinarySteps[] = {BinaryLanes<Code::Add>, BinaryLanes<Code::Sub>,
                                     BinaryLanes<Code::Mul>, BinaryLanes<Code::Div>,
                                     BinaryLanes<Code::Pow>};

} // namespace

void ExpressionProgram::RunManyOn(double (*stack)[Lanes], const double* x, int n,
                                  EvalResult* out) const {
    unsigned char failed[Lanes] = {};
    int top = 0; // as in RunOn: the values from stack[1] on
    for (const Step& step : steps_) {
        double* t = stack[top];
        double* below = top > 0 ? stack[top - 1] : nullptr;
        switch (step.code) {
        case Code::Const:
            std::fill_n(stack[++top], n, step.constant);
            break;
        case Code::X:
            std::copy_n(x, n, stack[++top]);
            break;
        case Code::Neg:
            for (int i = 0; i < n; ++i)
                t[i] = -t[i];
            break;
        case Code::Abs:
            for (int i = 0; i < n; ++i)
                t[i] = std::fabs(t[i]);
            break;
        case Code::Sin:
        case Code::Cos:
        case Code::Tan:
            for (int i = 0; i < n; ++i)
                failed[i] |= !ApplyUnary(step.code, t[i], t[i]);
            break;
        default: // the binary operators, from Add on in the order of Code
            BinarySteps[static_cast<int>(step.code) - static_cast<int>(Code::Add)](
                step.operands, step.constant, below, t, n, failed);
            break;
        }
        if (step.code >= Code::Add && step.operands == Operands::Stack) --top;
    }
    for (int i = 0; i < n; ++i)
        out[i] = failed[i] ? EvalResult{EvalResult::Failure, 0}
                           : EvalResult{EvalResult::Value, stack[1][i]};
}

void ExpressionProgram::RunMany(const double* x, int n, EvalResult* out) const {
    if (kind_ != EvalResult::Value) {
        std::fill_n(out, n, EvalResult{kind_, 0});
        return;
    }
    constexpr int LocalDepth = 24;
    if (depth_ < LocalDepth) {
        double stack[LocalDepth][Lanes];
        RunManyOn(stack, x, n, out);
        return;
    }
    const auto stack = std::make_unique<double[][Lanes]>(static_cast<std::size_t>(depth_) + 1);
    RunManyOn(stack.get(), x, n, out);
}

EvalResult ExpressionProgram::Run(double x) const {
    if (kind_ != EvalResult::Value) return {kind_, 0};
    constexpr int LocalDepth = 24;
    if (depth_ >= LocalDepth) return RunDeep(x);
    double stack[LocalDepth];
    stack[0] = 0;
    return RunOn(stack, x);
}

EvalResult ExpressionProgram::RunDeep(double x) const {
    std::vector<double> stack(static_cast<std::size_t>(depth_) + 1);
    return RunOn(stack, x);
}

} // namespace vt
