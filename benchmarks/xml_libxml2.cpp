#include "xml_libxml2.h"
#include "xmlmeasure.h"

namespace benchmarks {

namespace {

// It stops to indent at 60 blanks, so that what it writes of a deep tree is not the same job.
const bool registered = registerXml<libXml2>("libxml2", million, 20);

} // namespace

} // namespace benchmarks
