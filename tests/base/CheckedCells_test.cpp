// The arrays remember their highest used cell, so that emptying and joining stop there; what
// they hold must read the same as if every cell were walked.

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "base/Checked.h"

namespace vt {

TEST(CheckedCells, EmptyingStopsAtTheHighestUsedCellAndLosesNothing) {
    Array1<std::string, 1, 50> one;
    EXPECT_EQ(one.Top(), 0);
    one(7) = "a";
    (void)one(9); // a cell handed out for writing counts, whether written or not
    EXPECT_EQ(one.Top(), 9);
    one.Fill("");
    EXPECT_EQ(one(7), "");
    one.Fill("b"); // a value that is not empty reaches every cell
    EXPECT_EQ(one.Top(), 50);
    one.Fill("");
    EXPECT_EQ(std::as_const(one)(50), "");

    Array2<std::string, 100, 2> grid;
    grid(40, 0) = "x";
    grid(60, 1) = "y";
    grid.FillColumn(0, "");
    EXPECT_EQ(grid.Top(0), -1);
    EXPECT_EQ(grid(40, 0), "");
    EXPECT_EQ(grid(60, 1), "y"); // the other column keeps its cells
    EXPECT_EQ(grid.Top(1), 60);
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
    EXPECT_EQ(copy.Top(), 1500);
    EXPECT_EQ(copy(0), "x");
    EXPECT_EQ(copy(1500), "y");
    EXPECT_EQ(copy(2000), ""); // never used: empty, not an error
    EXPECT_THROW((void)copy(2001), SubscriptError);
    row(1000) = "z";
    row.EmptyFrom(1000); // the tail only
    EXPECT_EQ(row.Top(), 999);
    EXPECT_EQ(std::as_const(row)(1500) + row(1000) + row(0), "x");
    row.Fill("");
    EXPECT_EQ(row.Top(), -1);
    EXPECT_EQ(std::as_const(row)(1500), "");
    EXPECT_EQ(copy(1500), "y");
}

} // namespace vt
