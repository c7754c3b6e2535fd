#include "entry/TokenText.h"

#include <array>
#include <string_view>

#include "base/NumberText.h"

namespace vt {

// Tokens are compared with literals as views: the length first, then the characters.
using namespace std::string_view_literals;

bool IsLetter(const std::string& s) {
    return (s >= "A" && s <= "Z") || (s >= "a" && s <= "z");
}

bool IsOperator(const std::string& s) {
    return s == "-"sv || s == "+"sv || s == "*"sv || s == "/"sv;
}

bool IsSign(const std::string& s) {
    return s == "-"sv || s == "+"sv;
}

bool IsNumberFraction(const std::string& s) {
    if (IsOperator(s)) return false;
    for (std::size_t i = 1; i < s.size(); ++i) {
        if (s[i] == '/' && s[i - 1] >= '0' && s[i - 1] <= '9') return true;
    }
    return false;
}

bool IsNumeric(const std::string& s) {
    // Most tokens are one character; their answers are worked out once.
    static const std::array<bool, 256> single = [] {
        std::array<bool, 256> table{};
        for (int c = 0; c < 256; ++c)
            table[static_cast<std::size_t>(c)] =
                IsNumericText(std::string(1, static_cast<char>(c)));
        return table;
    }();
    if (s.size() == 1) return single[static_cast<unsigned char>(s[0])];
    return IsNumericText(s);
}

bool IsTrigToken(const std::string& s) {
    return s == "S"sv || s == "C"sv || s == "T"sv;
}

} // namespace vt
