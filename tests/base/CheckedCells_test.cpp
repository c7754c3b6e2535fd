// The arrays remember their highest used cell, so that emptying and joining stop there; what
// they hold must read the same as if every cell were walked.

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "base/Checked.h"

namespace vt {

TEST(CheckedCells, EmptyingStopsAtTheHighestUsedCellAndLosesNothing) {
    Array1<std::string, 1, 50> one;
    const int unused = one.Top();
    one(7) = "a";
    (void)one(9); // a cell handed out for writing counts, whether written or not
    const int used = one.Top();
    one.Fill("");
    const std::string emptied = one(7);
    one.Fill("b"); // a value that is not empty reaches every cell
    EXPECT_EQ(std::tuple(unused, used, emptied, one.Top()), std::tuple(0, 9, "", 50));
    one.Fill("");
    EXPECT_EQ(std::as_const(one)(50), "");

    Array2<std::string, 100, 2> grid;
    grid(40, 0) = "x";
    grid(60, 1) = "y";
    grid.FillColumn(0, "");
    // The other column keeps its cells.
    EXPECT_EQ((std::tuple{grid.Top(0), grid(40, 0), grid(60, 1), grid.Top(1)}), // in order
              std::tuple(-1, "", "y", 60));
    grid.FillColumn(2, "z");
    EXPECT_EQ(std::as_const(grid)(100, 2), "z");
    EXPECT_THROW(grid.FillColumn(3, ""), SubscriptError);
}

TEST(CheckedCells, LongRowKeepsItsCellsThroughCopiesAndGrowth) {
    HeapArray<std::string, 2000> row;
    std::string& first = row(0);
    first = "x";
    row(1500) = "y"; // later cells coming into use leave a held cell where it is
    EXPECT_EQ(&first, &row(0));
    const HeapArray<std::string, 2000> copy = row;
    // A cell never used is empty, not an error.
    EXPECT_EQ(std::tuple(copy.Top(), copy(0), copy(1500), copy(2000)),
              std::tuple(1500, "x", "y", ""));
    EXPECT_THROW((void)copy(2001), SubscriptError);
    row(1000) = "z";
    row.EmptyFrom(1000); // the tail only
    EXPECT_EQ((std::tuple{row.Top(), std::as_const(row)(1500) + row(1000) + row(0)}),
              std::tuple(999, "x"));
    row.Fill("");
    EXPECT_EQ(std::tuple(row.Top(), std::as_const(row)(1500), copy(1500)), std::tuple(-1, "", "y"));
}

} // namespace vt
