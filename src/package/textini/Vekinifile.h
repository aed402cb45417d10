#pragma once

#include <optional>
#include <string>

#include "coreapi/Vekactionapi.h"

class TIniFile;

enum class TIniValueType { vtString, vtBool, vtInteger };
template <>
inline constexpr auto kEnumNames<TIniValueType> = Names("TIniValueType", "vtString", "vtBool", "vtInteger");

/// What reading and writing one value of an INI file have in common.
class TCustomIniFileAction : public TVekAction {
 public:
  static const ActionClass kClass;
  using TVekAction::TVekAction;

  WideString IniFile;
  WideString Section;
  WideString ValueName;
  TIniValueType ValueType = TIniValueType::vtString;

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  /// Where the value stands, expanded.
  struct Entry {
    std::string path, section, name;
  };

  // Each answers nothing after reporting the complaint, with the property as it is stored, and the reason.
  std::optional<std::string> Expand(std::string_view complaint, const WideString& property) const;
  std::optional<std::string> ExpandPath(std::string_view complaint) const;
  std::optional<std::string> ExpandSection(std::string_view complaint) const;
};

/// "Read Ini File": stores a value of an INI file in a variable.
class TCustomReadIniFileAction : public TCustomIniFileAction {
 public:
  static const ActionClass kClass;
  using TCustomIniFileAction::TCustomIniFileAction;

  WideString VariableName;
  WideString DefaultValue;

  bool Validate(IVekActionValidationError& errors) override;

 protected:
  bool Execute() override;

 private:
  std::optional<Entry> ExpandEntry() const;
  std::optional<Variant> TypedDefault(const std::string& text) const;
  void ReadEntry(const Entry& entry, const std::string& defaultText, const Variant& defaultValue) const;
};

/// "Write Ini File": writes a value to an INI file.
class TCustomWriteIniFileAction : public TCustomIniFileAction {
 public:
  static const ActionClass kClass;
  using TCustomIniFileAction::TCustomIniFileAction;

  WideString NewValue;
  WordBool AllowCreate = false;

 protected:
  bool Execute() override;

 private:
  bool IsReadOnly(const std::string& path) const;
  bool WriteEntry(const Entry& entry, const std::string& value) const;
};

class TReadIniFileAction final : public PublishedAction<TReadIniFileAction, TCustomReadIniFileAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TReadIniFileAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomIniFileAction::IniFile>("IniFile", TextRole::File),
      Published<&TCustomIniFileAction::Section>("Section"),
      Published<&TCustomIniFileAction::ValueName>("ValueName"),
      Published<&TCustomReadIniFileAction::VariableName>("VariableName", TextRole::Variable),
      Published<&TCustomReadIniFileAction::DefaultValue>("DefaultValue"),
      Published<&TCustomIniFileAction::ValueType>("ValueType"),
  };
};

class TWriteIniFileAction final : public PublishedAction<TWriteIniFileAction, TCustomWriteIniFileAction> {
 public:
  using PublishedAction::PublishedAction;
  static constexpr std::string_view kClassName = "TWriteIniFileAction";
  static constexpr PropertyRow kPublished[] = {
      Published<&TCustomIniFileAction::IniFile>("IniFile", TextRole::File),
      Published<&TCustomIniFileAction::Section>("Section"),
      Published<&TCustomIniFileAction::ValueName>("ValueName"),
      Published<&TCustomWriteIniFileAction::NewValue>("NewValue"),
      Published<&TCustomWriteIniFileAction::AllowCreate>("AllowCreate"),
      Published<&TCustomIniFileAction::ValueType>("ValueType"),
  };
};
