#include "platform/posix/namepattern.h"

namespace orlo::platform {

// One name under the tokens. Up to the first star there is at most one place in the name where
// the match can stand; behind it there may be many, and all are followed at once, so that no
// pattern is slow.
struct namePattern::matcher {
    std::u16string_view name;

    static constexpr std::size_t nowhere = std::u16string_view::npos;

    // The place behind a token without a star that begins at `at`.
    [[nodiscard]] std::size_t step(const token& next, std::size_t at) const
    {
        const bool atEnd = at == name.size();
        switch (next.what) {
        case kind::question: return atEnd || name[at] == u'.' ? at : at + 1;
        case kind::dot: return atEnd ? at : name[at] == u'.' ? at + 1 : nowhere;
        default: return !atEnd && name[at] == next.unit ? at + 1 : nowhere;
        }
    }

    // A star reaches every place behind one that is reached already.
    void spread(kind star, std::vector<char>& places) const
    {
        const std::size_t lastDot = star == kind::dottedStar ? name.rfind(u'.') : nowhere;
        for (std::size_t at = 0; at < name.size(); ++at) {
            if (places[at] && at != lastDot) places[at + 1] = 1;
        }
    }

    void advance(const token& next, std::vector<char>& places) const
    {
        std::vector<char> reached(places.size(), 0);
        for (std::size_t at = 0; at < places.size(); ++at) {
            const std::size_t behind = places[at] ? step(next, at) : nowhere;
            if (behind != nowhere) reached[behind] = 1;
        }
        places.swap(reached);
    }
};

namePattern::namePattern(std::u16string_view text)
{
    if (text == u"*.*") text = u"*";
    m_tokens.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        m_tokens.push_back(tokenFor(text[i], i + 1 < text.size() ? text[i + 1] : u'\0'));
    }
}

namePattern::token namePattern::tokenFor(char16_t unit, char16_t following)
{
    const bool beforeWildcard = following == u'*' || following == u'?';
    if (unit == u'?') return {kind::question, unit};
    if (unit == u'*') return {following == u'.' ? kind::dottedStar : kind::star, unit};
    return {unit == u'.' && beforeWildcard ? kind::dot : kind::unit, unit};
}

bool namePattern::matches(std::u16string_view name) const
{
    const matcher match{name};
    const auto isStar = [](const token& of) {
        return of.what == kind::star || of.what == kind::dottedStar;
    };

    auto next = m_tokens.begin();
    std::size_t at = 0;
    for (; next != m_tokens.end() && !isStar(*next); ++next) {
        at = match.step(*next, at);
        if (at == matcher::nowhere) return false;
    }
    if (next == m_tokens.end()) return at == name.size();
    if (next->what == kind::star && next + 1 == m_tokens.end()) return true;

    std::vector<char> places(name.size() + 1, 0);
    places[at] = 1;
    for (; next != m_tokens.end(); ++next) {
        if (isStar(*next)) {
            match.spread(next->what, places);
        } else {
            match.advance(*next, places);
        }
    }
    return places.back() != 0;
}

} // namespace orlo::platform
