#include <map>
#include <set>

#include "host/catalogue/Catalogue.h"
#include "host/expressions/VariableName.h"
#include "host/project/ProjectFile.h"
#include "host/project/ProjectXml.h"
#include "host/project/PropertyAssignment.h"
#include "host/project/Quoted.h"
#include "host/secrets/Secrets.h"

namespace {

using Node = pugi::xml_node;
using NameSet = std::set<std::string, LessNoCase>;

constexpr std::string_view kVariableTypes[] = {"String", "Integer", "Boolean", "Float", "DateTime"};
constexpr size_t kDeepestAction = 100;

/// The saved properties of an action, from its element Properties.
class SavedProperties final : public IVekStateReader {
 public:
  SavedProperties(const ProjectXml& xml, Node section, const FaultPlace& place, ActionNode& node)
      : xml_(xml), section_(section), place_(place), node_(node) {}

  void ReadProperties(const Assign& assign) override {
    for (const Node element : section_.children()) {
      xml_.ReadPart([&] {
        if (xml_.IsElement(element, place_)) ReadProperty(element, assign);
      });
    }
  }

 private:
  void ReadProperty(Node element, const Assign& assign) {
    const PropertyRow& row = xml_.Placed(element, place_, [&]() -> const PropertyRow& {
      return AssignableProperty(*node_.action, element.name());
    });
    const FaultPlace place = place_.Of("property " + std::string(row.name));
    xml_.CheckAttributes(element, place, {});
    if (!assigned_.insert(&row).second) xml_.Fail(element, place, "given twice");
    const PropertyValue value =
        row.type == PropertyType::StringList ? ReadLines(element, place) : ReadValue(element, place, row);
    xml_.Placed(element, place, [&] { assign(row, value); });
    node_.lines.push_back({std::string(row.name), xml_.LineOf(element)});
  }

  PropertyValue ReadLines(Node element, const FaultPlace& place) const {
    StringList lines;
    xml_.ForEachElement(element, place, {"Line"}, [&](Node line) {
      xml_.CheckAttributes(line, place, {});
      lines.push_back(xml_.Text(line, place));
    });
    return lines;
  }

  PropertyValue ReadValue(Node element, const FaultPlace& place, const PropertyRow& row) const {
    if (const Node line = element.child("Line"))
      xml_.Fail(line, place, "a Line, but the property is no list");
    const std::string text = xml_.Text(element, place);
    if (auto value = PropertyFromText(row, text)) return *std::move(value);
    xml_.Fail(element, place, MisfitText(row, text));
  }

  const ProjectXml& xml_;
  Node section_;
  const FaultPlace& place_;
  ActionNode& node_;
  std::set<const PropertyRow*> assigned_;
};

class Reader {
 public:
  Reader(const ProjectXml& xml, const Catalogue& catalogue, IVekActionHost& host)
      : xml_(xml), catalogue_(catalogue), host_(host) {}

  Project Read();

 private:
  void CheckVersion(Node root) const;
  bool ReadFollowLinks(Node root) const;
  VariableDeclaration ReadVariable(Node element, NameSet& names) const;
  bool ReadFlag(Node element, const FaultPlace& place, const char* name) const;
  std::string ReadVariableType(Node element, const FaultPlace& place) const;
  FileSetDeclaration ReadFileSet(Node element, NameSet& names) const;
  std::vector<ActionNode> ReadActions(Node section, const FaultPlace& place, const std::string& path,
                                      size_t depth);
  ActionNode ReadAction(Node element, const std::string& path, size_t depth);
  void TakeName(Node element, const FaultPlace& place, const std::string& path, const std::string& name);
  ActionNode CreateAction(Node element, const FaultPlace& place) const;
  void ReadScript(Node element, const FaultPlace& place, ActionNode& node, NameSet& events) const;

  const ProjectXml& xml_;
  const Catalogue& catalogue_;
  IVekActionHost& host_;
  std::map<std::string, std::string, LessNoCase> pathsByName_;  // of the actions that have a Name
};

Project Reader::Read() {
  const Node root = xml_.Root("VekProject");
  CheckVersion(root);
  Project project;
  project.followLinks = ReadFollowLinks(root);
  NameSet variables, fileSets;
  xml_.ForEachElement(root, {}, {"Variables", "FileSets", "Actions"}, [&](Node section) {
    xml_.RefuseSecond(section, {});
    xml_.CheckAttributes(section, {}, {});
    const std::string_view name = section.name();
    if (name == "Variables") {
      xml_.ForEachElement(section, {}, {"Variable"}, [&](Node element) {
        project.variables.push_back(ReadVariable(element, variables));
      });
    } else if (name == "FileSets") {
      xml_.ForEachElement(section, {}, {"FileSet"},
                          [&](Node element) { project.fileSets.push_back(ReadFileSet(element, fileSets)); });
    } else {
      project.actions = ReadActions(section, {}, "", 1);
    }
  });
  return project;
}

void Reader::CheckVersion(Node root) const {
  xml_.CheckAttributes(root, {}, {"Version", "FollowLinks"});
  const std::string version = xml_.RequiredAttribute(root, {}, "Version");
  if (version != "1") {
    xml_.Fail(root, {}, "version " + Quoted(version) + " is not supported; version 1 is");
  }
}

bool Reader::ReadFollowLinks(Node root) const {
  const auto text = xml_.Attribute(root, {}, "FollowLinks");
  if (!text) return false;
  if (const auto truth = ParseBoolean(*text)) return *truth;
  xml_.Fail(root, {}, "FollowLinks: " + Quoted(*text) + " is not True or False");
}

VariableDeclaration Reader::ReadVariable(Node element, NameSet& names) const {
  xml_.CheckAttributes(element, {}, {"Name", "Type", "Secret", "Required", "Export"});
  VariableDeclaration variable;
  variable.line = xml_.LineOf(element);
  variable.name = xml_.RequiredAttribute(element, {}, "Name");
  if (!IsVariableName(variable.name)) {
    xml_.Fail(element, {},
              "variable name " + Quoted(variable.name) + " is not made of letters, digits and _ . - ( )");
  }
  const FaultPlace place{.item = "variable " + OneLine(variable.name)};
  if (!names.insert(variable.name).second) xml_.Fail(element, place, "declared twice");
  variable.type = ReadVariableType(element, place);
  variable.secret = ReadFlag(element, place, "Secret");
  variable.required = ReadFlag(element, place, "Required");
  variable.exported = ReadFlag(element, place, "Export");
  variable.text = xml_.Text(element, place);
  // What holds a reference can only be checked when it has been expanded.
  const bool literal =
      variable.text.find('%') == std::string::npos && variable.text.find("$(") == std::string::npos;
  const bool isGiven = variable.required && Trim(variable.text).empty();  // from outside
  if (literal && !isGiven && !VariantFromText(variable.type, variable.text)) {
    const std::string shown = variable.secret ? std::string(kSecretText) : Quoted(variable.text);
    xml_.Fail(element, place, shown + " is no value of type " + variable.type);
  }
  return variable;
}

std::string Reader::ReadVariableType(Node element, const FaultPlace& place) const {
  const std::string wanted = xml_.Attribute(element, place, "Type").value_or("String");
  for (std::string_view type : kVariableTypes) {
    if (SameText(type, wanted)) return std::string(type);
  }
  xml_.Fail(element, place, "unknown type " + Quoted(wanted) + Suggestion(wanted, kVariableTypes));
}

/// A truth value; false where the attribute is left out.
bool Reader::ReadFlag(Node element, const FaultPlace& place, const char* name) const {
  const auto text = xml_.Attribute(element, place, name);
  if (!text) return false;
  if (const auto flag = ParseBoolean(*text)) return *flag;
  xml_.Fail(element, place, std::string(name) + ": " + Quoted(*text) + " is neither True nor False");
}

FileSetDeclaration Reader::ReadFileSet(Node element, NameSet& names) const {
  xml_.CheckAttributes(element, {}, {"Name", "BaseDirectory"});
  FileSetDeclaration fileSet;
  fileSet.line = xml_.LineOf(element);
  fileSet.name = xml_.RequiredAttribute(element, {}, "Name");
  if (Trim(fileSet.name).empty()) xml_.Fail(element, {}, "a file set without a name");
  const FaultPlace place{.item = "file set " + Quoted(fileSet.name)};
  if (!names.insert(fileSet.name).second) xml_.Fail(element, place, "declared twice");
  fileSet.baseDirectory = xml_.RequiredAttribute(element, place, "BaseDirectory");
  xml_.ForEachElement(element, place, {"Include", "Exclude"}, [&](Node pattern) {
    xml_.CheckAttributes(pattern, place, {});
    const bool includes = std::string_view(pattern.name()) == "Include";
    (includes ? fileSet.includes : fileSet.excludes).push_back(xml_.Text(pattern, place));
  });
  return fileSet;
}

std::vector<ActionNode> Reader::ReadActions(Node section, const FaultPlace& place, const std::string& path,
                                            size_t depth) {
  std::vector<ActionNode> actions;
  xml_.ForEachElement(section, place, {"Action"}, [&](Node element) {
    actions.push_back(ReadAction(element, path + '/' + std::to_string(actions.size() + 1), depth));
  });
  return actions;
}

ActionNode Reader::ReadAction(Node element, const std::string& path, size_t depth) {
  FaultPlace place{.path = path};
  if (depth > kDeepestAction) {
    // The path of such an action is long and says nothing.
    xml_.Fail(element, {}, "actions are nested more than " + std::to_string(kDeepestAction) + " deep");
  }
  ActionNode node;
  // The actions below one of an unknown type are read for their own faults.
  const bool isKnown = xml_.ReadPart([&] { node = CreateAction(element, place); });
  place.type = node.typeId;
  NameSet events;
  xml_.ForEachElement(element, place, {"Properties", "Script", "Actions"}, [&](Node part) {
    const std::string_view name = part.name();
    if (!isKnown && name != "Actions") return;
    if (name == "Script") return ReadScript(part, place, node, events);
    xml_.RefuseSecond(part, place);
    xml_.CheckAttributes(part, place, {});
    if (name == "Properties") {
      SavedProperties saved(xml_, part, place, node);
      node.action->ReadState(saved);
      TakeName(part, place, path, node.action->Name);
    } else {
      node.children = ReadActions(part, place, path, depth + 1);
    }
  });
  return node;
}

/// What goes by a name must be one action.
void Reader::TakeName(Node element, const FaultPlace& place, const std::string& path,
                      const std::string& name) {
  if (name.empty()) return;
  const auto [first, isNew] = pathsByName_.emplace(name, path);
  if (isNew) return;
  xml_.Fail(element, place.Of("property Name"),
            Quoted(name) + " is the name of action " + first->second + " already");
}

ActionNode Reader::CreateAction(Node element, const FaultPlace& place) const {
  xml_.CheckAttributes(element, place, {"Type"});
  const std::string typeId = xml_.RequiredAttribute(element, place, "Type");
  const CatalogueEntry* entry = catalogue_.Find(typeId);
  if (!entry) {
    xml_.Fail(element, place, "unknown type " + Quoted(typeId) + Suggestion(typeId, catalogue_.TypeIds()));
  }
  ActionNode node;
  node.typeId = entry->typeId;
  node.action = entry->actionClass->create(host_);
  node.line = xml_.LineOf(element);
  return node;
}

void Reader::ReadScript(Node element, const FaultPlace& place, ActionNode& node, NameSet& events) const {
  xml_.CheckAttributes(element, place, {"Event"});
  const std::string event = xml_.RequiredAttribute(element, place, "Event");
  const std::string text = xml_.Text(element, place);
  xml_.Placed(element, place, [&] { AttachScript(*node.action, event, text); });
  node.lines.push_back({event, xml_.LineOf(element)});
  if (!events.insert(event).second)
    xml_.Fail(element, place, "a second script for the event " + Quoted(event));
}

}  // namespace

Project ReadProject(std::string_view text, std::string_view fileName, const Catalogue& catalogue,
                    IVekActionHost& host, std::vector<EProjectFault>* faults) {
  Project project;
  try {
    const ProjectXml xml(text, fileName, faults);
    project = Reader(xml, catalogue, host).Read();
  } catch (const EProjectFault& fault) {
    // What makes the file as a whole unreadable.
    if (!faults) throw;
    faults->push_back(fault);
  }
  project.fileName = fileName;
  return project;
}
