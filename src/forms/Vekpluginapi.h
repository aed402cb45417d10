#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "coreapi/Vekactionapi.h"
#include "coreapi/Vekoptions.h"
#include "forms/Vekcontrols.h"
#include "forms/Vekedits.h"
#include "forms/Vekpropertyof.h"
#include "vekforms_export.h"

/// The window that shows a page.
class IVekPageOwner {
 public:
  virtual ~IVekPageOwner() = default;

  /// The control shows something else than before. [user-interface thread]
  virtual void ControlChanged(const TControl& control) = 0;
};

/// Base of every property page. The host creates the page, calls InitFrame once and InitPage for the action
/// that it edits, which also gives the combo boxes of variables their names; ReadActionData and
/// WriteActionData carry the properties into the controls and back. An action of another class than the
/// page's is refused with EVekError. [user-interface thread]
class VEK_FORMS_API TFrame {
 public:
  TFrame(std::string_view pageName, const ActionClass& edits);
  virtual ~TFrame();
  TFrame(const TFrame&) = delete;
  TFrame& operator=(const TFrame&) = delete;

  virtual void InitFrame(IVekPageOwner& owner);
  virtual void InitPage(TVekAction& action);
  virtual void ReadActionData(TVekAction& action);
  virtual void OnPageActivate();
  virtual void OnPageDeActivate();

  /// Goes through the property setters. Nothing is written when one of the controls holds no value of its
  /// property, which raises EVekError.
  virtual void WriteActionData(TVekAction& action);

  /// The caption of the page's tab.
  const std::string& PageName() const { return pageName_; }

  /// In the order in which the page shows them.
  std::span<const std::unique_ptr<TControl>> Controls() const { return controls_; }

  /// The control of that name, without regard to case, or null.
  TControl* FindControl(std::string_view name) const;

  void ControlChanged(const TControl& control) const;

 protected:
  template <class Control, class... Arguments>
  Control& AddControl(Arguments&&... arguments) {
    auto control = std::make_unique<Control>(*this, std::forward<Arguments>(arguments)...);
    Control& added = *control;
    controls_.push_back(std::move(control));
    return added;
  }

  void CheckClass(const TVekAction& action) const;
  void ReadControls(const TLumXMLObject& object);
  void WriteControls(TLumXMLObject& object) const;

 private:
  std::string pageName_;
  const ActionClass& edits_;
  IVekPageOwner* owner_ = nullptr;
  std::vector<std::unique_ptr<TControl>> controls_;
};

/// Base of the pages of the host's options dialog. It edits no action; the host hands it the options object.
class VEK_FORMS_API TOptionsPage : public TFrame {
 public:
  explicit TOptionsPage(std::string_view pageName);
  ~TOptionsPage() override;
  void ReadOptions(const TVekOptionsObject& options);
  void WriteOptions(TVekOptionsObject& options) const;  // as WriteActionData
};

/// What the pages of one class of objects have in common. A page's constructor adds its controls, one line
/// each; a control is bound by naming the property, and one without a property is for the page itself to read
/// and write.
template <class Object, class Base>
class TBoundFrame : public Base {
 public:
  using Base::Base;

 protected:
  template <class Demand>
  using Property = PropertyOf<Object, std::type_identity_t<Demand>>;

  THeading& Heading(std::string_view caption) { return Add<THeading>("", nullptr).Caption(caption); }

  TEdit& Edit(std::string_view name, Property<TEdit> property = {}) {
    return Add<TEdit>(name, property.Row());
  }
  TMemo& Memo(std::string_view name, Property<TMemo> property = {}) {
    return Add<TMemo>(name, property.Row());
  }
  TButtonEdit& ButtonEdit(std::string_view name, Property<TButtonEdit> property = {}) {
    return Add<TButtonEdit>(name, property.Row());
  }
  TComboBox& ComboBox(std::string_view name, Property<TComboBox> property = {}) {
    return Add<TComboBox>(name, property.Row());
  }
  TListBox& ListBox(std::string_view name, Property<TListBox> property = {}) {
    return Add<TListBox>(name, property.Row());
  }

  TCheckBox& CheckBox(std::string_view name, std::string_view caption, Property<TCheckBox> property = {}) {
    return Add<TCheckBox>(name, property.Row()).Caption(caption);
  }

  /// Checked while the set holds the member.
  template <class Member>
  TCheckBox& CheckBox(std::string_view name, std::string_view caption, Property<SetWith<Member>> property,
                      Member member) {
    return Add<TCheckBox>(name, property.Row(), SetOf<Member>{member}.Bits()).Caption(caption);
  }

  TRadioButton& RadioButton(std::string_view name, std::string_view caption) {
    return Add<TRadioButton>(name, nullptr, PropertyValue(false)).Caption(caption);
  }

  /// Checked while the property has that value: one of its enumeration, or true or false.
  template <class Value>
  TRadioButton& RadioButton(std::string_view name, std::string_view caption,
                            Property<ChoiceOf<Value>> property, Value value) {
    const PropertyValue choice = property_detail::Traits<Value>::ToValue(value);
    return Add<TRadioButton>(name, property.Row(), choice).Caption(caption);
  }

 private:
  template <class Control, class... Arguments>
  Control& Add(Arguments&&... arguments) {
    return this->template AddControl<Control>(std::forward<Arguments>(arguments)...);
  }
};

/// Base of the pages of one class of actions; a page that several classes share names the one that they have
/// in common.
template <class Action>
class TActionFrame : public TBoundFrame<Action, TFrame> {
 public:
  using EditedAction = Action;
  explicit TActionFrame(std::string_view pageName) : TBoundFrame<Action, TFrame>(pageName, EditedClass()) {}

 protected:
  /// The action under its own class, for pages that do more than carry values.
  Action& Edited(TVekAction& action) const {
    this->CheckClass(action);
    return static_cast<Action&>(action);
  }

 private:
  static const ActionClass& EditedClass() {
    if constexpr (requires { Action::Class(); }) {
      return Action::Class();
    } else {
      return Action::kClass;
    }
  }
};

/// Base of the page of one class of options.
template <class Options>
using TOptionsFrame = TBoundFrame<Options, TOptionsPage>;

/// A class of pages as the host knows it.
struct PageClass {
  std::string_view className;
  std::unique_ptr<TFrame> (*create)();
};

/// The class of `Page`, which declares `kClassName`.
template <class Page>
inline constexpr PageClass kPageClass{Page::kClassName,
                                      []() -> std::unique_ptr<TFrame> { return std::make_unique<Page>(); }};
