// Moments as the user of this machine reads them.
#pragma once

#include "orlostring.h"

#include <ctime>

namespace orlo {

// The text of a universal time in the local zone, by the date and time format of the user's own
// locale; which of the two a process has set itself does not matter. Fields out of range roll
// over. Empty where the system has no text for it, or one of more than 127 units.
string localTimeText(std::tm universal);

} // namespace orlo
