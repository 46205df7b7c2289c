// Lets a single memory request of a test fail.
#pragma once

#include <cstddef>

namespace orlo::tests {

// While it lives, the nth (from 1) request of this thread for a single object fails, once.
class allocationFault {
public:
    explicit allocationFault(std::size_t nth);
    ~allocationFault();
    allocationFault(const allocationFault&) = delete;
    allocationFault& operator=(const allocationFault&) = delete;

    [[nodiscard]] bool hasHappened() const;
};

} // namespace orlo::tests
