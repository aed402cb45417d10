#pragma once

#include "coreapi/Vekactionapi.h"

enum class TSampleMode { smFirst, smSecond, smThird };
template <>
inline constexpr auto kEnumNames<TSampleMode> = Names("TSampleMode", "smFirst", "smSecond", "smThird");

/// An action with a property of every type, a read-only one, one that is not stored and a script event.
class TCustomSampleAction : public TVekAction {
 public:
  inline static const ActionClass kClass{
      .inherited = &TVekAction::kClass, .className = "TCustomSampleAction", .actionName = "Sample"};

  explicit TCustomSampleAction(IVekActionHost& host) : TVekAction(host) { AddScript("OnSample"); }

  std::string Text = "default";
  WideString Wide;
  WordBool Flag = true;
  WordBool Truth = true;
  bool Switch = false;
  int32_t Number = -1;
  uint32_t Count = 0;
  TSampleMode Mode = TSampleMode::smSecond;
  SetOf<TSampleMode> Modes;
  StringList Lines;
  TDateTime When;
  std::string Transient;
  int32_t Twice() const { return 2 * Number; }
  int32_t Result() const { return 0; }

 protected:
  bool Execute() override { return true; }
};

class TSampleAction final : public PublishedAction<TSampleAction, TCustomSampleAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TSampleAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomSampleAction::Text>("Text"),
      Published<&TCustomSampleAction::Wide>("Wide", TextRole::Folder),
      Published<&TCustomSampleAction::Flag>("Flag"),
      PublishedTruth<&TCustomSampleAction::Truth>("Truth"),
      Published<&TCustomSampleAction::Switch>("Switch"),
      Published<&TCustomSampleAction::Number>("Number"),
      Published<&TCustomSampleAction::Count>("Count"),
      Published<&TCustomSampleAction::Mode>("Mode"),
      Published<&TCustomSampleAction::Modes>("Modes"),
      Published<&TCustomSampleAction::Lines>("Lines"),
      Published<&TCustomSampleAction::When>("When").Varies(),
      Published<&TCustomSampleAction::Transient>("Transient").NotStored(),
      Published<&TCustomSampleAction::Twice>("Twice"),
      RunTime<&TCustomSampleAction::Result>("Result"),
  };
};
