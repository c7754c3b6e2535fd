#include "expr/Reader.h"

#include "base/NumberText.h"

namespace vt {

namespace {

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

} // namespace

void ExpressionReader::Next() {
    if (xPending_) {
        xPending_ = false;
        tok = Tok::X;
        return;
    }
    while (pos_ < text_.size() && (text_[pos_] == ' ' || text_[pos_] == '\t'))
        ++pos_;
    if (pos_ >= text_.size()) {
        tok = Tok::End;
        return;
    }
    const char c = text_[pos_];
    if (c == 'x' && mode_ != XMode::Letter) {
        ++pos_;
        if (mode_ == XMode::NegatedValue) {
            tok = Tok::Minus;
            xPending_ = true;
        } else {
            tok = Tok::X;
        }
        return;
    }
    if (IsDigit(c) || c == '.') {
        bool overflow = false;
        const std::size_t n = ReadDecimal(text_.substr(pos_), number, overflow);
        pos_ += n;
        tok = n == 0 || overflow ? Tok::Bad : Tok::Number;
        return;
    }
    if (IsLetter(c)) {
        const std::size_t start = pos_;
        while (pos_ < text_.size() &&
               (IsLetter(text_[pos_]) || IsDigit(text_[pos_]) || text_[pos_] == '_'))
            ++pos_;
        name = text_.substr(start, pos_ - start);
        tok = Tok::Name;
        return;
    }
    ++pos_;
    switch (c) {
    case '+':
        tok = Tok::Plus;
        break;
    case '-':
        tok = Tok::Minus;
        break;
    case '*':
        tok = Tok::Star;
        break;
    case '/':
        tok = Tok::Slash;
        break;
    case '^':
        tok = Tok::Caret;
        break;
    case '(':
        tok = Tok::LParen;
        break;
    case ')':
        tok = Tok::RParen;
        break;
    default:
        tok = Tok::Bad;
        break;
    }
}

} // namespace vt
