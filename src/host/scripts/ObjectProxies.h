#pragma once

#include <duktape.h>

class IVekScriptObject;

/// Makes the handler that all proxies of a thread share.
void PrepareObjectProxies(duk_context* context);

/// Pushes a script's view of a host object, valid until the run ends; null for none.
void PushObjectProxy(duk_context* context, IVekScriptObject* object);

/// Replaces a proxy by a pointer to its object; false when the value is none.
bool MakeProxyPortable(duk_context* context, duk_idx_t index);
