// How much memory does it take at its peak to read a document?
//
//   parsememory small 10000000 FILE    writes a document of that kind and size
//   parsememory pugixml FILE           reads it by that library, and prints the bytes by which the
//                                      process has grown at its peak
#include "documents.h"
#include "orloxmldocument.h"
#include "paths.h"
#include "peakmemory.h"

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <tinyxml2.h>

namespace {

using namespace benchmarks;

bool write(const char* kind, const char* size, const char* path)
{
    const document& made = documentOf(kind, std::strtoull(size, nullptr, 10));
    return static_cast<bool>(std::ofstream(path, std::ios::binary) << made.bytes);
}

// Prints what `load()`, which gives whether the tree has content, takes more than what was there.
template <class Load>
int measure(Load load)
{
    const std::size_t before = peakMemory();
    if (!load()) return 2;
    std::cout << peakMemory() - before << '\n';
    return 0;
}

bool loadByProject(const std::string& path)
{
    const auto tree = orlo::xmlDocument::createDocument();
    tree->load(orlo::file(pathText(path)), false);
    return !tree->children.empty();
}

bool loadByPugixml(const std::string& path)
{
    pugi::xml_document tree;
    return tree.load_file(path.c_str()) && tree.document_element().first_child();
}

bool loadByTinyXml2(const std::string& path)
{
    tinyxml2::XMLDocument tree;
    return tree.LoadFile(path.c_str()) == tinyxml2::XML_SUCCESS &&
           !tree.RootElement()->NoChildren();
}

} // namespace

int main(int count, char** arguments)
{
    if (count == 4) return write(arguments[1], arguments[2], arguments[3]) ? 0 : 2;
    if (count != 3) return 2;

    const std::string_view who = arguments[1];
    const std::string path = arguments[2];
    if (who == "project") return measure([&] { return loadByProject(path); });
    if (who == "pugixml") return measure([&] { return loadByPugixml(path); });
    if (who == "tinyxml2") return measure([&] { return loadByTinyXml2(path); });
    return 2;
}
