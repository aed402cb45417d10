#pragma once

#include <duktape.h>

/// Pushes the object `Vek`, through which scripts reach variables, the log and actions.
void PushVekObject(duk_context* context);
