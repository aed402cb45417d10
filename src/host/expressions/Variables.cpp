#include "host/expressions/Variables.h"

#include <utility>

#include "coreapi/Vekerrors.h"
#include "host/project/Quoted.h"

const Variant* Variables::Find(std::string_view name) const {
  const auto found = values_.find(name);
  return found == values_.end() ? nullptr : &found->second;
}

void Variables::MarkSecret(std::string_view name) {
  secrets_.AddVariable(name);
  if (const Variant* value = Find(name)) secrets_.AddValue(*value);
}

void Variables::Export(std::string_view name, Exporter exporter) {
  if (const Variant* value = Find(name)) exporter(VariantToText(*value));
  exporters_.insert_or_assign(std::string(name), std::move(exporter));
}

void Variables::Set(std::string_view name, Variant value) {
  const auto* text = std::get_if<std::string>(&value);
  if (text && text->size() > kMostText) {
    throw EVekError("variable " + Quoted(name) + ": a text of " + std::to_string(text->size()) +
                    " bytes is larger than " + std::string(kMostTextShown));
  }
  if (secrets_.IsSecret(name)) secrets_.AddValue(value);
  const auto exporter = exporters_.find(name);
  if (exporter != exporters_.end()) exporter->second(VariantToText(value));
  const auto found = values_.find(name);
  if (found == values_.end()) {
    values_.emplace(name, std::move(value));
  } else {
    found->second = std::move(value);
  }
}
