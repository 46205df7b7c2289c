// The encoding that a document declares.
#pragma once

#include <cstddef>
#include <string>

namespace orlo {

// Finds `encoding="name"` in the declaration at the start of a document; false if there is
// none. The name loses what the small scanner drops; "utf-8" and "utf-16" come out whole.
bool findDeclaredEncoding(const void* bytes, std::size_t length, std::string& encoding);

} // namespace orlo
