#include "platform/native_path.h"

#include <gtest/gtest.h>

TEST(NativePath, KeepsPlainCharacters) {
    EXPECT_EQ(std::filesystem::path("jobs") / "tower.qhm", NativePath("jobs/tower.qhm"));
}
