// Element trees from text: the tree, and the place where the reader stopped.
#include "xmltarget.h"

#include <algorithm>

namespace orlo::fuzz {

void xmltext(bytes given)
{
    tests::machine::renew();
    string text = textOf(given);
    text.erase(std::min(text.find(u'\0'), text.size()));
    for (const bool keepWhitespace : {false, true}) {
        judgedNode wanted;
        std::optional<std::size_t> wantedEnd;
        const auto told = judged([&] { wantedEnd = judgeParse(wanted, text, keepWhitespace); });
        if (!told) continue;
        const refptr<xmlNode> node = xmlNode::createNode(u"");
        const char16_t* end = nullptr;
        const outcome came =
            read([&] { end = node->parseText(text.c_str(), keepWhitespace, nullptr); });
        expect(came == *told, "text is taken or refused as the rules tell");
        expect(judgedForm(*node) == wanted,
               "the tree is the one that the rules tell, also after a fault");
        if (came != outcome::done) continue;
        expect((end != nullptr) == wantedEnd.has_value(),
               "the reader tells whether the text ended first");
        expect(end == nullptr || static_cast<std::size_t>(end - text.c_str()) == *wantedEnd,
               "the caller goes on where the element ended");
    }
}

} // namespace orlo::fuzz
