#include "host/project/ProjectFile.h"
#include "host/project/ProjectText.h"
#include "host/project/Quoted.h"

namespace {

/// Elements indented by two blanks a level.
class XmlWriter {
 public:
  using Attributes = std::vector<std::pair<std::string_view, std::string_view>>;

  /// What is being written, for faults.
  void SetPlace(std::string place) { place_ = std::move(place); }

  void Open(std::string_view name, const Attributes& attributes = {}) {
    Start(name, attributes);
    xml_ += ">\n";
    ++level_;
  }

  void Close(std::string_view name) {
    --level_;
    Indent();
    xml_.append("</").append(name).append(">\n");
  }

  void Element(std::string_view name, std::string_view text, const Attributes& attributes = {}) {
    Start(name, attributes);
    if (text.empty()) {
      xml_ += "/>\n";
      return;
    }
    xml_ += '>';
    Placed([&] { AppendXmlText(xml_, text, XmlPlace::Element); });
    xml_.append("</").append(name).append(">\n");
  }

  void Script(std::string_view event, std::string_view text) {
    Start("Script", {{"Event", event}});
    xml_ += '>';
    Placed([&] { AppendXmlScript(xml_, text); });
    xml_ += "</Script>\n";
  }

  std::string Take() { return std::move(xml_); }

 private:
  void Indent() { xml_.append(level_ * 2, ' '); }

  void Start(std::string_view name, const Attributes& attributes) {
    Indent();
    xml_.append("<").append(name);
    for (const auto& [attribute, value] : attributes) {
      xml_.append(" ").append(attribute).append("=\"");
      Placed([&] { AppendXmlText(xml_, value, XmlPlace::Attribute); });
      xml_ += '"';
    }
  }

  template <class Append>
  void Placed(Append append) const {
    try {
      append();
    } catch (const EVekError& error) {
      throw EProjectError(place_ + ": " + error.what());
    }
  }

  std::string place_;
  std::string xml_ = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  size_t level_ = 0;
};

class PropertiesWriter final : public IVekStateWriter {
 public:
  PropertiesWriter(XmlWriter& xml, const std::string& place) : xml_(xml), place_(place) {}

  void WriteProperty(const PropertyRow& row, const PropertyValue& value) override {
    xml_.SetPlace(place_ + ": property " + std::string(row.name));
    const auto* lines = std::get_if<StringList>(&value);
    if (!lines || lines->empty()) return xml_.Element(row.name, PropertyToText(row, value));
    xml_.Open(row.name);
    for (const std::string& line : *lines) xml_.Element("Line", line);
    xml_.Close(row.name);
  }

 private:
  XmlWriter& xml_;
  const std::string& place_;
};

void WriteVariables(XmlWriter& xml, const std::vector<VariableDeclaration>& variables) {
  if (variables.empty()) return;
  xml.Open("Variables");
  for (const VariableDeclaration& variable : variables) {
    xml.SetPlace("variable " + OneLine(variable.name));
    XmlWriter::Attributes attributes{{"Name", variable.name}, {"Type", variable.type}};
    if (variable.secret) attributes.emplace_back("Secret", BooleanText(true));
    if (variable.required) attributes.emplace_back("Required", BooleanText(true));
    if (variable.exported) attributes.emplace_back("Export", BooleanText(true));
    xml.Element("Variable", variable.text, attributes);
  }
  xml.Close("Variables");
}

void WriteFileSets(XmlWriter& xml, const std::vector<FileSetDeclaration>& fileSets) {
  if (fileSets.empty()) return;
  xml.Open("FileSets");
  for (const FileSetDeclaration& fileSet : fileSets) {
    xml.SetPlace("file set " + Quoted(fileSet.name));
    xml.Open("FileSet", {{"Name", fileSet.name}, {"BaseDirectory", fileSet.baseDirectory}});
    for (const std::string& pattern : fileSet.includes) xml.Element("Include", pattern);
    for (const std::string& pattern : fileSet.excludes) xml.Element("Exclude", pattern);
    xml.Close("FileSet");
  }
  xml.Close("FileSets");
}

void WriteScripts(XmlWriter& xml, const std::string& place, TCustomVekAction& action) {
  xml.SetPlace(place);
  for (const std::string& event : action.ScriptEvents()) {
    const IVekActionScript* script = action.GetScriptByName(event);
    if (!script->IsBlank()) xml.Script(event, script->Text());
  }
}

void WriteActions(XmlWriter& xml, const std::vector<ActionNode>& actions, const std::string& parentPath) {
  if (actions.empty()) return;
  xml.Open("Actions");
  for (size_t i = 0; i < actions.size(); ++i) {
    const ActionNode& node = actions[i];
    const std::string path = parentPath + '/' + std::to_string(i + 1);
    const std::string place = "action " + path + ' ' + node.typeId;
    xml.Open("Action", {{"Type", node.typeId}});
    xml.Open("Properties");
    PropertiesWriter writer(xml, place);
    node.action->WriteState(writer);
    xml.Close("Properties");
    WriteScripts(xml, place, *node.action);
    WriteActions(xml, node.children, path);
    xml.Close("Action");
  }
  xml.Close("Actions");
}

}  // namespace

std::string WriteProject(const Project& project) {
  XmlWriter xml;
  if (project.followLinks) {
    xml.Open("VekProject", {{"Version", "1"}, {"FollowLinks", "True"}});
  } else {
    xml.Open("VekProject", {{"Version", "1"}});
  }
  WriteVariables(xml, project.variables);
  WriteFileSets(xml, project.fileSets);
  WriteActions(xml, project.actions, "");
  xml.Close("VekProject");
  return xml.Take();
}
