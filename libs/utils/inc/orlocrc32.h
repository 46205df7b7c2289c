// The checksum behind the keys of the converter registry.
#pragma once

#include <cstddef>
#include <cstdint>

// CRC-32 with the reflected polynomial 0xEDB88320, by a table that is built on first use.
class CCrc32Dynamic {
public:
    constexpr CCrc32Dynamic() = default;
    virtual ~CCrc32Dynamic();
    CCrc32Dynamic(const CCrc32Dynamic&) = delete;
    CCrc32Dynamic& operator=(const CCrc32Dynamic&) = delete;

    // Carries `crc` on over `count` bytes. The caller starts it at all ones and complements
    // the end value. The first use is not guarded against other threads.
    void addToCrc(std::uint32_t& crc, const void* bytes, std::size_t count);

private:
    std::uint32_t* m_table = nullptr;
};

// The one object of the process.
CCrc32Dynamic& processCrc32();
