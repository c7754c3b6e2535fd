// Token lists through the equation breakdown. The input holds one or more lists, separated by a
// 0 byte, each list's tokens separated by a newline (so a token may be empty or hold blanks).
// The lists run one after the other in the same tables, as runs do in the program, starting
// from fresh tables. Every token also goes through the number tools. A run must end, in a text
// or in a reported error; anything else aborts.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "translate/breakdown/Breakdown.h"

namespace {

using namespace vt;

[[noreturn]] void Fail(const char* what) {
    std::fprintf(stderr, "breakdown: %s\n", what);
    std::abort();
}

bool IsSign(const std::string& t) {
    return t == "+" || t == "-";
}

std::vector<std::string> SplitAt(std::string_view text, char separator) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (std::size_t at = text.find(separator); at != std::string_view::npos;
         at = text.find(separator, start)) {
        parts.emplace_back(text.substr(start, at - start));
        start = at + 1;
    }
    parts.emplace_back(text.substr(start));
    return parts;
}

void Run(Session& s, const std::vector<std::string>& tokens) {
    for (const std::string& t : tokens) {
        std::string out;
        ExpandENotation(t, out);
        FractionValue(s, t, true, out);
    }
    if (SetBreakdownTokens(s, tokens) != BreakdownError::None) return;
    const BreakdownRun run = RunBreakdown(s);
    if (!run.Normalised.empty() && !IsSign(run.Normalised.front()))
        Fail("a normalised list does not start with a sign");
    if (run.Error == BreakdownError::None) {
        if (static_cast<int>(run.Terms.size()) != s.TermCount(0, 0))
            Fail("the terms do not match the table");
    } else if (!run.Terms.empty() || !run.Text.empty()) {
        Fail("a failed run left a text or terms");
    }
    if (BreakdownErrorName(run.Error) == nullptr) Fail("an error without a name");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static auto session = std::make_unique<Session>();
    Session& s = *session;
    static_cast<BreakdownState&>(s) = BreakdownState();
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    for (const std::string& list : SplitAt(input, '\0'))
        Run(s, list.empty() ? std::vector<std::string>() : SplitAt(list, '\n'));
    return 0;
}
