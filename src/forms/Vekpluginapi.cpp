#include "forms/Vekpluginapi.h"

#include "forms/Vekpropertyeditors.h"

TFrame::TFrame(std::string_view pageName, const ActionClass& edits) : pageName_(pageName), edits_(edits) {}
TFrame::~TFrame() = default;

void TFrame::InitFrame(IVekPageOwner& owner) { owner_ = &owner; }
/// The variables may be others each time a page is shown.
void TFrame::InitPage(TVekAction& action) {
  CheckClass(action);
  for (const auto& control : controls_) {
    auto* box = dynamic_cast<TComboBox*>(control.get());
    const PropertyRow* row = box ? box->Property() : nullptr;
    if (row && row->role == TextRole::Variable) box->Items(TVariableNameEditor::VariableNames());
  }
}
void TFrame::OnPageActivate() {}
void TFrame::OnPageDeActivate() {}

void TFrame::ReadActionData(TVekAction& action) {
  CheckClass(action);
  ReadControls(action);
}

void TFrame::WriteActionData(TVekAction& action) {
  CheckClass(action);
  WriteControls(action);
}

void TFrame::ReadControls(const TLumXMLObject& object) {
  for (const auto& control : controls_) {
    if (control->Property()) control->ReadFrom(object);
  }
}

void TFrame::WriteControls(TLumXMLObject& object) const {
  for (const auto& control : controls_) control->CheckValue();
  for (const auto& control : controls_) {
    if (control->Property()) control->WriteTo(object);
  }
}

TControl* TFrame::FindControl(std::string_view name) const {
  for (const auto& control : controls_) {
    if (SameText(control->Name(), name)) return control.get();
  }
  return nullptr;
}

void TFrame::ControlChanged(const TControl& control) const {
  if (owner_) owner_->ControlChanged(control);
}

void TFrame::CheckClass(const TVekAction& action) const {
  if (action.ClassType().InheritsFrom(edits_)) return;
  throw EVekError("the page \"" + pageName_ + "\" edits a " + std::string(edits_.className) + ", not a " +
                  std::string(action.ClassType().className));
}

namespace {

// Of no action's class, so that every action is refused.
const ActionClass kOptions{.className = "(set of options)"};

}  // namespace

TOptionsPage::TOptionsPage(std::string_view pageName) : TFrame(pageName, kOptions) {}
TOptionsPage::~TOptionsPage() = default;
void TOptionsPage::ReadOptions(const TVekOptionsObject& options) { ReadControls(options); }
void TOptionsPage::WriteOptions(TVekOptionsObject& options) const { WriteControls(options); }
