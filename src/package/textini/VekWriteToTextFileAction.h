#pragma once

#include <string>

#include "coreapi/Vekactionapi.h"

struct SysResult;

enum class TVekWriteToPos { toStart, toEnd };
template <>
inline constexpr auto kEnumNames<TVekWriteToPos> = Names("TVekWriteToPos", "toStart", "toEnd");

/// "Write to Text File": adds a text as the first or the last line of a file.
class TCustomVekWriteToTextFileAction : public TVekAction {
 public:
  static const ActionClass kClass;
  using TVekAction::TVekAction;

  std::string FileName;
  std::string NewContent;
  bool CreateIfNotExists = false;
  TVekWriteToPos WriteToPosition = TVekWriteToPos::toEnd;

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  bool Execute() override;

 private:
  SysResult AddToFile(const std::string& fileName, const std::string& text) const;
};

class TVekWriteToTextFileAction final
    : public PublishedAction<TVekWriteToTextFileAction, TCustomVekWriteToTextFileAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekWriteToTextFileAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomVekWriteToTextFileAction::FileName>("FileName", TextRole::File)
          .Means("The text file to add to"),
      Published<&TCustomVekWriteToTextFileAction::NewContent>("NewContent"),
      Published<&TCustomVekWriteToTextFileAction::CreateIfNotExists>("CreateIfNotExists"),
      Published<&TCustomVekWriteToTextFileAction::WriteToPosition>("WriteToPosition"),
  };
};
