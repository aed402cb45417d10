#pragma once

#include <string>

#include "coreapi/Vekbaseiteratoraction.h"
#include "coreapi/Vekfolderwalk.h"

/// "Folder Iterator": runs its children once for every sub-folder of a folder, each followed by those below
/// it where asked.
class TCustomFolderIterator : public TVekBaseIterator {
 public:
  static const ActionClass kClass;
  using TVekBaseIterator::TVekBaseIterator;

  WideString VariableName() const { return WideString(LoopVariable()); }
  void SetVariableName(const WideString& value) { SetLoopVariable(value); }
  WideString StartingFolder;
  bool Recurse() const { return recurse_; }
  void SetRecurse(bool value);
  bool IncludeFolderPath() const { return includeFolderPath_; }
  void SetIncludeFolderPath(bool value);

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  void BeforeFirstIteration() override;
  Variant GetCurrentValue() override;
  void AfterLastIteration() override;
  bool StopSignalled() override;

 private:
  void SearchFolders(const std::string& startingFolder);
  void Search(TFolderWalk& walk, const std::string& folder);

  bool recurse_ = false;
  bool includeFolderPath_ = true;
  bool stopRequested_ = false;
  StringList folders_;
};

class TFolderIterator final : public PublishedAction<TFolderIterator, TCustomFolderIterator> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TFolderIterator";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomFolderIterator::VariableName, &TCustomFolderIterator::SetVariableName>(
          "VariableName", TextRole::Variable)
          .Means("LoopVariable by another name"),
      Published<&TCustomFolderIterator::StartingFolder>("StartingFolder", TextRole::Folder)
          .Means("The folder whose sub-folders are gone through"),
      Published<&TCustomFolderIterator::Recurse, &TCustomFolderIterator::SetRecurse>("Recurse").Means(
          "Go into the sub-folders too; switches IncludeFolderPath on"),
      Published<&TCustomFolderIterator::IncludeFolderPath, &TCustomFolderIterator::SetIncludeFolderPath>(
          "IncludeFolderPath")
          .Means("Hand out whole paths instead of names; switching it off switches Recurse off"),
  };
};
