#include "plot/Expression.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>

#include "base/NumberText.h"

namespace vt {

namespace {

using Code = ExpressionProgram::Code;
using XMode = ExpressionProgram::XMode;
using Operands = ExpressionProgram::Operands;

// The arithmetic of one operator, shared by the direct evaluation, the folding of constants and
// the compiled program, so that all three give the same bits. False: the operation fails.
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

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
// Characters that would join the text of a number spliced in next to them.
bool JoinsNumber(char c) {
    return IsLetter(c) || IsDigit(c) || c == '.' || c == '_';
}

bool SameName(std::string_view name, const char* known) {
    if (name.size() != 3) return false;
    for (std::size_t i = 0; i < 3; ++i) {
        char c = name[i];
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
        if (c != known[i]) return false;
    }
    return true;
}

enum class Tok : std::uint8_t {
    End,
    Number,
    X,
    Name,
    Plus,
    Minus,
    Star,
    Slash,
    Caret,
    LParen,
    RParen,
    Bad
};

class Lexer {
  public:
    Lexer(std::string_view text, XMode mode) : text_(text), mode_(mode) {}

    Tok tok = Tok::End;
    double number = 0;
    std::string_view name;

    void Next() {
        if (xPending_) { // the magnitude after the minus of a negative x
            xPending_ = false;
            tok = Tok::X;
            return;
        }
        while (pos_ < text_.size() && (text_[pos_] == ' ' || text_[pos_] == '\t'))
            ++pos_;
        if (pos_ >= text_.size()) {
            tok = Tok::End;
            return;
        }
        const char c = text_[pos_];
        if (c == 'x' && mode_ != XMode::Letter) {
            ++pos_;
            if (mode_ == XMode::NegatedValue) {
                tok = Tok::Minus;
                xPending_ = true;
            } else {
                tok = Tok::X;
            }
            return;
        }
        if (IsDigit(c) || c == '.') {
            bool overflow = false;
            const std::size_t n = ReadDecimal(text_.substr(pos_), number, overflow);
            pos_ += n;
            tok = n == 0 || overflow ? Tok::Bad : Tok::Number;
            return;
        }
        if (IsLetter(c)) {
            const std::size_t start = pos_;
            while (pos_ < text_.size() &&
                   (IsLetter(text_[pos_]) || IsDigit(text_[pos_]) || text_[pos_] == '_'))
                ++pos_;
            name = text_.substr(start, pos_ - start);
            tok = Tok::Name;
            return;
        }
        ++pos_;
        switch (c) {
        case '+':
            tok = Tok::Plus;
            break;
        case '-':
            tok = Tok::Minus;
            break;
        case '*':
            tok = Tok::Star;
            break;
        case '/':
            tok = Tok::Slash;
            break;
        case '^':
            tok = Tok::Caret;
            break;
        case '(':
            tok = Tok::LParen;
            break;
        case ')':
            tok = Tok::RParen;
            break;
        default:
            tok = Tok::Bad;
            break;
        }
    }

  private:
    std::string_view text_;
    XMode mode_;
    std::size_t pos_ = 0;
    bool xPending_ = false;
};

// Recursive descent over the grammar; the sink either evaluates at once or emits a program.
// Every routine returns false on a syntax error or on a failure the sink reports.
template <class Sink> class Parser {
  public:
    Parser(std::string_view text, XMode mode, Sink& sink) : lex_(text, mode), sink_(sink) {}

    EvalResult::Kind Parse() {
        lex_.Next();
        if (lex_.tok == Tok::End) return EvalResult::Empty;
        if (!Sum() || lex_.tok != Tok::End) return EvalResult::Failure;
        return EvalResult::Value;
    }

  private:
    struct Nest {
        explicit Nest(int& n) : n_(++n) {}
        ~Nest() { --n_; }
        int& n_;
    };

    bool Sum() {
        if (!Product()) return false;
        while (lex_.tok == Tok::Plus || lex_.tok == Tok::Minus) {
            const Code code = lex_.tok == Tok::Plus ? Code::Add : Code::Sub;
            lex_.Next();
            if (!Product() || !sink_.Binary(code)) return false;
        }
        return true;
    }

    bool Product() {
        if (!Signed()) return false;
        while (lex_.tok == Tok::Star || lex_.tok == Tok::Slash) {
            const Code code = lex_.tok == Tok::Star ? Code::Mul : Code::Div;
            lex_.Next();
            if (!Signed() || !sink_.Binary(code)) return false;
        }
        return true;
    }

    // A sign here takes the whole power behind it: -3^2 is -(3^2).
    bool Signed() {
        if (lex_.tok == Tok::Minus || lex_.tok == Tok::Plus) {
            Nest nest(nesting_);
            if (nesting_ > MaxNesting) return false;
            const bool minus = lex_.tok == Tok::Minus;
            lex_.Next();
            if (!Signed()) return false;
            return !minus || sink_.Unary(Code::Neg);
        }
        return Power();
    }

    bool Power() {
        if (!Primary()) return false;
        while (lex_.tok == Tok::Caret) {
            lex_.Next();
            if (!Exponent() || !sink_.Binary(Code::Pow)) return false;
        }
        return true;
    }

    // The operand on the right of ^: signs bind to the next operand only.
    bool Exponent() {
        if (lex_.tok == Tok::Minus || lex_.tok == Tok::Plus) {
            Nest nest(nesting_);
            if (nesting_ > MaxNesting) return false;
            const bool minus = lex_.tok == Tok::Minus;
            lex_.Next();
            if (!Exponent()) return false;
            return !minus || sink_.Unary(Code::Neg);
        }
        return Primary();
    }

    bool Primary() {
        switch (lex_.tok) {
        case Tok::Number: {
            const double v = lex_.number;
            lex_.Next();
            return sink_.Number(v);
        }
        case Tok::X:
            lex_.Next();
            return sink_.X();
        case Tok::LParen: {
            Nest nest(nesting_);
            if (nesting_ > MaxNesting) return false;
            lex_.Next();
            if (!Sum() || lex_.tok != Tok::RParen) return false;
            lex_.Next();
            return true;
        }
        case Tok::Name: {
            Code code;
            if (SameName(lex_.name, "sin"))
                code = Code::Sin;
            else if (SameName(lex_.name, "cos"))
                code = Code::Cos;
            else if (SameName(lex_.name, "tan"))
                code = Code::Tan;
            else if (SameName(lex_.name, "abs"))
                code = Code::Abs;
            else
                return false; // an unknown name
            lex_.Next();
            if (lex_.tok != Tok::LParen) return false;
            Nest nest(nesting_);
            if (nesting_ > MaxNesting) return false;
            lex_.Next();
            if (!Sum() || lex_.tok != Tok::RParen) return false;
            lex_.Next();
            return sink_.Unary(code);
        }
        default:
            return false;
        }
    }

    Lexer lex_;
    Sink& sink_;
    int nesting_ = 0;
};

// Evaluates while parsing: the reference route for a finished text.
class ValueSink {
  public:
    std::vector<double> stack;

    bool Number(double v) {
        stack.push_back(v);
        return true;
    }
    bool X() { return false; } // a finished text has no free x
    bool Unary(Code code) { return ApplyUnary(code, stack.back(), stack.back()); }
    bool Binary(Code code) {
        const double b = stack.back();
        stack.pop_back();
        return ApplyBinary(code, stack.back(), b, stack.back());
    }
};

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

EvalResult EvaluateExpression(std::string_view text) {
    ValueSink sink;
    Parser<ValueSink> parser(text, XMode::Letter, sink);
    const EvalResult::Kind kind = parser.Parse();
    if (kind != EvalResult::Value) return {kind, 0};
    return {EvalResult::Value, sink.stack.back()};
}

ExpressionProgram ExpressionProgram::Compile(std::string_view text, XMode mode) {
    ProgramSink sink;
    Parser<ProgramSink> parser(text, mode, sink);
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

void CompiledScript::EvaluateMany(const double* xRead, int n, EvalResult* out) const {
    // Each program takes its own lanes: gathered, run, and put back in their places.
    constexpr int Lanes = ExpressionProgram::Lanes;
    double plainX[Lanes], negatedX[Lanes];
    int plainAt[Lanes], negatedAt[Lanes];
    int plainCount = 0, negatedCount = 0;
    for (int i = 0; i < n; ++i) {
        if (xRead[i] < 0) {
            negatedX[negatedCount] = -xRead[i];
            negatedAt[negatedCount++] = i;
        } else {
            plainX[plainCount] = xRead[i];
            plainAt[plainCount++] = i;
        }
    }
    if (negatedCount == 0) { // a batch of one sign runs in place
        plain_.RunMany(xRead, n, out);
        return;
    }
    EvalResult results[Lanes];
    plain_.RunMany(plainX, plainCount, results);
    for (int k = 0; k < plainCount; ++k)
        out[plainAt[k]] = results[k];
    negated_.RunMany(negatedX, negatedCount, results);
    for (int k = 0; k < negatedCount; ++k)
        out[negatedAt[k]] = results[k];
}

void CompiledScript::Compile(std::string_view text) {
    source_.assign(text);
    compiled_ = true;
    applies_ = true;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != 'x') continue;
        if ((i > 0 && JoinsNumber(text[i - 1])) ||
            (i + 1 < text.size() && JoinsNumber(text[i + 1])))
            applies_ = false;
        // After "E+" or "E-" the digits of x become a number's exponent: "2E+x" reads as 20 at
        // x = 1.
        if (i > 1 && (text[i - 1] == '+' || text[i - 1] == '-') &&
            (text[i - 2] == 'E' || text[i - 2] == 'e'))
            applies_ = false;
    }
    if (applies_) {
        plain_ = ExpressionProgram::Compile(text, ExpressionProgram::XMode::Value);
        negated_ = ExpressionProgram::Compile(text, ExpressionProgram::XMode::NegatedValue);
    } else {
        plain_ = negated_ = ExpressionProgram();
    }
}

} // namespace vt
