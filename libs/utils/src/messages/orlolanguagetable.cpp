#include "orlolanguagetable.h"

#include "orlolocfile.h"
#include "orlolocstringid.h"
#include "orlomodule.h"
#include "orlomutex.h"
#include "orlopath.h"
#include "orlosearchpath.h"
#include "orlostringtemplate.h"
#include "orlounit.h"
#include "text/immortal.h"

#include <algorithm>
#include <new>
#include <set>
#include <utility>

namespace orlo {

namespace {

bool equalPaths(const string& a, const string& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char16_t x, char16_t y) {
        return x == y || lowerUnit(x) == lowerUnit(y);
    });
}

// The parts of an address in one text, as locStringId gives it.
struct address {
    string key;
    string files;
    bool complete = false;
};

address takeApart(const iLocStringId& id)
{
    string whole;
    id.getKey(whole);
    std::vector<string> parts;
    whole.split(u"|", parts);
    if (parts.size() < 3) return {};
    return {std::move(parts[0]), std::move(parts[2]), true};
}

} // namespace

struct languageTable::record {
    record();
    bool find(const string& name, std::initializer_list<const char16_t*> languages,
              file& found) const;
    bool findInList(const string& files, const char16_t* language, file& found) const;
    bool findFile(const string& files, const char16_t* language, file& found) const;
    locFile& cached(const file& found);

    mutex m_mutex;
    std::vector<locFile> m_cache; // in the order of first use, never shortened
    string m_language;
    searchPath m_searchPath;
    string m_defaultFile;
    string m_overridePrefix;
    std::set<listener> m_listeners;
};

languageTable::record::record()
{
    directory executable;
    getModuleDirectory(string::emptyString(), executable);
    m_searchPath.addDirectory(executable);
    m_searchPath.addDirectory(
        directory(normalizePath(executable.path() + u"../config/Language", true)));
}

// The file as it is named, then in the folders of the languages; null stands for none. An
// empty name finds nothing, whatever the folders are.
bool languageTable::record::find(const string& name,
                                 std::initializer_list<const char16_t*> languages,
                                 file& found) const
{
    if (name.empty()) return false;
    if (m_searchPath.findFile(name, found, false)) return true;
    return std::any_of(languages.begin(), languages.end(), [&](const char16_t* language) {
        return language && m_searchPath.findFile(language + string(u"\\") + name, found, false);
    });
}

bool languageTable::record::findInList(const string& files, const char16_t* language,
                                       file& found) const
{
    std::vector<string> names;
    files.split(u",", names);
    return std::any_of(names.begin(), names.end(), [&](const string& name) {
        return find(name, {language, m_language.c_str()}, found);
    });
}

// A language of the caller comes before the current one for a list of files, and takes its
// place for a single file. Texts in the field rely on the difference.
bool languageTable::record::findFile(const string& files, const char16_t* language,
                                     file& found) const
{
    if (files.find(u',') != files.npos) return findInList(files, language, found);
    return find(files.empty() ? m_defaultFile : files, {language ? language : m_language.c_str()},
                found);
}

locFile& languageTable::record::cached(const file& found)
{
    const auto known = std::find_if(m_cache.begin(), m_cache.end(), [&](const locFile& entry) {
        return equalPaths(entry.path(), found.path());
    });
    if (known != m_cache.end()) return *known;
    // Complete before it is kept: an entry gets its override file but once.
    locFile added(found);
    if (!m_overridePrefix.empty())
        added.setOverrideFile(
            file(pathDirectory(found.path()), m_overridePrefix + u"_" + pathName(found.path())));
    return m_cache.emplace_back(std::move(added));
}

languageTable& languageTable::instance()
{
    static immortal<languageTable> table([] { return languageTable(); });
    return table.get();
}

languageTable::languageTable() : m_record(new (std::nothrow) record) {}

languageTable::record& languageTable::checked() const
{
    if (!m_record) throw false;
    return *m_record;
}

void languageTable::setLanguage(const char16_t* language)
{
    record& state = checked();
    const mutexLock held(&state.m_mutex);
    // Copies, since a listener may change both the language and the listeners. Nothing has
    // changed until all are made.
    const string current(language ? language : u"");
    const std::set<listener> told = state.m_listeners;
    const string old = std::exchange(state.m_language, string(current));
    if (old == current) return;
    for (const listener listen : told) listen(old.c_str(), current.c_str());
}

bool languageTable::lookup(const iLocStringId& id, stringTemplate& text, const char16_t* language)
{
    const address wanted = takeApart(id);
    if (!wanted.complete) return false;

    record& state = checked();
    file found;
    {
        const mutexLock held(&state.m_mutex);
        if (!state.findFile(wanted.files, language, found)) return false;
    }
    const mutexLock held(&state.m_mutex);
    return state.cached(found).lookup(wanted.key.c_str(), text);
}

void languageTable::setDefaultFile(const string& name)
{
    record& state = checked();
    const mutexLock held(&state.m_mutex);
    state.m_defaultFile = name;
}

void languageTable::setOverridePrefix(const string& prefix)
{
    record& state = checked();
    const mutexLock held(&state.m_mutex);
    state.m_overridePrefix = prefix;
}

void languageTable::addListener(listener told)
{
    record& state = checked();
    const mutexLock held(&state.m_mutex);
    if (told) state.m_listeners.insert(told);
}

void languageTable::removeListener(listener told)
{
    record& state = checked();
    const mutexLock held(&state.m_mutex);
    state.m_listeners.erase(told);
}

} // namespace orlo
