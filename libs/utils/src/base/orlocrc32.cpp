#include "orlocrc32.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::uint32_t reflectedPolynomial = 0xEDB88320;
constexpr std::size_t tableSize = 256;
using table = std::array<std::uint32_t, tableSize>;

// The checksum of each single byte.
constexpr table makeTable()
{
    table made{};
    for (std::uint32_t byte = 0; byte < tableSize; ++byte) {
        std::uint32_t entry = byte;
        for (int bit = 0; bit < 8; ++bit)
            entry = (entry & 1) != 0 ? entry >> 1 ^ reflectedPolynomial : entry >> 1;
        made[byte] = entry;
    }
    return made;
}

// What each byte is worth with 0 to 15 zero bytes behind it, so that sixteen bytes are taken in
// one step: a megabyte takes a fifth of the time of the plain way. Made when this is compiled.
constexpr std::size_t stepSize = 16;
constexpr std::array<table, stepSize> makeSteps()
{
    std::array<table, stepSize> made{makeTable()};
    for (std::size_t zeros = 1; zeros < stepSize; ++zeros)
        for (std::size_t byte = 0; byte < tableSize; ++byte) {
            const std::uint32_t before = made[zeros - 1][byte];
            made[zeros][byte] = made[0][before & 255] ^ before >> 8;
        }
    return made;
}
constexpr std::array<table, stepSize> steps = makeSteps();

std::uint32_t* buildTable()
{
    auto* built = new std::uint32_t[tableSize];
    std::copy(steps[0].begin(), steps[0].end(), built);
    return built;
}

// The lowest byte first, on every machine.
std::uint32_t wordAt(const unsigned char* bytes)
{
    return std::uint32_t{bytes[0]} | std::uint32_t{bytes[1]} << 8 | std::uint32_t{bytes[2]} << 16 |
           std::uint32_t{bytes[3]} << 24;
}

// Worth of four bytes with `Zeros` bytes behind them.
template <std::size_t Zeros>
std::uint32_t worthOf(std::uint32_t word)
{
    return steps[Zeros + 3][word & 255] ^ steps[Zeros + 2][word >> 8 & 255] ^
           steps[Zeros + 1][word >> 16 & 255] ^ steps[Zeros][word >> 24];
}

std::uint32_t addStep(std::uint32_t sum, const unsigned char* bytes)
{
    return worthOf<12>(wordAt(bytes) ^ sum) ^ worthOf<8>(wordAt(bytes + 4)) ^
           worthOf<4>(wordAt(bytes + 8)) ^ worthOf<0>(wordAt(bytes + 12));
}

} // namespace

CCrc32Dynamic::~CCrc32Dynamic()
{
    delete[] m_table;
    m_table = nullptr;
}

void CCrc32Dynamic::addToCrc(std::uint32_t& crc, const void* bytes, std::size_t count)
{
    if (m_table == nullptr) m_table = buildTable();
    const auto* byte = static_cast<const unsigned char*>(bytes);
    std::uint32_t sum = crc;
    for (; count >= stepSize; count -= stepSize, byte += stepSize) sum = addStep(sum, byte);
    for (; count > 0; --count, ++byte) sum = m_table[(sum ^ *byte) & 255] ^ sum >> 8;
    crc = sum;
}

// Without table until somebody asks for a checksum, so making it costs nothing.
CCrc32Dynamic& processCrc32()
{
    static constinit CCrc32Dynamic only;
    return only;
}
