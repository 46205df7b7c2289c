#include "xml_pugixml.h"
#include "xmlmeasure.h"

namespace benchmarks {

namespace {

const bool registered = registerXml<pugixml>("pugixml");

} // namespace

} // namespace benchmarks
