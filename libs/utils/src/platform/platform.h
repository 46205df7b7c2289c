// All that this project asks of the operating system and of the runtime library's process
// state. One implementation stands behind it for each system, and one in memory for tests;
// the linker picks. Paths are Windows path text on every system.
#pragma once

#include "orlofilestatus.h"
#include "orlostring.h"

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <optional>

namespace orlo::platform {

// --- Entries -------------------------------------------------------------------------------

// By a mode of accessMode.
bool access(const string& path, unsigned mode);

// Leaves `out` as it is where nothing can be told.
bool queryStatus(const string& path, fileStatus& out);

// What tells one entry from all others, whichever path leads to it.
struct entryIdentity {
    std::uint64_t volume = 0;
    std::uint64_t number = 0;
    bool operator==(const entryIdentity&) const = default;
};
// None where it can't be told.
std::optional<entryIdentity> identityOf(const string& path);

// A permission is the bit of accessMode times this.
inline constexpr unsigned permissionFactor = 64;
inline constexpr unsigned permissionToWrite = accessWrite * permissionFactor;
inline constexpr unsigned permissionToRead = accessRead * permissionFactor;
// Makes an empty file with one of these permissions or both, and closes it.
bool createFile(const string& path, unsigned permission);
// Deletes a file; refuses a directory. Of links to one the systems think differently: who keeps
// them has asked before.
bool removeFile(const string& path);
bool renameEntry(const string& from, const string& to);
bool copyFile(const string& source, const string& target, bool failIfExists);

inline constexpr unsigned remoteDrive = 4;
// Kind of the drive with this root, such as "C:\".
unsigned driveType(const string& root);

// --- Searches ------------------------------------------------------------------------------

struct searchHit {
    string name;
    std::uint32_t attributes = 0; // bits of entryAttributes
};
using searchHandle = std::intptr_t;
inline constexpr searchHandle noSearch = -1;

// Starts a search for a directory's path and a pattern with "*" and "?", and gives the first
// hit; noSearch if there is none. Attributes outside `wanted` may be left clear.
searchHandle findFirst(const string& pattern, std::uint32_t wanted, searchHit& hit);
bool findNext(searchHandle search, searchHit& hit);
void findClose(searchHandle search);

// --- Contents ------------------------------------------------------------------------------

enum class openMode { read, write }; // write empties the file
using fileHandle = std::intptr_t;
inline constexpr fileHandle noFile = -1;

fileHandle openFile(const string& path, openMode mode);
// The number of bytes that were delivered or taken; fewer than asked at the end or on failure.
// They wait where nothing can be moved yet, and a reader that has gone is a failure like others.
std::size_t readFile(fileHandle file, void* bytes, std::size_t count);
std::size_t writeFile(fileHandle file, const void* bytes, std::size_t count);
bool flushFile(fileHandle file);
void closeFile(fileHandle file);

// --- Text ----------------------------------------------------------------------------------

enum class encoding {
    utf8,     // bad sequences become U+FFFD
    ansi,     // the system's single-byte character set
    unmarked, // what a language file without a mark is written in
};
// Units for bytes; `units` has room for one unit a byte. 0 means failure.
std::size_t decode(encoding from, const void* bytes, std::size_t length, char16_t* units);
// UTF-8 for units; `bytes` has room for three bytes a unit. Halves of a surrogate pair become
// EF BF BD. 0 means failure.
std::size_t encodeUtf8(const char16_t* units, std::size_t length, char* bytes);

// --- Process -------------------------------------------------------------------------------

// The directory from which relative paths count; false if it takes more than 259 units.
bool currentDirectory(string& path);
// 1 is A.
int currentDrive();
// Empties `value` first; false if the variable is not set.
bool environmentVariable(const char16_t* name, string& value);

// The handle of a loaded module, by name; the empty name is the executable. Null if not loaded.
void* findModule(const string& name);
// The module's file, cut at `capacity` units; the number of units, 0 on failure.
std::size_t modulePath(void* module, char16_t* units, std::size_t capacity);

std::uint32_t processId();
// Ends the process as an uncaught exception does: abnormally, and with nothing printed.
[[noreturn]] void endAbnormally();

// --- Windows and boxes ---------------------------------------------------------------------

using window = void*;
// Calls `visit` for each top-level window until it gives false.
bool enumerateWindows(bool (*visit)(window found, void* context), void* context);
std::uint32_t windowProcess(window of); // 0 if unknown
window parentWindow(window of);
window lastActivePopup(window of);

inline constexpr std::uint32_t taskModal = 0x2000;
// At most this many units of a text are shown.
inline constexpr std::size_t longestBoxText = 511;
// Shows the text under the title and blocks until somebody has answered: pressed the button, or,
// on a system without boxes, entered a line or ended the standard input. Takes no memory, and a
// box that can't be shown is not noticed.
void showMessageBox(window owner, const char16_t* text, const char16_t* title, std::uint32_t style);

// --- Memory --------------------------------------------------------------------------------

// Tells that a block is about to be filled from end to end: the system may then give its pages
// many at a time. Changes nothing of what the block holds.
void expectFilling(void* block, std::size_t size);
// Tells that many small blocks will be taken from the heap, of about `size` bytes in all: it may
// then grow at once, and by large pages. Takes nothing, and a heap without memory is not noticed.
void expectAllocations(std::size_t size);

// Large blocks stand and end where the large pages of usual systems do, which cost a fifth of what
// the same room costs in small ones.
inline constexpr std::size_t largeBlockAlignment = std::size_t{2} << 20;
// Memory past the heap, from and back to the system at once; `size` is a multiple of the alignment,
// which the system need not keep. Null if it has none.
void* newLargeBlock(std::size_t size);
void deleteLargeBlock(void* block, std::size_t size);

// --- Mutexes -------------------------------------------------------------------------------

// Recursive; null if the system gives none.
void* createMutex();
bool lockMutex(void* mutex);
void unlockMutex(void* mutex);
void destroyMutex(void* mutex);

// --- Time and locale -----------------------------------------------------------------------

// Seconds since 1970.
std::int64_t now();
// Universal broken-down time to seconds; fields out of range are normalised. -1 if it can't.
std::int64_t secondsOf(std::tm& universal);
// Seconds to local broken-down time.
bool localTime(std::int64_t seconds, std::tm& local);
// The name of the current LC_TIME locale; false if it can't be told.
bool queryTimeLocale(string& name);
// Sets LC_TIME alone; the empty name is the user's own locale.
bool setTimeLocale(const string& name);
// strftime under the current LC_TIME locale: bytes written without the terminator, 0 if it
// does not fit.
std::size_t formatTime(char* buffer, std::size_t size, const char* format, const std::tm& time);
// The units of such a text; in which character set it comes is the system's own matter.
string timeText(const char* formatted);

// The decimal separator of the user's own number format, and of the system's default; false
// if it can't be told.
bool userDecimalSeparator(string& separator);
bool systemDecimalSeparator(string& separator);

} // namespace orlo::platform
