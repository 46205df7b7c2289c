// A program that knows all of both libraries and does nothing. What it costs more than one of
// nothing at all is the start-up of the libraries. Ends with 0 if that asked for no memory.
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
    const int asked = allocations;
#if defined(WITH_LIBRARIES)
    // Never true: keeps the libraries in the program.
    if (count > 1000) orlo::languageTable::instance().setLanguage(u"");
    if (count > 1001) return orlo::typeconvert::typeConverterRegistry::instance().size() > 0;
    if (count > 1002) return orlo::xmlDocument::createDocument()->children.empty();
    if (count > 1003) return orloGeo::matrix4d().inverse() == orloGeo::matrix4d();
#else
    static_cast<void>(count);
#endif
    return asked;
}
