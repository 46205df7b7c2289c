// Random documents by the million, each read by the product and by the second opinion, which
// decodes the whole before it looks at any unit:
//
//   randomdocuments SEED COUNT
//
// A document that the two take differently ends the process; its number is told then.
#include "support/randomxml.h"
#include "targets.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

namespace {

unsigned long made = 0;

void tellDocument(int)
{
    std::fprintf(stderr, "in document %lu\n", made);
}

} // namespace

int main(int count, char** values)
{
    if (count != 3) return 2;
    std::mt19937 random(
        static_cast<std::mt19937::result_type>(std::strtoul(values[1], nullptr, 10)));
    const unsigned long documents = std::strtoul(values[2], nullptr, 10);
    std::signal(SIGABRT, tellDocument);
    for (; made < documents; ++made) {
        const std::string bytes = orlo::tests::randomDocument(random);
        orlo::fuzz::xmlbytes({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
    }
    std::printf("%lu documents read as the second opinion tells\n", documents);
}
