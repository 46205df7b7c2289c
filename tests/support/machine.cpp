#include "support/machine.h"

#include "orlounit.h"
#include "platform/characters.h"
#include "platform/platform.h"
#include "platform/utf8codec.h"
#include "support/allocations.h"
#include "support/disk.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <condition_variable>
#include <cstdio>
#include <cstring>
#include <mutex>
#include <new>
#include <thread>
#include <utility>

namespace orlo::tests {

namespace {

struct openedFile {
    entryPointer entry;
    platform::openMode mode;
    std::size_t position = 0;
};

struct runningSearch {
    entryPointer directory;
    string pattern;
    std::uint32_t wanted;
    std::size_t dotsGiven = 0; // of "." and "..", which come first
    std::uint64_t last = 0;    // number of the last entry that was looked at
};

struct fault {
    std::string operation;
    std::size_t callsLeft;
};

// What a machine holds behind its face.
struct inside {
    inside() { entries.provideDirectory(u"C:\\work"); }
    disk entries;
    std::map<std::intptr_t, openedFile> openFiles;
    std::map<std::intptr_t, runningSearch> searches;
    std::vector<fault> faults;
    std::map<const diskEntry*, std::int64_t> pretendedSizes;
};

// These live until the process ends, so that singletons may use the seam before the first and
// after the last statement of main.
inside& internals()
{
    static inside& only = *new inside;
    return only;
}

std::recursive_mutex& guard()
{
    static std::recursive_mutex& only = *new std::recursive_mutex;
    return only;
}

std::atomic<std::size_t>& largeBlockCount()
{
    static std::atomic<std::size_t> count;
    return count;
}

// Never used twice, so that a handle of an earlier machine finds nothing.
std::intptr_t newHandle()
{
    static std::intptr_t last = 100;
    return ++last;
}

// One call of the seam: recorded, counted for the faults, and alone on the machine. What it
// takes of memory is not the program's.
class observedCall {
public:
    explicit observedCall(const char* operation, const string& subject = string::emptyString(),
                          unsigned mode = 0)
        : m_alone(guard())
    {
        machine::current().calls.push_back({operation, subject, mode});
        for (fault& planned : internals().faults) {
            if (planned.callsLeft == 0 ||
                (!planned.operation.empty() && planned.operation != operation))
                continue;
            if (--planned.callsLeft == 0) m_fails = true;
        }
    }
    [[nodiscard]] bool fails() const { return m_fails; }

private:
    allocationPause m_ownMemory; // the first to come and the last to go
    std::lock_guard<std::recursive_mutex> m_alone;
    bool m_fails = false;
};

// --- paths ---

string absolutePath(const string& path)
{
    const machine& here = machine::current();
    if (path.empty() || (path.size() > 1 && path[1] == u':')) return path;
    const bool rooted = path[0] == u'\\' || path[0] == u'/';
    if (rooted && path.size() > 1 && (path[1] == u'\\' || path[1] == u'/')) return path;
    if (rooted) return string(static_cast<char16_t>(u'A' + here.drive - 1)) + u":" + path;
    return here.workingDirectory + u"\\" + path;
}

entryPointer entryAt(const string& path)
{
    return path.empty() ? nullptr : internals().entries.find(absolutePath(path));
}

entryPointer fileAt(const string& path)
{
    const entryPointer entry = entryAt(path);
    return entry && !entry->isDirectory() ? entry : nullptr;
}

// A drive on which something was put is there.
void provideDrive(const string& path)
{
    if (path.size() > 1 && path[1] == u':')
        machine::current().driveTypes.try_emplace(upperUnit(path[0]), 3);
}

// --- searches ---

bool giveHit(const runningSearch& search, const string& name, std::uint32_t attributes,
             platform::searchHit& hit)
{
    if (!matchesPattern(search.pattern, name)) return false;
    hit.name = name;
    hit.attributes = attributes & search.wanted;
    return true;
}

bool advance(runningSearch& search, platform::searchHit& hit)
{
    static const std::array<string, 2> dots{u".", u".."};
    while (search.dotsGiven < dots.size()) {
        if (giveHit(search, dots[search.dotsGiven++], attributeSubdirectory, hit)) return true;
    }
    const auto& children = search.directory->children;
    for (auto next = children.upper_bound(search.last); next != children.end(); ++next) {
        search.last = next->first;
        if (giveHit(search, next->second->name, next->second->attributes, hit)) return true;
    }
    return false;
}

// --- transfers ---

// How many of `count` bytes a transfer moves.
std::size_t transferred(std::size_t count, bool fails)
{
    if (!fails) return count;
    return machine::current().shortTransfers ? count / 2 : 0;
}

openedFile* opened(platform::fileHandle handle, platform::openMode mode)
{
    const auto found = internals().openFiles.find(handle);
    return found == internals().openFiles.end() || found->second.mode != mode ? nullptr
                                                                              : &found->second;
}

// Windows-1252; the five bytes without a character stand for the unit of the same value.
char16_t ansiUnit(unsigned char byte)
{
    static constexpr char16_t upper[32] = {
        0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178,
    };
    return byte >= 0x80 && byte < 0xA0 ? upper[byte - 0x80] : byte;
}

std::size_t decodeDoubleBytes(const unsigned char* bytes, std::size_t length, char16_t* units)
{
    std::size_t count = 0;
    for (std::size_t at = 0; at < length; ++at) {
        char16_t unit = bytes[at];
        if (unit >= 0x80 && at + 1 < length) unit = static_cast<char16_t>(unit << 8 | bytes[++at]);
        units[count++] = unit;
    }
    return count;
}

// --- time ---

constexpr std::int64_t secondsOfDay = 86400;
constexpr std::int64_t lastSecond = 32535215999; // the last one of the year 3000

// Days since 1970 of a day in the proleptic Gregorian calendar; any day number will do.
std::int64_t dayNumber(std::int64_t year, std::int64_t month, std::int64_t day)
{
    year += month >= 0 ? month / 12 : (month - 11) / 12;
    month = (month % 12 + 12) % 12; // 0 is January
    if (month < 2) --year;          // years begin in March, so that the leap day comes last
    const std::int64_t monthOfYear = (month + 10) % 12;
    const std::int64_t century = (year >= 0 ? year : year - 399) / 400;
    const std::int64_t yearOfCentury = year - century * 400;
    const std::int64_t dayOfYear = (153 * monthOfYear + 2) / 5 + day - 1;
    return century * 146097 + yearOfCentury * 365 + yearOfCentury / 4 - yearOfCentury / 100 +
           dayOfYear - 719468;
}

std::tm brokenDown(std::int64_t seconds)
{
    const std::int64_t day = seconds / secondsOfDay;
    const std::int64_t inDay = seconds % secondsOfDay;
    std::int64_t year = 1970 + day / 366;
    while (dayNumber(year + 1, 0, 1) <= day) ++year;
    std::int64_t month = 0;
    while (month < 11 && dayNumber(year, month + 1, 1) <= day) ++month;
    std::tm time{};
    time.tm_year = static_cast<int>(year - 1900);
    time.tm_mon = static_cast<int>(month);
    time.tm_mday = static_cast<int>(day - dayNumber(year, month, 1) + 1);
    time.tm_hour = static_cast<int>(inDay / 3600);
    time.tm_min = static_cast<int>(inDay / 60 % 60);
    time.tm_sec = static_cast<int>(inDay % 60);
    time.tm_wday = static_cast<int>((day + 4) % 7);
    time.tm_yday = static_cast<int>(day - dayNumber(year, 0, 1));
    return time;
}

// "%c" of the "C" locale.
std::string plainTimeText(const std::tm& time)
{
    static constexpr const char* days[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    static constexpr const char* months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                             "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    char text[128];
    std::snprintf(text, sizeof text, "%s %s %2d %02d:%02d:%02d %d",
                  days[static_cast<unsigned>(time.tm_wday) % 7],
                  months[static_cast<unsigned>(time.tm_mon) % 12], time.tm_mday, time.tm_hour,
                  time.tm_min, time.tm_sec, time.tm_year + 1900);
    return text;
}

// --- mutexes ---

// Like the system's own, it takes no harm from a release by a thread that does not hold it.
class recursiveMutex {
public:
    void lock()
    {
        std::unique_lock alone(m_state);
        m_free.wait(alone,
                    [this] { return m_depth == 0 || m_owner == std::this_thread::get_id(); });
        m_owner = std::this_thread::get_id();
        ++m_depth;
    }
    void unlock()
    {
        const std::lock_guard alone(m_state);
        if (m_depth == 0 || m_owner != std::this_thread::get_id()) return;
        if (--m_depth == 0) m_free.notify_one();
    }

private:
    std::mutex m_state;
    std::condition_variable m_free;
    std::thread::id m_owner;
    int m_depth = 0;
};

// --- windows ---

const machine::desktopWindow* windowOf(platform::window handle)
{
    const auto& windows = machine::current().windows;
    const auto index = reinterpret_cast<std::uintptr_t>(handle);
    return index == 0 || index > windows.size() ? nullptr : &windows[index - 1];
}

bool giveSeparator(const observedCall& call, const string& separator, string& out)
{
    if (call.fails()) return false;
    out = separator;
    return true;
}

} // namespace

// --- the face ------------------------------------------------------------------------------

machine& machine::current()
{
    static machine& only = *new machine;
    return only;
}

machine& machine::renew()
{
    const std::lock_guard alone(guard());
    machine& here = current();
    here = machine();
    internals() = inside();
    return here;
}

void machine::addDirectory(const string& path)
{
    const string full = absolutePath(path);
    provideDrive(full);
    internals().entries.provideDirectory(full);
}

void machine::addFile(const string& path, const std::string& bytes, std::uint32_t attributes)
{
    const string full = absolutePath(path);
    provideDrive(full);
    const entryPointer entry = internals().entries.provideFile(full);
    entry->bytes = bytes;
    entry->attributes = attributes;
    entry->modificationTime = clock;
}

bool machine::hasFile(const string& path) const
{
    return fileAt(path) != nullptr;
}

bool machine::hasDirectory(const string& path) const
{
    const entryPointer entry = entryAt(path);
    return entry && entry->isDirectory();
}

std::string machine::content(const string& path) const
{
    const entryPointer entry = fileAt(path);
    return entry ? entry->bytes : std::string();
}

void machine::setAttributes(const string& path, std::uint32_t attributes)
{
    const entryPointer entry = entryAt(path);
    if (entry) entry->attributes = attributes | (entry->attributes & attributeSubdirectory);
}

void machine::setModificationTime(const string& path, std::int64_t seconds)
{
    const entryPointer entry = entryAt(path);
    if (entry) entry->modificationTime = seconds;
}

std::vector<string> machine::files() const
{
    return internals().entries.files();
}

std::vector<string> machine::boxTexts() const
{
    std::vector<string> texts;
    for (const box& shown : boxes) texts.push_back(shown.text);
    return texts;
}

std::size_t machine::countCalls(const std::string& operation) const
{
    return static_cast<std::size_t>(
        std::count_if(calls.begin(), calls.end(),
                      [&operation](const seamCall& call) { return call.operation == operation; }));
}

void machine::failCall(const std::string& operation, std::size_t nth)
{
    internals().faults.push_back({operation, nth});
}

bool machine::faultsPending() const
{
    const auto& faults = internals().faults;
    return std::any_of(faults.begin(), faults.end(),
                       [](const fault& planned) { return planned.callsLeft > 0; });
}

void machine::pretendSize(const string& path, std::int64_t bytes)
{
    internals().pretendedSizes[fileAt(path).get()] = bytes;
}

std::size_t machine::largeBlocks()
{
    return largeBlockCount();
}

std::size_t machine::openHandles() const
{
    return internals().openFiles.size() + internals().searches.size();
}

} // namespace orlo::tests

// --- the seam ------------------------------------------------------------------------------

namespace orlo::platform {

using namespace orlo::tests;

bool access(const string& path, unsigned mode)
{
    const observedCall call("access", path, mode);
    const entryPointer entry = entryAt(path);
    if (call.fails() || !entry) return false;
    return (mode & accessWrite) == 0 || entry->isDirectory() || !entry->isReadOnly();
}

bool queryStatus(const string& path, fileStatus& out)
{
    const observedCall call("queryStatus", path);
    const entryPointer entry = entryAt(path);
    if (call.fails() || !entry) return false;
    const std::uint32_t kind = entry->isDirectory() ? 040000 : 0100000;
    const std::uint32_t permission = entry->isDirectory()  ? 0777
                                     : entry->isReadOnly() ? 0444
                                                           : 0666;
    const auto pretended = internals().pretendedSizes.find(entry.get());
    const std::int64_t size = pretended == internals().pretendedSizes.end()
                                  ? static_cast<std::int64_t>(entry->bytes.size())
                                  : pretended->second;
    out = {kind | permission, size, entry->modificationTime};
    return true;
}

std::optional<entryIdentity> identityOf(const string& path)
{
    const observedCall call("identityOf", path);
    const entryPointer entry = entryAt(path);
    if (call.fails() || !entry) return std::nullopt;
    return entryIdentity{1, entry->number};
}

bool createFile(const string& path, unsigned permission)
{
    const observedCall call("createFile", path, permission);
    if (call.fails() || path.empty()) return false;
    const bool isNew = !entryAt(path);
    const entryPointer entry =
        internals().entries.emptiedFile(absolutePath(path), machine::current().clock);
    if (!entry) return false;
    if (isNew && (permission & permissionToWrite) == 0) entry->attributes |= attributeReadOnly;
    return true;
}

bool removeFile(const string& path)
{
    const observedCall call("removeFile", path);
    return !call.fails() && !path.empty() && internals().entries.remove(absolutePath(path));
}

bool renameEntry(const string& from, const string& to)
{
    const observedCall call("renameEntry", from);
    if (call.fails() || from.empty() || to.empty()) return false;
    return internals().entries.rename(absolutePath(from), absolutePath(to));
}

bool copyFile(const string& source, const string& target, bool failIfExists)
{
    const observedCall call("copyFile", source);
    if (call.fails() || source.empty() || target.empty()) return false;
    const std::int64_t now = machine::current().clock;
    return internals().entries.copy(absolutePath(source), absolutePath(target), failIfExists, now);
}

unsigned driveType(const string& root)
{
    const observedCall call("driveType", root);
    const auto& types = machine::current().driveTypes;
    const auto found = root.empty() ? types.end() : types.find(upperUnit(root[0]));
    return call.fails() || found == types.end() ? 1 : found->second;
}

searchHandle findFirst(const string& pattern, std::uint32_t wanted, searchHit& hit)
{
    const observedCall call("findFirst", pattern);
    if (call.fails()) return noSearch;
    const std::size_t nameStart = pattern.find_last_of(u"\\/") + 1;
    const string path = pattern.substr(0, nameStart);
    const entryPointer directory = entryAt(path.empty() ? u".\\" : path);
    if (!directory || !directory->isDirectory()) return noSearch;

    runningSearch search{directory, pattern.substr(nameStart), wanted};
    if (!advance(search, hit)) return noSearch;
    const searchHandle handle = newHandle();
    internals().searches.emplace(handle, std::move(search));
    return handle;
}

bool findNext(searchHandle search, searchHit& hit)
{
    const observedCall call("findNext");
    const auto found = internals().searches.find(search);
    return !call.fails() && found != internals().searches.end() && advance(found->second, hit);
}

void findClose(searchHandle search)
{
    const observedCall call("findClose");
    internals().searches.erase(search);
}

fileHandle openFile(const string& path, openMode mode)
{
    const observedCall call("openFile", path);
    if (call.fails() || path.empty()) return noFile;
    const entryPointer entry =
        mode == openMode::read
            ? fileAt(path)
            : internals().entries.emptiedFile(absolutePath(path), machine::current().clock);
    if (!entry) return noFile;
    ++entry->openCount;
    const fileHandle handle = newHandle();
    internals().openFiles.emplace(handle, openedFile{entry, mode});
    return handle;
}

std::size_t readFile(fileHandle file, void* bytes, std::size_t count)
{
    const observedCall call("readFile");
    openedFile* from = opened(file, openMode::read);
    if (from == nullptr) return 0;
    const std::string& content = from->entry->bytes;
    const std::size_t start = std::min(from->position, content.size());
    const std::size_t given = std::min(transferred(count, call.fails()), content.size() - start);
    if (given > 0) std::memcpy(bytes, content.data() + start, given);
    from->position = start + given;
    return given;
}

std::size_t writeFile(fileHandle file, const void* bytes, std::size_t count)
{
    const observedCall call("writeFile");
    openedFile* to = opened(file, openMode::write);
    if (to == nullptr) return 0;
    const std::size_t taken = transferred(count, call.fails());
    to->entry->bytes.append(static_cast<const char*>(bytes), taken);
    to->entry->modificationTime = machine::current().clock;
    return taken;
}

bool flushFile(fileHandle file)
{
    const observedCall call("flushFile");
    return !call.fails() && internals().openFiles.count(file) != 0;
}

void closeFile(fileHandle file)
{
    const observedCall call("closeFile");
    const auto found = internals().openFiles.find(file);
    if (found == internals().openFiles.end()) return;
    --found->second.entry->openCount;
    internals().openFiles.erase(found);
}

std::size_t decode(encoding from, const void* bytes, std::size_t length, char16_t* units)
{
    const observedCall call("decode");
    if (call.fails()) return 0;
    const auto* first = static_cast<const unsigned char*>(bytes);
    if (from == encoding::utf8) return decodeUtf8Bytes(first, length, units);
    if (machine::current().doubleByteSet) return decodeDoubleBytes(first, length, units);
    std::transform(first, first + length, units, ansiUnit);
    return length;
}

std::size_t encodeUtf8(const char16_t* units, std::size_t length, char* bytes)
{
    const observedCall call("encodeUtf8");
    return call.fails() ? 0 : encodeUtf8Units(units, length, bytes);
}

bool currentDirectory(string& path)
{
    constexpr std::size_t room = 259; // of 260, with the terminator
    const observedCall call("currentDirectory");
    if (call.fails() || machine::current().workingDirectory.size() > room) return false;
    path = machine::current().workingDirectory;
    return true;
}

int currentDrive()
{
    const observedCall call("currentDrive");
    return call.fails() ? 0 : machine::current().drive;
}

bool environmentVariable(const char16_t* name, string& value)
{
    const allocationPause ownMemory;
    const observedCall call("environmentVariable", name);
    const string sought = string(name).lowerCopy(); // before `value` goes, which may hold the name
    value.clear();
    const auto& variables = machine::current().environment;
    const auto found =
        std::find_if(variables.begin(), variables.end(),
                     [&sought](const auto& item) { return item.first.lowerCopy() == sought; });
    if (call.fails() || found == variables.end()) return false;
    value = found->second;
    return true;
}

void* findModule(const string& name)
{
    const observedCall call("findModule", name);
    auto& modules = machine::current().modules;
    const auto found = modules.find(name);
    return call.fails() || found == modules.end() ? nullptr : &found->second;
}

std::size_t modulePath(void* module, char16_t* units, std::size_t capacity)
{
    const observedCall call("modulePath");
    const auto& modules = machine::current().modules;
    const auto found = std::find_if(modules.begin(), modules.end(), [module](const auto& item) {
        return module == nullptr ? item.first.empty() : &item.second == module;
    });
    if (call.fails() || found == modules.end()) return 0;
    return found->second.copy(units, capacity);
}

std::uint32_t processId()
{
    const observedCall call("processId");
    return call.fails() ? 0 : machine::current().process;
}

void endAbnormally()
{
    const observedCall call("endAbnormally");
    throw machine::ended();
}

bool enumerateWindows(bool (*visit)(window found, void* context), void* context)
{
    {
        // What the caller does with a window is its own.
        const observedCall call("enumerateWindows");
        if (call.fails()) return false;
    }
    machine& here = machine::current();
    for (std::uintptr_t handle = 1; handle <= here.windows.size(); ++handle) {
        if (handle > here.windowsUntilFailure) return false;
        const bool isNull = here.windows[handle - 1].isNull;
        if (!visit(isNull ? nullptr : reinterpret_cast<window>(handle), context)) return false;
    }
    return true;
}

std::uint32_t windowProcess(window of)
{
    const observedCall call("windowProcess");
    const machine::desktopWindow* found = windowOf(of);
    return call.fails() || found == nullptr ? 0 : found->process;
}

window parentWindow(window of)
{
    const observedCall call("parentWindow");
    const machine::desktopWindow* found = windowOf(of);
    return call.fails() || found == nullptr ? nullptr : found->parent;
}

window lastActivePopup(window of)
{
    const observedCall call("lastActivePopup");
    const machine::desktopWindow* found = windowOf(of);
    return call.fails() || found == nullptr ? nullptr : found->popup;
}

void showMessageBox(window owner, const char16_t* text, const char16_t* title, std::uint32_t style)
{
    const allocationPause ownMemory;
    const observedCall call("showMessageBox", text);
    if (!call.fails()) machine::current().boxes.push_back({text, title, style, owner});
}

void expectFilling(void*, std::size_t) {}

void expectAllocations(std::size_t size)
{
    const allocationPause ownMemory;
    machine::current().foretoldAllocations.push_back(size);
}

// Refused where any memory of the program's own is.
void* newLargeBlock(std::size_t size)
{
    void* const block = ::operator new(size, std::nothrow);
    if (block != nullptr) ++largeBlockCount();
    return block;
}

void deleteLargeBlock(void* block, std::size_t)
{
    ::operator delete(block);
    --largeBlockCount();
}

void* createMutex()
{
    const observedCall call("createMutex");
    return call.fails() ? nullptr : new recursiveMutex;
}

bool lockMutex(void* mutex)
{
    {
        // Waiting must not stop the other threads' calls.
        const observedCall call("lockMutex");
        if (call.fails() || mutex == nullptr) return false;
    }
    static_cast<recursiveMutex*>(mutex)->lock();
    return true;
}

void unlockMutex(void* mutex)
{
    const observedCall call("unlockMutex");
    if (mutex != nullptr) static_cast<recursiveMutex*>(mutex)->unlock();
}

void destroyMutex(void* mutex)
{
    const observedCall call("destroyMutex");
    delete static_cast<recursiveMutex*>(mutex);
}

std::int64_t now()
{
    const observedCall call("now");
    return call.fails() ? -1 : machine::current().clock;
}

std::int64_t secondsOf(std::tm& universal)
{
    const observedCall call("secondsOf");
    const std::int64_t day =
        dayNumber(universal.tm_year + std::int64_t{1900}, universal.tm_mon, universal.tm_mday);
    const std::int64_t seconds = day * secondsOfDay + universal.tm_hour * std::int64_t{3600} +
                                 universal.tm_min * std::int64_t{60} + universal.tm_sec;
    if (call.fails() || seconds < 0 || seconds > lastSecond) return -1;
    universal = brokenDown(seconds);
    return seconds;
}

bool localTime(std::int64_t seconds, std::tm& local)
{
    const observedCall call("localTime");
    if (call.fails() || seconds < 0 || seconds > lastSecond) return false;
    const std::int64_t there = seconds + machine::current().timeZoneOffset;
    if (there < 0 || there > lastSecond) return false;
    local = brokenDown(there);
    return true;
}

// Not observed: nothing depends on how often they are asked.
bool isPlainCharacterLocale()
{
    return machine::current().characters == machine::characterLocale::plain;
}

char16_t lowerCaseOf(char16_t unit)
{
    const bool western = unit >= 0xC0 && unit <= 0xDE && unit != 0xD7;
    return western ? static_cast<char16_t>(unit + 32) : lowerUnit(unit);
}

char16_t upperCaseOf(char16_t unit)
{
    const bool western = unit >= 0xE0 && unit <= 0xFE && unit != 0xF7;
    return western ? static_cast<char16_t>(unit - 32) : upperUnit(unit);
}

std::size_t widenText(const char* narrow, char16_t* units)
{
    const std::string_view text = std::string_view(narrow).substr(0, std::strcspn(narrow, "\x81"));
    std::transform(text.begin(), text.end(), units, [](char byte) {
        return byte == '\x80' ? u'\u20AC' : static_cast<char16_t>(static_cast<unsigned char>(byte));
    });
    return text.size();
}

bool queryTimeLocale(string& name)
{
    const observedCall call("queryTimeLocale");
    if (call.fails()) return false;
    name = machine::current().timeLocale;
    return true;
}

bool setTimeLocale(const string& name)
{
    const observedCall call("setTimeLocale", name);
    if (call.fails()) return false;
    machine& here = machine::current();
    here.timeLocale = name.empty() ? here.userTimeLocale : name;
    return true;
}

std::size_t formatTime(char* buffer, std::size_t size, const char* format, const std::tm& time)
{
    const observedCall call("formatTime");
    if (call.fails()) return 0;
    const std::string& prepared = machine::current().timeText;
    if (prepared.empty() && std::strcmp(format, "%c") != 0)
        return std::strftime(buffer, size, format, &time);
    const std::string text = prepared.empty() ? plainTimeText(time) : prepared;
    if (text.size() >= size) return 0;
    std::memcpy(buffer, text.c_str(), text.size() + 1);
    return text.size();
}

string timeText(const char* formatted)
{
    return string(formatted);
}

bool userDecimalSeparator(string& separator)
{
    return giveSeparator(observedCall("userDecimalSeparator"), machine::current().userSeparator,
                         separator);
}

bool systemDecimalSeparator(string& separator)
{
    return giveSeparator(observedCall("systemDecimalSeparator"), machine::current().systemSeparator,
                         separator);
}

} // namespace orlo::platform
