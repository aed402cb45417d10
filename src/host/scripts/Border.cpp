#include "host/scripts/Border.h"

#include <cmath>
#include <cstring>

#include "host/scripts/EngineText.h"
#include "host/scripts/ObjectProxies.h"
#include "host/scripts/ScriptHeap.h"

namespace {

constexpr double kMillisecondsPerDay = 86400000, kMillisecondsPerMinute = 60000;

// In the thread's stash.
constexpr const char* kDate = "Date";
constexpr const char* kDateMethods[] = {"getTime", "getTimezoneOffset"};

void PushNewDate(duk_context* context, double milliseconds) {
  duk_push_thread_stash(context, context);
  duk_get_prop_string(context, -1, kDate);
  duk_remove(context, -2);
  duk_push_number(context, milliseconds);
  duk_new(context, 1);
}

/// Calls a method of the date prototype on the value at `index`; false when that is no date.
bool CallDateMethod(duk_context* context, const char* method, duk_idx_t index, double& result) {
  index = duk_normalize_index(context, index);
  duk_push_thread_stash(context, context);
  duk_get_prop_string(context, -1, method);
  duk_dup(context, index);
  const bool isDate = duk_pcall_method(context, 0) == DUK_EXEC_SUCCESS;
  if (isDate) result = duk_get_number(context, -1);
  duk_pop_2(context);
  return isDate;
}

/// Milliseconds that local time is behind universal time at a universal time.
double OffsetAt(duk_context* context, double milliseconds) {
  double minutes = 0;
  PushNewDate(context, milliseconds);
  CallDateMethod(context, kDateMethods[1], -1, minutes);
  duk_pop(context);
  return minutes * kMillisecondsPerMinute;
}

void PushDate(duk_context* context, TDateTime time) {
  const double local = std::round((time.days - kUnixEpoch.days) * kMillisecondsPerDay);
  const double guess = local + OffsetAt(context, local);
  PushNewDate(context, local + OffsetAt(context, guess));
}

/// A date becomes a buffer that holds its local days; one without a valid time becomes its text.
bool MakeDatePortable(duk_context* context, duk_idx_t index) {
  double milliseconds = 0;
  if (!CallDateMethod(context, kDateMethods[0], index, milliseconds)) return false;
  if (std::isnan(milliseconds)) {
    duk_push_string(context, "Invalid Date");
  } else {
    const double local = milliseconds - OffsetAt(context, milliseconds);
    const double days = local / kMillisecondsPerDay + kUnixEpoch.days;
    std::memcpy(duk_push_fixed_buffer(context, sizeof days), &days, sizeof days);
  }
  duk_replace(context, index);
  return true;
}

Variant NumberValue(double number) {
  constexpr double kIntegerEnd = 9223372036854775808.0;
  const bool isInteger = std::trunc(number) == number && std::fabs(number) < kIntegerEnd;
  return isInteger ? Variant(static_cast<int64_t>(number)) : Variant(number);
}

TDateTime DateValue(const void* buffer) {
  TDateTime time;
  std::memcpy(&time.days, buffer, sizeof time.days);
  return time;
}

}  // namespace

void PrepareDates(duk_context* context) {
  duk_push_thread_stash(context, context);
  duk_get_global_string(context, kDate);
  duk_get_prop_string(context, -1, "prototype");
  for (const char* method : kDateMethods) {
    duk_get_prop_string(context, -1, method);
    duk_put_prop_string(context, -4, method);
  }
  duk_pop(context);
  duk_put_prop_string(context, -2, kDate);
  duk_pop(context);
}

void PushText(duk_context* context, std::string_view text) {
  std::string& converted = ScriptHeap::Of(context).Call().text;
  converted = ToEngineText(text);
  duk_push_lstring(context, converted.data(), converted.size());
}

void PushValue(duk_context* context, const Variant& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return PushText(context, *text);
  if (const auto* integer = std::get_if<int64_t>(&value)) {
    return duk_push_number(context, static_cast<double>(*integer));
  }
  if (const auto* truth = std::get_if<bool>(&value)) return duk_push_boolean(context, *truth);
  if (const auto* number = std::get_if<double>(&value)) return duk_push_number(context, *number);
  if (const auto* time = std::get_if<TDateTime>(&value)) return PushDate(context, *time);
  if (const auto* object = std::get_if<IVekScriptObject*>(&value)) return PushObjectProxy(context, *object);
  duk_push_undefined(context);
}

void MakePortable(duk_context* context, duk_idx_t index) {
  index = duk_normalize_index(context, index);
  if (duk_is_symbol(context, index)) ThrowText(context, DUK_ERR_TYPE_ERROR, "a symbol has no text");
  constexpr duk_uint_t kPlain = DUK_TYPE_MASK_UNDEFINED | DUK_TYPE_MASK_NULL | DUK_TYPE_MASK_BOOLEAN |
                                DUK_TYPE_MASK_NUMBER | DUK_TYPE_MASK_STRING;
  if (duk_check_type_mask(context, index, kPlain)) return;
  if (duk_is_object(context, index)) {
    if (MakeProxyPortable(context, index) || MakeDatePortable(context, index)) return;
  }
  duk_to_string(context, index);
}

Variant TakeValue(duk_context* context, duk_idx_t index) noexcept {
  switch (duk_get_type(context, index)) {
    case DUK_TYPE_BOOLEAN:
      return duk_get_boolean(context, index) != 0;
    case DUK_TYPE_NUMBER:
      return NumberValue(duk_get_number(context, index));
    case DUK_TYPE_STRING:
      return TakeText(context, index);
    case DUK_TYPE_BUFFER:
      return DateValue(duk_get_buffer(context, index, nullptr));
    case DUK_TYPE_POINTER:
      return static_cast<IVekScriptObject*>(duk_get_pointer(context, index));
    default:
      return {};
  }
}

std::string TakeText(duk_context* context, duk_idx_t index) noexcept {
  duk_size_t size = 0;
  const char* text = duk_get_lstring(context, index, &size);
  return text ? FromEngineText({text, size}) : std::string();
}
