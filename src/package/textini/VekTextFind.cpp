#include "textini/VekTextFind.h"

#include <algorithm>

#include "coreapi/Vekregexpr.h"
#include "platform/Contents.h"
#include "platform/OpenFile.h"
#include "platform/Platform.h"
#include "textini/Vektextwindows.h"

namespace {

constexpr std::string_view kEvent = "OnFindText";

// A character may match another one of its letter case that is longer: up to three bytes for one.
constexpr size_t kMostBytesPerByte = 3;

}  // namespace

std::string StringToRegExp(const std::string& text) {
  std::string expression;
  for (const char c : text) {
    if (std::string_view("\\[^$.|?*+()").find(c) != std::string_view::npos) expression += '\\';
    expression += c;
  }
  return expression;
}

std::string RegExpMakeWholeWord(const std::string& expression) { return "\\b" + expression + "\\b"; }
std::string RegExpMakeIgnoreCase(const std::string& expression) { return "(?i)" + expression; }

const ActionClass TCustomVekTextFindAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomVekTextFindAction",
    .actionName = "Text Find",
    .helpTopicID = 5180,
    .quickHelpFilename = "Plugins\\TextFind.html",
};

TCustomVekTextFindAction::TCustomVekTextFindAction(IVekActionHost& host) : TVekAction(host) {
  AddScript(kEvent);
}

void TCustomVekTextFindAction::InitialiseScriptParams(IVekActionScript& script) {
  TVekAction::InitialiseScriptParams(script);
  if (script.Name() != kEvent) return;
  for (const char* name : {"Action", "Count", "FoundText", "Offset"}) {
    script.Params().AddParameter(name, ScriptParamKind::In);
  }
}

void TCustomVekTextFindAction::TerminateAction() {
  TVekAction::TerminateAction();
  terminated_ = true;
}

bool TCustomVekTextFindAction::Execute() {
  terminated_ = false;
  count_ = 0;
  std::string searchText, path;
  if (!TryExpandExpression("Search String", SearchString, searchText, false)) return false;
  if (!UseVariable && !TryExpandExpression("Source File", SourcePath, path, true)) return false;
  auto text = OpenText(path, searchText);
  if (!text || !CountMatches(*text, searchText)) return false;
  SendProgress(CountText(), 100);
  SendMessage(count_ == 0 ? "No matches were found." : count_ == 1 ? "Found 1 match." : CountText() + '.');
  return Decide();
}

/// Nothing after reporting that the text cannot be had.
std::optional<TTextWindows> TCustomVekTextFindAction::OpenText(const std::string& path,
                                                               const std::string& searchText) const {
  try {
    if (UseVariable) return TTextWindows(VariantToText(GetVariableValue(VekVariable)));
  } catch (const std::exception& error) {
    SendMessage(std::string("Search failed: ") + error.what());
    return {};
  }
  Contents& contents = *GetPlatform().contents;
  SysResult opened;
  // Only a repetition lets an escaped text match more than its own length.
  if (MatchRegExpr || searchText.find('{') != std::string::npos) {
    std::string whole;
    opened = contents.ReadWhole(path, whole);
    if (opened) return TTextWindows(std::move(whole));
  } else {
    std::unique_ptr<OpenFile> file;
    uint64_t size = 0;
    opened = contents.Open(path, OpenMode::Read, ShareMode::DenyNone, file);
    if (opened) opened = file->GetSize(size);
    if (opened) return TTextWindows(std::move(file), size, kMostBytesPerByte * searchText.size() + 8);
  }
  SendMessage("Search failed: " + path + ": " + SysErrorMessage(opened.code));
  return {};
}

std::string TCustomVekTextFindAction::Pattern(const std::string& searchText) const {
  if (MatchRegExpr) return searchText;
  std::string pattern = StringToRegExp(searchText);
  if (WholeWords) pattern = RegExpMakeWholeWord(pattern);
  return CaseSensitive ? pattern : RegExpMakeIgnoreCase(pattern);
}

bool TCustomVekTextFindAction::CountMatches(TTextWindows& text, const std::string& searchText) {
  try {
    TRegExpr expression(Pattern(searchText));
    expression.SetStopped([this] { return Stopped(); }, GetPlatform().clock);
    if (HasScript(kEvent)) text.CountCharacters();
    size_t from = 0;
    while (text.Next(from)) {
      if (!SearchWindow(text, expression, from)) return false;
    }
  } catch (const std::exception& error) {
    if (Stopped()) return false;
    SendMessage(MatchRegExpr ? std::string("A syntax error occured parsing the Regular Expression : ") +
                                   error.what() + " (Search String)"
                             : "An internal error occured parsing the input string.");
    return false;
  }
  if (!text.Read()) SendMessage("Search failed: " + SysErrorMessage(text.Read().code));
  return text.Read().ok;
}

/// Leaves in `from` where the search goes on.
bool TCustomVekTextFindAction::SearchWindow(TTextWindows& text, TRegExpr& expression, size_t& from) {
  from = text.From();
  bool found = expression.Exec(text.Text(), from);
  while (found && expression.MatchStart() < text.Until()) {
    if (!TakeMatch(text, expression)) return false;
    from = expression.NextStart();
    found = expression.ExecNext();
  }
  from = std::max(from, found ? expression.MatchStart() : text.Until());
  return true;
}

bool TCustomVekTextFindAction::TakeMatch(TTextWindows& text, TRegExpr& expression) {
  const uint64_t position = text.BytesBefore() + expression.MatchStart() + 1;
  const uint64_t percent = position * 100 / std::max<uint64_t>(text.TotalBytes(), 1);
  SendProgress(CountText(), static_cast<int32_t>(std::min<uint64_t>(percent, 100)));
  ++count_;
  if (HasScript(kEvent)) {
    const auto offset = static_cast<int64_t>(text.CharactersBefore() + expression.MatchPos());
    const bool ran = RunScript(
        kEvent, {{"Count", count_}, {"FoundText", std::string(expression.Match())}, {"Offset", offset}});
    if (!ran) return false;
  }
  return !terminated_;
}

std::string TCustomVekTextFindAction::CountText() const {
  return "Found " + std::to_string(count_) + " matches";
}

bool TCustomVekTextFindAction::Decide() const {
  switch (TextFindBehaviour) {
    case TTextFindBehaviour::tfFailOnLess:
      if (count_ >= FailMatchCount) return true;
      SendMessage("Failing due to insufficient matches.");
      return false;
    case TTextFindBehaviour::tfFailOnMore:
      if (count_ <= FailOnMoreMatchCount) return true;
      SendMessage("Failing due to too many matches.");
      return false;
    case TTextFindBehaviour::tfPutIntoVar:
      if (!PutCountIntoVar.empty()) SetVariable(PutCountIntoVar, count_);
      return true;
  }
  return false;
}
