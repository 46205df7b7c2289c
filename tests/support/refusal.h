// How the project refuses where it has no text for it.
#pragma once

namespace orlo::tests {

// True if the call throws the plain bool false.
template <class Call>
bool refuses(Call call)
{
    try {
        call();
    } catch (bool refusal) {
        return !refusal;
    }
    return false;
}

} // namespace orlo::tests
