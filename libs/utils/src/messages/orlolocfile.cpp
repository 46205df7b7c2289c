// A language file is read whole. Three passes go over its text, each with its own idea of a
// line: one for the include lines when the object is made, and at each load one for the
// commands and one for the entries.
#include "orlolocfile.h"

#include "messages/languagetext.h"
#include "orlopath.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <set>
#include <type_traits>
#include <utility>

namespace orlo {

// The language table's list of files grows by moving: a copy would read its includes again.
static_assert(std::is_nothrow_move_constructible_v<locFile>);

namespace {

using view = std::u16string_view;

constexpr view includeMark = u"#include";
constexpr view commandMark = u";;cmd(";
constexpr view aliasMark = u"$$";
constexpr view commandSeparator = u":::";
constexpr char16_t commentMark = u';';
constexpr char16_t quote = u'"';

// The name in an include line; false if the line is none.
bool parseInclude(view line, string& name)
{
    line = trimmedLineEnd(trimmedLeft(line.substr(0, line.rfind(commentMark)), blanks));
    if (line.find(includeMark) == line.npos) return false;
    // The cut begins at the first letter that the mark has, not at the mark itself: with other
    // words in front of it the name goes wrong. The mark belongs at the start of its line.
    line.remove_prefix(line.find_first_of(includeMark) + includeMark.size());
    name = string(trimmedLeft(line, blanks));
    return true;
}

std::vector<string> includeNames(view text)
{
    std::vector<string> names;
    if (text.find(includeMark) == text.npos) return names;
    lineReader lines(text);
    string name;
    for (view line; lines.next(line);)
        if (parseInclude(line, name)) names.push_back(name);
    return names;
}

void readCommands(view text, std::vector<string>& commands)
{
    if (text.find(commandMark) == text.npos) return;
    lineReader lines(text);
    for (view line; lines.next(line);) {
        const auto mark = line.find(commandMark);
        if (mark == line.npos) continue;
        const view command = trimmedRight(trimmedLineEnd(line), u")");
        commands.emplace_back(command.substr(mark + commandMark.size()));
    }
}

// The text of a value or of a continuation line, without its quotes or its comment.
view valueText(view line)
{
    if (line.starts_with(quote)) {
        line.remove_prefix(1);
        return line.substr(0, line.rfind(quote));
    }
    const auto comment = line.rfind(commentMark);
    return comment == line.npos ? line : trimmedRight(line.substr(0, comment), blanks);
}

// The entry pass. Values are put together where they stand in the text, which they never
// outgrow: the pieces of a continued one move up to each other, and "\n" shrinks.
class entryReader {
public:
    struct entry {
        view key;
        view value;
        std::array<std::uint64_t, 2> rank{}; // for sorting
    };

    // The entries in the order of the text, keys more than once included. Their views end
    // with `text`.
    static std::vector<entry> read(std::u16string& text);

private:
    explicit entryReader(std::u16string& text) : m_text(text) {}
    void takeLine(view line);
    void startEntry(view line);
    void append(view piece);
    void finishEntry();

    std::u16string& m_text;
    std::vector<entry> m_found;
    bool m_open = false; // an entry goes on in the next line
    view m_key;
    std::size_t m_valueStart = 0;
    std::size_t m_valueEnd = 0;
};

std::vector<entryReader::entry> entryReader::read(std::u16string& text)
{
    std::replace(text.begin(), text.end(), u'\t', u' ');
    entryReader reader(text);
    lineReader lines(text);
    for (view line; lines.next(line);) {
        line = trimmedLineEnd(trimmedLeft(line, blanks));
        if (!line.empty()) reader.takeLine(line);
    }
    return std::move(reader.m_found);
}

void entryReader::takeLine(view line)
{
    const bool goesOn = line.ends_with(u'\\');
    if (goesOn) line.remove_suffix(1);
    if (m_open)
        append(valueText(line));
    else
        startEntry(line);
    if (m_key.empty()) return;
    m_open = goesOn;
    if (!goesOn) finishEntry();
}

// Leaves the key empty if the line holds no entry.
void entryReader::startEntry(view line)
{
    const auto blank = line.find(u' ');
    const view key = line.substr(0, blank);
    if (blank == line.npos || key.find(commentMark) != key.npos) return;
    m_key = key;
    const view value = valueText(trimmedLeft(line.substr(blank), blanks));
    m_valueStart = static_cast<std::size_t>(value.data() - m_text.data());
    m_valueEnd = m_valueStart + value.size();
}

void entryReader::append(view piece)
{
    const auto end = std::copy(piece.begin(), piece.end(),
                               m_text.begin() + static_cast<std::ptrdiff_t>(m_valueEnd));
    m_valueEnd = static_cast<std::size_t>(end - m_text.begin());
}

void entryReader::finishEntry()
{
    char16_t* const start = m_text.data() + m_valueStart;
    char16_t* const end = m_text.data() + m_valueEnd;
    char16_t* to = std::find(start, end, u'\\');
    for (const char16_t* from = to; from != end; ++to, ++from) {
        const bool lineFeed = *from == u'\\' && from + 1 != end && from[1] == u'n';
        *to = lineFeed ? u'\n' : *from;
        if (lineFeed) ++from;
    }
    m_found.push_back({m_key, view(start, to)});
    m_key = {};
}

// What all keys have in front, as most programs name their texts after themselves.
std::size_t commonLength(const std::vector<entryReader::entry>& entries)
{
    view common = entries.empty() ? view() : entries[0].key;
    for (const auto& [key, value, rank] : entries) {
        const auto end = std::mismatch(common.begin(), common.end(), key.begin(), key.end()).first;
        common = view(common.begin(), end);
    }
    return common.size();
}

// Eight units as numbers of the same order; zeros stand for what is missing.
std::array<std::uint64_t, 2> rankOf(view units)
{
    std::array<std::uint64_t, 2> rank{};
    for (std::size_t index = 0; index < 8; ++index) {
        std::uint64_t& part = rank[index / 4];
        part = part << 16 | (index < units.size() ? units[index] : 0);
    }
    return rank;
}

// Sorts by key, and leaves equal keys in their order. Most comparisons end at the ranks,
// without a look at texts that lie scattered.
void sortByKey(std::vector<entryReader::entry>& entries)
{
    using entry = entryReader::entry;
    const std::size_t common = commonLength(entries);
    for (entry& each : entries) each.rank = rankOf(each.key.substr(common));
    const auto before = [](const entry& a, const entry& b) {
        return a.rank != b.rank ? a.rank < b.rank : a.key < b.key;
    };
    if (!std::is_sorted(entries.begin(), entries.end(), before))
        std::stable_sort(entries.begin(), entries.end(), before);
}

// Keys that come in their order go into the map without a search. Of equal keys the first
// stays.
void readEntries(std::u16string& text, std::map<string, string>& entries)
{
    using entry = entryReader::entry;
    std::vector<entry> found = entryReader::read(text);
    sortByKey(found);
    const auto end = std::unique(found.begin(), found.end(), [](const entry& a, const entry& b) {
        return a.rank == b.rank && a.key == b.key;
    });
    for (auto next = found.begin(); next != end; ++next)
        entries.emplace_hint(entries.end(), string(next->key), string(next->value));
}

// Blanks around a key don't count.
string trimmedKey(view key)
{
    return string(trimmedLineEnd(trimmedLeft(key, blanks)));
}

} // namespace

locFile::locFile(const file& source) : file(source)
{
    readIncludes();
}

locFile::locFile(const locFile& other) : file(other), m_overrideFile(other.m_overrideFile)
{
    readIncludes();
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

locFile::locFile(const file& source, includes) : file(source) {}

bool locFile::lookup(const char16_t* key, stringTemplate& text)
{
    string sought = trimmedKey(key);
    const finding own = search(sought, text);
    return own == finding::found || (own == finding::missing && searchIncludes(sought, text));
}

void locFile::setOverrideFile(const file& overrideFile)
{
    m_overrideFile = overrideFile;
    m_entries.clear();
}

// Files are read one after the other, each behind the one that names it: a long chain of them
// needs no deep call stack.
void locFile::readIncludes()
{
    family files{{this, 0}};
    for (std::size_t next = 0; next < files.size(); ++next)
        files[next].source->readOwnIncludes(files, next);
}

// Each file names an included one once, whatever the files around it have named already: a
// text of this file may point to one of the included, so it must be found from here. What
// stops is the circle.
void locFile::readOwnIncludes(family& files, std::size_t self)
{
    const auto isOnTheWay = [&files, self](const file& included) {
        std::size_t step = self;
        while (step != 0 && files[step].source->path() != included.path()) step = files[step].outer;
        return files[step].source->path() == included.path();
    };
    std::optional<languageText> read = readLanguageText(*this);
    if (!read) return;
    m_unloadedTime = read->modificationTime;
    m_unloaded = std::move(read->units);

    std::set<string> seen;
    auto last = m_includes.before_begin();
    for (const string& name : includeNames(*m_unloaded)) {
        const file included(pathDirectory(path()), name);
        if (!included.exists() || !included.isReadable() || isOnTheWay(included)) continue;
        if (!seen.insert(included.path().lowerCopy()).second) continue;
        last = m_includes.insert_after(last, locFile(included, includes::skip));
        files.push_back({&*last, self});
    }
}

bool locFile::needsLoad() const
{
    if (m_entries.empty() || modificationTime() != m_fileTime) return true;
    fileStatus status;
    const bool overridden =
        m_overrideFile.stat(status) && !(status.mode & fileStatus::directoryBit);
    return (overridden ? status.modificationTime : 0) != m_overrideTime;
}

bool locFile::load()
{
    m_fileTime = modificationTime();
    m_entries.clear();
    const bool loaded = loadEntries();
    try {
        applyCommands(m_entries);
        loadOverride();
    } catch (...) {
        m_entries.clear(); // so that the next look-up does not take the half for the whole
        throw;
    }
    return loaded;
}

// What was read for the include lines serves the first load too, unless the file has changed
// since.
std::optional<std::u16string> locFile::takeText()
{
    std::optional<std::u16string> kept = std::exchange(m_unloaded, std::nullopt);
    if (kept && m_unloadedTime == m_fileTime) return kept;
    std::optional<languageText> read = readLanguageText(*this);
    if (!read) return std::nullopt;
    return std::move(read->units);
}

// The commands of earlier loads stay, so that a file that has changed holds its commands
// twice.
bool locFile::loadEntries()
{
    try {
        std::optional<std::u16string> text = takeText();
        if (!text) return false;
        readCommands(*text, m_commands);
        readEntries(*text, m_entries);
        return true;
    } catch (...) {
        return false; // what was read so far stays
    }
}

void locFile::loadOverride()
{
    m_overrideTime = 0;
    if (!m_overrideFile.exists()) return;
    m_overrideTime = m_overrideFile.modificationTime();
    locFile overriding(m_overrideFile, includes::skip);
    overriding.load();
    for (auto& [key, value] : overriding.m_entries)
        m_entries.insert_or_assign(key, std::move(value));
    overriding.applyCommands(m_entries);
}

void locFile::applyCommands(entryMap& entries) const
{
    std::vector<string> parts;
    for (const string& command : m_commands) {
        const bool replaces =
            command.split(commandSeparator, parts) && parts.size() >= 3 && parts[0] == u"replace";
        if (!replaces) continue;
        for (auto& [key, value] : entries) value.replaceAll(parts[1], parts[2]);
    }
}

// Follows aliases within this file, and leaves in `key` the last one that was sought. A value
// that would close a circle is itself the text.
locFile::finding locFile::search(string& key, stringTemplate& text)
{
    std::set<string> walked;
    while (true) {
        if (needsLoad() && !load()) return finding::unreadable;
        const auto entry = m_entries.find(key);
        if (entry == m_entries.end()) return finding::missing;
        const string& value = entry->second;
        const bool alias = value.starts_with(aliasMark);
        if (alias) walked.insert(std::move(key));
        if (!alias || walked.count(value.substr(aliasMark.size())) > 0) {
            text.setText(value.c_str());
            return finding::found;
        }
        key = value.substr(aliasMark.size());
    }
}

// Each included file is asked with the key to which the aliases around it have led, and those
// that it includes before the next one.
bool locFile::searchIncludes(const string& key, stringTemplate& text)
{
    struct question {
        locFile* asked;
        string key;
    };
    std::vector<question> open; // the next one stands last
    const auto askBelow = [&open](locFile& outer, const string& sought) {
        const auto first = static_cast<std::ptrdiff_t>(open.size());
        for (locFile& included : outer.m_includes) open.push_back({&included, trimmedKey(sought)});
        std::reverse(open.begin() + first, open.end());
    };
    askBelow(*this, key);
    while (!open.empty()) {
        question next = std::move(open.back());
        open.pop_back();
        const finding found = next.asked->search(next.key, text);
        if (found == finding::found) return true;
        if (found == finding::missing) askBelow(*next.asked, next.key);
    }
    return false;
}

} // namespace orlo
