#include "picture/decode_budget.h"

#include <gtest/gtest.h>

#include <atomic>
#include <optional>
#include <thread>
#include <vector>

namespace picture {
namespace {

void waitFor(const auto& condition) {
    while (!condition()) {
        std::this_thread::yield();
    }
}

TEST(DecodeBudget, CountsThreeBytesAPixel) {
    EXPECT_EQ(decodeBytes(6000, 4000), 72'000'000U);
    EXPECT_EQ(decodeBytes(65535, 65535), 65535ULL * 65535ULL * 3);
    EXPECT_EQ(decodeBytes(0, 10), 0U);
    EXPECT_EQ(decodeBytes(10, -1), 0U);
}

TEST(DecodeBudget, ShareIsGivenBackAtItsEnd) {
    DecodeBudget budget(100, 4);
    {
        DecodeBudget::Share a = budget.take(60);
        const DecodeBudget::Share b = budget.take(30);
        EXPECT_EQ(budget.bytesInUse(), 90U);
        const DecodeBudget::Share moved = std::move(a);
        EXPECT_EQ(budget.decodesRunning(), 2);
    }
    EXPECT_EQ(budget.bytesInUse(), 0U);
    EXPECT_EQ(budget.decodesRunning(), 0);
}

TEST(DecodeBudget, WaitsUntilBytesAreFree) {
    DecodeBudget budget(100, 4);
    std::optional<DecodeBudget::Share> first(budget.take(60));
    std::atomic<bool> served = false;
    std::thread waiting([&] {
        const DecodeBudget::Share share = budget.take(50);
        served = true;
    });
    waitFor([&] { return budget.decodesWaiting() == 1; });
    EXPECT_FALSE(served);
    EXPECT_EQ(budget.decodesRunning(), 1);
    first.reset();
    waiting.join();
    EXPECT_TRUE(served);
}

TEST(DecodeBudget, WaitsUntilADecodeEnds) {
    DecodeBudget budget(100, 1);
    std::optional<DecodeBudget::Share> first(budget.take(1));
    std::thread waiting([&] { const DecodeBudget::Share share = budget.take(1); });
    waitFor([&] { return budget.decodesWaiting() == 1; });
    EXPECT_EQ(budget.decodesRunning(), 1);
    first.reset();
    waiting.join();
    EXPECT_EQ(budget.decodesRunning(), 0);
}

TEST(DecodeBudget, PictureLargerThanTheBudgetRunsAlone) {
    DecodeBudget budget(100, 4);
    std::optional<DecodeBudget::Share> small(budget.take(1));
    std::thread waiting([&] {
        const DecodeBudget::Share share = budget.take(1000);
        EXPECT_EQ(budget.decodesRunning(), 1);
        EXPECT_EQ(budget.bytesInUse(), 100U);
    });
    waitFor([&] { return budget.decodesWaiting() == 1; });
    small.reset();
    waiting.join();
}

TEST(DecodeBudget, SmallOnesDoNotPassALargeOne) {
    DecodeBudget budget(100, 4);
    std::optional<DecodeBudget::Share> first(budget.take(60));
    std::vector<int> order;
    std::thread large([&] {
        const DecodeBudget::Share share = budget.take(100);
        order.push_back(1);
    });
    waitFor([&] { return budget.decodesWaiting() == 1; });
    std::thread small([&] {
        const DecodeBudget::Share share = budget.take(10);
        order.push_back(2);
    });
    waitFor([&] { return budget.decodesWaiting() == 2; });
    EXPECT_EQ(budget.decodesRunning(), 1);
    first.reset();
    large.join();
    small.join();
    EXPECT_EQ(order, (std::vector<int>{1, 2}));
}

TEST(DecodeBudget, NeverExceedsItsLimits) {
    DecodeBudget budget(100, 3);
    std::atomic<int> running = 0;
    std::atomic<int> bytes = 0;
    std::atomic<bool> exceeded = false;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 6; ++thread) {
        threads.emplace_back([&, thread] {
            for (int i = 0; i < 200; ++i) {
                const int size = (thread * 37 + i * 13) % 70 + 1;
                const DecodeBudget::Share share = budget.take(static_cast<std::uint64_t>(size));
                if (++running > 3 || (bytes += size) > 100) {
                    exceeded = true;
                }
                bytes -= size;
                --running;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_FALSE(exceeded);
    EXPECT_EQ(budget.bytesInUse(), 0U);
}

}  // namespace
}  // namespace picture
