// How much memory does a parse take at its peak? Takes a kind of document, a size and a file
// `parsememory KIND SIZE FILE` writes a document, `parsememory FILE` reads it and prints the bytes
// by which the process has grown.
#include "documents.h"
#include "orloxmldocument.h"

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>

namespace {

// The peak so far.
std::size_t peakMemory()
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        std::size_t kilobytes = 0;
        if (word == "VmHWM:" && status >> kilobytes) return kilobytes * 1024;
    }
    return 0;
}

} // namespace

int main(int count, char** arguments)
{
    if (count == 4) {
        const auto& made =
            benchmarks::documentOf(arguments[1], std::strtoull(arguments[2], nullptr, 10));
        return std::ofstream(arguments[3], std::ios::binary) << made.bytes ? 0 : 2;
    }
    if (count != 2) return 2;

    const std::string path = arguments[1];
    orlo::string text(std::u16string(path.begin(), path.end()));
    const orlo::file source(u"C:" + text.replaceChar(u'/', u'\\'));
    const std::size_t before = peakMemory();
    const auto document = orlo::xmlDocument::createDocument();
    document->load(source, false);
    if (document->children.empty()) return 2;
    std::cout << peakMemory() - before << '\n';
}
