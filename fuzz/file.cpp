// Arbitrary bytes as a graph data file: loaded as Load Graph Data loads a file's text, then,
// where the result can be saved, saved as text and that text loaded into a new session. A file
// the program wrote must load, with its points, trend and order as they were. Its rows need not
// come back whole: the load replays them in row order, and the entry flags that carry over from
// one row to the next (a number's point, the fraction's side) may refuse a key that was taken
// when the rows were typed in another order. A refused key only drops out, so each row comes
// back as a subsequence of what was saved. The rows a load leaves must be lists the entry rules
// could have made. Anything else aborts.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "QuietSurface.h"
#include "base/Shell.h"
#include "commands/SaveLoad.h"
#include "commands/Startup.h"
#include "entry/Entry.h"
#include "output/DataFile.h"

namespace {

using namespace vt;

[[noreturn]] void Fail(const char* what, const std::string& text) {
    std::fprintf(stderr, "file: %s\n  text: \"%s\"\n", what, text.c_str());
    std::abort();
}

bool IsSubsequence(const std::string& part, const std::string& whole) {
    std::size_t at = 0;
    for (char c : whole)
        if (at < part.size() && part[at] == c) ++at;
    return at == part.size();
}

struct Loaded {
    std::unique_ptr<Session> s = std::make_unique<Session>();
    fuzz::QuietSurface box{400, 400};
    HeadlessShell shell;
    bool ok = false;

    explicit Loaded(const std::string& text) {
        StartSession(*s);
        shell.Graph = &box;
        s->BindHost(&shell);
        // As the load command runs it: a failure of the rules or the series on their own
        // counts as a file that did not load.
        try {
            ok = LoadGraphDataText(*s, text);
        } catch (const std::exception&) {
            ok = false;
        }
        for (int slot = 0; slot < UsableSlots; ++slot) {
            const std::string row = EntryText(*s, slot);
            if (static_cast<int>(row.size()) != s->TokenCount(slot))
                Fail("a row's tokens do not match its count", row);
            if (row.find_first_not_of("0123456789.+-*/^~|()xPSCT") != std::string::npos)
                Fail("a row holds a key the rules never take", row);
        }
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    Loaded first(bytes);
    const std::optional<std::string> saved = GraphDataText(*first.s);
    if (!saved) return 0;
    // What the save writes: the data text and the line end.
    Loaded again(*saved + std::string(DataLineEnd));
    if (!again.ok) Fail("a saved file does not load", *saved);
    const std::optional<std::string> resaved = GraphDataText(*again.s);
    if (!resaved) Fail("a reloaded file cannot be saved", *saved);
    const std::vector<std::string> before = SplitFields(*saved), after = SplitFields(*resaved);
    if (before.size() != after.size()) Fail("a reloaded file has other fields", *resaved);
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (i < UsableSlots ? !IsSubsequence(after[i], before[i]) : after[i] != before[i])
            Fail("a reloaded file saves differently", *resaved);
    }
    return 0;
}
