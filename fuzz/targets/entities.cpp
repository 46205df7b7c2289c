// Entity forms, decoded and encoded.
#include "xmltarget.h"

namespace orlo::fuzz {

namespace {

void expectDecoding(const string& text)
{
    std::u16string wanted = text;
    if (!judged([&] { judgeDecodeEntities(wanted); })) return;
    string plain = text;
    decodeEntities(plain);
    expect(plain == string(wanted), "decoding gives what the passes give");
    decodeEntities(plain);
    expect(plain == string(wanted), "nothing is left to decode");
}

} // namespace

void entities(bytes given)
{
    const string text = textOf(given);
    std::u16string wanted = text;
    judgeEncodeEntities(wanted);
    string encoded = text;
    encodeEntities(encoded);
    expect(encoded == string(wanted), "the five units become their entities");
    expectDecoding(text);
    expectDecoding(encoded);
    if (text.find(u'&') != string::npos) return;
    decodeEntities(encoded);
    expect(encoded == text, "a text that holds no ampersand survives");
}

} // namespace orlo::fuzz
