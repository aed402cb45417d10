#pragma once

#include <cstdint>
#include <string>

#include "interaction/Vekvariableresult.h"

enum class TDateTimeSource { dsNow, dsFile };
template <>
inline constexpr auto kEnumNames<TDateTimeSource> = Names("TDateTimeSource", "dsNow", "dsFile");

/// "Get Date/Time": the present date and time, or that of a file, goes into a variable.
class TCustomDateTimeAction : public TVekVariableResultAction {
 public:
  static const ActionClass kClass;
  using TVekVariableResultAction::TVekVariableResultAction;

  std::string VekVariable;
  std::string DateTimeFormat = "yyyy-mm-dd hh:nn:ss";
  TDateTimeSource DateTimeSource = TDateTimeSource::dsNow;
  std::string FileName;
  bool UseUTC = false;
  int32_t OffsetDays = 0;

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  bool Execute() override;

 private:
  bool TakeTime(TDateTime& time) const;
  bool AddDays(TDateTime& time) const;
  bool TakeFileTime(TDateTime& time) const;
};

class TDateTimeAction final : public PublishedAction<TDateTimeAction, TCustomDateTimeAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TDateTimeAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomDateTimeAction::VekVariable>("VekVariable", TextRole::Variable),
      Published<&TCustomDateTimeAction::DateTimeFormat>("DateTimeFormat"),
      Published<&TCustomDateTimeAction::DateTimeSource>("DateTimeSource"),
      Published<&TCustomDateTimeAction::FileName>("FileName", TextRole::File),
      Published<&TCustomDateTimeAction::UseUTC>("UseUTC"),
      Published<&TCustomDateTimeAction::OffsetDays>("OffsetDays"),
  };
};
