#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "forms/Vekcontrols.h"
#include "vekforms_export.h"

/// What a chooser asks; of one that chooses a folder the title alone.
struct FileDialog {
  std::string_view title, filter = {}, defaultExtension = {};
};

/// Raises EVekError: the text is no value of the property.
[[noreturn]] void RaiseMisfit(const PropertyRow& row, std::string_view text);

/// The controls that hold text.
class VEK_FORMS_API TCustomEdit : public TControl {
 public:
  using TControl::TControl;
  ~TCustomEdit() override;
  const std::string& Text() const { return text_; }
  void SetText(std::string_view text);
  void Enter(std::string_view text);
  void CheckValue() const override;

 protected:
  PropertyValue Value() const override;
  void SetValue(const PropertyValue& value) override;

 private:
  std::optional<PropertyValue> Parsed() const;

  std::string text_;
};

/// One line. Numbers and dates are edited in the form in which a project holds them.
class VEK_FORMS_API TEdit final : public ControlOf<TEdit, TCustomEdit> {
 public:
  static constexpr PropertyType kTypes[] = {PropertyType::ByteString, PropertyType::WideString,
                                            PropertyType::Integer, PropertyType::Cardinal,
                                            PropertyType::DateTime};
  using ControlOf::ControlOf;
  ~TEdit() override;
  std::string_view ClassName() const override { return "TEdit"; }
};

/// Text of several lines, or a list with one entry a line.
class VEK_FORMS_API TMemo final : public ControlOf<TMemo, TCustomEdit> {
 public:
  static constexpr PropertyType kTypes[] = {PropertyType::ByteString, PropertyType::WideString,
                                            PropertyType::StringList};
  using ControlOf::ControlOf;
  ~TMemo() override;
  std::string_view ClassName() const override { return "TMemo"; }

 protected:
  void SetValue(const PropertyValue& value) override;
};

/// One line with a button behind it, which mostly opens a chooser.
class VEK_FORMS_API TButtonEdit final : public ControlOf<TButtonEdit, TCustomEdit> {
 public:
  static constexpr PropertyType kTypes[] = {PropertyType::ByteString, PropertyType::WideString};
  using ControlOf::ControlOf;
  ~TButtonEdit() override;
  std::string_view ClassName() const override { return "TButtonEdit"; }

  void ClickButton();
  TButtonEdit& OnButtonClick(std::function<void()> handler);

  /// The button opens a chooser on the text; what is chosen replaces it.
  TButtonEdit& BrowsesForFile(std::string_view title, std::string_view filter,
                              std::string_view defaultExtension = {});
  TButtonEdit& BrowsesForFile(const FileDialog& dialog);
  TButtonEdit& BrowsesForDirectory(std::string_view title);

 private:
  std::function<void()> onButtonClick_;
};

/// One value of an enumeration, or a text with suggestions.
class VEK_FORMS_API TComboBox final : public ControlOf<TComboBox, TCustomEdit> {
 public:
  static constexpr PropertyType kTypes[] = {PropertyType::ByteString, PropertyType::WideString,
                                            PropertyType::Enumeration};
  TComboBox(TFrame& page, std::string_view name, const PropertyRow* property);
  ~TComboBox() override;
  std::string_view ClassName() const override { return "TComboBox"; }
  StringList Choices() const override;

  /// The values of an enumeration by ordinal, under their own names unless the page gives captions.
  const StringList& Items() const { return items_; }
  TComboBox& Items(StringList items);

  /// Where the text stands among the items, or -1.
  int32_t ItemIndex() const;
  void Choose(size_t index);
  void CheckValue() const override;

 protected:
  PropertyValue Value() const override;
  void SetValue(const PropertyValue& value) override;

 private:
  bool ChoosesOnly() const { return Property() && Property()->type == PropertyType::Enumeration; }

  StringList items_;
};
