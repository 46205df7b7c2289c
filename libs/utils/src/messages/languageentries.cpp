// Three passes go over a text, each with its own idea of a line: one for the names of included
// files, one for commands, one for entries. The entry pass reads a line that begins an entry,
// and then the lines that continue it, one after the other: at any time it knows nothing but
// the entry at hand, so what it has given before stays whatever happens later.
#include "messages/languageentries.h"

#include "text/unitsearch.h"

#include <algorithm>

namespace orlo {

namespace {

using view = std::u16string_view;

constexpr view blanks = u" \t";
constexpr view lineEnds = u"\r\n";
constexpr view includeMark = u"#include";
constexpr view commandMark = u";;cmd(";
constexpr char16_t commentMark = u';';
constexpr char16_t quote = u'"';
constexpr char16_t continuationMark = u'\\';

view trimmedLeft(view text, view set)
{
    text.remove_prefix(std::min(text.find_first_not_of(set), text.size()));
    return text;
}

view trimmedRight(view text, view set)
{
    return text.substr(0, text.find_last_not_of(set) + 1);
}

// Most files hold neither mark, and need no walk through their lines for it.
bool contains(view text, view mark)
{
    std::size_t at = indexOfUnit(text, mark[0]);
    while (at < text.size() && !text.substr(at).starts_with(mark))
        at = indexOfUnit(text, mark[0], at + 1);
    return at < text.size();
}

// The name in an include line; false if the line is none.
bool parseInclude(view line, string& name)
{
    line = trimmedLine(line.substr(0, line.rfind(commentMark)));
    if (line.find(includeMark) == line.npos) return false;
    // The cut begins at the first letter that the mark has, not at the mark itself: with other
    // words in front of it the name goes wrong. The mark belongs at the start of its line.
    line.remove_prefix(line.find_first_of(includeMark) + includeMark.size());
    name = string(trimmedLeft(line, blanks));
    return true;
}

// The text of a value or of a continuation line, without its quotes or its comment.
view valueText(view line)
{
    if (line.starts_with(quote)) {
        line.remove_prefix(1);
        return line.substr(0, line.rfind(quote));
    }
    if (indexOfUnit(line, commentMark) == line.size()) return line;
    return trimmedRight(line.substr(0, line.rfind(commentMark)), blanks);
}

void finishValue(string& value)
{
    for (char16_t& unit : value) unit = unit == u'\t' ? u' ' : unit;
    if (indexOfUnit(value, u'\\') < value.size()) value.replaceAll(u"\\n", u"\n");
}

} // namespace

view trimmedLine(view line)
{
    return trimmedRight(trimmedRight(trimmedLeft(line, blanks), lineEnds), blanks);
}

bool languageLines::next(view& line)
{
    if (m_rest.empty()) return false;
    if (m_complete) ++m_number;
    line = m_rest.substr(0, maxLine);
    const std::size_t lineFeed = indexOfUnit(line, u'\n');
    m_complete = lineFeed < line.size();
    if (m_complete) line = line.substr(0, lineFeed + 1);
    m_rest.remove_prefix(line.size());
    line = line.substr(0, line.find(u'\0'));
    return true;
}

bool languageEntries::next(languageEntry& entry)
{
    while (nextLine()) {
        if (!startEntry(entry)) continue;
        while (m_continues) {
            if (!nextLine()) return false;
            entry.value.append(valueText(m_line));
        }
        finishValue(entry.value);
        return true;
    }
    return false;
}

// Empty lines count for nothing, not even between the lines of one entry.
bool languageEntries::nextLine()
{
    do {
        if (!m_lines.next(m_line)) return false;
        m_line = trimmedLine(m_line);
    } while (m_line.empty());
    m_continues = m_line.ends_with(continuationMark);
    if (m_continues) m_line.remove_suffix(1);
    return true;
}

// A line without a blank holds no entry, and one with a ";" in its key is a comment.
bool languageEntries::startEntry(languageEntry& entry) const
{
    const auto blank = m_line.find_first_of(blanks);
    const view key = m_line.substr(0, blank);
    if (blank == m_line.npos || key.find(commentMark) != key.npos) return false;
    entry.key.assign(key);
    entry.value.assign(valueText(trimmedLeft(m_line.substr(blank), blanks)));
    entry.line = m_lines.number();
    return true;
}

std::vector<string> includedNames(view text)
{
    std::vector<string> names;
    if (!contains(text, includeMark)) return names;
    languageLines lines(text);
    string name;
    for (view line; lines.next(line);)
        if (parseInclude(line, name)) names.push_back(name);
    return names;
}

void readCommands(view text, std::vector<string>& commands)
{
    if (!contains(text, commandMark)) return;
    languageLines lines(text);
    for (view line; lines.next(line);) {
        const auto mark = line.find(commandMark);
        if (mark == line.npos) continue;
        const view command = trimmedRight(trimmedLine(line.substr(mark)), u")");
        commands.emplace_back(command.substr(commandMark.size()));
    }
}

} // namespace orlo
