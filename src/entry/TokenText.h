#pragma once
// Small tests on token text, shared by the entry rules and the expression builder.

#include <string>

namespace vt {

// A one-character token to compare a token with: tok == '^'_tok holds when tok is exactly "^".
// The length and the one character decide, which is all a token comparison needs.
struct TokenChar {
    char c;
};
constexpr TokenChar operator""_tok(char c) {
    return {c};
}
inline bool operator==(const std::string& s, TokenChar t) {
    return s.size() == 1 && s[0] == t.c;
}

// s compares, as a whole string in binary order, between "A" and "Z" or between "a" and "z".
// So "S", "x" and also "abs(" are letters.
bool IsLetter(const std::string& s);
// "-", "+", "*" or "/".
bool IsOperator(const std::string& s);
// The three function letters: "S", "C" or "T".
bool IsTrigToken(const std::string& s);
// "-" or "+".
bool IsSign(const std::string& s);
// Not an operator, and some "/" in s has a digit just before it ("3/4", "12/5").
bool IsNumberFraction(const std::string& s);
// The numeric-text test of the number text module ("" is not numeric).
bool IsNumeric(const std::string& s);

} // namespace vt
