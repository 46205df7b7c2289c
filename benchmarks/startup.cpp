// A program that knows all of both libraries and does nothing. What it costs more than one of
// nothing at all is the start-up of the libraries. Prints how many nanoseconds went by from its
// first constructor to main, and ends with 0 if memory was asked for by then only for the two
// loggers and the format of their lines.
#include <chrono>

namespace {
// In front of all that the libraries' headers define, and so the first to be made.
const auto begun = std::chrono::steady_clock::now();
} // namespace

#if defined(WITH_LIBRARIES)
#include "orlodirectory.h"
#include "orlogeomatrix.h"
#include "orlolanguagetable.h"
#include "orlolocfile.h"
#include "orlologger.h"
#include "orlosearchpath.h"
#include "orlotime.h"
#include "orloxmldocument.h"
#endif

#include <cstdio>
#include <cstdlib>
#include <new>

namespace {
int allocations = 0;
}

void* operator new(std::size_t size)
{
    ++allocations;
    if (void* memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

int main(int count, char**)
{
    const auto passed = std::chrono::steady_clock::now() - begun;
    const int asked = allocations;
    std::printf("%lld\n", static_cast<long long>(std::chrono::nanoseconds(passed).count()));
#if defined(WITH_LIBRARIES)
    constexpr int askedByLoggers = 3;
    // Never true: keeps the libraries in the program.
    if (count > 1000) orlo::languageTable::instance().setLanguage(u"");
    if (count > 1001) return orlo::typeconvert::typeConverterRegistry::instance().size() > 0;
    if (count > 1002) return orlo::xmlDocument::createDocument()->children.empty();
    if (count > 1003) return orloGeo::matrix4d().inverse() == orloGeo::matrix4d();
    return asked - askedByLoggers;
#else
    static_cast<void>(count);
    return asked;
#endif
}
