#include "textini/VekTextReplaceAction.h"

#include <new>

#include "coreapi/Vekregexpr.h"
#include "platform/Contents.h"
#include "platform/Entries.h"
#include "platform/Platform.h"
#include "textini/Veklinereplace.h"

namespace {

constexpr std::string_view kFindEvent = "OnFindText", kLineEvent = "OnProcessLine";

constexpr std::string_view kAliases[] = {
    "[Replace Options]",
    "DoReplaceVariables=Replace Variables?",
    "DoReplaceText=Replace Explicit Text?",
    "Filename=Filename",
    "NewFilename=NewFilename",
    "SearchText=Search Text",
    "ReplaceText=Replace Text",
    "DoRepeat=Repeat Replace?",
    "CaseSensitive=Case Sensitive",
    "WholeWordsOnly=Replace whole words only",
};

/// Puts the numbers in place of each %d; "%%" is one percent sign, and any other one is an error.
std::string Format(const std::string& format, std::initializer_list<int32_t> numbers) {
  std::string text;
  const int32_t* number = numbers.begin();
  for (size_t i = 0; i < format.size(); ++i) {
    const char next = i + 1 < format.size() ? format[i + 1] : '\0';
    if (format[i] != '%') {
      text += format[i];
    } else if (next == '%') {
      text += format[++i];
    } else if (next == 'd' && number != numbers.end()) {
      text += std::to_string(*number++);
      ++i;
    } else {
      throw EVekError("Format '" + format + "' invalid or incompatible with argument");
    }
  }
  return text;
}

class HeldText final : public NewText {
 public:
  void Append(std::string_view piece) override { text += piece; }
  std::string text;
};

}  // namespace

const ActionClass TCustomTextReplaceAction::kClass{
    .inherited = &TVekAction::kClass,
    .className = "TCustomTextReplaceAction",
    .actionName = "Text Replace",
    .helpTopicID = 1290,
    .quickHelpFilename = "Plugins\\TextReplace.html",
    .aliases = kAliases,
};

TCustomTextReplaceAction::TCustomTextReplaceAction(IVekActionHost& host) : TVekAction(host) {
  for (std::string_view event : {kFindEvent, kLineEvent}) AddScript(event);
}

void TCustomTextReplaceAction::InitialiseScriptParams(IVekActionScript& script) {
  TVekAction::InitialiseScriptParams(script);
  IVekActionScriptParams& params = script.Params();
  params.AddParameter("Action", ScriptParamKind::In);
  if (script.Name() == kFindEvent) {
    for (const char* name : {"Count", "FoundText"}) params.AddParameter(name, ScriptParamKind::In);
    for (const char* name : {"ReplaceText", "DoReplace"}) params.AddParameter(name, ScriptParamKind::InOut);
  } else {
    params.AddParameter("LineText", ScriptParamKind::InOut);
  }
}

bool TCustomTextReplaceAction::Validate(IVekActionValidationError& errors) {
  if (!Filename.empty()) return true;
  errors.AddError("Filename", "A filename has not been specified");
  return false;
}

bool TCustomTextReplaceAction::Execute() {
  found_ = replacements_ = 0;
  if (!TryExpandExpression("FileName", Filename, fileName_, false)) return false;
  if (!TryExpandExpression("NewFileName", NewFileName, newFileName_, false)) return false;
  if (!GetPlatform().entries->FileExists(fileName_)) {
    SendStatusMessage({"File does not exist: " + fileName_});
    return false;
  }
  try {
    if (!ReplaceInFile()) return false;
    SendSummary();
  } catch (const std::bad_alloc&) {
    SendStatusMessage({"Error: " + SysErrorMessage(Win32Error::NotEnoughMemory)});
    return false;
  } catch (const std::exception& error) {
    if (!StopSignalled()) SendStatusMessage({std::string("Error: ") + error.what()});
    return false;
  }
  if (!FailOnFewReplacements || FailMinimumCount <= replacements_) return true;
  SendMessage("Failing because less than " + std::to_string(FailMinimumCount) + " replacements were made.");
  return false;
}

/// A regular expression has a pass of its own, which begins with the source file again: with a new file name
/// it overwrites what the first pass has saved.
bool TCustomTextReplaceAction::ReplaceInFile() {
  const bool goesOn = EditFile([this](const std::string& text, NewText& changed) {
    return DoReplaceVariables ? ReplaceVariables(text, changed) : ReplaceByLines(text, changed);
  });
  if (!goesOn || !DoReplaceText || !MatchRegularExpression) return goesOn;
  return ExpandTexts() && EditFile([this](const std::string& text, NewText& changed) {
           return ReplaceMatches(text, changed);
         });
}

/// What it changes is not compared with what was there.
TCustomTextReplaceAction::Edited TCustomTextReplaceAction::ReplaceVariables(const std::string& text,
                                                                            NewText& changed) {
  const std::string expanded = ExpandExpression(text, replacements_, false);
  const Edited edited = ReplaceByLines(expanded, changed);
  if (edited != Edited::Same) return edited;
  changed.Append(expanded);
  return Edited::Changed;
}

TCustomTextReplaceAction::Edited TCustomTextReplaceAction::ReplaceByLines(const std::string& text,
                                                                          NewText& changed) {
  if (!DoReplaceText || MatchRegularExpression) return Edited::Same;
  if (!ExpandTexts()) return Edited::GivenUp;
  TLineReplaceOptions options{.searchText = searchText_,
                              .replaceText = replaceText_,
                              .caseSensitive = CaseSensitive,
                              .wholeWords = WholeWordsOnly,
                              .most = DoRepeat};
  options.stopped = [this] { return StopSignalled(); };
  options.clock = GetPlatform().clock;
  if (HasScript(kFindEvent)) {
    options.onFindText = [this](int32_t count, std::string& replaceText, bool& doReplace) {
      return FindText(count, searchText_, replaceText, doReplace);
    };
  }
  if (HasScript(kLineEvent)) options.onProcessLine = [this](std::string& line) { return ProcessLine(line); };
  TLineReplace lines(options);
  if (!lines.Run(text, changed)) return Edited::GivenUp;
  found_ = lines.Found();
  replacements_ += lines.Replaced();
  return lines.Replaced() > 0 ? Edited::Changed : Edited::Same;
}

/// The matches are those of the text as it was.
TCustomTextReplaceAction::Edited TCustomTextReplaceAction::ReplaceMatches(const std::string& text,
                                                                          NewText& changed) try {
  TRegExpr expression(searchText_, {.m = true, .s = false});
  expression.SetStopped([this] { return StopSignalled(); }, GetPlatform().clock);
  const std::string_view whole = text;
  size_t appended = 0;
  int32_t replaced = 0;
  const int32_t most = DoRepeat == 0 ? -1 : DoRepeat;
  for (bool match = expression.Exec(text); match; match = replaced != most && expression.ExecNext()) {
    ++found_;
    std::string replaceText = replaceText_;
    bool doReplace = true;
    if (!FindText(found_, expression.Match(), replaceText, doReplace)) return Edited::GivenUp;
    if (!doReplace) continue;
    changed.Append(whole.substr(appended, expression.MatchStart() - appended));
    changed.Append(replaceText);
    appended = expression.MatchEnd();
    ++replaced;
  }
  if (replaced == 0) return Edited::Same;
  changed.Append(whole.substr(appended));
  replacements_ += replaced;
  return Edited::Changed;
} catch (const ERegExpr& error) {
  throw EVekError(std::string("An error occured matching the regular expression : \r\n") + error.what() +
                  " (SearchText)");
}

bool TCustomTextReplaceAction::ExpandTexts() {
  return TryExpandExpression("SearchText", SearchText, searchText_, false) &&
         TryExpandExpression("ReplaceText", ReplaceText, replaceText_, false);
}

/// Lets the script decide on an occurrence; true also when there is no script.
bool TCustomTextReplaceAction::FindText(int32_t count, std::string_view foundText, std::string& replaceText,
                                        bool& doReplace) {
  if (!HasScript(kFindEvent)) return true;
  if (!RunScript(kFindEvent, {{"Count", int64_t{count}},
                              {"FoundText", std::string(foundText)},
                              {"ReplaceText", replaceText},
                              {"DoReplace", true}})) {
    return false;
  }
  replaceText = VariantToText(ScriptResult(kFindEvent, "ReplaceText"));
  doReplace = IsTrue(ScriptResult(kFindEvent, "DoReplace"));
  return true;
}

bool TCustomTextReplaceAction::ProcessLine(std::string& line) {
  if (!RunScript(kLineEvent, {{"LineText", line}})) return false;
  line = VariantToText(ScriptResult(kLineEvent, "LineText"));
  return true;
}

/// Reads the source file, and writes what the edit makes of it: over the source only when something may have
/// changed. False when the edit failed.
bool TCustomTextReplaceAction::EditFile(const Edit& edit) const {
  Contents& contents = *GetPlatform().contents;
  bool wasRead = false;
  auto edited = Edited::GivenUp;
  const auto run = [&](const std::string& text, NewText& changed) {
    wasRead = true;
    edited = edit(text, changed);
    return edited == Edited::Changed;
  };
  SysResult done;
  if (newFileName_.empty()) {
    done = contents.Change(fileName_, run);
  } else {
    std::string text;
    HeldText changed;
    done = contents.ReadWhole(fileName_, text);
    if (done) run(text, changed);
    if (done && edited != Edited::GivenUp) {
      done = contents.Replace(newFileName_, edited == Edited::Changed ? changed.text : text);
    }
  }
  if (done) return edited != Edited::GivenUp;
  const std::string target = newFileName_.empty() || !wasRead ? fileName_ : newFileName_;
  throw EVekError((wasRead ? "Cannot write " : "Cannot read ") + target + ": " + SysErrorMessage(done.code));
}

void TCustomTextReplaceAction::SendSummary() const {
  const auto message = CreateStatusMessage();
  if (DoReplaceVariables) message->SetText("Variables replaced in file : " + fileName_);
  if (DoReplaceText) {
    message->SetText(Format("%d matches found, %d replaced in file : " + fileName_, {found_, replacements_}));
  }
  SendStatusMessage(message);
}
