#pragma once

#include <atomic>
#include <cstdint>
#include <optional>
#include <string>

#include "coreapi/Vekactionapi.h"

class TRegExpr;
class TTextWindows;

/// The text as a regular expression that matches it. "]", "{" and "}" are left as they are, so that a number
/// in braces still repeats.
std::string StringToRegExp(const std::string& text);
std::string RegExpMakeWholeWord(const std::string& expression);
std::string RegExpMakeIgnoreCase(const std::string& expression);

enum class TTextFindBehaviour { tfFailOnLess, tfFailOnMore, tfPutIntoVar };
template <>
inline constexpr auto kEnumNames<TTextFindBehaviour> = Names("TTextFindBehaviour", "tfFailOnLess",
                                                             "tfFailOnMore", "tfPutIntoVar");

/// "Text Find": counts the occurrences of a text in a file or a variable, and decides by the count.
class TCustomVekTextFindAction : public TVekAction {
 public:
  static const ActionClass kClass;
  explicit TCustomVekTextFindAction(IVekActionHost& host);

  bool UseVariable = false;
  std::string VekVariable;
  std::string SourcePath;
  std::string SearchString;
  bool MatchRegExpr = false;
  bool CaseSensitive = false;
  bool WholeWords = false;
  TTextFindBehaviour TextFindBehaviour = TTextFindBehaviour::tfFailOnLess;
  int32_t FailMatchCount = 1;
  int32_t FailOnMoreMatchCount = 1;
  std::string PutCountIntoVar;

  bool CanTerminate() const override { return true; }
  void TerminateAction() override;

 protected:
  void InitialiseScriptParams(IVekActionScript& script) override;
  bool Execute() override;

 private:
  std::optional<TTextWindows> OpenText(const std::string& path, const std::string& searchText) const;
  std::string Pattern(const std::string& searchText) const;
  bool CountMatches(TTextWindows& text, const std::string& searchText);
  bool SearchWindow(TTextWindows& text, TRegExpr& expression, size_t& from);
  bool TakeMatch(TTextWindows& text, TRegExpr& expression);
  std::string CountText() const;
  bool Decide() const;
  bool Stopped() { return terminated_ || StopSignalled(); }

  std::atomic<bool> terminated_ = false;
  int64_t count_ = 0;
};

class TVekTextFindAction final : public PublishedAction<TVekTextFindAction, TCustomVekTextFindAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekTextFindAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomVekTextFindAction::UseVariable>("UseVariable")
          .Means("Search the value of a variable instead of a file"),
      Published<&TCustomVekTextFindAction::VekVariable>("VekVariable", TextRole::Variable)
          .Means("The name of that variable"),
      Published<&TCustomVekTextFindAction::SourcePath>("SourcePath", TextRole::File)
          .Means("The file to search"),
      Published<&TCustomVekTextFindAction::SearchString>("SearchString")
          .Means("The text or regular expression to look for.  Any variables used will be expanded."),
      Published<&TCustomVekTextFindAction::MatchRegExpr>("MatchRegExpr")
          .Means("SearchString is a regular expression"),
      Published<&TCustomVekTextFindAction::CaseSensitive>("CaseSensitive")
          .Means("Letter case matters; a regular expression decides for itself"),
      Published<&TCustomVekTextFindAction::WholeWords>("WholeWords")
          .Means("Find whole words only; a regular expression decides for itself"),
      Published<&TCustomVekTextFindAction::TextFindBehaviour>("TextFindBehaviour")
          .Means("Fail on fewer matches, fail on more, or put their number into a variable"),
      Published<&TCustomVekTextFindAction::FailMatchCount>("FailMatchCount")
          .Means("The least number of matches, for tfFailOnLess"),
      Published<&TCustomVekTextFindAction::FailOnMoreMatchCount>("FailOnMoreMatchCount")
          .Means("The highest number of matches, for tfFailOnMore"),
      Published<&TCustomVekTextFindAction::PutCountIntoVar>("PutCountIntoVar", TextRole::Variable)
          .Means("The variable that receives the number of matches, for tfPutIntoVar"),
  };
};
