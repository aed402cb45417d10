#include "host/secrets/SecretForms.h"

#include <cstdint>
#include <cstdio>
#include <functional>
#include <nlohmann/json.hpp>

namespace {

constexpr std::string_view kUnreserved = "-._~";            // RFC 3986
constexpr std::string_view kUnreservedInScripts = "!'()*";  // encodeURIComponent leaves these alone too
constexpr std::string_view kReserved = ";,/?:@&=+$#";       // and encodeURI these

bool IsLetterOrDigit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

std::string InJson(std::string_view text, bool asciiOnly) {
  const nlohmann::json value = text;
  const std::string quoted = value.dump(-1, ' ', asciiOnly, nlohmann::json::error_handler_t::replace);
  return quoted.substr(1, quoted.size() - 2);
}

struct Replacement {
  char character;
  std::string_view text;
};

std::string Replaced(std::string_view text, std::initializer_list<Replacement> replacements) {
  std::string result;
  for (const char c : text) {
    const auto* found = std::ranges::find(replacements, c, &Replacement::character);
    found == replacements.end() ? result.append(1, c) : result.append(found->text);
  }
  return result;
}

std::string PercentEncoded(std::string_view text, const std::string& kept, const char* format) {
  std::string result;
  for (const char c : text) {
    if (IsLetterOrDigit(c) || kept.find(c) != std::string::npos) {
      result += c;
      continue;
    }
    char code[4];
    std::snprintf(code, sizeof code, format, static_cast<unsigned>(static_cast<unsigned char>(c)));
    result += code;
  }
  return result;
}

void AddPercentForms(std::string_view text, StringList& forms) {
  const std::string plain(kUnreserved), component = plain + std::string(kUnreservedInScripts);
  for (const std::string& kept : {plain, component, component + std::string(kReserved)}) {
    for (const char* format : {"%%%02X", "%%%02x"}) {
      forms.push_back(PercentEncoded(text, kept, format));
      forms.push_back(ReplaceAll(forms.back(), "%20", "+"));
    }
  }
}

void AddBase64Forms(std::string_view text, StringList& forms) {
  constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string bare;
  uint32_t bits = 0;
  int count = 0;
  for (const char c : text) {
    bits = bits << 8 | static_cast<unsigned char>(c);
    for (count += 8; count >= 6; count -= 6) bare += kDigits[bits >> (count - 6) & 63];
  }
  if (count > 0) bare += kDigits[bits << (6 - count) & 63];
  for (const std::string& form : {bare, Replaced(bare, {{'+', "-"}, {'/', "_"}})}) {
    forms.push_back(form + std::string((4 - form.size() % 4) % 4, '='));
    forms.push_back(form);
  }
}

}  // namespace

StringList FormsOf(std::string_view text) {
  StringList forms{std::string(text)};
  for (const bool asciiOnly : {false, true}) {
    forms.push_back(InJson(text, asciiOnly));
    forms.push_back(ReplaceAll(forms.back(), "/", "\\/"));
  }
  forms.push_back(Replaced(text, {{'\'', "'\\''"}}));
  forms.push_back(Replaced(text, {{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}}));
  forms.push_back(Replaced(text, {{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}}));
  for (const std::string_view apostrophe : {"&apos;", "&#39;"}) {
    forms.push_back(
        Replaced(text, {{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}, {'\'', apostrophe}}));
  }
  AddPercentForms(text, forms);
  AddBase64Forms(text, forms);
  return forms;
}
