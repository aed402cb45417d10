#pragma once

#include <duktape.h>
#include <string>
#include <string_view>

#include "coreapi/Vekvariant.h"

/// Values between the host and a script. What is not noexcept may throw to the script.

void PushText(duk_context* context, std::string_view text);
void PushValue(duk_context* context, const Variant& value);

/// Replaces the value by one that TakeValue can read: dates and host objects by what they stand for, other
/// objects by their text. May run the script's code.
void MakePortable(duk_context* context, duk_idx_t index);

/// Reads a value that MakePortable has left; undefined and null are empty.
Variant TakeValue(duk_context* context, duk_idx_t index) noexcept;
std::string TakeText(duk_context* context, duk_idx_t index) noexcept;

/// Keeps what dates need in the thread's stash, out of reach of scripts that change the built-in objects.
void PrepareDates(duk_context* context);
