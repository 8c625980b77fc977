// A countdown to one failure: the way in which the headless layer's allocators and registry fail on demand.
#pragma once

#include <atomic>

namespace qv::headless {

class Countdown {
public:
    // 1 = the next step; 0 takes the order back.
    void Arm(unsigned steps) noexcept { m_left.store(steps); }
    // Counts one step; true when it is the one that shall fail.
    [[nodiscard]] bool Strikes() noexcept {
        unsigned left = m_left.load();
        while (left != 0) {
            if (m_left.compare_exchange_weak(left, left - 1)) return left == 1;
        }
        return false;
    }

private:
    std::atomic<unsigned> m_left{0};
};

}  // namespace qv::headless
