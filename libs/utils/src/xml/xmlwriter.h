// The writer of element trees, for callers who take the text while it is written.
#pragma once

#include "orlostring.h"
#include "text/textblocks.h"

namespace orlo {

class xmlNode;

// xmlNode::writeNode into blocks; the last one is left to be finished.
void writeTree(const xmlNode& root, textBlocks& out, const string& indent);

} // namespace orlo
