#pragma once
// Fixed-size arrays with the bounds the program declares, and a checked subscript.
// The program relies on an out-of-range index being an error in a few places (a slot index of 5
// into ScriptText, a full token row, the break list); those surface as SubscriptError, which the
// routine that owns the failure catches. Nothing lets it escape a subsystem.

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>
#include <vector>

namespace vt {

struct SubscriptError : std::out_of_range {
    SubscriptError() : std::out_of_range("Subscript out of range") {}
};

// One dimension, Lo..Hi inclusive.
template <class T, int Lo, int Hi> class Array1 {
  public:
    static constexpr int Lower = Lo;
    static constexpr int Upper = Hi;
    static constexpr int Size = Hi - Lo + 1;

    T& operator()(int i) {
        if (i < Lo || i > Hi) throw SubscriptError();
        return cells_[static_cast<std::size_t>(i - Lo)];
    }
    const T& operator()(int i) const {
        if (i < Lo || i > Hi) throw SubscriptError();
        return cells_[static_cast<std::size_t>(i - Lo)];
    }
    void Fill(const T& value) { cells_.fill(value); }

  private:
    std::array<T, Size> cells_{};
};

// Two dimensions, 0..Hi1 by 0..Hi2 inclusive, written (i, j) as the program does.
template <class T, int Hi1, int Hi2> class Array2 {
  public:
    static constexpr int Upper1 = Hi1;
    static constexpr int Upper2 = Hi2;

    Array2() : cells_(static_cast<std::size_t>(Hi1 + 1) * (Hi2 + 1)) {}

    T& operator()(int i, int j) {
        if (i < 0 || i > Hi1 || j < 0 || j > Hi2) throw SubscriptError();
        return cells_[Index(i, j)];
    }
    const T& operator()(int i, int j) const {
        if (i < 0 || i > Hi1 || j < 0 || j > Hi2) throw SubscriptError();
        return cells_[Index(i, j)];
    }
    void Fill(const T& value) { std::fill(cells_.begin(), cells_.end(), value); }

  private:
    // Column-major: one slot's cells lie together.
    static std::size_t Index(int i, int j) {
        return static_cast<std::size_t>(j) * (Hi1 + 1) + static_cast<std::size_t>(i);
    }
    std::vector<T> cells_;
};

// One dimension, 0..Hi inclusive, kept on the heap: a long row of cells inside a value that is
// itself kept in arrays and copied whole.
template <class T, int Hi> class HeapArray {
  public:
    static constexpr int Upper = Hi;

    HeapArray() : cells_(static_cast<std::size_t>(Hi) + 1) {}

    T& operator()(int i) {
        if (i < 0 || i > Hi) throw SubscriptError();
        return cells_[static_cast<std::size_t>(i)];
    }
    const T& operator()(int i) const {
        if (i < 0 || i > Hi) throw SubscriptError();
        return cells_[static_cast<std::size_t>(i)];
    }
    void Fill(const T& value) { std::fill(cells_.begin(), cells_.end(), value); }

  private:
    std::vector<T> cells_;
};

// Per-slot arrays are declared 0..10; only 0..4 are reachable through the rows.
constexpr int SlotUpper = 10;
constexpr int UsableSlots = 5;
// Cells of a token row, of the display text and of the evaluator text: 0..2000.
constexpr int CellUpper = 2000;

template <class T> using SlotArray = Array1<T, 0, SlotUpper>;
template <class T> using CellGrid = Array2<T, CellUpper, SlotUpper>;

} // namespace vt
