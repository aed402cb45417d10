#include "coreapi/Vekvariant.h"
#include "fuzz/Fuzz.h"
#include "support/NullHost.h"
#include "support/SampleAction.h"

namespace {

/// What a property takes from a text it gives back, as value and as text.
void CheckProperty(TSampleAction& action, const PropertyRow& row, std::string_view text) {
  const auto value = PropertyFromText(row, text);
  Require(!DescribeExpectedText(row).empty(), "nothing would fit");
  if (!value) return;
  const std::string written = PropertyToText(row, *value);
  if (!row.readOnly) {
    row.set(action, *value);
    Require(row.get(action) == *value, std::string(row.name) + " holds another value");
  }
  if (row.type == PropertyType::StringList) return;  // has no text of its own
  const auto again = PropertyFromText(row, written);
  Require(again && *again == *value, std::string(row.name) + " does not read " + Literal(written));
}

void CheckVariable(std::string_view type, std::string_view text) {
  const auto value = VariantFromText(type, text);
  if (!value) return;
  Require(VariantTypeName(*value) == type, "a value of another type");
  const std::string written = VariantToText(*value);
  const auto again = VariantFromText(type, written);
  Require(again.has_value(), std::string(type) + " does not read " + Literal(written));
  RequireSame(VariantToText(*again), written, type);
  Require(IsTrue(*again) == IsTrue(*value), "another truth");
}

}  // namespace

FuzzFormat TargetFormat() {
  return {.seeds = {"True", "-1", "2147483647", "4294967295", "-9223372036854775808", "smSecond",
                    "[smFirst, smThird]", "one\r\ntwo", "2007-03-05T10:00:00", "1601-01-01T00:00:01",
                    "0000-12-31T23:59:59", "1.7976931348623157e308", "-0.0", "5e-324", "infinity", "nan"},
          .words = Words("[~]~,~smFirst~smThird~ ~\t~\r~\n~+~-~0~9~00~e~.~T~:~-02-29~0000-01-01~9999-12-31~"
                         "23:59:59~T24:00~false~inf~nan~0x~1e5~9223372036854775807~\xFF"),
          .runs = 10'000};
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static NullHost host;
  const std::string_view text = InputText(data, size);
  TSampleAction action(host);
  for (const PropertyRow* row : action.PropertyRows()) CheckProperty(action, *row, text);
  for (const char* type : {"String", "Integer", "Boolean", "Float", "DateTime"}) CheckVariable(type, text);
  return 0;
}
