#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "coreapi/Vekactionapi.h"

class TRegExpr;
struct SysResult;

/// "Text Replace": expands the references in a text file, replaces a text in it, or both.
class TCustomTextReplaceAction : public TVekAction {
 public:
  static const ActionClass kClass;
  explicit TCustomTextReplaceAction(IVekActionHost& host);

  std::string Filename;
  std::string SearchText;
  std::string ReplaceText;
  int32_t DoRepeat = 0;  // most replacements; 0 for no limit
  bool DoReplaceText = false;
  bool DoReplaceVariables = false;
  bool CaseSensitive = true;
  std::string NewFileName;
  bool WholeWordsOnly = false;
  bool MatchRegularExpression = false;
  bool FailOnFewReplacements = false;
  int32_t FailMinimumCount = 1;

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  void InitialiseScriptParams(IVekActionScript& script) override;
  bool Execute() override;

 private:
  bool ReplaceInFile();
  bool ReplaceReferencesAndLines();
  bool ReplaceByLines(std::string& text);
  bool ReplaceByExpression();
  std::optional<std::string> ReplaceMatches(const std::string& text);
  bool ExpandTexts();
  bool FindText(int32_t count, std::string_view foundText, std::string& replaceText, bool& doReplace);
  bool ProcessLine(std::string& line);
  std::string Load() const;
  void Save(const std::string& text) const;
  void SendSummary() const;

  std::string fileName_, newFileName_;  // expanded, as are the next two
  std::string searchText_, replaceText_;
  int32_t found_ = 0, replacements_ = 0;
};

class TTextReplaceAction final : public PublishedAction<TTextReplaceAction, TCustomTextReplaceAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TTextReplaceAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomTextReplaceAction::Filename>("Filename", TextRole::File),
      Published<&TCustomTextReplaceAction::SearchText>("SearchText"),
      Published<&TCustomTextReplaceAction::ReplaceText>("ReplaceText"),
      Published<&TCustomTextReplaceAction::DoRepeat>("DoRepeat"),
      Published<&TCustomTextReplaceAction::DoReplaceText>("DoReplaceText"),
      Published<&TCustomTextReplaceAction::DoReplaceVariables>("DoReplaceVariables"),
      Published<&TCustomTextReplaceAction::CaseSensitive>("CaseSensitive"),
      Published<&TCustomTextReplaceAction::NewFileName>("NewFileName", TextRole::File),
      Published<&TCustomTextReplaceAction::WholeWordsOnly>("WholeWordsOnly"),
      Published<&TCustomTextReplaceAction::MatchRegularExpression>("MatchRegularExpression"),
      Published<&TCustomTextReplaceAction::FailOnFewReplacements>("FailOnFewReplacements"),
      Published<&TCustomTextReplaceAction::FailMinimumCount>("FailMinimumCount"),
  };
};
