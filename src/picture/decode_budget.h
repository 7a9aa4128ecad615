#pragma once

#include <condition_variable>
#include <cstdint>
#include <mutex>

namespace picture {

/// Limits how many pictures are decoded at the same time, by their number and by the memory they need
/// together. Those who have to wait go on in the order in which they came, so that a large picture is
/// not passed by small ones for ever. Safe to use from any thread.
class DecodeBudget {
  public:
    /// `bytes` is the memory for all decodes together, `decodes` how many may run at once (at least 1).
    DecodeBudget(std::uint64_t bytes, int decodes);

    /// A share of the budget; it is given back when the object ends.
    class Share {
      public:
        Share(Share&& other) noexcept;
        Share& operator=(Share&& other) noexcept;
        Share(const Share&) = delete;
        Share& operator=(const Share&) = delete;
        ~Share();

      private:
        friend class DecodeBudget;
        Share(DecodeBudget& budget, std::uint64_t bytes) : budget_(&budget), bytes_(bytes) {}
        DecodeBudget* budget_;
        std::uint64_t bytes_;
    };

    /// Waits until `bytes` are free. A picture that needs more than there is waits until it is alone.
    Share take(std::uint64_t bytes);

    std::uint64_t bytes() const { return bytes_; }
    std::uint64_t bytesInUse() const;
    int decodesRunning() const;
    int decodesWaiting() const;

  private:
    void giveBack(std::uint64_t bytes);

    const std::uint64_t bytes_;
    const int decodes_;
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::uint64_t bytesInUse_ = 0;
    int running_ = 0;
    std::uint64_t nextNumber_ = 0;
    std::uint64_t servedNumber_ = 0;
};

/// What decoding a picture of that size takes: three bytes a pixel.
std::uint64_t decodeBytes(int width, int height);

}  // namespace picture
