#include "entry/TokenText.h"

#include "base/NumberText.h"

namespace vt {

bool IsLetter(const std::string& s) {
    return (s >= "A" && s <= "Z") || (s >= "a" && s <= "z");
}

bool IsOperator(const std::string& s) {
    return s == "-" || s == "+" || s == "*" || s == "/";
}

bool IsSign(const std::string& s) {
    return s == "-" || s == "+";
}

bool IsNumberFraction(const std::string& s) {
    if (IsOperator(s)) return false;
    for (std::size_t i = 1; i < s.size(); ++i) {
        if (s[i] == '/' && s[i - 1] >= '0' && s[i - 1] <= '9') return true;
    }
    return false;
}

bool IsNumeric(const std::string& s) {
    return IsNumericText(s);
}

bool IsTrigToken(const std::string& s) {
    return s == "S" || s == "C" || s == "T";
}

} // namespace vt
