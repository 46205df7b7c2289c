// How the bytes of a document are to be taken.
#pragma once

#include <cstddef>
#include <string_view>

namespace orlo {

enum class textForm {
    utf8,
    ansi,  // the system's single-byte character set
    units, // in the order of the machine
};

struct documentForm {
    textForm form;
    std::size_t start; // of the text, behind the mark
};

// By the mark, else by the declared encoding.
documentForm formOf(std::string_view bytes);

} // namespace orlo
