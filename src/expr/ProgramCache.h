#pragma once
// A slot's text compiled for all x, and the programs kept by their text so that a text is
// compiled once however often it is painted.

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "expr/Program.h"

namespace vt {

// A text compiled once for all x. It applies only where the text of x, spliced in, stays a
// number of its own: every "x" stands between characters that cannot join it (not a letter,
// digit or "."). Elsewhere ("x3.1415926538", a word holding an x) the caller splices the text.
class CompiledScript {
  public:
    explicit CompiledScript(std::string_view text);
    const std::string& Source() const { return source_; }
    bool Applies() const { return applies_; }
    // The value at an x given as the Double its text reads back as (see RoundToNumberText).
    // A negative x spliced bare brings its minus in front of what follows; in brackets it is
    // a value of its own.
    EvalResult Evaluate(double xRead, bool bracketNegativeX) const {
        return xRead < 0 && !bracketNegativeX ? negated_.Run(-xRead) : plain_.Run(xRead);
    }
    // Evaluate for up to ExpressionProgram::Lanes values at once.
    void EvaluateMany(const double* xRead, int n, bool bracketNegativeX, EvalResult* out) const;

  private:
    std::string source_;
    bool applies_ = false;
    ExpressionProgram plain_;   // x at or above 0, or any x in brackets: "x" reads as the number
    ExpressionProgram negated_; // x below 0, bare: "x" reads as "-" and the magnitude
};

// The compiled programs of the texts seen last, at most Capacity of them; the one used least
// recently goes first. A program handed out stays valid while its holder keeps it.
class ProgramCache {
  public:
    static constexpr std::size_t Capacity = 32;

    // The program of text: the one kept, or one compiled now.
    std::shared_ptr<const CompiledScript> Get(std::string_view text);

    // How many texts were compiled since the cache was made.
    long Compilations() const { return compilations_; }
    std::size_t Size() const { return entries_.size(); }

  private:
    std::vector<std::shared_ptr<const CompiledScript>> entries_; // the one used last at the end
    long compilations_ = 0;
};

} // namespace vt
