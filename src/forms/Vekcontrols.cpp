#include "forms/Vekcontrols.h"

#include "forms/Vekpluginapi.h"

TControl::TControl(TFrame& page, std::string_view name, const PropertyRow* property)
    : page_(page), name_(name), property_(property) {}
TControl::~TControl() = default;
THeading::~THeading() = default;
TCheckBox::~TCheckBox() = default;
TRadioButton::~TRadioButton() = default;
TListBox::~TListBox() = default;

void TControl::SetCaption(std::string_view caption) { caption_ = caption, Changed(); }
void TControl::SetHint(std::string_view hint) { hint_ = hint, Changed(); }
void TControl::SetEnabled(bool enabled) { enabled_ = enabled, Changed(); }
void TControl::SetVisible(bool visible) { visible_ = visible, Changed(); }

void TControl::ReadFrom(const TLumXMLObject& action) { SetValue(property_->get(action)); }
void TControl::WriteTo(TLumXMLObject& action) const { property_->set(action, Value()); }
void TControl::CheckValue() const {}
PropertyValue TControl::Value() const { return {}; }
void TControl::SetValue(const PropertyValue& /*value*/) {}

void TControl::Changed() { page_.ControlChanged(*this); }
void TControl::ChangedByUser() {
  Changed();
  if (onChange_) onChange_();
}

TCheckBox::TCheckBox(TFrame& page, std::string_view name, const PropertyRow* property, uint32_t memberBit)
    : ControlOf(page, name, property), memberBit_(memberBit) {}

void TCheckBox::SetChecked(bool checked) { checked_ = checked, Changed(); }
void TCheckBox::Click() {
  if (!Enabled()) return;
  checked_ = !checked_;
  ChangedByUser();
}

void TCheckBox::SetValue(const PropertyValue& value) {
  SetChecked(memberBit_ ? (std::get<int64_t>(value) & memberBit_) != 0 : std::get<bool>(value));
}

void TCheckBox::WriteTo(TLumXMLObject& action) const {
  if (!memberBit_) return ControlOf::WriteTo(action);
  const int64_t bits = std::get<int64_t>(Property()->get(action));
  Property()->set(action, checked_ ? bits | memberBit_ : bits & ~int64_t{memberBit_});
}

StringList TCheckBox::Choices() const {
  StringList members;
  if (!memberBit_) return members;
  for (uint32_t bit = 1; std::string_view member : Property()->enumType().values) {
    if (bit == memberBit_) members.emplace_back(member);
    bit <<= 1;
  }
  return members;
}

TRadioButton::TRadioButton(TFrame& page, std::string_view name, const PropertyRow* property,
                           PropertyValue choice)
    : ControlOf(page, name, property), choice_(std::move(choice)) {}

void TRadioButton::SetChecked(bool checked) {
  checked_ = checked;
  Changed();
  if (!checked) return;
  for (const auto& control : Page().Controls()) {
    auto* other = dynamic_cast<TRadioButton*>(control.get());
    if (other && other != this && other->checked_ && other->Property() == Property())
      other->SetChecked(false);
  }
}

StringList TRadioButton::Choices() const {
  return Property() ? StringList{PropertyToText(*Property(), choice_)} : StringList{};
}

void TRadioButton::Click() {
  if (!Enabled() || checked_) return;
  SetChecked(true);
  ChangedByUser();
}

void TRadioButton::WriteTo(TLumXMLObject& action) const {
  if (checked_) ControlOf::WriteTo(action);
}

void TListBox::SetItems(StringList items) { items_ = std::move(items), Changed(); }

void TListBox::Append(std::string_view item) {
  if (!Enabled()) return;
  items_.emplace_back(item);
  ChangedByUser();
}

void TListBox::Remove(size_t index) {
  if (!Enabled() || index >= items_.size()) return;
  items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(index));
  ChangedByUser();
}
