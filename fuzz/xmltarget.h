// What the targets about XML share.
#pragma once

#include "input.h"
#include "orloexception.h"
#include "orloxmlnode.h"
#include "support/judgexml.h"
#include "support/machine.h"

namespace orlo::fuzz {

using namespace tests; // the judge

enum class outcome { done, malformed, noText };

// A tree in the judge's form; each child must know its parent.
judgedNode judgedForm(const xmlNode& node);

// Runs the judge. An input that never ends, or that ends the process, gives no value.
template <class Run>
std::optional<outcome> judged(const Run& run)
{
    try {
        run();
        return outcome::done;
    } catch (const malformed&) {
        return outcome::malformed;
    } catch (const noText&) {
        return outcome::noText;
    } catch (const neverEnds&) {
        return std::nullopt;
    } catch (const endsProcess&) {
        return std::nullopt;
    }
}

// Runs the reader. Any other exception passes on and ends the fuzzer.
template <class Run>
outcome read(const Run& run)
{
    try {
        run();
        return outcome::done;
    } catch (const unexpectedErrorException&) {
        return outcome::malformed;
    } catch (const bool& refusal) {
        expect(!refusal, "what is thrown without an object is false");
        return outcome::noText;
    }
}

} // namespace orlo::fuzz
