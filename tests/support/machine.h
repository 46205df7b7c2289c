// A machine in memory behind the platform seam: every call is seen, and can be made to fail.
//
// It behaves like Windows: drives, names without regard to ASCII case, hidden and system
// attributes, patterns with "*" and "?" where "*.*" matches all and a final ".*" also a name
// without an extension. Hits come in the order in which the entries were made, "." and ".."
// before them; their attributes are those that the caller wanted, no others. A search goes on
// when entries come and go meanwhile. The single-byte character set is windows-1252, also for
// files without a mark. Calls from several threads are safe; this face of the machine is for
// one thread.
#pragma once

#include "orlostring.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace orlo::tests {

// One call of the seam, as it was made.
struct seamCall {
    std::string operation; // the function's name in platform.h, such as "openFile"
    string subject;        // path, pattern or variable name; empty where there is none
    unsigned mode = 0;     // of `access`, or the permission of `createFile`
};

struct machine {
    // The machine that stands behind the seam now.
    static machine& current();
    // A new machine: drive C with the directory C:\work, which is the current one; module path
    // C:\tool\bin\tavenMorrel.exe; clock at 2024-03-05 12:00:00 UTC, local time is UTC; no
    // faults, no boxes, no calls.
    static machine& renew();

    // --- contents ---
    void addDirectory(const string& path); // with its parents
    void addFile(const string& path, const std::string& bytes,
                 std::uint32_t attributes = 0); // parents too
    [[nodiscard]] bool hasFile(const string& path) const;
    [[nodiscard]] bool hasDirectory(const string& path) const;
    [[nodiscard]] std::string content(const string& path) const;      // empty if missing
    void setAttributes(const string& path, std::uint32_t attributes); // 1 read-only: not writable
    void setModificationTime(const string& path, std::int64_t seconds);
    // What a status tells of a file that is larger than the memory of a test.
    void pretendSize(const string& path, std::int64_t bytes);
    // Paths of all files, sorted, for comparing a whole state.
    [[nodiscard]] std::vector<string> files() const;

    // --- surroundings ---
    string workingDirectory =
        u"C:\\work"; // currentDirectory fails where it has more than 259 units
    int drive = 3;
    std::map<char16_t, unsigned> driveTypes{
        {u'C', 3}};                       // by upper-case letter; missing ones answer 1
    std::map<string, string> environment; // names without regard to ASCII case
    std::map<string, string> modules{
        {u"", u"C:\\tool\\bin\\tavenMorrel.exe"}}; // name to path; "" is the executable
    std::int64_t clock = 1709640000;
    std::int64_t timeZoneOffset = 0;                       // seconds east of universal time
    string timeLocale = u"C";                              // the current LC_TIME
    string userTimeLocale = u"English_United States.1252"; // what the empty name stands for
    // The character locale in force: "C", or one like that of western Europe, where the letters
    // from U+00C0 on have a case, the byte 80 is U+20AC and the byte 81 can't be converted.
    enum class characterLocale { plain, western };
    characterLocale characters = characterLocale::plain;
    std::string timeText; // what formatTime gives; empty: "%c" of the "C" locale
    string userSeparator = u".";
    string systemSeparator = u".";

    // The system's character set: windows-1252, or one in which two bytes from 0x80 on, or one of
    // them and what follows, are one unit.
    bool doubleByteSet = false;

    // --- what was shown ---
    struct box {
        string text;
        string title;
        std::uint32_t style = 0;
        void* owner = nullptr;
    };
    std::vector<box> boxes;
    [[nodiscard]] std::vector<string> boxTexts() const;
    std::uint32_t process = 4242; // this one's id
    // Top-level windows in the system's order, for the owner of a box.
    struct desktopWindow {
        std::uint32_t process = 0;
        void* parent = nullptr;
        void* popup = nullptr;
        bool isNull = false; // the system gives a null handle for it
    };
    std::vector<desktopWindow> windows;         // handle: 1-based index
    std::size_t windowsUntilFailure = SIZE_MAX; // then the enumeration fails

    // --- calls and faults ---
    std::vector<seamCall> calls;
    [[nodiscard]] std::size_t countCalls(const std::string& operation) const;
    // The nth call (from 1) of the operation from now on fails, as platform.h tells failure;
    // "" counts all operations. A call that can't fail, such as closeFile, does its work.
    void failCall(const std::string& operation, std::size_t nth);
    // Some of these calls have not been made yet.
    [[nodiscard]] bool faultsPending() const;
    // Reads and writes that fail deliver half of what was asked instead of nothing.
    bool shortTransfers = false;
    [[nodiscard]] std::size_t openHandles() const;  // files and searches not yet closed
    [[nodiscard]] static std::size_t largeBlocks(); // of memory, not yet given back
    std::vector<std::size_t> foretoldAllocations;   // what the program told that it will ask for

    // endAbnormally throws this instead of ending the test.
    struct ended {};
};

} // namespace orlo::tests
