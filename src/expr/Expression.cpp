#include "expr/Expression.h"

#include <vector>

#include "expr/Parser.h"

namespace vt {

namespace {

// Evaluates while parsing.
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

} // namespace

EvalResult EvaluateExpression(std::string_view text) {
    ValueSink sink;
    ExpressionParser<ValueSink> parser(text, XMode::Letter, sink);
    const EvalResult::Kind kind = parser.Parse();
    if (kind != EvalResult::Value) return {kind, 0};
    return {EvalResult::Value, sink.stack.back()};
}

} // namespace vt
