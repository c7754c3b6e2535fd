#pragma once
// Fixed-size arrays with the bounds the program declares, and a checked subscript.
// The program relies on an out-of-range index being an error in a few places (a slot index of 5
// into ScriptText, a full token row, the break list); those surface as SubscriptError, which the
// routine that owns the failure catches. Nothing lets it escape a subsystem.

#include <algorithm>
#include <array>
#include <concepts>
#include <stdexcept>
#include <string>
#include <vector>

namespace vt {

struct SubscriptError : std::out_of_range {
    SubscriptError() : std::out_of_range("Subscript out of range") {}
};

// Every array keeps, besides its cells, the highest index it has handed out for writing since it
// was made or last filled with empty values: the cells above it all hold the empty value. So
// emptying an array, or reading a row of cells in order, costs what the row holds, not what it
// could hold; a keystroke rebuilds a row's texts this way in time that grows with the row.
template <class T> inline bool IsEmptyValue(const T& value) {
    if constexpr (std::equality_comparable<T>)
        return value == T{};
    else
        return false;
}

// Cells [first, first + count) set to the empty value. A text is emptied in place, and only
// when it holds something: most cells of the grids are gaps.
template <class It> inline void EmptyCells(It first, int count) {
    for (int i = 0; i < count; ++i, ++first) {
        if constexpr (requires { first->clear(); }) {
            if (!first->empty()) first->clear();
        } else {
            *first = {};
        }
    }
}

// One dimension, Lo..Hi inclusive.
template <class T, int Lo, int Hi> class Array1 {
  public:
    static constexpr int Lower = Lo;
    static constexpr int Upper = Hi;
    static constexpr int Size = Hi - Lo + 1;

    T& operator()(int i) {
        if (i < Lo || i > Hi) throw SubscriptError();
        top_ = std::max(top_, i);
        return cells_[static_cast<std::size_t>(i - Lo)];
    }
    const T& operator()(int i) const {
        if (i < Lo || i > Hi) throw SubscriptError();
        return cells_[static_cast<std::size_t>(i - Lo)];
    }
    // The highest index that may hold something other than the empty value; below Lo if none.
    int Top() const { return top_; }
    void Fill(const T& value) {
        if (IsEmptyValue(value)) {
            EmptyCells(cells_.begin(), top_ - Lo + 1);
            top_ = Lo - 1;
        } else {
            cells_.fill(value);
            top_ = Hi;
        }
    }

  private:
    std::array<T, Size> cells_{};
    int top_ = Lo - 1;
};

// One dimension, 0..Hi inclusive, kept on the heap: a long row of cells inside a value that is
// itself kept in arrays and copied whole. Cells are made when first handed out, so a new row
// costs nothing and a copy costs what the row holds. Room for every cell is reserved when the
// first is made: a reference to a cell stays good while later cells come into use.
template <class T, int Hi> class HeapArray {
  public:
    static constexpr int Upper = Hi;

    HeapArray() = default;
    HeapArray(const HeapArray& other) { *this = other; }
    HeapArray& operator=(const HeapArray& other) {
        if (this == &other) return *this;
        const auto used = static_cast<std::size_t>(other.top_ + 1);
        if (used > 0) cells_.reserve(Capacity);
        cells_.assign(other.cells_.begin(),
                      other.cells_.begin() + static_cast<std::ptrdiff_t>(used));
        top_ = other.top_;
        return *this;
    }

    T& operator()(int i) {
        if (i < 0 || i > Hi) throw SubscriptError();
        const auto cell = static_cast<std::size_t>(i);
        if (cell >= cells_.size()) Make(cell);
        top_ = std::max(top_, i);
        return cells_[cell];
    }
    const T& operator()(int i) const {
        if (i < 0 || i > Hi) throw SubscriptError();
        static const T empty{};
        return i <= top_ ? cells_[static_cast<std::size_t>(i)] : empty;
    }
    // The highest index that may hold something other than the empty value; -1 if none.
    int Top() const { return top_; }
    // Cells first..Hi emptied. The cells stay made, for the next run to fill again.
    void EmptyFrom(int first) {
        first = std::max(first, 0);
        if (first > top_) return;
        EmptyCells(cells_.begin() + first, top_ - first + 1);
        top_ = first - 1;
    }
    void Fill(const T& value) {
        if (IsEmptyValue(value)) {
            EmptyFrom(0);
        } else {
            cells_.reserve(Capacity);
            cells_.assign(Capacity, value);
            top_ = Hi;
        }
    }

  private:
    static constexpr std::size_t Capacity = static_cast<std::size_t>(Hi) + 1;

    // Makes the cells up to the given one; kept apart so that reaching a made cell stays short.
    [[gnu::noinline]] void Make(std::size_t cell) {
        cells_.reserve(Capacity);
        cells_.resize(cell + 1);
    }

    std::vector<T> cells_; // the cells made so far; those above top_ are empty
    int top_ = -1;
};

// Two dimensions, 0..Hi1 by 0..Hi2 inclusive, written (i, j) as the program does: a row of
// cells for each j, so that one slot's cells lie together and a slot never used costs nothing.
template <class T, int Hi1, int Hi2> class Array2 {
  public:
    static constexpr int Upper1 = Hi1;
    static constexpr int Upper2 = Hi2;

    T& operator()(int i, int j) { return Column(j)(i); }
    const T& operator()(int i, int j) const { return Column(j)(i); }
    // The highest i of column j that may hold something other than the empty value; -1 if none.
    int Top(int j) const { return Column(j).Top(); }
    void Fill(const T& value) {
        for (auto& column : columns_)
            column.Fill(value);
    }
    // Cells (0..Hi1, j) set to the value.
    void FillColumn(int j, const T& value) { Column(j).Fill(value); }

  private:
    HeapArray<T, Hi1>& Column(int j) {
        if (j < 0 || j > Hi2) throw SubscriptError();
        return columns_[static_cast<std::size_t>(j)];
    }
    const HeapArray<T, Hi1>& Column(int j) const {
        if (j < 0 || j > Hi2) throw SubscriptError();
        return columns_[static_cast<std::size_t>(j)];
    }
    std::array<HeapArray<T, Hi1>, Hi2 + 1> columns_;
};

// Per-slot arrays are declared 0..10; only 0..4 are reachable through the rows.
constexpr int SlotUpper = 10;
constexpr int UsableSlots = 5;
// Cells of a token row, of the display text and of the evaluator text: 0..2000.
constexpr int CellUpper = 2000;

template <class T> using SlotArray = Array1<T, 0, SlotUpper>;
template <class T> using CellGrid = Array2<T, CellUpper, SlotUpper>;

} // namespace vt
