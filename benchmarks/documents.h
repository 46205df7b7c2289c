// Documents to measure with, of any size, and what they hold.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace benchmarks {

// What a tree or a document holds. Characters are those of texts alone.
struct totals {
    std::size_t elements = 0;
    std::size_t attributes = 0;
    std::size_t characters = 0;

    bool operator==(const totals&) const = default;
};

struct document {
    std::string bytes; // UTF-8
    totals content;
};

// The kinds: "measuring", a real file of 1 KB; "small", elements with a short text each;
// "attributes"; "texts", of 4 KB each; "wide", children without content; "deep", one in the
// other. `size` is in bytes, for wide and deep in elements. Documents are made once and kept.
const document& documentOf(std::string_view kind, std::size_t size);

// Characters of UTF-8.
std::size_t charactersOf(std::string_view bytes);

} // namespace benchmarks
