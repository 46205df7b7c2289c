// Expat gives events alone, so it is measured twice: with the plainest tree that an engineer
// would fill from them, and with nothing but the events counted.
#pragma once

#include "documents.h"

#include <expat.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace benchmarks {

inline bool isBlank(std::string_view text)
{
    return text.find_first_not_of(" \t\r\n") == text.npos;
}

struct expatNode {
    std::string name;
    std::string text;
    std::vector<std::pair<std::string, std::string>> attributes;
    std::vector<std::unique_ptr<expatNode>> children;
};

struct treeBuilder {
    std::unique_ptr<expatNode> root;
    std::vector<expatNode*> open;

    treeBuilder() = default;
    treeBuilder(treeBuilder&&) = default;
    // One by one: a deep tree must not die on the call stack.
    ~treeBuilder()
    {
        std::vector<std::unique_ptr<expatNode>> doomed;
        if (root) doomed.push_back(std::move(root));
        while (!doomed.empty()) {
            const std::unique_ptr<expatNode> last = std::move(doomed.back());
            doomed.pop_back();
            for (auto& child : last->children) doomed.push_back(std::move(child));
        }
    }

    void start(const char* name, const char** attributes)
    {
        auto made = std::make_unique<expatNode>();
        made->name = name;
        for (; *attributes != nullptr; attributes += 2)
            made->attributes.emplace_back(attributes[0], attributes[1]);
        expatNode* const entered = made.get();
        if (open.empty())
            root = std::move(made);
        else
            open.back()->children.push_back(std::move(made));
        open.push_back(entered);
    }
    void end() { open.pop_back(); }
    void text(std::string_view piece)
    {
        expatNode& in = *open.back();
        if (!in.text.empty() || !isBlank(piece)) in.text.append(piece);
    }
};

struct eventCounter {
    totals all;

    void start(const char*, const char** attributes)
    {
        ++all.elements;
        for (; *attributes != nullptr; attributes += 2) ++all.attributes;
    }
    void end() {}
    void text(std::string_view piece)
    {
        if (!isBlank(piece)) all.characters += charactersOf(piece);
    }
};

template <class Handler>
Handler parseWith(std::string_view bytes)
{
    Handler handler;
    const std::unique_ptr<std::remove_pointer_t<XML_Parser>, void (*)(XML_Parser)> parser(
        XML_ParserCreate(nullptr), XML_ParserFree);
    XML_SetUserData(parser.get(), &handler);
    XML_SetElementHandler(
        parser.get(),
        [](void* data, const char* name, const char** attributes) {
            static_cast<Handler*>(data)->start(name, attributes);
        },
        [](void* data, const char*) { static_cast<Handler*>(data)->end(); });
    XML_SetCharacterDataHandler(parser.get(), [](void* data, const char* text, int length) {
        static_cast<Handler*>(data)->text({text, static_cast<std::size_t>(length)});
    });
    XML_Parse(parser.get(), bytes.data(), static_cast<int>(bytes.size()), 1);
    return handler;
}

struct expatTree {
    static treeBuilder parse(std::string_view bytes) { return parseWith<treeBuilder>(bytes); }
    static totals count(const treeBuilder& counted)
    {
        totals all;
        std::vector<const expatNode*> open{counted.root.get()};
        while (!open.empty()) {
            const expatNode* const last = open.back();
            open.pop_back();
            ++all.elements;
            all.attributes += last->attributes.size();
            all.characters += charactersOf(last->text);
            for (const auto& child : last->children) open.push_back(child.get());
        }
        return all;
    }
};

struct expatEvents {
    static eventCounter parse(std::string_view bytes) { return parseWith<eventCounter>(bytes); }
    static totals count(const eventCounter& counted) { return counted.all; }
};

} // namespace benchmarks
