// What the system tells of an entry on disk, and what it is asked: named once for all that
// speak of entries.
#pragma once

#include <cstdint>

namespace orlo {

// Bits of the attributes of a search hit; a mask of them tells what a search leaves out.
enum entryAttributes : std::uint32_t {
    attributeReadOnly = 1,
    attributeHidden = 2,
    attributeSystem = 4,
    attributeSubdirectory = 16,
    attributeArchive = 32,
    skipHiddenAndSystem = attributeHidden | attributeSystem,
};

// Kinds of access, and bits of the mode in which a file is made.
enum accessMode : std::uint32_t {
    accessExistence = 0,
    accessWrite = 2,
    accessRead = 4,
};

// What the system tells of a file.
struct fileStatus {
    static constexpr std::uint32_t directoryBit = 16384;
    std::uint32_t mode = 0;
    std::int64_t size = 0;             // bytes
    std::int64_t modificationTime = 0; // seconds since 1970
};

} // namespace orlo
