#include "host/project/ProjectXml.h"

#include <algorithm>
#include <span>

#include "host/project/ProjectText.h"
#include "host/project/Quoted.h"

namespace {

// References stay as they are: DecodeXmlText replaces them, since this parser passes unknown ones through.
constexpr unsigned kParse = pugi::parse_cdata | pugi::parse_ws_pcdata | pugi::parse_eol |
                            pugi::parse_wconv_attribute | pugi::parse_fragment | pugi::parse_doctype |
                            pugi::parse_declaration;

size_t Offset(std::ptrdiff_t offset) { return static_cast<size_t>(std::max<std::ptrdiff_t>(offset, 0)); }

std::string SuggestionFrom(std::string_view name, ProjectXml::Names known) {
  return Suggestion(name, std::span(known.begin(), known.size()));
}

}  // namespace

ProjectXml::ProjectXml(std::string_view text, std::string_view fileName, std::vector<EProjectFault>* faults)
    : source_(text), fileName_(OneLine(fileName)), faults_(faults) {
  if (const NoText fault = FindNoText(text); !fault.reason.empty()) {
    FailAt(source_.LineAt(fault.offset), {}, fault.reason);
  }
  const auto result = document_.load_buffer(text.data(), text.size(), kParse, pugi::encoding_utf8);
  if (result) return;
  FailAt(source_.LineAt(Offset(result.offset)), {}, std::string("malformed XML: ") + result.description());
}

pugi::xml_node ProjectXml::Root(std::string_view name) const {
  pugi::xml_node root;
  for (const pugi::xml_node node : document_.children()) {
    if (node.type() == pugi::node_doctype) {
      Fail(node, {}, "a document type is not allowed");
    } else if (node.type() == pugi::node_declaration) {
      CheckEncoding(node);
    } else if (IsElement(node, {})) {
      if (root) Fail(node, {}, "a second root element " + Quoted(node.name()));
      if (node.name() != name) {
        Fail(node, {}, "the root element is " + Quoted(node.name()) + ", not " + Quoted(name));
      }
      root = node;
    }
  }
  if (!root) FailAt(1, {}, source_.Text().empty() ? "the file is empty" : "the file holds no element");
  return root;
}

int ProjectXml::LineOf(pugi::xml_node node) const { return source_.LineAt(Offset(node.offset_debug())); }

void ProjectXml::FailAt(int line, const FaultPlace& place, std::string_view message) const {
  throw EProjectFault(fileName_, line, place, std::string(message));
}

void ProjectXml::Fail(pugi::xml_node node, const FaultPlace& place, std::string_view message) const {
  FailAt(LineOf(node), place, message);
}

void ProjectXml::CheckEncoding(pugi::xml_node declaration) const {
  const std::string_view encoding = declaration.attribute("encoding").as_string("UTF-8");
  if (!SameText(encoding, "UTF-8")) {
    Fail(declaration, {}, "the encoding " + Quoted(encoding) + " is not UTF-8");
  }
}

void ProjectXml::CheckAttributes(pugi::xml_node element, const FaultPlace& place, Names known) const {
  for (const pugi::xml_attribute attribute : element.attributes()) {
    const std::string_view name = attribute.name();
    const std::string where = std::string(" of ") + element.name();
    ReadPart([&] {
      if (std::ranges::find(known, name) == known.end()) {
        Fail(element, place, "unknown attribute " + Quoted(name) + where + SuggestionFrom(name, known));
      }
      if (element.attribute(attribute.name()) != attribute) {
        Fail(element, place, "a second attribute " + Quoted(name) + where);
      }
    });
  }
}

std::optional<std::string> ProjectXml::Attribute(pugi::xml_node element, const FaultPlace& place,
                                                 const char* name) const {
  const pugi::xml_attribute attribute = element.attribute(name);
  if (!attribute) return {};
  return Decoded(element, place, attribute.value());
}

std::string ProjectXml::RequiredAttribute(pugi::xml_node element, const FaultPlace& place,
                                          const char* name) const {
  if (auto value = Attribute(element, place, name)) return *std::move(value);
  Fail(element, place, std::string("the attribute \"") + name + "\" of " + element.name() + " is missing");
}

std::string ProjectXml::Text(pugi::xml_node element, const FaultPlace& place) const {
  std::string text;
  for (const pugi::xml_node part : element.children()) {
    if (part.type() == pugi::node_element) Fail(part, place, "unexpected element " + Quoted(part.name()));
    text += part.type() == pugi::node_cdata ? part.value() : Decoded(part, place, part.value());
  }
  return text;
}

std::string ProjectXml::Decoded(pugi::xml_node node, const FaultPlace& place, std::string_view xml) const {
  try {
    return DecodeXmlText(xml);
  } catch (const EXmlReference& error) {
    const auto breaks = std::ranges::count(xml.substr(0, error.Position()), '\n');
    FailAt(LineOf(node) + static_cast<int>(breaks), place, std::string("malformed XML: ") + error.what());
  }
}

bool ProjectXml::IsElement(pugi::xml_node node, const FaultPlace& place) const {
  if (node.type() == pugi::node_element) return true;
  const std::string_view shown = Trim(node.value());
  if (shown.empty() && node.type() == pugi::node_pcdata) return false;
  // The line of the text itself, which may stand below the tag that it follows.
  const size_t first = source_.Text().find_first_not_of(" \t\r\n", Offset(node.offset_debug()));
  const std::string_view parent = node.parent().name();
  const std::string where = parent.empty() ? " outside the root element" : " in " + std::string(parent);
  FailAt(source_.LineAt(std::min(first, source_.Text().size())), place,
         "unexpected text " + Quoted(shown) + where);
}

void ProjectXml::CheckName(pugi::xml_node element, const FaultPlace& place, Names known) const {
  const std::string_view name = element.name();
  if (std::ranges::find(known, name) != known.end()) return;
  Fail(element, place,
       "unknown element " + Quoted(name) + " in " + element.parent().name() + SuggestionFrom(name, known));
}

void ProjectXml::RefuseSecond(pugi::xml_node element, const FaultPlace& place) const {
  if (!element.previous_sibling(element.name())) return;
  Fail(element, place, std::string("a second ") + element.name() + " in " + element.parent().name());
}
