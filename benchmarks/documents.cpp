#include "documents.h"

#include <algorithm>
#include <map>
#include <stdexcept>
#include <utility>

namespace benchmarks {

namespace {

document measuringFile()
{
    document made;
    made.bytes =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<MeasuringData>\n   <General "
        "PlatformName=\"P400\">\n"
        "      <Date Value=\"2024-05-17Z\"/>\n      <Time Value=\"09:41:07Z\"/>\n   </General>\n";
    for (const char* name : {"cylinder1", "cylinder2", "cylinder3", "cylinder4"}) {
        made.bytes += "   <MeasuringPoint Name=\"" + std::string(name) + "\">\n";
        for (const char* axis : {"X", "Y", "Z"})
            made.bytes += "      <Axis Name=\"" + std::string(axis) + "\" Value=\"124.04187\"/>\n";
        made.bytes += "   </MeasuringPoint>\n";
    }
    made.bytes += "</MeasuringData>\n";
    made.content = {20, 31, 0};
    return made;
}

// Adds numbered elements by `add(document, number)` up to a size in bytes.
template <class Add>
document filled(std::size_t size, Add add)
{
    document made;
    made.bytes.reserve(size + 8192);
    made.bytes = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<root>\n";
    made.content.elements = 1;
    for (std::size_t number = 0; made.bytes.size() < size; ++number) add(made, number);
    made.bytes += "</root>\n";
    return made;
}

void addSmall(document& made, std::size_t number)
{
    const std::string text = std::to_string(number * 7919 % 1000000) + ".25";
    made.bytes += "   <value>" + text + "</value>\n";
    ++made.content.elements;
    made.content.characters += text.size();
}

void addAttributes(document& made, std::size_t number)
{
    const std::string digits = std::to_string(number * 7919 % 1000000);
    made.bytes += "   <point name=\"p" + digits + "\" x=\"" + digits + ".5\" y=\"-3.25\" z=\"0." +
                  digits + "\" kind=\"measured\"/>\n";
    ++made.content.elements;
    made.content.attributes += 5;
}

// Words in which an umlaut and an entity turn up here and there, as in real texts.
std::string longText()
{
    std::string text;
    for (int sentence = 0; text.size() < 4000; ++sentence) {
        text += "The platform stands where the last measuring run has found it, within the usual "
                "limits; ";
        if (sentence % 8 == 0) text += "Träger &amp; Rahmen, ";
    }
    return text + "end.";
}

void addText(document& made, std::size_t)
{
    static const std::string text = longText();
    static const std::size_t entities =
        static_cast<std::size_t>(std::count(text.begin(), text.end(), '&'));
    made.bytes += "   <note>" + text + "</note>\n";
    ++made.content.elements;
    made.content.characters += charactersOf(text) - 4 * entities;
}

document wide(std::size_t children)
{
    document made;
    made.bytes = "<root>\n";
    for (std::size_t child = 0; child < children; ++child) made.bytes += "   <c/>\n";
    made.bytes += "</root>\n";
    made.content.elements = children + 1;
    return made;
}

document deep(std::size_t levels)
{
    document made;
    for (std::size_t level = 1; level < levels; ++level) made.bytes += "<d>\n";
    made.bytes += "<d/>\n";
    for (std::size_t level = 1; level < levels; ++level) made.bytes += "</d>\n";
    made.content.elements = levels;
    return made;
}

document make(std::string_view kind, std::size_t size)
{
    if (kind == "measuring") return measuringFile();
    if (kind == "small") return filled(size, addSmall);
    if (kind == "attributes") return filled(size, addAttributes);
    if (kind == "texts") return filled(size, addText);
    if (kind == "wide") return wide(size);
    if (kind == "deep") return deep(size);
    throw std::invalid_argument("no such kind of document");
}

} // namespace

const document& documentOf(std::string_view kind, std::size_t size)
{
    static std::map<std::pair<std::string, std::size_t>, document> made;
    const auto [entry, isNew] = made.try_emplace({std::string(kind), size});
    if (isNew) entry->second = make(kind, size);
    return entry->second;
}

std::size_t charactersOf(std::string_view bytes)
{
    const auto continues = [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
    };
    return bytes.size() -
           static_cast<std::size_t>(std::count_if(bytes.begin(), bytes.end(), continues));
}

} // namespace benchmarks
