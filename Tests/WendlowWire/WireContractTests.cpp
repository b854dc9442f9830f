#include "WireContract.h"

#include <optional>

#include <gtest/gtest.h>

namespace wendlow {
namespace {

TEST(WireContract, OnlyAnotherVersionIsAMismatch) {
    using WireContract::Verdict;
    EXPECT_EQ(WireContract::verdict(1, 1), Verdict::admitted);
    EXPECT_EQ(WireContract::verdict(1, 2), Verdict::mismatch);
    EXPECT_EQ(WireContract::verdict(2, 1), Verdict::mismatch);
    EXPECT_EQ(WireContract::verdict(1, 0), Verdict::mismatch);
    EXPECT_EQ(WireContract::verdict(1, std::nullopt), Verdict::admitted);
}

} // namespace
} // namespace wendlow
