// pugixml, in the form that the measurements of XML ask for.
#pragma once

#include "documents.h"

#include <pugixml.hpp>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace benchmarks {

class pugixmlWriter : public pugi::xml_writer {
public:
    void write(const void* data, std::size_t size) override
    {
        m_text.append(static_cast<const char*>(data), size);
    }
    std::string take() { return std::move(m_text); }

private:
    std::string m_text;
};

class pugixmlCounter : public pugi::xml_tree_walker {
public:
    bool for_each(pugi::xml_node& node) override
    {
        if (node.type() == pugi::node_element) {
            ++all.elements;
            for (const auto& attribute : node.attributes())
                all.attributes += attribute.empty() ? 0 : 1;
        }
        if (node.type() == pugi::node_pcdata) all.characters += charactersOf(node.value());
        return true;
    }

    totals all;
};

struct pugixml {
    using tree = std::unique_ptr<pugi::xml_document>;

    static tree parse(std::string_view bytes)
    {
        auto made = std::make_unique<pugi::xml_document>();
        made->load_buffer(bytes.data(), bytes.size(), pugi::parse_default, pugi::encoding_utf8);
        return made;
    }

    static totals count(const tree& counted)
    {
        pugixmlCounter walker;
        counted->traverse(walker);
        return walker.all;
    }

    static std::string write(const tree& written)
    {
        pugixmlWriter writer;
        written->save(writer, "   ", pugi::format_default | pugi::format_write_bom,
                      pugi::encoding_utf8);
        return writer.take();
    }
};

} // namespace benchmarks
