#include <algorithm>

#include "fuzz/Fuzz.h"
#include "host/catalogue/Catalogue.h"
#include "host/catalogue/Packages.h"
#include "host/engine/ActionGroup.h"
#include "host/project/ProjectFile.h"
#include "host/services/ConsoleDialogs.h"
#include "host/services/OptionStore.h"
#include "platform/CreatePlatform.h"
#include "support/NullHost.h"
#include "support/SampleAction.h"

namespace {

/// Every action type there is, and one with a property of every type.
class LoadedCatalogue {
 public:
  LoadedCatalogue() {
    InstallVekServices(&services_);
    packages_.Load(packages_.DefaultPackage(), false);
    RegisterHostActions(catalogue_);
    catalogue_.RegisterAction("Sample", "Tests", TSampleAction::Class(), "SAMPLE");
  }
  ~LoadedCatalogue() { InstallVekServices(nullptr); }
  LoadedCatalogue(const LoadedCatalogue&) = delete;
  LoadedCatalogue& operator=(const LoadedCatalogue&) = delete;

  const Catalogue& Get() const { return catalogue_; }

 private:
  std::unique_ptr<PlatformOwner> owner_ = CreatePlatform([](char) { return std::nullopt; });
  Catalogue catalogue_;
  OptionStore options_;
  ConsoleDialogs dialogs_{owner_->GetConsole()};
  VekHostServices services_{catalogue_, catalogue_, options_, dialogs_};
  Packages packages_{owner_->Get()};
};

const Catalogue& Actions() {
  static const LoadedCatalogue catalogue;
  return catalogue.Get();
}

Project Read(std::string_view text) {
  static NullHost host;
  return ReadProject(text, "p.vekproj", Actions(), host);
}

/// A project of one action as its constructor leaves it, with scripts.
std::string DefaultProject(const CatalogueEntry& entry) {
  NullHost host;
  Project project;
  project.actions.push_back({entry.typeId, entry.actionClass->create(host), {}});
  TCustomVekAction& action = *project.actions[0].action;
  for (const std::string& event : action.ScriptEvents()) action.GetScriptByName(event)->SetText("1 < 2 && x");
  return WriteProject(project);
}

/// One line that names the file and one of its lines.
void CheckMessage(std::string_view message, std::string_view text) {
  constexpr std::string_view kFile = "p.vekproj:";
  const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20; };
  Require(message.starts_with(kFile), "a message without the file's name: " + std::string(message));
  const int line = std::atoi(message.data() + kFile.size());
  const auto lineBreaks = std::ranges::count_if(text, [](char c) { return c == '\n' || c == '\r'; });
  Require(line > 0 && line <= lineBreaks + 1, "a line that is not there: " + std::string(message));
  Require(std::ranges::none_of(message, isControl) && IsUtf8(message),
          "a message that is no line: " + Literal(message));
  Require(message.find("no build is running") == message.npos, "loading reached for a build");
}

void RequireSameAction(TCustomVekAction& got, TCustomVekAction& wanted) {
  for (const PropertyRow* row : wanted.PropertyRows()) {
    if (row->stored) Require(row->get(got) == row->get(wanted), std::string(row->name) + " has changed");
  }
  for (const std::string& event : wanted.ScriptEvents()) {
    const IVekActionScript* script = wanted.GetScriptByName(event);
    if (!script->IsBlank()) RequireSame(got.GetScriptByName(event)->Text(), script->Text(), event);
  }
}

void RequireSameActions(const std::vector<ActionNode>& got, const std::vector<ActionNode>& wanted) {
  Require(got.size() == wanted.size(), "another number of actions");
  for (size_t i = 0; i < wanted.size(); ++i) {
    RequireSame(got[i].typeId, wanted[i].typeId, "type");
    RequireSameAction(*got[i].action, *wanted[i].action);
    RequireSameActions(got[i].children, wanted[i].children);
  }
}

/// The project without its actions.
std::string Declarations(const Project& project) {
  StringList parts;
  for (const auto& variable : project.variables) {
    parts.insert(parts.end(), {variable.name, variable.type, variable.text});
  }
  for (const auto& fileSet : project.fileSets) {
    parts.insert(parts.end(), {fileSet.name, fileSet.baseDirectory, "includes"});
    parts.insert(parts.end(), fileSet.includes.begin(), fileSet.includes.end());
    parts.emplace_back("excludes");
    parts.insert(parts.end(), fileSet.excludes.begin(), fileSet.excludes.end());
  }
  return JoinLines(parts, "|");
}

void CheckProject(const Project& project) {
  const std::string written = WriteProject(project);
  const Project again = Read(written);
  RequireSame(Declarations(again), Declarations(project), "declarations");
  RequireSameActions(again.actions, project.actions);
  RequireSame(WriteProject(again), written, "written again");
}

constexpr std::string_view kProject = R"(<?xml version="1.0" encoding="UTF-8"?>
<VekProject Version="1">
  <Variables>
    <Variable Name="OUT" Type="String">%PROJECTDIR%\out </Variable>
    <Variable Name="N" Type="Integer">7</Variable>
    <Variable Name="F" Type="Float">1e3</Variable>
    <Variable Name="D" Type="DateTime">2007-03-05T10:00:00</Variable>
  </Variables>
  <FileSets>
    <FileSet Name="A &amp; &quot;B&quot;" BaseDirectory="src&#10;">
      <Include>**\*.cpp</Include>
      <Exclude> generated\**</Exclude>
    </FileSet>
  </FileSets>
  <Actions>
    <Action Type="SAMPLE">
      <Properties>
        <Text> a&lt;<!-- c --><![CDATA[<&amp;>]]>&#x1F600;</Text>
        <Modes>[smFirst,smThird]</Modes>
        <Number>-1</Number>
        <Lines><Line/><Line> two
 lines</Line></Lines>
        <When>2007-03-05T10:00:00</When>
      </Properties>
      <Script Event="OnSample"><![CDATA[if (a < b) c("&");]]></Script>
      <Actions><Action Type="ACTIONGROUP"/></Actions>
    </Action>
  </Actions>
</VekProject>
)";

/// Where an input that does not begin as a file does is put; its first byte says which.
constexpr std::pair<std::string_view, std::string_view> kPlaces[] = {
    {"<VekProject Version='1'>", "</VekProject>"},
    {"<VekProject Version='1'><Variables><Variable Name='V'>", "</Variable></Variables></VekProject>"},
    {"<VekProject Version='1'><FileSets><FileSet Name='S", "' BaseDirectory=''/></FileSets></VekProject>"},
    {"<VekProject Version='1'><Actions><Action Type='SAMPLE'>", "</Action></Actions></VekProject>"},
    {"<VekProject Version='1'><Actions><Action Type='SAMPLE'><Properties><Text>",
     "</Text></Properties></Action></Actions></VekProject>"},
    {"<VekProject Version='1'><Actions><Action Type='SAMPLE'><Properties><Lines>",
     "</Lines></Properties></Action></Actions></VekProject>"},
    {"<VekProject Version='1'><Actions><Action Type='SAMPLE'><Script Event='OnSample'>",
     "</Script></Action></Actions></VekProject>"},
};

std::string FileOf(std::string_view input) {
  if (input.empty() || input.starts_with('<') || input.starts_with('\xEF')) return std::string(input);
  const auto& [before, behind] = kPlaces[static_cast<unsigned char>(input[0]) % std::size(kPlaces)];
  return std::string(before).append(input.substr(1)).append(behind);
}

}  // namespace

FuzzFormat TargetFormat() {
  FuzzFormat format{
      .seeds = {std::string(kProject), "<VekProject Version='1'/>", "5&#13;a]]&gt;", "6<Line/><Line>a</Line>",
                "7a&lt;b]]&gt;c", "7<![CDATA[a<b]]>", "4<Actions/>"},
      .words =
          Words("<~>~</~/>~=\"~'~&amp;~&#~&#10;~&#xD;~&#0;~&~;~<![CDATA[~]]>~<!--~-->~<?xml ~?>~"
                "<!DOCTYPE ~[~<Actions>~</Actions>~<Action Type=\"SAMPLE\">~"
                "<Action Type=\"ACTIONGROUP\"/>~</Action>~<Properties>~</Properties>~<Line>~</Line>~"
                "<Line/>~<Text>~</Text>~<Script Event=\"OnSample\">~</Script>~<Variables>~</Variables>~"
                "<Variable Name=\"~</Variable>~<FileSet Name=\"~ BaseDirectory=\"~<Include>~ Type=\"~"
                "\r\n~\r~\n~\t~ ~%OUT%~$(~True~-0~+1~\xEF\xBB\xBF~\xC2\x85~\xE2\x80\xA8~\xFF~\xFF\xFE~\0~"
                "\x7F~\x1B"),
      .runs = 8'000};
  for (const CatalogueEntry& entry : Actions().Entries()) {
    format.seeds.push_back(DefaultProject(entry));
    format.words.push_back("<Action Type=\"" + entry.typeId + "\">");
  }
  return format;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string text = FileOf(InputText(data, size));
  Project project;
  try {
    project = Read(text);
  } catch (const EProjectError& error) {
    CheckMessage(error.what(), text);
    return 0;
  }
  CheckProject(project);
  return 0;
}
