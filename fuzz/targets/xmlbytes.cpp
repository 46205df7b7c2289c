// Documents as bytes: the encoding, and the tree that comes out.
#include "orloxmldocument.h"
#include "xmltarget.h"

namespace orlo::fuzz {

void xmlbytes(bytes given)
{
    tests::machine::renew();
    for (const bool keepWhitespace : {false, true}) {
        judgedNode wanted;
        const auto told = judged([&] { judgeParseBuffer(wanted, given, keepWhitespace); });
        if (!told) continue;
        const refptr<xmlDocument> document = xmlDocument::createDocument();
        const outcome came =
            read([&] { document->parseBuffer(given.data(), given.size(), keepWhitespace); });
        if (given.data() == nullptr) continue; // no buffer, nothing to read
        expect(came == *told, "bytes are taken or refused as the rules tell");
        expect(judgedForm(*document) == wanted, "the tree is the one that the rules tell");
    }
}

} // namespace orlo::fuzz
