#pragma once
// The value of a slot's function at an x. The function is its text with x free; x goes in as
// its number text, bare, or in brackets when it is negative and the bracketing is on.

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

#include "expr/Expression.h"
#include "expr/ProgramCache.h"

namespace vt {

// How values are worked out. Text splices the text of x into the function and evaluates the
// string: the reference. Compiled runs the text's compiled program wherever the splice cannot
// join the text of x to its neighbours, with the same result bit for bit and failure for
// failure, and takes the text route elsewhere.
enum class EvalStrategy : std::uint8_t { Compiled, Text };

// A value as the text of CalculateY reads back.
struct YValue {
    enum Kind { Number, NotAvailable };
    Kind kind = NotAvailable;
    double value = 0; // the number the text reads back as ("0" for an empty result)
    // The number; none where there is no value.
    std::optional<double> Known() const {
        return kind == Number ? std::optional<double>(value) : std::nullopt;
    }
};

// The text form of a Double spliced for x: its number text, in brackets when it starts with a
// minus and bracketNegativeX is set.
std::string SplicedX(double x, bool bracketNegativeX);

// Evaluates the functions of the five slots. Each slot holds the compiled program of the text
// it was last asked about; a text seen before takes its program from the cache.
class SlotEvaluator {
  public:
    static constexpr int Slots = 5;

    explicit SlotEvaluator(EvalStrategy strategy = EvalStrategy::Compiled) : strategy_(strategy) {}

    EvalStrategy Strategy() const { return strategy_; }
    void SetStrategy(EvalStrategy strategy) { strategy_ = strategy; }

    // Makes slot's program the one of text, so that the values that follow compile nothing.
    void Prepare(int slot, std::string_view text);
    // Whether slot's text runs compiled (always false on the text route).
    bool RunsCompiled(int slot, std::string_view text);

    // The result of text at x, for slot.
    EvalResult Evaluate(int slot, std::string_view text, double x, bool bracketNegativeX);
    // That result as CalculateY's text reads back.
    YValue Value(int slot, std::string_view text, double x, bool bracketNegativeX);
    // Value at each of xs: out[i] for xs[i], out as long as xs. On the compiled route the values
    // are worked out a batch at a time, each step of the program going through the whole batch.
    void Values(int slot, std::string_view text, std::span<const double> xs, std::span<YValue> out,
                bool bracketNegativeX);

    const ProgramCache& Cache() const { return cache_; }

  private:
    // slot's program for text, or none when the text route must serve.
    const CompiledScript* ProgramFor(int slot, std::string_view text);

    EvalStrategy strategy_;
    ProgramCache cache_;
    std::array<std::shared_ptr<const CompiledScript>, Slots> slots_;
};

} // namespace vt
