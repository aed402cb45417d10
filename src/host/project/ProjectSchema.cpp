#include "host/project/ProjectSchema.h"

#include <algorithm>
#include <map>
#include <set>

#include "coreapi/Vekactionapi.h"
#include "host/catalogue/Catalogue.h"
#include "host/catalogue/PropertyMeaning.h"
#include "host/project/ProjectSchemaStart.h"
#include "host/project/ProjectText.h"

namespace {

std::string Escaped(std::string_view text) {
  std::string xml;
  AppendXmlText(xml, text, XmlPlace::Attribute);
  return xml;
}

std::string Documentation(std::string_view text) {
  return "<xs:annotation><xs:documentation>" + Escaped(text) + "</xs:documentation></xs:annotation>";
}

/// Collects what the types of the catalogue have, each thing under its name.
class SchemaWriter {
 public:
  SchemaWriter(const Catalogue& catalogue, IVekActionHost& host) {
    for (const CatalogueEntry& entry : catalogue.Entries()) AddType(entry, *entry.actionClass->create(host));
  }

  std::string Text() const;

 private:
  struct Property {
    std::set<std::string> kinds;                 // names of schema types
    std::map<std::string, StringList> meanings;  // and the types of action that have it with this meaning
    size_t owners = 0;
  };

  void AddType(const CatalogueEntry& entry, const TCustomVekAction& action);
  std::string KindOf(const PropertyRow& row);
  std::string Element(const std::string& name, const Property& property) const;

  std::string types_;  // the enumeration of type ids
  size_t typeCount_ = 0;
  std::map<std::string, Property> properties_;
  std::map<std::string, std::string> enumTypes_;  // their definitions
  std::set<std::string> events_;
};

void SchemaWriter::AddType(const CatalogueEntry& entry, const TCustomVekAction& action) {
  ++typeCount_;
  const auto inherited = TVekAction::kClass.AllProperties();
  StringList own;
  for (const PropertyRow* row : action.PropertyRows()) {
    if (!row->published || !row->set) continue;
    Property& property = properties_[std::string(row->name)];
    property.kinds.insert(KindOf(*row));
    property.meanings[JoinLines(PropertyMeaning(*row, action), "; ")].push_back(entry.typeId);
    ++property.owners;
    if (std::ranges::find(inherited, row) == inherited.end()) own.emplace_back(row->name);
  }
  types_ += "      <xs:enumeration value=\"" + Escaped(entry.typeId) + "\">" +
            Documentation(entry.displayName + (own.empty() ? "" : ": " + JoinLines(own, ", "))) +
            "</xs:enumeration>\n";
  for (const std::string& event : action.ScriptEvents()) events_.insert(event);
}

/// The pattern of "[one,other]": names of the type's values, between commas.
std::string SetPattern(const EnumType& type) {
  std::string value;
  for (std::string_view name : type.values) value.append(value.empty() ? "(" : "|").append(name);
  value += ')';
  return "\\[\\s*(" + value + "(\\s*,\\s*" + value + ")*)?\\s*\\]";
}

std::string SchemaWriter::KindOf(const PropertyRow& row) {
  switch (row.type) {
    case PropertyType::ByteString:
    case PropertyType::WideString:
      break;
    case PropertyType::WordBool:
    case PropertyType::Boolean:
      return "Truth";
    case PropertyType::Integer:
      return "xs:int";
    case PropertyType::Cardinal:
      return "xs:unsignedInt";
    case PropertyType::StringList:
      return "Lines";
    case PropertyType::DateTime:
      return "Moment";
    case PropertyType::Enumeration: {
      std::string& values = enumTypes_[std::string(row.TypeName())];
      values.clear();
      for (std::string_view name : row.enumType().values) {
        values.append("      <xs:enumeration value=\"").append(name).append("\"/>\n");
      }
      return std::string(row.TypeName());
    }
    case PropertyType::Set: {
      const std::string name = "SetOf" + std::string(row.TypeName());
      enumTypes_[name] = "      <xs:pattern value=\"" + SetPattern(row.enumType()) + "\"/>\n";
      return name;
    }
  }
  return "xs:string";
}

std::string SchemaWriter::Element(const std::string& name, const Property& property) const {
  const bool everywhere = property.owners == typeCount_;
  StringList meanings;
  for (const auto& [meaning, types] : property.meanings) {
    const std::string owners =
        everywhere && property.meanings.size() == 1 ? "Every type" : JoinLines(types, ", ");
    meanings.push_back(owners + (meaning.empty() ? "" : ": " + meaning));
  }
  const std::string kind = property.kinds.size() == 1 ? *property.kinds.begin() : "xs:anyType";
  return "      <xs:element name=\"" + name + "\" type=\"" + kind + "\" minOccurs=\"0\">" +
         Documentation(JoinLines(meanings, "\n")) + "</xs:element>\n";
}

std::string SchemaWriter::Text() const {
  const auto restriction = [](std::string_view name, std::string_view base, std::string_view facets) {
    return "  <xs:simpleType name=\"" + std::string(name) + "\">\n    <xs:restriction base=\"" +
           std::string(base) + "\">\n" + std::string(facets) + "    </xs:restriction>\n  </xs:simpleType>\n";
  };
  std::string text(kProjectSchemaStart);
  for (const auto& [name, facets] : enumTypes_) text += restriction(name, "xs:token", facets);
  std::string events;
  for (const std::string& event : events_) events += "      <xs:enumeration value=\"" + event + "\"/>\n";
  text += restriction("ScriptEvent", "xs:string", events) + restriction("ActionType", "xs:string", types_);
  text += "  <xs:complexType name=\"Properties\">\n    <xs:all>\n";
  for (const auto& [name, property] : properties_) text += Element(name, property);
  return text + "    </xs:all>\n  </xs:complexType>\n</xs:schema>\n";
}

}  // namespace

std::string ProjectSchema(const Catalogue& catalogue, IVekActionHost& host) {
  return SchemaWriter(catalogue, host).Text();
}
