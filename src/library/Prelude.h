#pragma once

#include <string>
#include <vector>

#include "library/Export.h"

/// The six JavaScript statements that stand between the string and the miscellaneous functions in
/// every context: the string methods that the catalogue's bodies call, and the replacement of
/// Function.prototype.toString. Each ends in a line feed. Any thread may call.
KXJS_API std::vector<std::u16string> buildPrelude();
