// Three passes go over a text, each with its own idea of a line: one for the names of included
// files, one for commands, one for entries. The entry pass goes in steps, a line each: it reads
// one that begins an entry, and then those that continue it. At any time it knows nothing but the
// entry at hand, so what it has given before stays whatever happens later.
#include "messages/languageentries.h"

#include "text/unitsearch.h"

#include <algorithm>

namespace orlo {

namespace {

using view = std::u16string_view;

constexpr view lineEnds = u"\r\n";
constexpr view commandMark = u";;cmd(";
constexpr char16_t commentMark = u';';
constexpr char16_t quote = u'"';
constexpr char16_t continuationMark = u'\\';

view trimmedLeft(view text, view set)
{
    text.remove_prefix(std::min(text.find_first_not_of(set), text.size()));
    return text;
}

constexpr bool isBlank(char16_t unit)
{
    return unit == u' ' || unit == u'\t';
}

// Or shows that the line has none.
constexpr bool endsKey(char16_t unit)
{
    return isBlank(unit) || unit == commentMark;
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

// Without a way out of the loop a compiler looks at many units at once.
languageLines::languageLines(view text) : m_rest(text)
{
    char16_t least = 1;
    for (const char16_t unit : text) least = std::min(least, unit);
    m_hasZeros = least == 0;
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
    if (m_hasZeros) line = line.substr(0, line.find(u'\0'));
    return true;
}

languageValue readLanguageValue(view line)
{
    languageValue value{line, {}};
    if (line.starts_with(quote)) {
        line.remove_prefix(1);
        const auto last = line.rfind(quote);
        value.quoted = true;
        value.closed = last != line.npos;
        value.text = line.substr(0, last);
        if (value.closed) value.dropped = line.substr(last + 1);
    } else if (indexOfUnit(line, commentMark) != line.size()) {
        const auto last = line.rfind(commentMark);
        value.comment = true;
        value.text = trimmedRight(line.substr(0, last), blanks);
        value.dropped = line.substr(last + 1);
    }
    return value;
}

namespace {

// A line without a blank holds no entry, and one with a ";" in its key is a comment.
void startEntry(view line, languageStep& step)
{
    const auto first = std::find_if(line.begin(), line.end(), endsKey);
    const auto last = std::find_if(first, line.end(), isBlank);
    step.key = view(line.begin(), last);
    step.value = {};
    if (first != last) {
        step.what = languageStep::kind::comment;
    } else if (last == line.end()) {
        step.what = languageStep::kind::keyAlone;
    } else {
        step.what = languageStep::kind::begins;
        step.value = trimmedLeft(view(last, line.end()), blanks);
    }
}

} // namespace

// Empty lines count for nothing, not even between the lines of one entry.
bool languageSteps::next(languageStep& step)
{
    view line;
    do {
        if (!m_lines.next(line)) return false;
        line = trimmedLine(line);
    } while (line.empty());
    step.line = m_lines.number();
    step.goesOn = line.ends_with(continuationMark);
    if (step.goesOn) line.remove_suffix(1);
    if (m_open) {
        step.what = languageStep::kind::continues;
        step.key = {};
        step.value = line;
    } else {
        startEntry(line, step);
    }
    m_open = step.goesOn && (m_open || step.what == languageStep::kind::begins);
    return true;
}

bool languageEntries::next(languageEntry& entry)
{
    languageStep step;
    while (m_steps.next(step)) {
        if (step.what != languageStep::kind::begins) continue;
        entry.key.assign(step.key);
        entry.value.assign(readLanguageValue(step.value).text);
        entry.line = step.line;
        while (step.goesOn) {
            if (!m_steps.next(step)) return false;
            entry.value.append(readLanguageValue(step.value).text);
        }
        finishValue(entry.value);
        return true;
    }
    return false;
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
