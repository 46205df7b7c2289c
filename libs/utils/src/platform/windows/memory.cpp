#include "platform/platform.h"

namespace orlo::platform {

// Large pages take a privilege here that users don't have.
void expectFilling(void*, std::size_t) {}

} // namespace orlo::platform
