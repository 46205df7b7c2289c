// libxml2, in the form that the measurements of XML ask for.
#pragma once

#include "documents.h"

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace benchmarks {

struct libXml2 {
    struct freeDocument {
        void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
    };
    using tree = std::unique_ptr<xmlDoc, freeDocument>;

    static tree parse(std::string_view bytes)
    {
        constexpr int options = XML_PARSE_HUGE | XML_PARSE_NOBLANKS;
        return tree(
            xmlReadMemory(bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr, options));
    }

    static totals count(const tree& counted)
    {
        totals all;
        if (!counted) return all;
        std::vector<const xmlNode*> open{xmlDocGetRootElement(counted.get())};
        while (!open.empty()) {
            const xmlNode* const node = open.back();
            open.pop_back();
            if (node->type == XML_ELEMENT_NODE) {
                ++all.elements;
                for (const xmlAttr* each = node->properties; each != nullptr; each = each->next)
                    ++all.attributes;
            } else if (node->type == XML_TEXT_NODE) {
                all.characters += charactersOf(reinterpret_cast<const char*>(node->content));
            }
            if (node->next != nullptr) open.push_back(node->next);
            if (node->type == XML_ELEMENT_NODE && node->children != nullptr)
                open.push_back(node->children);
        }
        return all;
    }

    static std::string write(const tree& written)
    {
        xmlChar* bytes = nullptr;
        int length = 0;
        xmlDocDumpFormatMemoryEnc(written.get(), &bytes, &length, "UTF-8", 1);
        std::string text(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(length));
        xmlFree(bytes);
        return text;
    }
};

} // namespace benchmarks
