#pragma once
// The token reader of expression texts.

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vt {

// How a lower-case "x" of a text is read: not at all (it is a letter like any other), as the
// value, or as a minus sign followed by the value, which is how the text of a negative x reads
// once spliced in bare.
enum class XMode : std::uint8_t { Letter, Value, NegatedValue };

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

// Reads a text token by token; Next() moves to the following token.
class ExpressionReader {
  public:
    ExpressionReader(std::string_view text, XMode mode) : text_(text), mode_(mode) {}

    Tok tok = Tok::End;
    double number = 0;     // the value of a Number
    std::string_view name; // the letters of a Name

    void Next();

  private:
    std::string_view text_;
    XMode mode_;
    std::size_t pos_ = 0;
    bool xPending_ = false; // the magnitude after the minus of a negative x is still to come
};

} // namespace vt
