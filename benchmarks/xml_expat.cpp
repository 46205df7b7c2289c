#include "xml_expat.h"
#include "xmlmeasure.h"

namespace benchmarks {

namespace {

const bool registered =
    registerXml<expatTree>("expat+tree") && registerXml<expatEvents>("expat-events");

} // namespace

} // namespace benchmarks
