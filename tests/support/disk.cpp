#include "support/disk.h"

#include "orlounit.h"

#include <algorithm>

namespace orlo::tests {

namespace {

constexpr std::u16string_view separators = u"\\/";

bool isSeparator(char16_t unit)
{
    return separators.find(unit) != separators.npos;
}

// The names along a path, the drive or server first.
std::vector<string> namesOf(std::u16string_view path)
{
    std::vector<string> names;
    if (path.size() >= 2 && isSeparator(path[0]) && isSeparator(path[1])) {
        const std::size_t end = std::min(path.find_first_of(separators, 2), path.size());
        names.push_back(u"\\\\" + string(path.substr(2, end - 2)));
        path.remove_prefix(end);
    } else if (path.size() >= 2 && path[1] == u':') {
        names.emplace_back(path.substr(0, 2));
        path.remove_prefix(2);
    }
    while (!path.empty()) {
        const std::size_t end = std::min(path.find_first_of(separators), path.size());
        const std::u16string_view name = path.substr(0, end);
        if (name == u"..") {
            if (names.size() > 1) names.pop_back();
        } else if (!name.empty() && name != u".") {
            names.emplace_back(name);
        }
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return names;
}

bool isAllowedName(const string& name)
{
    return !name.empty() && std::none_of(name.begin(), name.end(), [](char16_t unit) {
        return unit < u' ' ||
               std::u16string_view(u"<>:\"|?*").find(unit) != std::u16string_view::npos;
    });
}

bool isWithin(const diskEntry& tree, const diskEntry& sought)
{
    return &tree == &sought ||
           std::any_of(tree.children.begin(), tree.children.end(),
                       [&sought](const auto& item) { return isWithin(*item.second, sought); });
}

void listFiles(const diskEntry& directory, const string& path, std::vector<string>& files)
{
    for (const auto& [number, entry] : directory.children) {
        if (entry->isDirectory())
            listFiles(*entry, path + entry->name + u"\\", files);
        else
            files.push_back(path + entry->name);
    }
}

} // namespace

// What a path names: the last name, and the directory that holds it or would hold it.
struct disk::place {
    entryPointer parent; // null if it is missing
    string name;
    bool namesDirectory = false; // by a separator at the end
    [[nodiscard]] entryPointer entry() const;
    [[nodiscard]] bool canHoldNew() const { return parent && isAllowedName(name); }
};

entryPointer disk::place::entry() const
{
    const entryPointer found = parent ? parent->child(name) : nullptr;
    return found && namesDirectory && !found->isDirectory() ? nullptr : found;
}

entryPointer diskEntry::child(const string& childName) const
{
    const auto found = numbers.find(childName.lowerCopy());
    return found == numbers.end() ? nullptr : children.at(found->second);
}

entryPointer disk::find(const string& path) const
{
    const diskEntry* directory = &m_roots;
    entryPointer entry;
    for (const string& name : namesOf(path)) {
        entry = directory->child(name);
        if (!entry) return nullptr;
        directory = entry.get();
    }
    // Only a directory may be named with a separator behind it.
    if (entry && !entry->isDirectory() && isSeparator(path.back())) return nullptr;
    return entry;
}

entryPointer disk::provideDirectory(const string& path)
{
    diskEntry* directory = &m_roots;
    entryPointer entry;
    for (const string& name : namesOf(path)) {
        entry = directory->child(name);
        if (!entry) entry = addChild(*directory, name, attributeSubdirectory);
        directory = entry.get();
    }
    return entry;
}

entryPointer disk::provideFile(const string& path)
{
    const std::size_t separator = path.find_last_of(separators);
    const entryPointer parent = provideDirectory(path.substr(0, separator));
    const string name = path.substr(separator + 1);
    const entryPointer there = parent->child(name);
    return there ? there : addChild(*parent, name, 0);
}

entryPointer disk::emptiedFile(const string& path, std::int64_t now)
{
    const place where = placeOf(path);
    entryPointer entry = where.entry();
    if (!entry) {
        if (!where.canHoldNew() || where.namesDirectory) return nullptr;
        entry = addChild(*where.parent, where.name, attributeArchive);
    }
    if (entry->isDirectory() || entry->isReadOnly()) return nullptr;
    entry->bytes.clear();
    entry->modificationTime = now;
    return entry;
}

bool disk::remove(const string& path)
{
    const place where = placeOf(path);
    const entryPointer entry = where.entry();
    if (!entry || entry->isDirectory() || entry->isReadOnly() || entry->openCount > 0) return false;
    detach(*where.parent, *entry);
    return true;
}

bool disk::rename(const string& from, const string& to)
{
    const place source = placeOf(from);
    const place target = placeOf(to);
    const entryPointer entry = source.entry();
    const entryPointer there = target.entry();
    if (!entry || entry->openCount > 0 || !target.canHoldNew() || isWithin(*entry, *target.parent))
        return false;
    // Only a change of case finds the entry itself at the new name.
    if (there && there != entry) return false;
    detach(*source.parent, *entry);
    entry->name = target.name;
    attach(*target.parent, entry);
    return true;
}

bool disk::copy(const string& source, const string& target, bool failIfExists, std::int64_t now)
{
    const entryPointer from = find(source);
    const entryPointer there = find(target);
    if (!from || from->isDirectory() || from == there || (there && failIfExists)) return false;
    const entryPointer to = emptiedFile(target, now);
    if (!to) return false;
    to->bytes = from->bytes;
    to->attributes = from->attributes;
    to->modificationTime = from->modificationTime;
    return true;
}

std::vector<string> disk::files() const
{
    std::vector<string> found;
    for (const auto& [number, root] : m_roots.children) listFiles(*root, root->name + u"\\", found);
    std::sort(found.begin(), found.end());
    return found;
}

disk::place disk::placeOf(const string& path) const
{
    std::vector<string> names = namesOf(path);
    if (names.size() < 2) return {};
    place result{nullptr, names.back(), isSeparator(path.back())};
    names.pop_back();
    string above;
    for (const string& name : names) above.append(name).append(u"\\");
    result.parent = find(above);
    return result;
}

entryPointer disk::addChild(diskEntry& parent, const string& name, std::uint32_t attributes)
{
    const auto entry = std::make_shared<diskEntry>();
    entry->name = name;
    entry->attributes = attributes;
    entry->number = ++m_made;
    attach(parent, entry);
    return entry;
}

void disk::attach(diskEntry& parent, const entryPointer& entry)
{
    parent.numbers[entry->name.lowerCopy()] = entry->number;
    parent.children[entry->number] = entry;
}

void disk::detach(diskEntry& parent, const diskEntry& entry)
{
    parent.numbers.erase(entry.name.lowerCopy());
    parent.children.erase(entry.number);
}

bool matchesPattern(std::u16string_view pattern, std::u16string_view name)
{
    if (pattern.empty()) return name.empty();
    const std::u16string_view rest = pattern.substr(1);
    const bool atEnd = name.empty();
    switch (pattern[0]) {
    case u'*':
        return matchesPattern(rest, name) || (!atEnd && matchesPattern(pattern, name.substr(1)));
    case u'?': return matchesPattern(rest, atEnd || name[0] == u'.' ? name : name.substr(1));
    case u'.':
        // Before a wildcard the dot may stand for nothing at the end of a name.
        if (atEnd)
            return !rest.empty() && (rest[0] == u'*' || rest[0] == u'?') &&
                   matchesPattern(rest, name);
        break;
    default: break;
    }
    return !atEnd && lowerUnit(pattern[0]) == lowerUnit(name[0]) &&
           matchesPattern(rest, name.substr(1));
}

} // namespace orlo::tests
