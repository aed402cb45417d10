#pragma once

#include <functional>
#include <string>

#include "coreapi/Vekactionapi.h"

class OpenFile;
enum class ShareMode;

/// "File Compare": compares two files by date, size and MD5 checksum. The outcome is the action's result, or
/// the condition that guards its children.
class TCustomVekFileCompareAction : public TVekAction {
 public:
  static const ActionClass kClass;
  using TVekAction::TVekAction;

  std::string FileA;
  std::string FileB;
  bool CompareDate = false;
  bool CompareSize = false;
  bool CompareMD5 = true;
  bool Fail = false;  // succeed only where the files differ, instead of guarding the children
  bool Inverted = false;

  bool Validate(IVekActionValidationError& errors) override;
  void GetNextActionSource(bool failed, TVekNextAction& next) override;

 protected:
  bool Execute() override;

 private:
  struct Files {
    std::string a, b;
  };

  bool FindFiles(Files& files);
  bool CompareDates(const Files& files, bool& different);
  bool CompareSizes(const Files& files, bool& different);
  void CompareContents(const Files& files, bool& different);
  bool Ask(const std::string& fileName, ShareMode share, const char* what,
           const std::function<SysResult(OpenFile&)>& question);

  bool outcome_ = false;
};

class TVekFileCompareAction final
    : public PublishedAction<TVekFileCompareAction, TCustomVekFileCompareAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekFileCompareAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomVekFileCompareAction::FileA>("FileA", TextRole::File).Means("The first file"),
      Published<&TCustomVekFileCompareAction::FileB>("FileB", TextRole::File).Means("The second file"),
      Published<&TCustomVekFileCompareAction::CompareDate>("CompareDate")
          .Means("They differ when their dates of last writing do"),
      Published<&TCustomVekFileCompareAction::CompareSize>("CompareSize")
          .Means("They differ when their sizes do"),
      Published<&TCustomVekFileCompareAction::CompareMD5>("CompareMD5")
          .Means("They differ when their MD5 checksums do"),
      Published<&TCustomVekFileCompareAction::Fail>("Fail").Means(
          "Fail when the files are the same; otherwise the children run only when they differ"),
      Published<&TCustomVekFileCompareAction::Inverted>("Inverted")
          .Means("Take files that are the same for different ones, and the other way round"),
  };
};
