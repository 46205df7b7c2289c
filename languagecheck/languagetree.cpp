#include "languagetree.h"

#include "messages/languageentries.h"
#include "orlopath.h"

#include <algorithm>
#include <map>
#include <set>

namespace orlo::languagecheck {

namespace {

struct include {
    namedFile file;
    position where;
};

// --- Lines -----------------------------------------------------------------------------------

bool isComment(std::u16string_view line)
{
    const auto word = line.substr(0, line.find_first_of(blanks));
    return word.find(u';') != word.npos;
}

// False, with a finding, if the line includes nothing.
bool checkInclude(const include& line, const string& name, report& findings)
{
    fileStatus status;
    if (name.empty()) {
        findings.error(line.where, u"\"#include\" names no file");
    } else if (!line.file.where.stat(status)) {
        const bool quoted = name.starts_with(u'"');
        findings.error(line.where,
                       quoted ? u"the file %s is not there: its name must not be quoted"
                              : u"the file \"%s\" is not there",
                       {name});
    } else if (status.mode & fileStatus::directoryBit) {
        findings.error(line.where, u"\"%s\" is a folder, not a file", {name});
    } else {
        return true;
    }
    return false;
}

namedFile besideOf(const namedFile& from, const string& name)
{
    const auto end = from.shown.find_last_of(u"/\\");
    const string folder = end == string::npos ? string() : from.shown.substr(0, end + 1);
    return {file(pathDirectory(from.where.path()), name), folder + name};
}

std::vector<include> includesOf(const source& from, report& findings)
{
    std::vector<include> found;
    languageLines lines(from.text);
    for (std::u16string_view line; lines.next(line);) {
        const std::vector<string> names = includedNames(line);
        const auto trimmed = trimmedLine(line);
        if (names.empty() || isComment(trimmed)) continue;
        const position where{from.shown, lines.number()};
        if (!trimmed.starts_with(includeMark)) {
            findings.warning(where, u"\"#include\" counts at the start of a line alone");
            continue;
        }
        const include each{besideOf(from, names.front()), where};
        if (checkInclude(each, names.front(), findings)) found.push_back(each);
    }
    return found;
}

// --- Files -----------------------------------------------------------------------------------

// Goes down from file to file. Those on the way wait in a list: a chain of includes may be longer
// than the call stack.
class treeReader {
public:
    treeReader(languageTree& tree, report& findings) : m_tree(tree), m_findings(findings) {}

    void read(const namedFile& root)
    {
        enter(root);
        while (!m_way.empty()) {
            level& last = m_way.back();
            if (last.next == last.includes.size()) {
                m_way.pop_back();
            } else {
                const include line = last.includes[last.next++]; // to follow it moves the levels
                follow(line);
            }
        }
    }

private:
    struct level {
        string path; // in lower case
        std::vector<include> includes;
        std::size_t next = 0;
    };

    void enter(const namedFile& from)
    {
        const string path = from.where.path().lowerCopy();
        if (!m_known.insert(path).second) return;
        const std::optional<source> read = readSource(from, m_findings);
        if (!read) return;
        m_tree.files.push_back(*read);
        m_way.push_back({path, includesOf(*read, m_findings)});
    }

    void follow(const include& line)
    {
        const string path = line.file.where.path().lowerCopy();
        const bool circle = std::any_of(m_way.begin(), m_way.end(),
                                        [&path](const level& each) { return each.path == path; });
        if (circle)
            m_findings.error(line.where, u"\"%s\" includes itself by this line", {line.file.shown});
        else
            enter(line.file);
    }

    languageTree& m_tree;
    report& m_findings;
    std::set<string> m_known;
    std::vector<level> m_way;
};

void readKeys(languageTree& tree)
{
    std::set<string> known;
    for (const source& each : tree.files) {
        languageEntries entries(each.text);
        for (languageEntry entry; entries.next(entry);) {
            if (entry.key == includeMark || !known.insert(entry.key).second) continue;
            tree.keys.push_back({entry.key, entry.value, {each.shown, entry.line}});
        }
    }
}

} // namespace

languageTree readTree(const namedFile& root, report& findings)
{
    languageTree tree;
    treeReader(tree, findings).read(root);
    readKeys(tree);
    return tree;
}

} // namespace orlo::languagecheck
