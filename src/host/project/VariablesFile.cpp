#include "host/project/VariablesFile.h"

#include "base/Text.h"
#include "host/expressions/VariableName.h"
#include "host/project/Project.h"
#include "host/project/Quoted.h"
#include "host/project/SourceText.h"

namespace {

constexpr std::string_view kExport = "export ";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// What is wrong with a line; its value may be a secret and is not shown.
struct BrokenLine {
  std::string reason;
};

/// The text of a value that begins with a quote.
std::string QuotedValue(std::string_view value) {
  const char quote = value[0];
  std::string text;
  size_t i = 1;
  for (; i < value.size() && value[i] != quote; ++i) {
    const bool escapes = quote == '"' && value[i] == '\\' && i + 1 < value.size() &&
                         std::string_view("\"\\$`").find(value[i + 1]) != std::string_view::npos;
    text += value[escapes ? ++i : i];
  }
  if (i >= value.size()) throw BrokenLine{"the quote is not closed"};
  const std::string_view rest = Trim(value.substr(i + 1));
  if (!rest.empty() && rest[0] != '#') throw BrokenLine{"there is text behind the closing quote"};
  return text;
}

std::string PlainValue(std::string_view value) {
  for (size_t mark = 0; (mark = value.find('#', mark)) != std::string_view::npos; ++mark) {
    if (mark == 0 || value[mark - 1] == ' ' || value[mark - 1] == '\t') value = value.substr(0, mark);
  }
  return std::string(Trim(value));
}

VariableDefinition ReadLine(std::string_view line) {
  if (line.starts_with(kExport)) line = Trim(line.substr(kExport.size()));
  const size_t equals = line.find('=');
  if (equals == std::string_view::npos) throw BrokenLine{"the line is not of the form NAME=VALUE"};
  const std::string_view name = Trim(line.substr(0, equals)), value = Trim(line.substr(equals + 1));
  if (!IsVariableName(name)) {
    throw BrokenLine{Quoted(name) + " is no variable name (letters, digits, _ . - ( ))"};
  }
  const bool isQuoted = value.starts_with('"') || value.starts_with('\'');
  return {std::string(name), isQuoted ? QuotedValue(value) : PlainValue(value), {}};
}

}  // namespace

std::vector<VariableDefinition> ReadVariablesFile(std::string_view text, std::string_view fileName) {
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  const SourceText source(text);
  const auto placeAt = [&](size_t offset) {
    return OneLine(fileName) + ':' + std::to_string(source.LineAt(offset)) + ": ";
  };
  if (const NoText fault = FindNoText(text); !fault.reason.empty()) {
    throw EProjectError(placeAt(fault.offset) + fault.reason);
  }
  std::vector<VariableDefinition> definitions;
  for (size_t start = 0; start < text.size();) {
    const size_t end = std::min(text.find_first_of("\r\n", start), text.size());
    const std::string_view line = Trim(text.substr(start, end - start));
    if (!line.empty() && line[0] != '#') {
      try {
        definitions.push_back(ReadLine(line));
        definitions.back().place = placeAt(start) + definitions.back().name;
      } catch (const BrokenLine& broken) {
        throw EProjectError(placeAt(start) + broken.reason);
      }
    }
    start = end + 1;
  }
  return definitions;
}
