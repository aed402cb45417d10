#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "coreapi/Vekproperties.h"
#include "vekforms_export.h"

class TFrame;

/// The controls of a property page, as models: what a control shows and what a user can do to it. A host
/// draws them with whatever toolkit it has. A setter changes the value in silence; an operation of the user
/// (Click, Enter, Choose ...) also runs the control's OnChange, and has no effect on a disabled control.
/// [user-interface thread]
class VEK_FORMS_API TControl {
 public:
  /// `property` is null for a control that the page reads and writes itself.
  TControl(TFrame& page, std::string_view name, const PropertyRow* property);
  virtual ~TControl();
  TControl(const TControl&) = delete;
  TControl& operator=(const TControl&) = delete;

  /// What to draw: "TEdit", "TCheckBox" ...
  virtual std::string_view ClassName() const = 0;
  const std::string& Name() const { return name_; }
  const PropertyRow* Property() const { return property_; }

  const std::string& Caption() const { return caption_; }
  const std::string& Hint() const { return hint_; }
  bool Enabled() const { return enabled_; }
  bool Visible() const { return visible_; }

  /// What it offers to choose from: the items of a list, or what a check box or radio button stands for.
  virtual StringList Choices() const { return {}; }

  void SetCaption(std::string_view caption);
  void SetHint(std::string_view hint);
  void SetEnabled(bool enabled);
  void SetVisible(bool visible);

  // The bound property.
  void ReadFrom(const TLumXMLObject& action);
  virtual void WriteTo(TLumXMLObject& action) const;

  /// Raises EVekError when what the control holds is no value of its property.
  virtual void CheckValue() const;

 protected:
  virtual PropertyValue Value() const;
  virtual void SetValue(const PropertyValue& value);

  TFrame& Page() const { return page_; }
  void Changed();        // what it shows
  void ChangedByUser();  // likewise, and OnChange is to run
  std::function<void()> onChange_;

 private:
  TFrame& page_;
  std::string name_, caption_, hint_;
  const PropertyRow* property_;
  bool enabled_ = true, visible_ = true;
};

/// Adds what a page says of a control in the line that makes it.
template <class Self, class Base = TControl>
class ControlOf : public Base {
 public:
  using Base::Base;
  using TControl::Caption, TControl::Hint;
  Self& Caption(std::string_view caption) { return this->SetCaption(caption), Me(); }
  Self& Hint(std::string_view hint) { return this->SetHint(hint), Me(); }
  Self& OnChange(std::function<void()> handler) { return this->onChange_ = std::move(handler), Me(); }

 protected:
  Self& Me() { return static_cast<Self&>(*this); }
};

/// A line of text above a group of controls.
class VEK_FORMS_API THeading final : public ControlOf<THeading> {
 public:
  using ControlOf::ControlOf;
  ~THeading() override;
  std::string_view ClassName() const override { return "THeading"; }
};

/// A truth value, or one member of a set.
class VEK_FORMS_API TCheckBox final : public ControlOf<TCheckBox> {
 public:
  static constexpr PropertyType kTypes[] = {PropertyType::WordBool, PropertyType::Boolean};
  TCheckBox(TFrame& page, std::string_view name, const PropertyRow* property, uint32_t memberBit = 0);
  ~TCheckBox() override;
  std::string_view ClassName() const override { return "TCheckBox"; }
  StringList Choices() const override;

  bool Checked() const { return checked_; }
  void SetChecked(bool checked);
  void Click();
  void WriteTo(TLumXMLObject& action) const override;

 protected:
  PropertyValue Value() const override { return checked_; }
  void SetValue(const PropertyValue& value) override;

 private:
  const uint32_t memberBit_;
  bool checked_ = false;
};

/// One value of an enumeration, or one of the two truth values. The radio buttons of a page that are bound to
/// the same property form a group, of which one is checked; so do those that are bound to none.
class VEK_FORMS_API TRadioButton final : public ControlOf<TRadioButton> {
 public:
  TRadioButton(TFrame& page, std::string_view name, const PropertyRow* property, PropertyValue choice);
  ~TRadioButton() override;
  std::string_view ClassName() const override { return "TRadioButton"; }
  StringList Choices() const override;

  bool Checked() const { return checked_; }
  void SetChecked(bool checked);  // true unchecks the rest of the group
  void Click();
  void WriteTo(TLumXMLObject& action) const override;

 protected:
  PropertyValue Value() const override { return choice_; }
  void SetValue(const PropertyValue& value) override { SetChecked(value == choice_); }

 private:
  const PropertyValue choice_;
  bool checked_ = false;
};

/// A list of lines that grows and shrinks.
class VEK_FORMS_API TListBox final : public ControlOf<TListBox> {
 public:
  static constexpr PropertyType kTypes[] = {PropertyType::StringList};
  using ControlOf::ControlOf;
  ~TListBox() override;
  std::string_view ClassName() const override { return "TListBox"; }

  const StringList& Items() const { return items_; }
  void SetItems(StringList items);
  void Append(std::string_view item);
  void Remove(size_t index);

 protected:
  PropertyValue Value() const override { return items_; }
  void SetValue(const PropertyValue& value) override { SetItems(std::get<StringList>(value)); }

 private:
  StringList items_;
};
