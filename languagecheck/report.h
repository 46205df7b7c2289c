// What the checks have found, and how it is printed.
#pragma once

#include "orlostring.h"
#include "orlotextformat.h"

#include <cstddef>
#include <initializer_list>
#include <string>
#include <vector>

namespace orlo::languagecheck {

// A place in a file: the file as the user has named it, and the line as an editor counts.
struct position {
    string file;
    std::size_t line = 1;
};

// An error: the user would see something else than what stands in the file. A warning: it may well
// be meant, or hurts nobody yet.
enum class severity { warning, error };

struct finding {
    position where;
    severity how = severity::warning;
    string text;
};

// Gathers findings. Texts are printed by the rules of formatText.
class report {
public:
    using arguments = std::initializer_list<formatArgument>;

    void error(const position& where, const char16_t* text, arguments values = {});
    void warning(const position& where, const char16_t* text, arguments values = {});

    [[nodiscard]] bool hasErrors() const;
    // Files in the order in which they first appeared, lines in theirs; what was found twice,
    // since two languages share a file, stands there once.
    [[nodiscard]] std::vector<finding> sorted() const;
    // One finding a line, as UTF-8: "file:line: error: text".
    [[nodiscard]] std::string text() const;

private:
    void add(severity how, const position& where, const char16_t* text, arguments values);

    std::vector<finding> m_findings;
};

// UTF-8; halves of a surrogate pair become U+FFFD.
std::string utf8(std::u16string_view text);

} // namespace orlo::languagecheck
