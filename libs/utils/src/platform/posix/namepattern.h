// Patterns of file names with "*" and "?", as Windows reads them, but with exact case.
#pragma once

#include "orlostring.h"

#include <string_view>
#include <vector>

namespace orlo::platform {

// A pattern, ready for many names.
//
//   *.*       every name
//   P1.*      P1  P1.xml  P1.a.b      a dot before a wildcard may stand for the name's end
//   a?.xml    a.xml  ab.xml           "?" is one unit, or none before a dot and at the end
class namePattern {
public:
    explicit namePattern(std::u16string_view text);
    [[nodiscard]] bool matches(std::u16string_view name) const;

private:
    enum class kind {
        unit,       // exactly this one
        star,       // any units
        dottedStar, // any units, but not the last dot of the name
        question,   // one unit; none before a dot and at the end
        dot,        // a dot, or the end
    };
    struct token {
        kind what;
        char16_t unit;
    };
    struct matcher;

    static token tokenFor(char16_t unit, char16_t following);

    std::vector<token> m_tokens;
};

} // namespace orlo::platform
