#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include "coreapi/Vekbaseiteratoraction.h"

/// "File Iterator": runs its children once for every file of a list, which comes from a file specification or
/// from a file set of the project.
class TCustomFileIterator : public TVekBaseIterator {
 public:
  static const ActionClass kClass;
  using TVekBaseIterator::TVekBaseIterator;

  WideString FileSpec() const;
  void SetFileSpec(const WideString& value);
  bool Recurse() const { return recurse_; }
  void SetRecurse(bool value);
  bool IncludeFilePath() const { return includeFilePath_; }
  void SetIncludeFilePath(bool value);
  int32_t FileCount() const { return static_cast<int32_t>(files_.size()); }
  int32_t FileIndex() const { return GetCurrentIteration() - 1; }
  bool FindAnyFile = false;  // folders, hidden and system entries too
  bool UseFileSet() const { return useFileSet_; }
  void SetUseFileSet(bool value);
  std::string FileSetName() const;
  void SetFileSetName(std::string_view value);
  bool FileSetRefreshBefore = true;
  bool FileSetRefreshAfterEach = false;  // looked at in spec mode too

  std::string GetDescriptionFormatString() const override;
  std::string GetDescriptionKeyValue(int32_t index) const override;
  void SetDescriptionKeyValue(int32_t index, std::string_view value) override;
  bool Validate(IVekActionValidationError& errors) override;

 protected:
  void BeforeFirstIteration() override;
  Variant GetCurrentValue() override;
  void AfterEachIteration() override;
  void AfterLastIteration() override;

 private:
  using NameSet = std::set<std::string_view, LessNoCase>;

  void SearchFiles(const std::string& spec);
  void TakeMatches(const std::string& folder, std::string_view mask);
  void ReadFileSet();
  void MergeFileSet();
  size_t RemoveUnvisited(const NameSet& current);
  size_t AddMissing(const StringList& current);
  StringList FileSetFiles(bool refresh);
  void SendFileList() const;
  void UpdateIterationCount() { SetIterationCount(FileCount()); }

  std::string fileSpec_, fileSetName_;
  bool recurse_ = false;
  bool includeFilePath_ = true;
  bool useFileSet_ = false;
  StringList files_;
};

class TFileIterator final : public PublishedAction<TFileIterator, TCustomFileIterator> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TFileIterator";
  static constexpr PropertyRow kPublished[] = {
      Published<&TVekBaseIterator::LoopVariable, &TVekBaseIterator::SetLoopVariable>("VariableName",
                                                                                     TextRole::Variable)
          .Means("LoopVariable by another name"),
      Published<&TCustomFileIterator::FileSpec, &TCustomFileIterator::SetFileSpec>("FileSpec",
                                                                                   TextRole::Wildcard)
          .Means("The files to go through; wildcards (*, ?) may be used"),
      Published<&TCustomFileIterator::Recurse, &TCustomFileIterator::SetRecurse>("Recurse").Means(
          "Search the sub-folders too; switches IncludeFilePath on"),
      Published<&TCustomFileIterator::IncludeFilePath, &TCustomFileIterator::SetIncludeFilePath>(
          "IncludeFilePath")
          .Means("Hand out whole paths instead of names; switching it off switches Recurse off"),
      Published<&TCustomFileIterator::FileCount>("FileCount").Means("How many files the list holds"),
      Published<&TCustomFileIterator::FileIndex>("FileIndex")
          .Means("The place of the present file in the list, from 0"),
      Published<&TCustomFileIterator::FindAnyFile>("FindAnyFile")
          .Means("Find hidden and system files too, and folders"),
      Published<&TCustomFileIterator::UseFileSet, &TCustomFileIterator::SetUseFileSet>("UseFileSet")
          .Means("Go through a file set of the project instead of FileSpec"),
      Published<&TCustomFileIterator::FileSetName, &TCustomFileIterator::SetFileSetName>("FileSetName",
                                                                                         TextRole::FileSet)
          .Means("The name of the file set"),
      Published<&TCustomFileIterator::FileSetRefreshBefore>("FileSetRefreshBefore")
          .Means("Evaluate the file set anew before the first pass"),
      Published<&TCustomFileIterator::FileSetRefreshAfterEach>("FileSetRefreshAfterEach")
          .Means("Evaluate it anew after each pass: what is gone is left out, what is new comes last"),
  };
};
