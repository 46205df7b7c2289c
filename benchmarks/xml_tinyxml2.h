// tinyxml2, in the form that the measurements of XML ask for.
#pragma once

#include "documents.h"

#include <tinyxml2.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace benchmarks {

class tinyXml2Counter : public tinyxml2::XMLVisitor {
public:
    bool VisitEnter(const tinyxml2::XMLElement&, const tinyxml2::XMLAttribute* first) override
    {
        ++all.elements;
        for (; first != nullptr; first = first->Next()) ++all.attributes;
        return true;
    }
    bool Visit(const tinyxml2::XMLText& text) override
    {
        all.characters += charactersOf(text.Value());
        return true;
    }

    totals all;
};

struct tinyXml2 {
    using tree = std::unique_ptr<tinyxml2::XMLDocument>;

    static tree parse(std::string_view bytes)
    {
        auto made = std::make_unique<tinyxml2::XMLDocument>();
        made->Parse(bytes.data(), bytes.size());
        return made;
    }

    static totals count(const tree& counted)
    {
        tinyXml2Counter visitor;
        counted->Accept(&visitor);
        return visitor.all;
    }

    static std::string write(const tree& written)
    {
        tinyxml2::XMLPrinter printer;
        written->Print(&printer);
        return {printer.CStr(), static_cast<std::size_t>(printer.CStrSize() - 1)};
    }
};

} // namespace benchmarks
