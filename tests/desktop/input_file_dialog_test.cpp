#include "desktop/input_file_dialog.h"

#include <gtest/gtest.h>

TEST(FileDialogFilter, EndsEveryPartWithAZero) {
    const std::wstring expected(L"Route 2 Input (*.csv)\0*.csv\0", 28);
    EXPECT_EQ(expected, FileDialogFilter(L"Route 2 Input (*.csv)|*.csv|"));
}
