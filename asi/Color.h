#pragma once
// The colour arguments of the language are shared with the document's own
// loader, so they live in core.
#include "core/Color.h"
