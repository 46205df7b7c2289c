#include "xml_tinyxml2.h"
#include "xmlmeasure.h"

namespace benchmarks {

namespace {

// It refuses documents of more than 500 levels.
const bool registered = registerXml<tinyXml2>("tinyxml2", 500);

} // namespace

} // namespace benchmarks
