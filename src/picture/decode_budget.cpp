#include "picture/decode_budget.h"

#include <algorithm>
#include <utility>

namespace picture {

DecodeBudget::DecodeBudget(std::uint64_t bytes, int decodes)
    : bytes_(bytes), decodes_(std::max(1, decodes)) {}

DecodeBudget::Share DecodeBudget::take(std::uint64_t bytes) {
    const std::uint64_t share = std::min(bytes, bytes_);
    std::unique_lock lock(mutex_);
    const std::uint64_t number = nextNumber_++;
    changed_.wait(lock, [&] {
        return number == servedNumber_ && running_ < decodes_ && bytes_ - bytesInUse_ >= share;
    });
    ++servedNumber_;
    ++running_;
    bytesInUse_ += share;
    lock.unlock();
    changed_.notify_all();
    return Share(*this, share);
}

void DecodeBudget::giveBack(std::uint64_t bytes) {
    {
        const std::lock_guard lock(mutex_);
        --running_;
        bytesInUse_ -= bytes;
    }
    changed_.notify_all();
}

std::uint64_t DecodeBudget::bytesInUse() const {
    const std::lock_guard lock(mutex_);
    return bytesInUse_;
}

int DecodeBudget::decodesRunning() const {
    const std::lock_guard lock(mutex_);
    return running_;
}

int DecodeBudget::decodesWaiting() const {
    const std::lock_guard lock(mutex_);
    return static_cast<int>(nextNumber_ - servedNumber_);
}

DecodeBudget::Share::Share(Share&& other) noexcept
    : budget_(std::exchange(other.budget_, nullptr)), bytes_(other.bytes_) {}

DecodeBudget::Share& DecodeBudget::Share::operator=(Share&& other) noexcept {
    std::swap(budget_, other.budget_);
    std::swap(bytes_, other.bytes_);
    return *this;
}

DecodeBudget::Share::~Share() {
    if (budget_ != nullptr) {
        budget_->giveBack(bytes_);
    }
}

std::uint64_t decodeBytes(int width, int height) {
    return width > 0 && height > 0
               ? static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height) * 3
               : 0;
}

}  // namespace picture
