#pragma once

#include <string>

#include "coreapi/Vekactionapi.h"
#include "platform/Registry.h"

class TVekRegistry;

enum class TRegValueType { rtInteger, rtString, rtDWord, rtBoolean };
template <>
inline constexpr auto kEnumNames<TRegValueType> = Names("TRegValueType", "rtInteger", "rtString", "rtDWord",
                                                        "rtBoolean");

/// What reading, setting and deleting one value of the registry have in common.
class TCustomRegAction : public TVekAction {
 public:
  static const ActionClass kClass;
  using TVekAction::TVekAction;

  uint32_t RegRoot = RegistryRoot::LocalMachine;
  std::string RegKey;
  TRegValueType RegValType = TRegValueType::rtString;
  std::string RegValueName;  // empty: the key's default value
  bool AllowCreateKey = false;

  /// What all of them publish.
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomRegAction::RegRoot>("RegRoot"),
      Published<&TCustomRegAction::RegKey>("RegKey"),
      Published<&TCustomRegAction::RegValType>("RegValType"),
      Published<&TCustomRegAction::RegValueName>("RegValueName")
          .Means("The name of the value; blank for the default value of the key"),
  };

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  bool Execute() override;

  /// The access with which the key is opened.
  virtual uint32_t GetRegAccess() const { return RegistryAccess::Read; }

  /// The action's work on the open key; true for success.
  virtual bool InternalDoRegAction(TVekRegistry& registry, const std::string& valueName) = 0;
};

/// "Read Registry Value": stores a value in a variable.
class TCustomReadRegValueAction : public TCustomRegAction {
 public:
  static const ActionClass kClass;
  using TCustomRegAction::TCustomRegAction;

  std::string VekVariable;

 protected:
  bool InternalDoRegAction(TVekRegistry& registry, const std::string& valueName) override;

 private:
  Variant ReadValue(const TVekRegistry& registry, const std::string& valueName) const;
};

/// "Set Registry Value".
class TCustomSetRegValueAction : public TCustomRegAction {
 public:
  static const ActionClass kClass;
  using TCustomRegAction::TCustomRegAction;

  std::string RegValue;

 protected:
  uint32_t GetRegAccess() const override { return RegistryAccess::All; }
  bool InternalDoRegAction(TVekRegistry& registry, const std::string& valueName) override;

 private:
  Variant TypedValue(const std::string& text) const;
  void WriteValue(const TVekRegistry& registry, const std::string& valueName, const Variant& value) const;
};

/// "Delete Registry Value"; the key stays.
class TCustomDeleteRegValueAction : public TCustomRegAction {
 public:
  static const ActionClass kClass;
  using TCustomRegAction::TCustomRegAction;

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  uint32_t GetRegAccess() const override { return RegistryAccess::All; }
  bool InternalDoRegAction(TVekRegistry& registry, const std::string& valueName) override;
};

class TReadRegValueAction final : public PublishedAction<TReadRegValueAction, TCustomReadRegValueAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TReadRegValueAction";
  static constexpr auto kPublished =
      Extended(TCustomRegAction::kPublished,
               Published<&TCustomReadRegValueAction::VekVariable>("VekVariable", TextRole::Variable));
};

class TSetRegValueAction final : public PublishedAction<TSetRegValueAction, TCustomSetRegValueAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TSetRegValueAction";
  static constexpr auto kPublished =
      Extended(TCustomRegAction::kPublished, Published<&TCustomSetRegValueAction::RegValue>("RegValue"),
               Published<&TCustomRegAction::AllowCreateKey>("AllowCreateKey"));
};

class TDeleteRegValueAction final
    : public PublishedAction<TDeleteRegValueAction, TCustomDeleteRegValueAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TDeleteRegValueAction";
  static constexpr std::span<const PropertyRow> kPublished = TCustomRegAction::kPublished;
};
