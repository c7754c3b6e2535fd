#pragma once
// The tables of the equation breakdown: the token list it reads, and each side of an equation as
// groups (a parenthesis or a bar opens one), parts within a group, and terms within a part.
// Every bound is the one the breakdown declares; an index outside it is a SubscriptError, which
// the breakdown's entry points turn into a result.

#include <string>
#include <vector>

#include "base/Checked.h"

namespace vt {

// Bounds of the tables.
constexpr int BreakdownGroupUpper = 20;
constexpr int BreakdownPartUpper = 50;
constexpr int BreakdownTermUpper = 100;
constexpr int BreakdownRowUpper = 100;
constexpr int BreakdownFactorUpper = 10;

using BreakdownTokenList = HeapArray<std::string, CellUpper>;

// One term: a signed rational coefficient and the letters it multiplies. A record nobody has
// cleared yet holds zeros and empty texts, not the start values that ClearBreakdown writes.
struct BreakdownTermRecord {
    float Num = 0;                                       // numerator; carries the sign
    float Den = 0;                                       // denominator
    double Value = 0;                                    // the coefficient as a number
    Array1<std::string, 0, BreakdownFactorUpper> Factor; // the letters, in order
    bool AfterSlash = false; // a "/" was read: what follows belongs to the denominator
    bool SlashParen = false; // that "/" stands next to a parenthesis
    Array1<float, 0, BreakdownFactorUpper> Power{}; // exponent of each Factor
    int FactorCount = 0;                            // next free Factor
    std::string TopText;                            // letters and exponents of the numerator
    std::string Text;                               // what the side's text prints after the number
    std::string BottomText;                         // letters and exponents of the denominator
    std::string RestText;
    std::string TermOperator; // "+", "-" or "*" in front of the term
};

// One part of a group.
struct BreakdownRow {
    float Scale = 0; // coefficient in front of the group
    int Kind = 0;
    int StartPos = 0;                    // first token cell of the part
    int EndPos = 0;                      // last token cell of the part
    int ClosePos = 0;                    // cell of the token after the group's closing
    Array1<std::string, 0, 10> PartText; // the group's own sign first
    float RowPower = 0;                  // exponent of the group
    float RowRoot = 0;
    int ParentPart = 0; // part of the enclosing group; -1 while none
    bool IsBar = false;
    bool RowFlag1 = false;
    bool RowFlag2 = false; // a "/" next to a parenthesis stood in the part
    double RowNum = 0;
    double RowDen = 0;
    std::string RowText;
};

struct BreakdownGroupRecord {
    HeapArray<BreakdownRow, BreakdownRowUpper> Rows;
    int RowCount = 0; // highest part in use
};

// BreakdownTerm(side, group, part, term), 2 x 21 x 51 x 101 records. A part's terms are made the
// first time anything touches them, since few runs go past the first groups and the whole table
// would take well over a hundred megabytes; the bounds are those of the whole table.
class BreakdownTermTable {
  public:
    BreakdownTermTable()
        : blocks_(
              static_cast<std::size_t>(2 * (BreakdownGroupUpper + 1) * (BreakdownPartUpper + 1))) {}

    BreakdownTermRecord& operator()(int side, int group, int part, int term) {
        std::vector<BreakdownTermRecord>& block = blocks_[Block(side, group, part, term)];
        if (block.empty()) block.resize(BreakdownTermUpper + 1);
        return block[static_cast<std::size_t>(term)];
    }
    const BreakdownTermRecord& operator()(int side, int group, int part, int term) const {
        static const BreakdownTermRecord untouched;
        const std::vector<BreakdownTermRecord>& block = blocks_[Block(side, group, part, term)];
        return block.empty() ? untouched : block[static_cast<std::size_t>(term)];
    }

  private:
    static std::size_t Block(int side, int group, int part, int term) {
        if (side < 0 || side > 1 || group < 0 || group > BreakdownGroupUpper || part < 0 ||
            part > BreakdownPartUpper || term < 0 || term > BreakdownTermUpper)
            throw SubscriptError();
        return static_cast<std::size_t>(
            (side * (BreakdownGroupUpper + 1) + group) * (BreakdownPartUpper + 1) + part);
    }
    std::vector<std::vector<BreakdownTermRecord>> blocks_;
};

struct BreakdownState {
    BreakdownTokenList BreakdownTokens; // the equation, a token a cell from cell 0
    int BreakdownCount = 0;             // upper bound of the used cells
    int BreakdownSide = 0;              // 0 the left side, otherwise the right
    int BreakdownGroup = 0;             // current group, 0 to 20
    int BreakdownPart = 0;              // current part of the group, 0 to 50
    int MaxBreakdownGroup = 0;
    Array2<int, 50, 50> TermCount{};       // (group, part): the part's current term
    Array2<int, 100, 100> PartIsProduct{}; // (group, part): a "*" stood in the part
    HeapArray<BreakdownGroupRecord, BreakdownGroupUpper> BreakdownExpr;
    BreakdownTermTable BreakdownTerm;
    int SideFirst = 0, SideLast = 0, SideRelation = 0;

    bool BreakdownHasRoot = false;        // a number with a root in it was read
    bool BreakdownExactFractions = false; // numbers go through FractionValue; never set
    int FractionDigits = 0;               // places of a rounded fraction; stays 0
};

} // namespace vt
