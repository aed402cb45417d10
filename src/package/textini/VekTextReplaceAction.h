#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "coreapi/Vekactionapi.h"
#include "platform/Contents.h"

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
  /// What becomes of a text; the same one is not appended to the changed text.
  enum class Edited { GivenUp, Same, Changed };
  using Edit = std::function<Edited(const std::string& text, NewText& changed)>;

  bool ReplaceInFile();
  Edited ReplaceVariables(const std::string& text, NewText& changed);
  Edited ReplaceByLines(const std::string& text, NewText& changed);
  Edited ReplaceMatches(const std::string& text, NewText& changed);
  bool ExpandTexts();
  bool FindText(int32_t count, std::string_view foundText, std::string& replaceText, bool& doReplace);
  bool ProcessLine(std::string& line);
  bool EditFile(const Edit& edit) const;
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
      Published<&TCustomTextReplaceAction::Filename>("Filename", TextRole::File)
          .Means("The text file to work on"),
      Published<&TCustomTextReplaceAction::SearchText>("SearchText")
          .Means("The text or regular expression to replace.  Any variables used will be expanded."),
      Published<&TCustomTextReplaceAction::ReplaceText>("ReplaceText")
          .Means("What takes its place, as it stands.  Any variables used will be expanded."),
      Published<&TCustomTextReplaceAction::DoRepeat>("DoRepeat")
          .Means("How many are replaced at most; 0 for all; a regular expression replaces all"),
      Published<&TCustomTextReplaceAction::DoReplaceText>("DoReplaceText").Means("Search and replace"),
      Published<&TCustomTextReplaceAction::DoReplaceVariables>("DoReplaceVariables")
          .Means("Expand the variables in the whole file"),
      Published<&TCustomTextReplaceAction::CaseSensitive>("CaseSensitive")
          .Means("Letter case matters; a regular expression decides for itself"),
      Published<&TCustomTextReplaceAction::NewFileName>("NewFileName", TextRole::File)
          .Means("Write the result to this file instead; blank for the file itself"),
      Published<&TCustomTextReplaceAction::WholeWordsOnly>("WholeWordsOnly")
          .Means("Replace whole words only; a regular expression decides for itself"),
      Published<&TCustomTextReplaceAction::MatchRegularExpression>("MatchRegularExpression")
          .Means("SearchText is a regular expression, applied to the whole text"),
      Published<&TCustomTextReplaceAction::FailOnFewReplacements>("FailOnFewReplacements")
          .Means("Fail when fewer than FailMinimumCount were replaced"),
      Published<&TCustomTextReplaceAction::FailMinimumCount>("FailMinimumCount")
          .Means("The least number of replacements"),
  };
};
