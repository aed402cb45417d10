#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "coreapi/Vekactionapi.h"

/// What to do to one attribute.
enum class TAttributeSetting { asNone, asSet, asClear };
template <>
inline constexpr auto kEnumNames<TAttributeSetting> = Names("TAttributeSetting", "asNone", "asSet",
                                                            "asClear");

/// "Set File Attributes": sets or clears attributes of the files that match a specification, in sub-folders
/// too when asked. Files that refuse are told and do not make it fail.
class TCustomSetFileAttributesAction : public TVekAction {
 public:
  static const ActionClass kClass;
  using TVekAction::TVekAction;

  WideString FileSpec;
  WordBool Recurse = false;
  TAttributeSetting Archive = TAttributeSetting::asNone;
  TAttributeSetting Hidden = TAttributeSetting::asNone;
  TAttributeSetting ReadOnly = TAttributeSetting::asNone;
  TAttributeSetting SystemFile = TAttributeSetting::asNone;
  WordBool LogAllFiles = false;

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  bool Execute() override;

 private:
  void ProcessFiles(IVekActionLogMessage& message, const std::string& folder, std::string_view mask);
  void ProcessFile(IVekActionLogMessage& message, const std::string& path, uint32_t attributes) const;
};

class TSetFileAttributesAction final
    : public PublishedAction<TSetFileAttributesAction, TCustomSetFileAttributesAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TSetFileAttributesAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomSetFileAttributesAction::FileSpec>("FileSpec", TextRole::Wildcard),
      Published<&TCustomSetFileAttributesAction::Recurse>("Recurse"),
      Published<&TCustomSetFileAttributesAction::Archive>("Archive"),
      Published<&TCustomSetFileAttributesAction::Hidden>("Hidden"),
      Published<&TCustomSetFileAttributesAction::ReadOnly>("ReadOnly"),
      Published<&TCustomSetFileAttributesAction::SystemFile>("SystemFile"),
      Published<&TCustomSetFileAttributesAction::LogAllFiles>("LogAllFiles"),
  };
};
