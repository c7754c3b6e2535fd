#include "entry/TokenText.h"

#include <array>

#include "base/NumberText.h"

namespace vt {

bool IsLetter(const std::string& s) {
    // The same test as s >= "A" && s <= "Z" (or the small letters), done on the first
    // character: past it only "Z" or "z" itself may stand alone, and "Za" is beyond "Z".
    if (s.empty()) return false;
    const auto c = static_cast<unsigned char>(s[0]);
    const auto within = [&](unsigned char first, unsigned char last) {
        return c >= first && (c < last || (c == last && s.size() == 1));
    };
    return within('A', 'Z') || within('a', 'z');
}

bool IsOperator(const std::string& s) {
    return s == '-'_tok || s == '+'_tok || s == '*'_tok || s == '/'_tok;
}

bool IsSign(const std::string& s) {
    return s == '-'_tok || s == '+'_tok;
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
    return s == 'S'_tok || s == 'C'_tok || s == 'T'_tok;
}

} // namespace vt
