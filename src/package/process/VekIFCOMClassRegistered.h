#pragma once

#include <string>

#include "coreapi/Vekactionapi.h"

/// "If COM Class Registered": its children run when an object of the class can be made, or when it cannot.
class TCustomVekIfCOMClassRegistered : public TVekAction {
 public:
  static const ActionClass kClass;
  using TVekAction::TVekAction;

  std::string CLSID;   // with or without braces
  std::string ProgID;  // looked up as it stands; what it expands to is for the log
  bool UseProgID = true;
  bool Invert = false;
  bool FailIfNotRegistered = false;

  void GetNextActionSource(bool failed, TVekNextAction& next) override;

 protected:
  bool Execute() override;

 private:
  bool TestProgId();
  bool TestClassId();
  void Conclude(const std::string& identifier, bool registered);
  bool TestResult() const { return registered_ != Invert; }

  bool registered_ = false;
};

class TVekIfCOMClassRegistered final
    : public PublishedAction<TVekIfCOMClassRegistered, TCustomVekIfCOMClassRegistered> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TVekIfCOMClassRegistered";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomVekIfCOMClassRegistered::CLSID>("CLSID").Means(
          "The class identifier, with braces or without"),
      Published<&TCustomVekIfCOMClassRegistered::ProgID>("ProgID").Means(
          "The programmatic identifier, as it stands: an expression in it is only logged"),
      Published<&TCustomVekIfCOMClassRegistered::UseProgID>("UseProgID")
          .Means("Look for ProgID instead of CLSID"),
      Published<&TCustomVekIfCOMClassRegistered::Invert>("Invert").Means(
          "The condition is that the class is not registered"),
      Published<&TCustomVekIfCOMClassRegistered::FailIfNotRegistered>("FailIfNotRegistered")
          .Means("Fail when the condition does not hold, instead of leaving out the children"),
  };
};
