#pragma once
// The parser of expression texts: recursive descent over the grammar told in Expression.h. It
// hands what it recognises to a sink, which either evaluates at once or emits a program.
//
// A sink offers bool Number(double), X(), Unary(Code) and Binary(Code); false from any of them
// is a failure that ends the parse.

#include <string_view>

#include "expr/Arithmetic.h"
#include "expr/Expression.h"
#include "expr/Reader.h"

namespace vt {

template <class Sink> class ExpressionParser {
  public:
    ExpressionParser(std::string_view text, XMode mode, Sink& sink)
        : reader_(text, mode), sink_(sink) {}

    // Value when the whole text was read and every step of the sink succeeded; Empty for a text
    // without tokens; Failure otherwise.
    EvalResult::Kind Parse() {
        reader_.Next();
        if (reader_.tok == Tok::End) return EvalResult::Empty;
        if (!Sum() || reader_.tok != Tok::End) return EvalResult::Failure;
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
        while (reader_.tok == Tok::Plus || reader_.tok == Tok::Minus) {
            const Code code = reader_.tok == Tok::Plus ? Code::Add : Code::Sub;
            reader_.Next();
            if (!Product() || !sink_.Binary(code)) return false;
        }
        return true;
    }

    bool Product() {
        if (!Signed()) return false;
        while (reader_.tok == Tok::Star || reader_.tok == Tok::Slash) {
            const Code code = reader_.tok == Tok::Star ? Code::Mul : Code::Div;
            reader_.Next();
            if (!Signed() || !sink_.Binary(code)) return false;
        }
        return true;
    }

    // A sign here takes the whole power behind it: -3^2 is -(3^2).
    bool Signed() {
        if (reader_.tok == Tok::Minus || reader_.tok == Tok::Plus) {
            Nest nest(nesting_);
            if (nesting_ > MaxNesting) return false;
            const bool minus = reader_.tok == Tok::Minus;
            reader_.Next();
            if (!Signed()) return false;
            return !minus || sink_.Unary(Code::Neg);
        }
        return Power();
    }

    bool Power() {
        if (!Primary()) return false;
        while (reader_.tok == Tok::Caret) {
            reader_.Next();
            if (!Exponent() || !sink_.Binary(Code::Pow)) return false;
        }
        return true;
    }

    // The operand on the right of ^: signs bind to the next operand only.
    bool Exponent() {
        if (reader_.tok == Tok::Minus || reader_.tok == Tok::Plus) {
            Nest nest(nesting_);
            if (nesting_ > MaxNesting) return false;
            const bool minus = reader_.tok == Tok::Minus;
            reader_.Next();
            if (!Exponent()) return false;
            return !minus || sink_.Unary(Code::Neg);
        }
        return Primary();
    }

    static bool SameName(std::string_view name, const char* known) {
        if (name.size() != 3) return false;
        for (std::size_t i = 0; i < 3; ++i) {
            char c = name[i];
            if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
            if (c != known[i]) return false;
        }
        return true;
    }

    bool Group() {
        Nest nest(nesting_);
        if (nesting_ > MaxNesting) return false;
        reader_.Next();
        if (!Sum() || reader_.tok != Tok::RParen) return false;
        reader_.Next();
        return true;
    }

    bool Primary() {
        switch (reader_.tok) {
        case Tok::Number: {
            const double v = reader_.number;
            reader_.Next();
            return sink_.Number(v);
        }
        case Tok::X:
            reader_.Next();
            return sink_.X();
        case Tok::LParen:
            return Group();
        case Tok::Name: {
            Code code;
            if (SameName(reader_.name, "sin"))
                code = Code::Sin;
            else if (SameName(reader_.name, "cos"))
                code = Code::Cos;
            else if (SameName(reader_.name, "tan"))
                code = Code::Tan;
            else if (SameName(reader_.name, "abs"))
                code = Code::Abs;
            else
                return false; // an unknown name
            reader_.Next();
            if (reader_.tok != Tok::LParen) return false;
            return Group() && sink_.Unary(code);
        }
        default:
            return false;
        }
    }

    ExpressionReader reader_;
    Sink& sink_;
    int nesting_ = 0;
};

} // namespace vt
