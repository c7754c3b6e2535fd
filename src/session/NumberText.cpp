#include "session/NumberText.h"

#include <cctype>

namespace vt {

bool IsNumericText(std::string_view text) {
    std::size_t i = 0, n = text.size();
    while (i < n && (text[i] == ' ' || text[i] == '\t')) ++i;
    while (n > i && (text[n - 1] == ' ' || text[n - 1] == '\t')) --n;
    if (i < n && (text[i] == '+' || text[i] == '-')) ++i;
    bool digits = false;
    while (i < n && std::isdigit(static_cast<unsigned char>(text[i]))) ++i, digits = true;
    if (i < n && text[i] == '.') {
        ++i;
        while (i < n && std::isdigit(static_cast<unsigned char>(text[i]))) ++i, digits = true;
    }
    if (!digits) return false;
    if (i < n && (text[i] == 'e' || text[i] == 'E')) {
        ++i;
        if (i < n && (text[i] == '+' || text[i] == '-')) ++i;
        bool expDigits = false;
        while (i < n && std::isdigit(static_cast<unsigned char>(text[i]))) ++i, expDigits = true;
        if (!expDigits) return false;
    }
    return i == n;
}

} // namespace vt
