#pragma once

/// Everything that the library offers to C++ programs, in one inclusion. Each header can be
/// included by itself too.

#include "columns/KxJsColumns.h"
#include "convert/Converter.h"
#include "host/KxJsFailure.h"
#include "host/KxJsIsolation.h"
#include "host/KxJsParser.h"
#include "host/KxJsVariable.h"
#include "library/Catalogues.h"
#include "library/KxJsFunction.h"
#include "library/Prelude.h"
#include "translate/KxJsTranslator.h"
