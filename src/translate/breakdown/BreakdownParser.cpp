// The breakdown's term parser: one walk over a side's tokens fills the term tables, and
// char2str_graph writes the left side back as text.

#include <cmath>

#include "entry/Entry.h"
#include "entry/TokenText.h"
#include "translate/breakdown/BreakdownDetail.h"

namespace vt {

namespace breakdown_detail {

namespace {

// The state of one walk over a side.
class SideWalk {
  public:
    explicit SideWalk(BreakdownState& b) : b_(b) {}

    void Run() {
        lastI_ = b_.SideFirst > 0 ? b_.SideFirst - 1 : 0;
        // The walk stops before the relation sign that ends the left side.
        for (int i = b_.SideFirst; i < b_.SideLast; ++i) {
            const std::string token = Cell(i);
            if (token.empty()) continue;
            Step(token, i);
            lastI_ = i;
        }
    }

  private:
    BreakdownState& b_;
    // Reset at each term.
    float coef_ = 1;      // the last number read
    float termPower_ = 1; // the exponent waiting for the next letter
    int factorIndex_ = 1; // the next Factor cell
    int sign_ = 1;
    // Over the whole walk.
    bool inBar_ = false;
    int lastI_ = 0;
    // The row of the group closed last, which an exponent right after the closing belongs to.
    int closedGroup_ = 0, closedPart_ = 0;

    const std::string& Cell(int i) const { return b_.BreakdownTokens(i); }
    BreakdownTermRecord& Term() {
        return b_.BreakdownTerm(b_.BreakdownSide, b_.BreakdownGroup, b_.BreakdownPart,
                                b_.TermCount(b_.BreakdownGroup, b_.BreakdownPart));
    }
    BreakdownRow& Row() { return b_.BreakdownExpr(b_.BreakdownGroup).Rows(b_.BreakdownPart); }

    void ResetLocals(float coef) {
        sign_ = 1;
        coef_ = coef;
        termPower_ = 1;
        factorIndex_ = 1;
    }

    // A sign or "*" starts the next term of the part. The denominator text of the term before
    // was written as it was read, so nothing is left to finish there.
    void NewTerm(int sign, const std::string& op) {
        ++b_.TermCount(b_.BreakdownGroup, b_.BreakdownPart);
        ResetLocals(1);
        sign_ = sign;
        Term().TermOperator = op;
    }

    // An operator right after an opening starts the group's first term, and the walk steps over
    // it. The signs were made explicit first, so that operator is a sign.
    void OpenFirstTermAt(int& i) {
        const std::string& next = Cell(i + 1);
        if (!IsOperator(next)) return;
        NewTerm(next == "-" ? -1 : 1, next);
        ++i;
    }

    // A parenthesis or bar at cell i opens a group one deeper, in a new part when the group's
    // current part already has terms (or, after a closing parenthesis, always).
    void OpenGroup(int i, bool bar, bool afterClose) {
        const BreakdownTermRecord& current = Term();
        const double num = current.Num, den = current.Den;
        const int parentPart = b_.BreakdownPart;
        const int g = b_.BreakdownGroup + 1;
        BreakdownGroupRecord& group = b_.BreakdownExpr(g);
        int p = group.RowCount;
        if (afterClose || b_.TermCount(g, p) > 0) ++p;
        BreakdownRow& row = group.Rows(p);
        if (p > group.RowCount) group.RowCount = p;
        b_.BreakdownGroup = g;
        b_.BreakdownPart = p;
        if (g > b_.MaxBreakdownGroup) b_.MaxBreakdownGroup = g;
        row.ParentPart = parentPart;
        row.IsBar = bar;
        row.StartPos = i;
        row.RowNum = num;
        row.RowDen = den;
    }

    // A closing returns to the enclosing group and to the part its row names. Past group 0
    // that is group -1, which the next use of the tables refuses.
    void CloseGroup(int i) {
        BreakdownRow& row = Row();
        row.EndPos = i;
        closedGroup_ = b_.BreakdownGroup;
        closedPart_ = b_.BreakdownPart;
        b_.BreakdownPart = row.ParentPart;
        --b_.BreakdownGroup;
        coef_ = 1;
    }

    void Step(const std::string& token, int& i) {
        if (IsLetter(token)) return Letter(token);
        if (token == "+" || token == "-") return NewTerm(token == "-" ? -1 : 1, token);
        if (token == "=") {
            Row().EndPos = i;
            ResetLocals(0);
            return;
        }
        if (token == "*") {
            NewTerm(1, "*");
            b_.PartIsProduct(b_.BreakdownGroup, b_.BreakdownPart) = true;
            return;
        }
        if (token == "/") return Slash(i);
        if (token == "|") {
            if (inBar_) {
                CloseGroup(i);
                inBar_ = false;
            } else {
                OpenGroup(i, true, false);
                inBar_ = true;
                OpenFirstTermAt(i);
            }
            return;
        }
        if (token == "(") return OpenParenthesis(i);
        if (token == ")") return CloseGroup(i);
        if (token == "^") return Exponent(i);
        if (token == "[" || token == "]") return;
        if (token.find('~') != std::string::npos) return Root(token);
        Number(token, i);
    }

    void Letter(const std::string& token) {
        BreakdownTermRecord& t = Term();
        // A letter with no number before it takes the term's sign.
        if (t.Num == 1.0f) t.Num = ToSingle(t.Num * sign_);
        t.Power(factorIndex_) = factorIndex_ > 1 ? termPower_ : 1.0f;
        t.Factor(factorIndex_) = token;
        ++t.FactorCount;
        factorIndex_ = t.FactorCount;
        t.TopText += token;
        if (IsNumberFraction(Cell(lastI_)) || t.AfterSlash) {
            t.BottomText += token;
            t.AfterSlash = true;
        } else {
            t.Text += token;
        }
    }

    void Slash(int i) {
        BreakdownTermRecord& t = Term();
        t.TopText += "/";
        t.Text += "/";
        if (Cell(i + 1) == "(" || Cell(lastI_) == ")") {
            t.SlashParen = true;
            Row().RowFlag2 = true;
        }
        t.AfterSlash = true;
        // The denominator starts with no sign of its own.
        sign_ = 1;
    }

    void OpenParenthesis(int& i) {
        const std::string before = Cell(lastI_);
        const int termGroup = b_.BreakdownGroup, termPart = b_.BreakdownPart;
        const int termIndex = b_.TermCount(termGroup, termPart);
        const BreakdownTermRecord current = Term();
        OpenGroup(i, false, before == ")");
        BreakdownRow& row = Row();
        row.Scale = current.Num;
        row.RowNum = current.Num;
        row.RowDen = current.Den;
        row.RowText = current.Text;
        row.PartText(0) = current.TermOperator;
        row.PartText(1) = current.BottomText;
        b_.BreakdownExpr(termGroup).Rows(termPart).ParentPart = b_.BreakdownPart;
        OpenFirstTermAt(i);
        // A number right before the parenthesis multiplies it. The group's first term has been
        // opened by then, which set the last number read back to 1.
        if (!IsOperator(before) && before != "*" && before != "^") {
            BreakdownTermRecord& t =
                b_.BreakdownTerm(b_.BreakdownSide, termGroup, termPart, termIndex);
            t.Num = ToSingle(Multiply(t.Num, coef_));
        }
    }

    // "^" reads its exponent from the next token, or from the one after a "-"; the walk then
    // steps over what it read. A "^" with no number after it changes nothing.
    void Exponent(int& i) {
        const std::string& next = Cell(i + 1);
        float power;
        std::string mark = "^";
        int taken;
        if (IsNumeric(next)) {
            power = ToSingle(LeadingValue(next));
            taken = 1;
        } else if (next == "-") {
            power = ToSingle(-LeadingValue(Cell(i + 2)));
            mark = "^-";
            taken = 2;
        } else {
            return;
        }
        termPower_ = power;
        const std::string text = mark + SingleText(std::fabs(power));
        const std::string& before = Cell(lastI_);
        if (before == ")" || before == "|") {
            BreakdownRow& row = b_.BreakdownExpr(closedGroup_).Rows(closedPart_);
            row.ClosePos = i + taken;
            if (power != 1.0f) {
                row.RowPower = power;
                row.RowRoot = power;
            }
        } else {
            BreakdownTermRecord& t = Term();
            t.Power(factorIndex_ - 1) = power;
            (t.AfterSlash ? t.BottomText : t.TopText) += text;
            t.Text += text;
        }
        i += taken;
    }

    // A number with a root in it, such as 2~3: the part before the "~" multiplies the term.
    void Root(const std::string& token) {
        const std::size_t tilde = token.find('~');
        const std::string multiplierText = token.substr(0, tilde);
        const float multiplier =
            multiplierText.empty() ? 1.0f : ToSingle(LeadingValue(multiplierText));
        BreakdownTermRecord& t = Term();
        t.Num = ToSingle(Multiply(Multiply(std::fabs(t.Num), multiplier), sign_));
        t.Power(factorIndex_) = multiplier;
        t.Text += "~" + token.substr(tilde + 1);
        b_.BreakdownHasRoot = true;
    }

    void Number(const std::string& token, int i) {
        BreakdownTermRecord& t = Term();
        if (t.AfterSlash) {
            // A denominator.
            t.Den = ToSingle(LeadingValue(Fraction(b_, token, false)));
            t.Value = ToSingle(Divide(t.Num, t.Den));
            coef_ = ToSingle(Divide(coef_, t.Den));
            if (IsLetter(Cell(i + 1))) {
                t.AfterSlash = false;
                t.SlashParen = false;
            }
            if (IsNumberFraction(token)) t.RestText = token;
            return;
        }
        std::string text = Expand(token);
        if (b_.BreakdownExactFractions) text = Fraction(b_, text, false);
        coef_ = ToSingle(LeadingValue(text));
        if (IsNumberFraction(token)) {
            const std::size_t slash = token.find('/');
            t.Num = ToSingle(Multiply(Multiply(t.Num, LeadingValue(token)), sign_));
            t.Den = ToSingle(LeadingValue(token.substr(slash + 1)));
        } else {
            t.Num = ToSingle(Multiply(Multiply(t.Num, std::fabs(coef_)), sign_));
        }
    }
};

} // namespace

void PrepareParse(Session& s) {
    BreakdownState& b = s;
    CollectLetters(s);
    Clear(b, false);
    Normalise(b);
    Trim(b);
    b.MaxBreakdownGroup = 0;
    b.BreakdownGroup = 0;
    b.BreakdownPart = 0;
    if (b.BreakdownSide == 0) {
        b.SideFirst = 0;
        b.SideLast = Relation(b);
    } else {
        b.SideFirst = Relation(b) + 1;
        b.SideLast = b.BreakdownCount + 1;
    }
    b.SideRelation = Relation(b);
}

void WalkSide(Session& s) {
    SideWalk(s).Run();
}

std::string SideText(const BreakdownState& b) {
    std::string text;
    const int count = b.TermCount(0, 0);
    for (int t = 1; t <= count; ++t) {
        const BreakdownTermRecord& term = b.BreakdownTerm(b.BreakdownSide, 0, 0, t);
        std::string piece = term.Num < 0 ? "-" : "+";
        piece +=
            SingleText(std::fabs(term.Num)) + "/" + SingleText(std::fabs(term.Den)) + term.Text;
        for (std::size_t at = piece.find('^'); at != std::string::npos;
             at = piece.find('^', at + 2))
            piece.insert(at + 1, "+");
        text += piece;
    }
    return text;
}

} // namespace breakdown_detail

using namespace breakdown_detail;

BreakdownError ParseBreakdown(Session& s) {
    return Guard([&] {
        PrepareParse(s);
        WalkSide(s);
    });
}

BreakdownError BreakdownEquation(Session& s) {
    return Guard([&] {
        Merge(s);
        PrepareParse(s);
        WalkSide(s);
    });
}

BreakdownError char2str_graph(Session& s, std::string& text) {
    return Guard([&] {
        s.BreakdownSide = 0;
        Merge(s);
        PrepareParse(s);
        WalkSide(s);
        text = SideText(s);
    });
}

namespace {

std::vector<std::string> UsedTokens(const BreakdownState& b) {
    std::vector<std::string> tokens;
    for (int i = 0; i <= b.BreakdownTokens.Top(); ++i)
        if (!b.BreakdownTokens(i).empty()) tokens.push_back(b.BreakdownTokens(i));
    return tokens;
}

} // namespace

BreakdownRun RunBreakdown(Session& s) {
    BreakdownRun run;
    run.Error = Guard([&] {
        s.BreakdownSide = 0;
        Merge(s);
        run.Merged = UsedTokens(s);
        PrepareParse(s);
        run.Normalised = UsedTokens(s);
        WalkSide(s);
        run.Text = SideText(s);
        const BreakdownState& b = s;
        for (int t = 1; t <= b.TermCount(0, 0); ++t) {
            const BreakdownTermRecord& term = b.BreakdownTerm(0, 0, 0, t);
            run.Terms.push_back({term.Num, term.Den, term.Text});
        }
    });
    if (run.Error != BreakdownError::None) {
        run.Text.clear();
        run.Terms.clear();
    }
    return run;
}

} // namespace vt
