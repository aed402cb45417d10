#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "base/DateTime.h"
#include "vekcoreapi_export.h"

class IVekScriptObject;

/// The value of a project variable or a script parameter. A variable never holds an object.
using Variant =
    std::variant<std::monostate, std::string, int64_t, bool, double, TDateTime, IVekScriptObject*>;

/// "String", "Integer", "Boolean", "Float" or "DateTime"; an empty value counts as a String.
VEK_API std::string_view VariantTypeName(const Variant& value);

/// The text that takes the value's place in an expanded expression: True or False, a decimal number, an ISO
/// date and time.
VEK_API std::string VariantToText(const Variant& value);

/// Reads a value of the named type; nothing when the text does not fit or the type is unknown.
VEK_API std::optional<Variant> VariantFromText(std::string_view typeName, std::string_view text);

/// The truth of a value as scripts see it: empty text, zero and no value are false.
VEK_API bool IsTrue(const Variant& value);

/// The shortest decimal text that reads back as the same number.
VEK_API std::string FloatToText(double value);
