// The project, in the form that the measurements of XML ask for.
#pragma once

#include "documents.h"
#include "orloxmldocument.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace benchmarks {

struct projectXml {
    using tree = orlo::refptr<orlo::xmlDocument>;

    static tree parse(std::string_view bytes)
    {
        tree made = orlo::xmlDocument::createDocument();
        made->parseBuffer(bytes.data(), bytes.size(), false);
        return made;
    }

    static totals count(const tree& counted)
    {
        totals all;
        std::vector<const orlo::xmlNode*> open{counted.get()};
        while (!open.empty()) {
            const orlo::xmlNode* const node = open.back();
            open.pop_back();
            ++all.elements;
            all.attributes += node->attributes.size();
            all.characters += node->text.size(); // no document holds a surrogate pair
            for (const auto& child : node->children) open.push_back(child.get());
        }
        return all;
    }

    class written {
    public:
        explicit written(const tree& of) { of->writeBuffer(m_bytes, orlo::xmlEncoding::utf8); }
        operator std::string_view() const
        {
            return {reinterpret_cast<const char*>(m_bytes.data()), m_bytes.size()};
        }

    private:
        orlo::byteBuffer m_bytes;
    };

    static written write(const tree& of) { return written(of); }
};

} // namespace benchmarks
