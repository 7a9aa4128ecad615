#include "app/file_count.h"

#include <gtest/gtest.h>

namespace app {
namespace {

TEST(FileCount, IsToldInTheTooltip) {
    EXPECT_EQ(fileCountText(0), L"keine Bilder");
    EXPECT_EQ(fileCountText(1), L" 1 Datei (Vorschau: klicken)");
    EXPECT_EQ(fileCountText(2), L" 2 Dateien (Vorschau: klicken)");
    EXPECT_EQ(fileCountText(12), L" 12 Dateien (Vorschau: klicken)");
    EXPECT_EQ(fileCountText(10000), L" 10000 Dateien (Vorschau: klicken)");
}

}  // namespace
}  // namespace app
