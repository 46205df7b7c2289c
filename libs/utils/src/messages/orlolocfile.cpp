// A language file is read whole, and given back after each pass: once for the include lines when
// the object is made, and at each load for commands and entries. These are copied side by side, as
// two texts of its own for each of very many would take twice the time. Included files are objects
// of the same kind, with entries and times of their own; a look-up goes through them from the
// outermost inwards. What stops a circle of includes is a look back at the files on the way to a
// line when it is read.
#include "orlolocfile.h"

#include "files/filecontent.h"
#include "messages/languageentries.h"
#include "messages/languagetext.h"
#include "orlopath.h"
#include "orlostringtemplate.h"
#include "platform/platform.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <new>
#include <optional>
#include <set>
#include <type_traits>
#include <utility>

namespace orlo {

// The language table's list of files grows by moving: a copy would read its includes again.
static_assert(std::is_nothrow_move_constructible_v<locFile>);

namespace {

constexpr std::u16string_view aliasMark = u"$$";
constexpr std::u16string_view commandSeparator = u":::";

// None of a directory.
std::optional<fileStatus> statusOfFile(const file& which)
{
    const std::optional<fileStatus> status = statusOf(which);
    return status && (status->mode & fileStatus::directoryBit) ? std::nullopt : status;
}

struct replacement {
    string from;
    string to;
};

std::vector<replacement> replacementsOf(const std::vector<string>& commands)
{
    std::vector<replacement> found;
    std::vector<string> parts;
    for (const string& command : commands) {
        if (command.split(commandSeparator, parts) && parts.size() >= 3 && parts[0] == u"replace")
            found.push_back({parts[1], parts[2]});
    }
    return found;
}

std::int64_t timeOf(const std::optional<fileStatus>& status)
{
    return status ? status->modificationTime : 0;
}

} // namespace

// Keys of one file often begin alike, so that half of a load would go into looking for the first
// unit in which two of them differ.
inline bool locFile::keyOrder::operator()(std::u16string_view a, std::u16string_view b) const
{
    constexpr std::size_t block = 4;
    const std::size_t common = std::min(a.size(), b.size());
    std::size_t at = 0;
    while (at + block <= common && std::memcmp(&a[at], &b[at], block * sizeof(char16_t)) == 0)
        at += block;
    while (at < common && a[at] == b[at]) ++at;
    return at < common ? a[at] < b[at] : a.size() < b.size();
}

void locFile::textStore::expect(std::size_t units)
{
    m_blocks.push_back(std::make_unique_for_overwrite<char16_t[]>(units));
    m_free = m_blocks.back().get();
    m_left = units;
    platform::expectFilling(m_free, units * sizeof(char16_t));
}

std::u16string_view locFile::textStore::keep(std::u16string_view text)
{
    constexpr std::size_t usualBlock = 2048;
    const std::size_t needed = text.size() + 1;
    if (needed > m_left) expect(std::max(needed, usualBlock));
    const std::u16string_view kept(m_free, text.size());
    *std::copy(text.begin(), text.end(), m_free) = 0;
    m_free += needed;
    m_left -= needed;
    return kept;
}

void locFile::textStore::clear()
{
    *this = {};
}

// Files wait in lists: a chain of includes may be longer than the call stack.
struct locFile::walk {
    // --- reading include lines ---
    struct member {
        locFile* source;
        std::size_t outer; // index of the file that names this one
    };
    using family = std::vector<member>; // each file behind the one that names it
    static void readIncludes(locFile& root, const std::vector<file>& seen);
    static void readOwnIncludes(family& files, std::size_t self, const std::vector<file>& seen);
    static bool isOnTheWay(const family& files, std::size_t self, const string& path);

    // --- looking up ---
    struct question {
        locFile* asked;
        string key;
    };
    static const char16_t* find(locFile& root, const char16_t* key);
    static bool ask(locFile& asked, string& key, const char16_t*& value);
};

// Lines for which there is no memory include nothing.
void locFile::walk::readIncludes(locFile& root, const std::vector<file>& seen)
{
    try {
        family files{{&root, 0}};
        readOwnIncludes(files, 0, seen);
        for (std::size_t next = 1; next < files.size(); ++next) readOwnIncludes(files, next, {});
    } catch (const std::bad_alloc&) {
        return;
    }
}

// Each file names an included one once, whatever the files around it have named already: a
// text of this file may point to one of the included, so it must be found from here.
void locFile::walk::readOwnIncludes(family& files, std::size_t self, const std::vector<file>& seen)
{
    locFile& source = *files[self].source;
    if (!source.isReadable()) return;
    const std::optional<std::u16string> text = readLanguageTextWith("#include", source);
    if (!text) return;

    std::set<string> known;
    for (const file& each : seen) known.insert(each.path().lowerCopy());
    auto last = source.m_includes.before_begin();
    for (const string& name : includedNames(*text)) {
        const file included(pathDirectory(source.path()), name);
        if (!included.exists() || !included.isReadable()) continue;
        if (isOnTheWay(files, self, included.path())) continue;
        if (!known.insert(included.path().lowerCopy()).second) continue;
        last = source.m_includes.insert_after(last, locFile(includes::none, included));
        files.push_back({&*last, self});
    }
}

bool locFile::walk::isOnTheWay(const family& files, std::size_t self, const string& path)
{
    while (self != 0 && files[self].source->path() != path) self = files[self].outer;
    return files[self].source->path() == path;
}

// The value for a key, or null. Each included file is asked with the key to which the aliases
// around it have led, and those that it includes before the next one.
const char16_t* locFile::walk::find(locFile& root, const char16_t* key)
{
    std::vector<question> open; // the next one stands last
    open.push_back({&root, string(key ? key : u"")});
    while (!open.empty()) {
        question next = std::move(open.back());
        open.pop_back();
        next.key = string(trimmedLine(next.key));
        const char16_t* value = nullptr;
        if (!ask(*next.asked, next.key, value)) continue;
        if (value) return value;
        const auto first = static_cast<std::ptrdiff_t>(open.size());
        for (locFile& included : next.asked->m_includes) open.push_back({&included, next.key});
        std::reverse(open.begin() + first, open.end());
    }
    return nullptr;
}

// Follows aliases within this file, and leaves in `key` the last one that was sought. A value
// that would close a circle is itself the text. False, so that its includes are not asked
// either, if the file can't be read.
bool locFile::walk::ask(locFile& asked, string& key, const char16_t*& value)
{
    std::set<string> walked;
    while (true) {
        if (!asked.refresh()) return false;
        const auto entry = asked.m_entries.find(key);
        if (entry == asked.m_entries.end()) return true;
        if (!entry->second.starts_with(aliasMark)) {
            value = entry->second.data();
            return true;
        }
        walked.insert(std::move(key));
        key = string(entry->second.substr(aliasMark.size()));
        if (walked.count(key) > 0) {
            value = entry->second.data();
            return true;
        }
    }
}

locFile::locFile(const file& source, const std::vector<file>& seen) : file(source)
{
    walk::readIncludes(*this, seen);
}

locFile::locFile(const locFile& other) : file(other), m_overrideFile(other.m_overrideFile)
{
    walk::readIncludes(*this, {});
}

locFile& locFile::operator=(const locFile& other)
{
    return *this = locFile(other);
}

// A chain of includes may be longer than the call stack, so the files below do not die inside
// each other.
locFile::~locFile()
{
    std::forward_list<locFile> doomed = std::move(m_includes);
    while (!doomed.empty()) {
        std::forward_list<locFile> below = std::move(doomed.front().m_includes);
        doomed.pop_front();
        doomed.splice_after(doomed.before_begin(), below);
    }
}

locFile::locFile(includes, const file& source) : file(source) {}

// Without the memory to find a text the caller shows his default one. What the template raises
// is its own matter.
bool locFile::lookup(const char16_t* key, stringTemplate& text)
{
    const char16_t* value = nullptr;
    try {
        value = walk::find(*this, key);
    } catch (const std::bad_alloc&) {
        return false;
    }
    if (value) text.setText(value);
    return value != nullptr;
}

void locFile::setOverrideFile(const file& overrideFile)
{
    m_overrideFile = overrideFile;
    forgetEntries();
}

// The status that tells the time also tells how much there is to read.
bool locFile::refresh()
{
    const std::optional<fileStatus> found = statusOf(*this);
    const bool isCurrent = !m_entries.empty() && timeOf(found) == m_fileTime &&
                           timeOf(statusOfFile(m_overrideFile)) == m_overrideTime;
    return isCurrent || load(found);
}

// A file whose time could not be told is asked once more whether it is there.
bool locFile::load(std::optional<fileStatus> found)
{
    if (!found) found = statusOf(*this);
    m_fileTime = timeOf(found);
    forgetEntries();
    const bool loaded = readEntries(found);
    try {
        applyCommands(*this);
        loadOverride();
        return loaded;
    } catch (...) {
        forgetEntries(); // so that the next look-up does not take the half for the whole
        return false;
    }
}

// The commands of earlier loads stay, so that a file that has changed holds its commands
// twice. After a failure what was read so far stays. The first entry of a key wins.
bool locFile::readEntries(const std::optional<fileStatus>& found)
{
    try {
        const std::optional<std::u16string> text = readLanguageText(*this, found);
        if (!text) return false;
        readCommands(*text, m_commands);
        languageEntries entries(*text);
        m_texts.expect(text->size());
        // Files in the order of their keys are the usual ones: each entry goes to the end.
        for (languageEntry entry; entries.next(entry);)
            m_entries.try_emplace(m_entries.end(), m_texts.keep(entry.key),
                                  m_texts.keep(entry.value));
        return true;
    } catch (...) {
        return false;
    }
}

void locFile::loadOverride()
{
    const std::optional<fileStatus> found = statusOfFile(m_overrideFile);
    m_overrideTime = timeOf(found);
    if (!found) return;
    locFile overriding(includes::none, m_overrideFile);
    overriding.load(found);
    for (const auto& [key, value] : overriding.m_entries)
        m_entries.insert_or_assign(m_texts.keep(key), m_texts.keep(value));
    overriding.applyCommands(*this);
}

// Text by text, so that each is kept but once, however many commands change it.
void locFile::applyCommands(locFile& target) const
{
    const std::vector<replacement> replacements = replacementsOf(m_commands);
    if (replacements.empty()) return;
    for (auto& [key, value] : target.m_entries) {
        string text(value);
        for (const auto& [from, to] : replacements) text.replaceAll(from, to);
        if (text != value) value = target.m_texts.keep(text);
    }
}

void locFile::forgetEntries()
{
    m_entries.clear();
    m_texts.clear();
}

} // namespace orlo
