#include "host/expressions/Variables.h"

#include <utility>

const Variant* Variables::Find(std::string_view name) const {
  const auto found = values_.find(name);
  return found == values_.end() ? nullptr : &found->second;
}

void Variables::Set(std::string_view name, Variant value) {
  const auto found = values_.find(name);
  if (found == values_.end()) {
    values_.emplace(name, std::move(value));
  } else {
    found->second = std::move(value);
  }
}
