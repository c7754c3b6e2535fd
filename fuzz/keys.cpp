// Keystrokes for the five function rows. Each byte is one action:
//   0xF0..0xF4        make row 0..4 the active row
//   0xF5, 0xF6, 0xF7  Insert > Sine, Cosine, Tangent
//   0xF8              Backspace
//   0xF9              Enter
//   0xFA              flip TrigFromMenu (keys as a file load sends them)
//   0xFB n a b        keys a and b in turn, n % 16 + 1 times each (long rows from short inputs)
//   any other byte    that key code through Paper_KeyPress
// Every row is typeset on a measuring surface after each key, and Enter on a complete set of
// rows evaluates them. After each action the rows must still be lists the entry rules could have
// made; anything else aborts.
//
// The builder's work per key grows steeply with the row's length, so inputs are kept short
// (keys.flags); a row filled to its last cell is a case of the ordinary tests.

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "QuietSurface.h"
#include "commands/KeyStroke.h"
#include "entry/Entry.h"
#include "plot/Evaluate.h"
#include "translate/Graphable.h"

namespace {

using namespace vt;

const std::string TokenAlphabet = "0123456789.+-*/^~|()xPSCT";

[[noreturn]] void Fail(const char* what, int slot, const std::string& row) {
    std::fprintf(stderr, "keys: %s (row %d: \"%s\")\n", what, slot, row.c_str());
    std::abort();
}

// The row as its cells hold it; aborts unless they hold a gapless list of tokens. Only a few
// cells past the end are looked at, except for the final check of each input.
std::string ReadRow(const Session& s, int slot, bool wholeRow) {
    const int count = s.TokenCount(slot);
    if (count < 0 || count > CellUpper + 1) Fail("token count out of range", slot, "");
    std::string row;
    for (int i = 0; i < count; ++i) {
        const std::string& t = s.EntryTokens(i, slot);
        if (t.size() != 1 || TokenAlphabet.find(t[0]) == std::string::npos)
            Fail("a cell holds no token", slot, row);
        row += t;
    }
    const int last = wholeRow ? CellUpper : std::min(count + 3, CellUpper);
    for (int i = count; i <= last; ++i)
        if (!s.EntryTokens(i, slot).empty()) Fail("a cell past the end holds a token", slot, row);
    return row;
}

class Rig {
  public:
    Rig() : s_(std::make_unique<Session>()), host_(*this) {
        SetKeyMask(*s_);
        for (int i = 0; i < UsableSlots; ++i) {
            papers_[i] = std::make_unique<fuzz::QuietSurface>(400, 40);
            host_.Papers[static_cast<std::size_t>(i)] = papers_[i].get();
        }
        s_->BindHost(&host_);
    }

    void Key(int key) {
        const int slot = s_->ActiveSlot;
        const std::string before = rows_[slot];
        Paper_KeyPress(*s_, slot, key);
        const std::string now = Settle(slot);
        if (!s_->KeyAccepted && now != before) Fail("a refused key changed the row", slot, now);
        if (s_->KeyAccepted && key != BackspaceKey && now.size() != before.size() + 1)
            Fail("an accepted key did not add one token", slot, now);
    }

    void Insert(void (*command)(Session&)) {
        command(*s_);
        Settle(s_->ActiveSlot);
    }

    void SetActive(int slot) { s_->ActiveSlot = slot; }
    void FlipTrigFromMenu() { s_->TrigFromMenu = !s_->TrigFromMenu; }

    void FinalCheck() {
        s_->TrigFromMenu = false;
        for (int slot = 0; slot < UsableSlots; ++slot) {
            const std::string row = ReadRow(*s_, slot, true);
            if (row != rows_[slot] || EntryText(*s_, slot) != row)
                Fail("the row differs from what its keys made", slot, row);
            if (GraphableText(*s_, slot).empty() != row.empty())
                Fail("evaluator text does not match the row", slot, row);
        }
    }

  private:
    // Checks the row a key went to and that no other row moved.
    std::string Settle(int slot) {
        if (s_->ActiveSlot != slot) Fail("the active row changed", slot, "");
        const std::string now = ReadRow(*s_, slot, false);
        int open = 0, bars = 0;
        for (char c : now) {
            open += c == '(' ? 1 : c == ')' ? -1 : 0;
            bars += c == '|';
        }
        if (s_->OpenParens(slot) != open || open < 0 || open > 3)
            Fail("open parenthesis count is wrong", slot, now);
        if (s_->OpenBars(slot) != bars % 2) Fail("open bar count is wrong", slot, now);
        if (now.empty() != GraphableText(*s_, slot).empty())
            Fail("evaluator text does not match the row", slot, now);
        for (int other = 0; other < UsableSlots; ++other)
            if (other != slot && s_->TokenCount(other) != static_cast<int>(rows_[other].size()))
                Fail("another row changed", other, rows_[other]);
        rows_[slot] = now;
        return now;
    }

    std::string ByText(int slot, double x) {
        s_->Evaluator.SetStrategy(EvalStrategy::Text);
        std::string y = CalculateY(*s_, x, slot);
        s_->Evaluator.SetStrategy(EvalStrategy::Compiled);
        return y;
    }

    // What the Graph command needs of the rows: their values, by both routes.
    void Graph() {
        PreCalcFX(*s_);
        for (int slot = 0; slot < UsableSlots; ++slot)
            for (double x : {-1.5, 0.0, 2.0})
                if (CalculateY(*s_, x, slot) != ByText(slot, x))
                    Fail("the two evaluation routes disagree", slot, rows_[slot]);
    }

    // The rows' surfaces, and Enter's Graph command.
    struct Host : HeadlessShell {
        explicit Host(Rig& rig) : rig(rig) {}
        void GraphCommand() override { rig.Graph(); }
        Rig& rig;
    };

    std::unique_ptr<Session> s_;
    Host host_;
    std::array<std::unique_ptr<fuzz::QuietSurface>, UsableSlots> papers_;
    std::array<std::string, UsableSlots> rows_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Rig rig;
    for (std::size_t i = 0; i < size; ++i) {
        const std::uint8_t b = data[i];
        if (b >= 0xF0 && b <= 0xF4) {
            rig.SetActive(b - 0xF0);
        } else if (b == 0xF5) {
            rig.Insert(mnuSin_Click);
        } else if (b == 0xF6) {
            rig.Insert(mnuCos_Click);
        } else if (b == 0xF7) {
            rig.Insert(mnuTan_Click);
        } else if (b == 0xF8) {
            rig.Key(BackspaceKey);
        } else if (b == 0xF9) {
            rig.Key(EnterKey);
        } else if (b == 0xFA) {
            rig.FlipTrigFromMenu();
        } else if (b == 0xFB) {
            if (i + 3 >= size) break;
            const int times = data[i + 1] % 16 + 1;
            const int a = data[i + 2], c = data[i + 3];
            i += 3;
            for (int n = 0; n < times; ++n) {
                rig.Key(a);
                rig.Key(c);
            }
        } else {
            rig.Key(b);
        }
    }
    rig.FinalCheck();
    return 0;
}
