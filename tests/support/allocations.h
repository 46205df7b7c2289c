// Lets single memory requests of a test fail.
#pragma once

#include <cstddef>

namespace orlo::tests {

// While it lives, the nth (from 1) request of this thread for an object or an array fails:
// once, or together with all that come after it.
class allocationFault {
public:
    enum class lasting { once, forGood };
    explicit allocationFault(std::size_t nth, lasting how = lasting::once);
    ~allocationFault();
    allocationFault(const allocationFault&) = delete;
    allocationFault& operator=(const allocationFault&) = delete;

    [[nodiscard]] bool hasHappened() const;
};

// While it lives, requests of this thread are neither counted nor refused: for what belongs to
// the test itself.
class allocationPause {
public:
    allocationPause();
    ~allocationPause();
    allocationPause(const allocationPause&) = delete;
    allocationPause& operator=(const allocationPause&) = delete;
};

} // namespace orlo::tests
