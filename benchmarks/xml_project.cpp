#include "xml_project.h"
#include "xmlmeasure.h"

namespace benchmarks {

namespace {

const bool registered = registerXml<projectXml>("project");

} // namespace

totals totalsOfWritten(std::string_view bytes)
{
    return projectXml::count(projectXml::parse(bytes));
}

} // namespace benchmarks
