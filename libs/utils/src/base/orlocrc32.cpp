#include "orlocrc32.h"

namespace {

constexpr std::uint32_t reflectedPolynomial = 0xEDB88320;
constexpr std::uint32_t tableSize = 256;

// The checksum of each single byte.
std::uint32_t* buildTable()
{
    auto* table = new std::uint32_t[tableSize];
    for (std::uint32_t byte = 0; byte < tableSize; ++byte) {
        std::uint32_t entry = byte;
        for (int bit = 0; bit < 8; ++bit)
            entry = (entry & 1) != 0 ? entry >> 1 ^ reflectedPolynomial : entry >> 1;
        table[byte] = entry;
    }
    return table;
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
    for (std::size_t i = 0; i < count; ++i) sum = m_table[(sum ^ byte[i]) & 255] ^ sum >> 8;
    crc = sum;
}

// Without table until somebody asks for a checksum, so making it costs nothing.
CCrc32Dynamic& processCrc32()
{
    static constinit CCrc32Dynamic only;
    return only;
}
