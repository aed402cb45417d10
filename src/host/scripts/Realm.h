#pragma once

#include <duktape.h>

/// A realm is a thread of the engine with built-in objects and the object `Vek` of its own.

/// Equips a new realm for event scripts. May throw to the protected call that it runs in.
void PrepareRealm(duk_context* context);

/// Equips a new realm for expressions: free names are variables where they are no built-in names, and nothing
/// that an expression defines lasts, because the built-in objects are frozen.
void PrepareExpressionRealm(duk_context* context);

/// Gives the realm a fresh global object on top of the built-in ones; what the last script defined is gone.
void RenewGlobals(duk_context* context);
