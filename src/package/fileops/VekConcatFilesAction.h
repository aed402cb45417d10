#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "coreapi/Vekactionapi.h"

class OpenFile;

enum class TDestExistsAct { FailIfExists, AppendIfExists, OverwriteIfExists };
template <>
inline constexpr auto kEnumNames<TDestExistsAct> = Names("TDestExistsAct", "FailIfExists", "AppendIfExists",
                                                         "OverwriteIfExists");

/// "Concatenate Files": writes two files one behind the other into a third, or appends them to it. A failure
/// leaves a destination that exists as it was, and makes none that does not.
class TCustomConcatAction : public TVekAction {
 public:
  static const ActionClass kClass;
  using TVekAction::TVekAction;

  std::string SourceFile1;
  std::string SourceFile2;  // may be blank where an existing destination is appended to
  std::string DestinationFile;
  TDestExistsAct DestExistsAction = TDestExistsAct::FailIfExists;

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  bool Execute() override;

 private:
  struct Names {
    std::string source1, source2, destination;
  };
  struct Source {
    const std::string& name;
    std::unique_ptr<OpenFile> file;
  };

  bool ExpandNames(Names& names);
  bool ExpandName(std::string_view which, std::string_view title, const std::string& property,
                  std::string& name);
  bool FindSource(std::string_view which, const std::string& name);
  bool OpenSources(const Names& names, std::vector<Source>& sources);
  bool Append(const std::string& destination, std::vector<Source>& sources);
  bool Write(const std::string& destination, std::vector<Source>& sources);
  bool CopyAll(std::vector<Source>& sources, const std::string& destination, OpenFile& target);
  bool Failed(const std::string& what, Win32Error code) const;
};

class TConcatAction final : public PublishedAction<TConcatAction, TCustomConcatAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TConcatAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomConcatAction::SourceFile1>("SourceFile1", TextRole::File)
          .Means("The first part of the new file"),
      Published<&TCustomConcatAction::SourceFile2>("SourceFile2", TextRole::File)
          .Means("What follows it; may be blank when appending"),
      Published<&TCustomConcatAction::DestinationFile>("DestinationFile", TextRole::File)
          .Means("The file that is written, or added to"),
      Published<&TCustomConcatAction::DestExistsAction>("DestExistsAction")
          .Means("What to do when the destination file exists"),
  };
};
